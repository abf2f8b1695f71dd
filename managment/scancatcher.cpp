#include "scancatcher.h"

#include "qmessdlg.h"
#include "qqestion.h"
#include "qwhyprice.h"

#include <QAbstractSpinBox>
#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>

namespace {
bool isBox(const QObject *window)
{
    return qobject_cast<const QQestion *>(window) != nullptr ||
           qobject_cast<const QMessDlg *>(window) != nullptr ||
           qobject_cast<const QWhyPrice *>(window) != nullptr;
}

/// What is typed into when the widget has the focus.
QLineEdit *editorOf(QWidget *focus)
{
    if (qobject_cast<QAbstractSpinBox *>(focus) != nullptr)
        return focus->findChild<QLineEdit *>();
    return qobject_cast<QLineEdit *>(focus);
}
} // namespace

ScanCatcher::ScanCatcher(QWidget *area) : QObject(area), m_area(area)
{
    qApp->installEventFilter(this);
}

/// Parents get the same event when the focus does not want it: only the first counts.
bool ScanCatcher::eventFilter(QObject *watched, QEvent *event)
{
    // A box swallows what a scanner types into it; that is to be seen before.
    if (event->type() == QEvent::Show && isBox(watched))
        qApp->installEventFilter(this);
    if (m_isDeaf || event->type() != QEvent::KeyPress || watched != QApplication::focusWidget())
        return false;
    auto *focus = static_cast<QWidget *>(watched);
    const auto *key = static_cast<QKeyEvent *>(event);
    const bool isNext = m_pace.take(*key);
    const ScanPace::Kind kind = ScanPace::kindOf(*key);
    if (kind == ScanPace::Digit && m_pace.code().size() == 1)
        begin(focus);
    const bool isScan = kind == ScanPace::End && isNext && m_pace.isCode() && covers(focus);
    if (isScan) {
        takeBack(focus);
        emit scanned(m_pace.code());
    }
    return isScan;
}

/// The area itself, or a box that asks something on its behalf.
bool ScanCatcher::covers(QWidget *focus) const
{
    const bool isAsked = isBox(focus->window());
    const QWidget *above = focus;
    while (above != nullptr && above != m_area && (isAsked || !above->isWindow()))
        above = above->parentWidget();
    return above == m_area;
}

void ScanCatcher::begin(QWidget *focus)
{
    m_field = focus;
    const QLineEdit *line = editorOf(focus);
    m_textBefore = line != nullptr ? line->text() : QString();
}

void ScanCatcher::takeBack(QWidget *focus)
{
    if (QLineEdit *before = m_field != nullptr ? editorOf(m_field) : nullptr)
        before->setText(m_textBefore);
    QLineEdit *now = editorOf(focus);
    if (now != nullptr && focus != m_field)
        now->clear();
}
