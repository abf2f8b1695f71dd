#include "messagetext.h"

#include <QBoxLayout>
#include <QGuiApplication>
#include <QLabel>
#include <QScreen>

namespace {
/// Title, buttons and frame of a question find room beside so much of it.
int greatestHeight()
{
    return QGuiApplication::primaryScreen()->availableGeometry().height() * 3 / 5;
}
} // namespace

MessageText::MessageText(QWidget *parent) : QScrollArea(parent), m_label(new QLabel(this))
{
    m_label->setObjectName(QStringLiteral("labelText"));
    m_label->setAlignment(Qt::AlignHCenter | Qt::AlignVCenter);
    m_label->setWordWrap(true);
    m_label->setTextFormat(Qt::PlainText);
    setWidget(m_label);
    setWidgetResizable(true);
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    viewport()->setAutoFillBackground(false);
    m_label->setAutoFillBackground(false);
}

void MessageText::setText(const QString &text)
{
    m_label->setText(text);
    fitTo(qMin(greatestWidth(), m_label->sizeHint().width()));
}

void MessageText::fitTo(int width)
{
    const int height = m_label->heightForWidth(width);
    const int allowed = qMin(height, greatestHeight());
    setMinimumSize(qMin(width, greatestWidth()), allowed);
    setMaximumHeight(greatestHeight());
}

int MessageText::greatestWidth()
{
    return QGuiApplication::primaryScreen()->virtualGeometry().width() / 2;
}

void fitButtons(QBoxLayout *row, int width)
{
    row->setDirection(QBoxLayout::LeftToRight);
    if (row->sizeHint().width() > width)
        row->setDirection(QBoxLayout::TopToBottom);
}
