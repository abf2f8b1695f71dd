#include "login.h"

#include "errorlist.h"
#include "qmessevent.h"
#include "qqestion.h"
#include "qupdatebd.h"
#include "settingfile.h"
#include "userstate.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace {
const QLatin1String loginKey("login");

/// True when the name of the last user of this machine may stand in the settings file too.
bool mayRememberLogin(const QString &directory)
{
    const QFileInfo file(SettingFile::path(directory));
    return SettingFile::problem(directory).isEmpty() &&
           (file.exists() ? file.isWritable() : QFileInfo(directory).isWritable());
}

std::optional<Entrant> find(const Db &db, const QString &name, const QString &identifier, bool isCard)
{
    const auto rights = isCard ? findUserOfCard(db, identifier) : findUser(db, name, identifier);
    if (!rights)
        return std::nullopt;
    QUpdateBD().create_tmp(*db.connection(), db.receiver());
    return Entrant{*rights, nameSename(db, rights->idUser.toInt())};
}
} // namespace

Login::Login(const QString &directory, const QString &prefix, const QString &connection, const Window &window)
    : m_window(window)
    , m_dialog(directory, prefix, window.widget, false, mayRememberLogin(directory))
    , m_hintTasks(connection, window.widget, nullptr)
    , m_tasks(connection, window.widget, nullptr)
{
    m_dialog.setCheck([this] { lookForUser(); }, [this] { m_tasks.drop(); });
    m_dialog.suggestLogin(rememberedState(QString(), loginKey).toString());
}

std::optional<Entrant> Login::ask(bool unattended)
{
    m_isUnattended = unattended;
    m_dialog.setAttribute(Qt::WA_DontShowOnScreen, unattended);
    askWhetherFirstUser();
    if (m_dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    rememberState(QString(), loginKey, m_dialog.login());
    return m_entrant;
}

/// Names the user that a new database comes with, as long as nobody has changed it.
void Login::askWhetherFirstUser()
{
    const auto ask = [](const Db &db) {
        return db.firstText(
            QStringLiteral("SELECT COUNT(*)=1 AND MAX(login='admin' AND pass='') FROM users"));
    };
    m_hintTasks.read(ask, [this](const std::optional<QString> &isUntouched) {
        if (isUntouched == QStringLiteral("1")) {
            m_dialog.suggestLogin(QStringLiteral("admin"));
            m_dialog.showHint(tr("Перший користувач цієї бази: admin, пароль порожній. Увійшовши, змініть "
                                 "пароль: Користувачі → Змінити пароль."));
        }
        if (!m_isUnattended)
            return;
        m_dialog.ok();
        if (!m_dialog.isWaiting())
            m_dialog.reject();
    });
}

void Login::lookForUser()
{
    const auto look = [name = m_dialog.login(), identifier = m_dialog.identifier(),
                       isCard = m_dialog.isCard()](const Db &db) {
        return find(db, name, identifier, isCard);
    };
    m_tasks.read(look, [this](const std::optional<Entrant> &entrant) { take(entrant); });
}

void Login::take(const std::optional<Entrant> &entrant)
{
    m_entrant = entrant;
    m_dialog.answer(entrant.has_value());
    if (entrant)
        return;
    tellWhyNobody();
    if (m_isUnattended)
        m_dialog.reject();
}

/// What was reported is shown over the dialog. A lost server is reported once: then its words do.
void Login::tellWhyNobody()
{
    const QString loss = m_window.lossOfServer();
    if (!loss.isEmpty())
        QQestion::question(&m_dialog, tr("Попередження."), loss, true);
    QCoreApplication::sendPostedEvents(m_window.widget, QMessEvent::eventType);
    m_window.errors->show();
}
