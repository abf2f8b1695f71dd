#include "narrowbar.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

NarrowBar::NarrowBar(QWidget *parent) : QFrame(parent), m_words(new QLabel(this))
{
    setObjectName(QStringLiteral("narrowBar"));
    setFrameShape(QFrame::StyledPanel);
    m_words->setObjectName(QStringLiteral("labelNarrowed"));
    m_words->setWordWrap(true);
    m_words->setTextFormat(Qt::PlainText);
    auto *showAll = new QPushButton(tr("Показати всі"), this);
    showAll->setObjectName(QStringLiteral("pbShowAll"));
    auto *line = new QHBoxLayout(this);
    line->setContentsMargins(6, 2, 6, 2);
    line->addWidget(m_words, 1);
    line->addWidget(showAll);
    connect(showAll, &QPushButton::clicked, this, &NarrowBar::showAllWanted);
    hide();
}

void NarrowBar::tell(const QString &words)
{
    m_words->setText(tr("Показано лише: %1").arg(words));
    setVisible(!words.isEmpty());
}
