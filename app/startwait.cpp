#include "startwait.h"

#include "instancelimit.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QMessageBox>
#include <QPushButton>

namespace {
const int reminderMs = 30000;

/// No translation is loaded so early; the text is in both languages.
class StartWait : public QMessageBox
{
public:
    explicit StartWait(int noticeMs) : m_noticeMs(noticeMs)
    {
        setObjectName(QStringLiteral("StartWait"));
        setIcon(QMessageBox::Information);
        setWindowTitle(QStringLiteral("Veltab"));
        setText(
            QStringLiteral("Запуск чекає на іншу копію програми…\nWaiting for another copy of the program…"));
        setInformativeText(QStringLiteral(
            "Інша копія саме запускається або показує попередження: закрийте його. Якщо інших копій немає, "
            "вийдіть і перезавантажте комп'ютер."));
        QPushButton *wait = addButton(QStringLiteral("&Чекати далі"), QMessageBox::RejectRole);
        m_leave = addButton(QStringLiteral("&Вийти"), QMessageBox::DestructiveRole);
        setDefaultButton(wait);
        setEscapeButton(wait);
        setModal(false);
        m_clock.start();
    }

    /// Lets the window work; false when the user wants to leave.
    bool goOn()
    {
        QCoreApplication::processEvents();
        if (clickedButton() == m_leave)
            return false;
        if (isVisible()) {
            m_isTold = true;
        } else if (m_isTold) {
            m_isTold = false;
            m_noticeMs = reminderMs;
            m_clock.restart();
        } else if (m_clock.elapsed() > m_noticeMs) {
            show();
        }
        return true;
    }

private:
    QElapsedTimer m_clock;
    int m_noticeMs;
    bool m_isTold = false;
    QPushButton *m_leave = nullptr;
};
} // namespace

bool waitForTurn(InstanceLimit *limit, int noticeMs)
{
    StartWait notice(noticeMs);
    return limit->takeTurn([&notice] { return notice.goOn(); });
}
