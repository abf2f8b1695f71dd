#include "ui_veltab.h"
#include "veltab.h"

#include "databasestart.h"
#include "permissions.h"
#include "qmessevent.h"
#include "qprocevent.h"
#include "qqestion.h"
#include "qseluser.h"
#include "qtablebase.h"
#include "qupdatebd.h"
#include "setting.h"
#include "tunewindow.h"
#include "userstate.h"

#include <QTimer>
#include <QtConcurrent>

/// The part of the main window that connects, logs in, hears the messages and shows what the rights allow.

void Veltab::connectDatabase()
{
    m_isReconnectWanted = m_task.isRunning();
    if (m_isReconnectWanted)
        return;
    logout();
    m_isConnected = false;
    const DatabaseAddress address = m_setting->databaseAddress();
    setWindowTitle(tr("Veltab  База:") + address.name);
    showConnectionState(tr("Підключення до бази даних на %1:%2").arg(address.host).arg(address.port));
    m_db = QSqlDatabase();
    QSqlDatabase::removeDatabase(QStringLiteral("veltab"));
    m_db = addConnection(QStringLiteral("veltab"), address);
    m_task = QtConcurrent::run(connectToDatabase, &m_db, address, this);
    updateMenus();
}

bool Veltab::event(QEvent *event)
{
    if (event->type() == QMessEvent::eventType) {
        handleMessage(*static_cast<QMessEvent *>(event));
        return true;
    }
    if (event->type() == QProcEvent::eventType) {
        handleOutcome(*static_cast<QProcEvent *>(event));
        return true;
    }
    return QMainWindow::event(event);
}

void Veltab::handleMessage(const QMessEvent &message)
{
    m_logger.wlog(message.kind(), tr("File:") + message.file(), message.line(), message.text());
    if (message.kind() == QMessEvent::Warning || message.kind() == QMessEvent::Information)
        ui->statusbar->showMessage(message.text().simplified(), 8000);
    if (message.kind() != QMessEvent::Critical)
        return;
    m_errors.append(message.text());
    while (m_errors.size() > qMax(1, m_setting->countMsg()))
        m_errors.removeFirst();
    // One dialog for a burst of errors, and none from inside the statement that failed.
    QTimer::singleShot(0, this, &Veltab::showErrors);
}

void Veltab::showErrors()
{
    if (m_isShowingErrors || m_errors.isEmpty())
        return;
    m_isShowingErrors = true;
    QWidget *parent = QApplication::activeModalWidget();
    while (!m_errors.isEmpty()) {
        m_errors.removeDuplicates();
        const QString text = QStringList(m_errors.mid(0, 5)).join(QStringLiteral("\n\n"));
        m_errors = m_errors.mid(5);
        QQestion::question(parent == nullptr ? this : parent, tr("Попередження."), text, true);
    }
    m_isShowingErrors = false;
}

void Veltab::handleOutcome(const QProcEvent &outcome)
{
    m_task.waitForFinished();
    if (m_isReconnectWanted) {
        connectDatabase();
        return;
    }
    m_isConnected = outcome.outcome() == QProcEvent::Connected;
    updateMenus();
    switch (outcome.outcome()) {
    case QProcEvent::Connected:
        login();
        break;
    case QProcEvent::SchemaReady:
        connectDatabase();
        break;
    case QProcEvent::NoDatabase:
    case QProcEvent::NoTables:
        offerSchema(outcome.outcome() == QProcEvent::NoDatabase);
        break;
    case QProcEvent::ConnectionFailed:
        showConnectionState(
            tr("Немає зв'язку з базою даних. Перевірте налаштування або мережу і підключіться "
               "знову."));
        break;
    case QProcEvent::SchemaFailed:
        showConnectionState(
            tr("Таблиці не створено. Перевірте права користувача бази і підключіться знову."));
        break;
    }
}

void Veltab::offerSchema(bool databaseIsMissing)
{
    const QString name = m_setting->databaseAddress().name;
    const QString text =
        databaseIsMissing
            ? tr("На сервері немає бази даних «%1».\nСтворити її та таблиці програми?").arg(name)
            : tr("У базі даних «%1» немає таблиць програми.\nСтворити таблиці?").arg(name);
    if (QQestion::question(this, tr("Створити?"), text) == QDialog::Accepted)
        CreateTables();
    else
        showConnectionState(tr("База даних не готова: таблиць програми немає."));
}

void Veltab::CreateTables()
{
    if (m_task.isRunning())
        return;
    showConnectionState(tr("Зачекайте. Створюються таблиці."));
    m_task = QtConcurrent::run(createDatabaseAndSchema, m_setting->databaseAddress(), this);
}

void Veltab::TuneDatabase()
{
    if (m_tuning == nullptr)
        m_tuning = TuneWindow::ask(&m_db, this);
    if (m_tuning != nullptr)
        m_tuning->activateWindow();
}

void Veltab::login()
{
    if (!m_isConnected || ui->tabWidget->count() > 0) {
        if (m_isConnected)
            refuse(tr("Перед входом закрийте всі вкладки!"));
        return;
    }
    QSelUser dialog(m_directory, m_setting->prefIdentify(), this, false, false);
    bool isFound = false;
    while (!isFound) {
        if (m_isUnattended)
            dialog.ok();
        else if (dialog.exec() != QDialog::Accepted)
            break;
        isFound = findUser(dialog.login(), dialog.identifier(), dialog.isCard());
        if (m_isUnattended)
            break;
    }
    // Whoever worked before goes on when nobody else came in.
    if (isFound)
        welcome();
    else if (!m_user.isLoaded())
        showConnectionState(tr("Користувач не увійшов."));
    updateMenus();
}

bool Veltab::findUser(const QString &name, const QString &identifier, bool isCard)
{
    const bool found =
        isCard ? m_user.loadpermis(&m_db, identifier) : m_user.loadpermis(&m_db, name, identifier);
    // What was reported is shown before the dialog comes back.
    QCoreApplication::sendPostedEvents(this, QMessEvent::eventType);
    showErrors();
    return found;
}

void Veltab::readRights()
{
    if (m_user.isLoaded())
        m_user.reload(&m_db);
}

void Veltab::logout()
{
    m_user.clear();
    m_userLabel->clear();
    EnableButton(false);
}

void Veltab::welcome()
{
    QUpdateBD().create_tmp(m_db, this);
    m_userLabel->setText(tr("Користувач") + QStringLiteral(": ") +
                         m_user.getNameSename(&m_db, m_user.idUser().toInt()));
    const QVariant geometry = rememberedState(m_user.idUser(), QStringLiteral("geometry"));
    if (geometry.isValid())
        restoreGeometry(geometry.toByteArray());
    showConnectionState(QString());
    EnableButton(true);
    if (m_user.maySee(Permission::BackOffice))
        emit ready();
}

void Veltab::EnableButton(bool enable)
{
    showRights();
    if (enable && !m_user.maySee(Permission::BackOffice)) {
        refuse(tr("У вас немає доступу до бекофісу."));
        showConnectionState(tr("У вас немає доступу до бекофісу."));
    }
}

void Veltab::showRights()
{
    const bool allowed = m_user.maySee(Permission::BackOffice);
    for (const Entry &entry : m_entries)
        entry.action->setVisible(allowed && entry.open && m_user.maySee(entry.permission));
    changetab(ui->tabWidget->currentIndex());
    updateMenus();
}

void Veltab::visible(bool vis, bool exp)
{
    const bool exporting = (vis || exp) && m_user.maySee(Permission::ExportCsv);
    for (QAction *action : {ui->add, ui->edit, ui->dell})
        action->setVisible(vis);
    for (QAction *action : {ui->export_to_csv, ui->export_to_csv_UTF8, ui->export_to_csv_cp1251})
        action->setVisible(exporting);
    // Nothing stands behind these commands yet.
    for (QAction *action : {ui->import_csv_UTF8, ui->import_csv_cp1251, ui->import_csv_utf8_tab})
        action->setVisible(false);
    updateMenus();
}

void Veltab::visible(bool vis)
{
    visible(vis, vis);
}

void Veltab::updateMenus()
{
    const bool nobody = !m_user.isLoaded();
    const bool service = m_user.maySee(Permission::Service) || (nobody && m_isServiceShown);
    ui->settings->setVisible(service || nobody || !m_isConnected);
    ui->mt_create_tables->setVisible(service);
    ui->mt_tune->setVisible(service && m_isConnected);
    ui->reconnect->setVisible(!m_isConnected && !m_task.isRunning());
    ui->login->setVisible(m_isConnected);
    ui->pbLogin->setVisible(m_isConnected && nobody);
    ui->pbReconnect->setVisible(!m_isConnected && !m_task.isRunning());
    ui->connectionBar->setVisible(!ui->labelConnection->text().isEmpty());
    for (QMenu *menu : ui->menubar->findChildren<QMenu *>(QString(), Qt::FindDirectChildrenOnly)) {
        const QList<QAction *> actions = menu->actions();
        const bool any = std::any_of(actions.begin(), actions.end(), [](const QAction *action) {
            return action->isVisible() && !action->isSeparator();
        });
        menu->menuAction()->setVisible(any);
    }
}

void Veltab::showConnectionState(const QString &text)
{
    ui->labelConnection->setText(text);
    updateMenus();
}

void Veltab::applySettings()
{
    if (ui->tabWidget->count() == 0)
        connectDatabase();
    else
        refuse(tr("Нові налаштування бази почнуть діяти, коли ви закриєте всі вкладки і увійдете знову."));
}

void Veltab::s_setting()
{
    m_setting->exec();
}

void Veltab::askServiceMenu()
{
    if (QQestion::question(this, tr("Ви впевнені?"),
                           tr("Невірні налаштування\nможуть пошкодити дані в базі!")) != QDialog::Accepted)
        return;
    m_isServiceShown = true;
    updateMenus();
}
