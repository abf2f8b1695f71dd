#pragma once

#include "permissions.h"
#include "testing.h"

#include <QTemporaryDir>
#include <QWidget>
#include <memory>

class QLoadedUser;
class setting;

/// A database with the program's schema, settings of the test's own and the administrator at work, who sees
/// the shop groups 1 "default", 2 "Захід" and 3 "Схід", but not 4 "Чужа".
class Workplace
{
public:
    Workplace();
    ~Workplace();
    Q_DISABLE_COPY(Workplace)

    /// The groups as they were at the beginning, without shops, registers and goods.
    void clear();
    /// The administrator logs in anew, with that right to one kind of tab.
    void logIn(int permission, int right = Permission::Full);
    /// Writes Velta.ini and reads it.
    void writeSettings(const QByteArray &text);

    QSqlDatabase *connection() { return base.connection(); }
    QLoadedUser *user() { return m_user.get(); }
    setting *settings() { return m_settings.get(); }

    FreshDatabase base;

private:
    QTemporaryDir m_home;
    QWidget m_window;
    std::unique_ptr<QLoadedUser> m_user;
    std::unique_ptr<setting> m_settings;
};

/// Puts a text into a line of a window, or chooses it in a box.
void enter(QWidget *window, const QString &name, const QString &text);
/// Clicks on OK and returns the warning that the save meets; empty when there is none. Waits for its end.
QString saveMeets(QDialog *editor);
/// Runs open, which opens an editor of that type, and drive on it when it has read what it shows. What it
/// began is waited for. False when none has opened.
template<typename Editor>
bool inEditor(const std::function<void()> &open, const std::function<void(Editor *)> &drive)
{
    const bool isDriven = withModal<Editor>(open, [&](Editor *editor) {
        waitOutTasks();
        drive(editor);
        waitOutTasks();
    });
    waitOutTasks();
    return isDriven;
}
