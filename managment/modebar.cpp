#include "modebar.h"

#include <QButtonGroup>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVariant>

namespace {
const char captionProperty[] = "caption";
} // namespace

ModeBar::ModeBar(QWidget *parent)
    : QWidget(parent), m_row(new QHBoxLayout(this)), m_buttons(new QButtonGroup(this))
{
    m_row->setContentsMargins(0, 0, 0, 0);
    m_row->setSpacing(0);
    connect(m_buttons, &QButtonGroup::idClicked, this, [this](int id) {
        show(m_mode);
        emit chosen(static_cast<GoodsSearch::Mode>(id));
    });
}

void ModeBar::addMode(GoodsSearch::Mode mode, const QString &caption)
{
    auto *button = new QPushButton(caption, this);
    button->setObjectName(QStringLiteral("pbMode%1").arg(mode));
    button->setProperty(captionProperty, caption);
    button->setCheckable(true);
    button->setFocusPolicy(Qt::TabFocus);
    m_buttons->addButton(button, mode);
    m_row->addWidget(button);
    show(m_mode);
}

void ModeBar::show(GoodsSearch::Mode mode)
{
    m_mode = mode;
    const auto all = m_buttons->buttons();
    for (QAbstractButton *button : all) {
        const bool isChosen = m_buttons->id(button) == mode;
        // A pressed button alone is hardly to be told in dark colours.
        QFont font = button->font();
        font.setBold(isChosen);
        button->setFont(font);
        if (isChosen)
            button->setChecked(true);
    }
}

void ModeBar::setCount(GoodsSearch::Mode mode, int rows)
{
    QAbstractButton *button = m_buttons->button(mode);
    const QString caption = button->property(captionProperty).toString();
    button->setText(rows == 0 ? caption : QStringLiteral("%1 (%2)").arg(caption).arg(rows));
}

QWidgetList ModeBar::buttons() const
{
    QWidgetList all;
    const auto buttons = m_buttons->buttons();
    for (QAbstractButton *button : buttons)
        all.append(button);
    return all;
}
