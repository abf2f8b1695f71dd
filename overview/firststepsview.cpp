#include "firststepsview.h"

#include "nextstep.h"
#include "qloadeduser.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

FirstStepsView::FirstStepsView(const QLoadedUser *user, QWidget *parent)
    : QWidget(parent), m_user(user), m_refusal(new QLabel(this))
{
    setObjectName(QStringLiteral("steps"));
    auto *title = new QLabel(tr("Кроки до першого продажу"), this);
    QFont large = title->font();
    large.setPointSizeF(large.pointSizeF() * 1.4);
    large.setBold(true);
    title->setFont(large);
    auto *grid = new QGridLayout;
    grid->setColumnStretch(0, 3);
    grid->setColumnStretch(2, 2);
    for (const NextStep &step : nextSteps())
        m_lines.append(addLine(grid, step));
    m_refusal->setObjectName(QStringLiteral("labelStepsRefusal"));
    m_refusal->setText(tr("Кроки без кнопок роблять ті, хто має на них права."));
    m_refusal->setWordWrap(true);
    auto *rows = new QVBoxLayout(this);
    rows->addWidget(title);
    rows->addLayout(grid);
    rows->addWidget(m_refusal);
    rows->addStretch(1);
    setSteps({});
}

FirstStepsView::Line FirstStepsView::addLine(QGridLayout *grid, const NextStep &step)
{
    const int number = m_lines.size() + 1;
    auto *text = new QLabel(this);
    text->setObjectName(QStringLiteral("labelStep%1").arg(number));
    text->setWordWrap(true);
    auto *button = new QPushButton(nextStepText(step.button), this);
    button->setObjectName(QStringLiteral("pbStep%1").arg(number));
    button->setAccessibleDescription(nextStepText(step.title));
    connect(button, &QPushButton::clicked, this,
            [this, step] { emit stepWanted(QLatin1String(step.action), step.isAdding); });
    grid->addWidget(text, number, 0);
    grid->addWidget(button, number, 1);
    return {text, button};
}

void FirstStepsView::setSteps(const FirstSteps &done)
{
    bool isEvery = true;
    bool isNext = true;
    for (int i = 0; i < m_lines.size(); ++i) {
        const NextStep &step = nextSteps().at(i);
        const Line &line = m_lines.at(i);
        const bool isDone = done.*step.isDone;
        const bool isAllowed = m_user->mayEdit(step.permission);
        line.text->setText((isDone ? QStringLiteral("✓ ") : QStringLiteral("%1. ").arg(i + 1)) +
                           nextStepText(step.title));
        QFont font = this->font();
        font.setBold(!isDone && isNext);
        line.text->setFont(font);
        line.button->setVisible(isAllowed);
        isNext = isNext && isDone;
        isEvery = isEvery && isAllowed;
    }
    m_refusal->setVisible(!isEvery);
}
