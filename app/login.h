#pragma once

#include "dbtasks.h"
#include "qloadeduser.h"
#include "qseluser.h"

#include <functional>

class ErrorList;

/// Whom the database knows by what was entered.
struct Entrant
{
    UserRights rights;
    /// "name surname".
    QString name;
};

/// Lets a user in: asks who it is and looks for that user away from the window. Its dialog stays open until
/// somebody is found or nobody wants in any more; what was entered last counts.
class Login : public QObject
{
    Q_OBJECT

public:
    struct Window
    {
        /// Bears the dialog and receives the messages.
        QWidget *widget;
        ErrorList *errors;
        /// What the user is told as long as the server is gone, else empty.
        std::function<QString()> lossOfServer;
    };
    /// directory: where Velta.ini lies; prefix: of the user cards.
    Login(const QString &directory, const QString &prefix, const QString &connection, const Window &window);

    /// Nothing when nobody came in. unattended: whoever is remembered in the settings, without the dialog.
    std::optional<Entrant> ask(bool unattended);

private:
    void askWhetherFirstUser();
    void lookForUser();
    void take(const std::optional<Entrant> &entrant);
    void tellWhyNobody();

    Window m_window;
    QSelUser m_dialog;
    DbTasks m_hintTasks;
    DbTasks m_tasks;
    std::optional<Entrant> m_entrant;
    bool m_isUnattended = false;
};
