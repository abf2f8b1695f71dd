#include "scancatcher.h"

#include "qmessdlg.h"
#include "qqestion.h"

#include <QAbstractSpinBox>
#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>

namespace {
/// The longest pause between two keys of a scanner, and the shortest code.
constexpr qint64 pauseMs = 80;
constexpr int shortestCode = 8;

bool isDigit(const QKeyEvent *key)
{
    return !key->isAutoRepeat() && key->text().size() == 1 && key->text().at(0) >= QLatin1Char('0') &&
           key->text().at(0) <= QLatin1Char('9');
}

/// What a scanner is set to send behind a code.
bool isEnd(const QKeyEvent *key)
{
    return key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter || key->key() == Qt::Key_Tab;
}

bool isBox(const QObject *window)
{
    return qobject_cast<const QQestion *>(window) != nullptr ||
           qobject_cast<const QMessDlg *>(window) != nullptr;
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
    m_clock.start();
    qApp->installEventFilter(this);
}

/// Parents get the same event when the focus does not want it: only the first counts.
bool ScanCatcher::eventFilter(QObject *watched, QEvent *event)
{
    // A box swallows what a scanner types into it; that is to be seen before.
    if (event->type() == QEvent::Show && isBox(watched))
        qApp->installEventFilter(this);
    if (event->type() != QEvent::KeyPress || watched != QApplication::focusWidget())
        return false;
    auto *focus = static_cast<QWidget *>(watched);
    const auto *key = static_cast<QKeyEvent *>(event);
    // The system's time of the key holds even when the window was busy and the keys come all at once.
    const qint64 time = key->timestamp() != 0 ? static_cast<qint64>(key->timestamp()) : m_clock.elapsed();
    const bool isFast = time - m_lastKey <= pauseMs;
    m_lastKey = time;
    if (isDigit(key)) {
        if (!isFast || m_code.isEmpty())
            begin(focus);
        m_code += key->text();
        return false;
    }
    const bool isScan = isEnd(key) && isFast && m_code.size() >= shortestCode && covers(focus);
    const QString code = m_code;
    m_code.clear();
    if (isScan) {
        takeBack(focus);
        emit scanned(code);
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
    m_code.clear();
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
