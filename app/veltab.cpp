#include "veltab.h"
#include "ui_veltab.h"

#include "errorlist.h"
#include "gotobox.h"
#include "icons.h"
#include "joblist.h"
#include "keylist.h"
#include "memberpreview.h"
#include "menurights.h"
#include "messagelist.h"
#include "pages.h"
#include "permissions.h"
#include "qchangpass.h"
#include "qmessdlg.h"
#include "qmessevent.h"
#include "qqestion.h"
#include "qreports.h"
#include "qtablebase.h"
#include "setting.h"
#include "toolbar.h"
#include "userstate.h"
#include "version.h"
#include "windowplace.h"

#include <QCloseEvent>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QScreen>
#include <algorithm>

namespace {
const int allMessages = 4;
const int messageMs = 8000;
const QLatin1String toolBarKey("toolBar");
/// Of text, on a screen that is high enough for it and every page.
const int linesWithToolBar = 33;

/// Whoever has not decided sees it where the largest page leaves room for it.
bool isToolBarWanted(const QWidget *window, const QString &idUser)
{
    const QVariant remembered = rememberedState(idUser, toolBarKey);
    if (remembered.isValid())
        return remembered.toBool();
    const int lines =
        QGuiApplication::primaryScreen()->availableGeometry().height() / window->fontMetrics().height();
    return lines >= linesWithToolBar;
}

/// A sentence under the files: dialogs of the system have no place for it.
void addHint(QFileDialog *dialog, const QString &text)
{
    dialog->setOption(QFileDialog::DontUseNativeDialog);
    auto *hint = new QLabel(text, dialog);
    hint->setObjectName(QStringLiteral("labelHint"));
    hint->setWordWrap(true);
    if (auto *grid = qobject_cast<QGridLayout *>(dialog->layout()))
        grid->addWidget(hint, grid->rowCount(), 0, 1, grid->columnCount());
}
} // namespace

Veltab::Veltab(const QString &directory, QWidget *parent)
    : QMainWindow(parent)
    , ui(std::make_unique<Ui::Veltab>())
    , m_directory(directory)
    , m_logger(directory + QDir::separator() + QStringLiteral("veltab.log"), true, allMessages, nullptr)
{
    buildForm();
    m_logger.wlog(QMessEvent::Information, QStringLiteral(__FILE__), QString::number(__LINE__),
                  QStringLiteral(" ver:") + QLatin1String(programVersion));
    m_setting = new setting(directory, this);
    m_errors = new ErrorList(this);
    m_session = new Session(directory, m_setting, &m_logger, {this, ui->tabWidget, m_errors});
    m_pages = new Pages(ui->tabWidget, m_session->connection(), m_setting, m_session->user(), this);
    connectPages();
    connectCommands();
    connectSession();
    announceUpdate();
    EnableButton(false);
    m_session->connectDatabase();
}

Veltab::~Veltab()
{
    ui->tabWidget->disconnect(this);
    // All at once before each is waited for; they need the connection to end their statements.
    cancelJobs();
    qDeleteAll(findChildren<Job *>(QString(), Qt::FindDirectChildrenOnly));
    // They use the connection too.
    delete m_pages;
    delete m_session;
}

void Veltab::buildForm()
{
    ui->setupUi(this);
    ui->tabWidget->setAccessibleName(tr("Вкладки"));
    ui->close_tab->setVisible(false);
    ui->close_all->setVisible(false);
    buildStatusBar();
    buildToolBar();
    restorePlace(this, QString());
}

void Veltab::buildStatusBar()
{
    m_jobs = new JobList(this);
    ui->statusbar->addPermanentWidget(m_jobs);
    m_messages = new MessageList(this);
    addDockWidget(Qt::BottomDockWidgetArea, m_messages);
    ui->statusbar->addPermanentWidget(m_messages->button());
    m_serverLabel = new QLabel(this);
    m_serverLabel->setObjectName(QStringLiteral("labelServer"));
    ui->statusbar->addPermanentWidget(m_serverLabel);
    m_userLabel = new QLabel(this);
    m_userLabel->setObjectName(QStringLiteral("labelUser"));
    ui->statusbar->addPermanentWidget(m_userLabel);
}

/// Pages that are used every day, the same for everybody, so that hands find them.
void Veltab::buildToolBar()
{
    showIcons(this);
    m_toolBar = new ToolBar(this);
    addToolBar(m_toolBar);
    QList<QAction *> pages;
    for (const char *page :
         {"mz_overview", "man_saleadmiss", "man_finance", "mt_shops", "mt_goods", "mz_cheks", "mz_zzvit"})
        pages.append(actionOf(page));
    m_toolBar->setActions(
        pages, {{ui->add, ui->edit, ui->dell, ui->reload}, {ui->export_to_xlsx, ui->export_to_csv}});
    connect(ui->show_toolbar, &QAction::triggered, this, &Veltab::showToolBar);
}

void Veltab::showToolBar(bool isWanted)
{
    m_toolBar->setWanted(isWanted);
    rememberState(user().idUser(), toolBarKey, isWanted);
}

QMenu *Veltab::createPopupMenu()
{
    auto *menu = new QMenu(this);
    menu->addAction(ui->show_toolbar);
    return menu;
}

QTableBase *Veltab::tableBase() const
{
    return m_pages->tables();
}

QAction *Veltab::actionOf(const char *name) const
{
    return findChild<QAction *>(QLatin1String(name));
}

QList<QAction *> Veltab::openingActions() const
{
    QList<QAction *> actions;
    for (const PageEntry &entry : m_pages->table()) {
        if (actionOf(entry.action)->isVisible())
            actions.append(actionOf(entry.action));
    }
    return actions;
}

void Veltab::connectPages()
{
    for (const PageEntry &entry : m_pages->table())
        connect(actionOf(entry.action), &QAction::triggered, this,
                [this, action = QString::fromLatin1(entry.action)] { open(action); });
    connect(ui->tabWidget, &QTabWidget::tabCloseRequested, this, &Veltab::closetab);
    connect(ui->tabWidget, &QTabWidget::currentChanged, this, &Veltab::changetab);
    connect(ui->close_tab, &QAction::triggered, this, [this] { closetab(ui->tabWidget->currentIndex()); });
    connect(ui->close_all, &QAction::triggered, this, &Veltab::closeAllTabs);
    connect(tableBase(), qOverload<bool, bool>(&QTableBase::visible), this,
            qOverload<bool, bool>(&Veltab::visible));
    connect(tableBase(), qOverload<bool>(&QTableBase::visible), this, qOverload<bool>(&Veltab::visible));
    connect(m_pages->reports(), &QReports::visible, this, qOverload<bool, bool>(&Veltab::visible));
    connect(m_pages, &Pages::memberWanted, this, &Veltab::showMember);
    connect(m_pages, &Pages::openedOnTheWay, this, &Veltab::checkOpened);
}

void Veltab::connectCommands()
{
    connect(ui->add, &QAction::triggered, this, &Veltab::add);
    connect(ui->edit, &QAction::triggered, this, &Veltab::edit);
    connect(ui->dell, &QAction::triggered, this, &Veltab::dell);
    connect(ui->reload, &QAction::triggered, this, [this] { run(Command::Reload); });
    connect(ui->export_to_xlsx, &QAction::triggered, this, &Veltab::exportXlsx);
    for (const QAction *action : {ui->export_to_csv, ui->export_to_csv_UTF8})
        connect(action, &QAction::triggered, this, &Veltab::export_to_csv);
    connect(ui->export_to_csv_cp1251, &QAction::triggered, this, &Veltab::export_to_csvCP1251);
    connect(ui->mt_importBD, &QAction::triggered, tableBase(), &QTableBase::importBD);
    connect(ui->import_csv_UTF8, &QAction::triggered, this, [this] { import_csv(); });
    connect(ui->import_csv_cp1251, &QAction::triggered, this, &Veltab::import_csv_cp1251);
    connect(ui->import_csv_utf8_tab, &QAction::triggered, this, [this] { import_csv(QLatin1Char('\t')); });
    connect(ui->settings, &QAction::triggered, this, &Veltab::s_setting);
    connect(ui->changpass, &QAction::triggered, this, &Veltab::changpass);
    connect(ui->go_to, &QAction::triggered, this, &Veltab::goTo);
    connect(ui->key_list, &QAction::triggered, this, &Veltab::showKeys);
    connect(ui->about, &QAction::triggered, this, &Veltab::about);
    connect(ui->quit, &QAction::triggered, this, &Veltab::close);
}

void Veltab::connectSession()
{
    connect(ui->login, &QAction::triggered, m_session, &Session::login);
    connect(ui->pbLogin, &QPushButton::clicked, m_session, &Session::login);
    connect(ui->reconnect, &QAction::triggered, m_session, &Session::connectDatabase);
    connect(ui->pbReconnect, &QPushButton::clicked, m_session, &Session::connectDatabase);
    connect(ui->pbSettings, &QPushButton::clicked, this, &Veltab::s_setting);
    connect(ui->mt_create_tables, &QAction::triggered, m_session, &Session::createTables);
    connect(ui->mt_tune, &QAction::triggered, m_session, &Session::tuneDatabase);
    connect(m_session, &Session::changed, this, &Veltab::showSession);
    connect(m_session, &Session::loggedIn, this, &Veltab::welcome);
    connect(m_session, &Session::connectionIsBack, this,
            [this] { ui->statusbar->showMessage(tr("Зв'язок із сервером відновлено."), messageMs); });
    connect(m_session->user(), &QLoadedUser::rightsChanged, this, &Veltab::showRights);
}

void Veltab::SaleAdmission()
{
    open(QStringLiteral("man_saleadmiss"));
}

/// At once, by the rights that are known: what is typed next belongs into the page.
void Veltab::open(const QString &action)
{
    if (m_pages->isOpen(action))
        m_session->checkRights();
    else
        checkOpened(action);
    m_pages->open(action);
}

/// When the server says that the right is gone by now, a page that was just opened goes again before it has
/// shown anything.
void Veltab::checkOpened(const QString &action)
{
    m_session->checkRights([this, action] {
        if (m_pages->closeForbidden(action))
            m_pages->open(action);
    });
}

void Veltab::closetab(int index)
{
    closePage(ui->tabWidget, index);
}

bool Veltab::closeAllTabs()
{
    return m_pages->closeAll();
}

void Veltab::changetab(int index)
{
    ui->close_tab->setVisible(index >= 0);
    ui->close_all->setVisible(index >= 0);
    m_session->refreshNextStep();
    offerCommands(pageAt(ui->tabWidget, index));
    focusPage(ui->tabWidget);
}

QList<QAction *> Veltab::actionsOf(Command command) const
{
    switch (command) {
    case Command::Add:
        return {ui->add};
    case Command::Edit:
        return {ui->edit};
    case Command::Delete:
        return {ui->dell};
    case Command::Export:
        return {ui->export_to_xlsx, ui->export_to_csv, ui->export_to_csv_UTF8, ui->export_to_csv_cp1251};
    case Command::Reload:
        return {ui->reload};
    case Command::Import:
        return {ui->import_csv_UTF8, ui->import_csv_cp1251, ui->import_csv_utf8_tab};
    }
    return {};
}

/// What the page in front cannot do is told at the command, not after a file was chosen.
void Veltab::offerCommands(const Page *page)
{
    const Commands offered = page == nullptr ? Commands() : page->commands();
    ui->reload->setVisible(offered.contains(Command::Reload));
    visible(offered.contains(Command::Edit), offered.contains(Command::Export));
    for (const Command command :
         {Command::Add, Command::Edit, Command::Delete, Command::Export, Command::Import}) {
        const QString refusal = offered.value(command);
        for (QAction *action : actionsOf(command)) {
            action->setEnabled(refusal.isEmpty());
            action->setToolTip(refusal);
            action->setStatusTip(refusal);
            for (QWidget *widget : action->associatedWidgets()) {
                if (auto *menu = qobject_cast<QMenu *>(widget))
                    menu->setToolTipsVisible(!refusal.isEmpty());
            }
        }
    }
}

void Veltab::run(Command command)
{
    m_session->checkRights();
    if (Page *page = m_pages->current())
        page->run(command);
    m_session->refreshNextStep();
}

void Veltab::add()
{
    run(Command::Add);
}

void Veltab::edit()
{
    run(Command::Edit);
}

void Veltab::dell()
{
    run(Command::Delete);
}

void Veltab::export_to_csv()
{
    exportCsv(QString());
}

void Veltab::export_to_csvCP1251()
{
    exportCsv(QStringLiteral("cp1251"));
}

void Veltab::exportCsv(const QString &code)
{
    askAndExport(QStringLiteral("csv"),
                 [code](const Page &page, const QString &path) { page.export_to_csv(code, path); });
}

void Veltab::exportXlsx()
{
    askAndExport(QStringLiteral("xlsx"),
                 [](const Page &page, const QString &path) { page.exportXlsx(path); });
}

/// The page in front when its list may be exported, else null.
Page *Veltab::exportedPage() const
{
    Page *page = m_pages->current();
    return page != nullptr && page->isOffered(Command::Export) && user().maySee(Permission::ExportCsv)
               ? page
               : nullptr;
}

void Veltab::askAndExport(const QString &ending,
                          const std::function<void(const Page &page, const QString &path)> &write)
{
    m_session->checkRights();
    if (exportedPage() == nullptr)
        return;
    const QString title = ui->tabWidget->tabText(ui->tabWidget->currentIndex());
    const QString path = m_chooseFile(title + QLatin1Char('.') + ending);
    // The rights, and with them the page, may have gone while the file was chosen.
    if (const Page *page = path.isEmpty() ? nullptr : exportedPage())
        write(*page, path);
}

QString Veltab::chooseFile(const QString &suggested)
{
    const QString ending = QFileInfo(suggested).suffix();
    QFileDialog dialog(this, tr("Зберегти файл"), QString(), QStringLiteral("%1 (*.%1)").arg(ending));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(ending);
    dialog.selectFile(suggested);
    if (ending == QLatin1String("csv"))
        addHint(&dialog, tr("Відкривши CSV, електронна таблиця зробить із «2.12» дату, а зі штрихкоду число "
                            "без нулів спереду. З файлом XLSX (Експорт, Ctrl+Shift+X) цього не буде."));
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

void Veltab::import_csv(QChar separator)
{
    askAndImport(QString(), separator);
}

void Veltab::import_csv_cp1251()
{
    askAndImport(QStringLiteral("cp1251"), QLatin1Char(';'));
}

bool Veltab::mayImport() const
{
    const Page *page = m_pages->current();
    return page != nullptr && page->isOffered(Command::Import);
}

void Veltab::askAndImport(const QString &code, QChar separator)
{
    m_session->checkRights();
    if (!mayImport())
        return;
    const QString path = m_chooseImport();
    // The rights, and with them the page, may have gone while the file was chosen.
    if (!path.isEmpty() && mayImport())
        tableBase()->import_csv(code, path, separator);
}

QString Veltab::chooseImport()
{
    QString path = QFileDialog::getOpenFileName(this, tr("Відкрити"), m_importFolder, tr("csv (*.csv)"));
    if (!path.isEmpty())
        m_importFolder = QFileInfo(path).path();
    return path;
}

void Veltab::refuse(const QString &text)
{
    QQestion::question(this, tr("Попередження."), text, true);
}

void Veltab::about()
{
    QQestion::question(this, tr("Про програму"),
                       tr("Версія:") + QLatin1Char(' ') + QLatin1String(programVersion) + QLatin1Char('\n') +
                           tr("Зібрано у версії Qt") + QStringLiteral(" 5.9.1\n") + tr("Розробник:") +
                           QLatin1Char(' ') + tr("команда Veltab, підтримка у вашому головному офісі"),
                       true);
}

void Veltab::goTo()
{
    // What it finds follows the rights, also those that were changed meanwhile.
    m_session->checkRights();
    auto *box = new GotoBox(m_session->connection(), m_session->user(), this, ui->menubar, this);
    connect(box, &GotoBox::chosen, this, [this](const GotoHit &hit) {
        if (hit.kind == GotoKind::Action)
            actionOf(qPrintable(hit.destination.action))->trigger();
        else
            m_pages->go(hit.destination);
    });
    box->open();
}

void Veltab::showKeys()
{
    KeyList(keysOf(*this), m_session->connection(), m_session->user(), this, this).exec();
}

QVector<ToldKey> Veltab::toldKeys() const
{
    return {{{QKeySequence::NextChild}, tr("Наступна вкладка")},
            {{QKeySequence::PreviousChild}, tr("Попередня вкладка")},
            {{QKeySequence::Delete}, tr("Видалити виділений запис, де це можна")}};
}

void Veltab::changpass()
{
    if (user().isLoaded())
        QChangPass(user().idUser().toUInt(), m_session->connection(), this).exec();
}

void Veltab::LogErrorDwl(const QString &text)
{
    m_logger.wlog(QMessEvent::Information, QStringLiteral(__FILE__), QString::number(__LINE__), text);
}

void Veltab::keyPressEvent(QKeyEvent *event)
{
    const Qt::KeyboardModifiers all = Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier;
    if (event->key() == Qt::Key_Delete)
        run(Command::Delete);
    else if (event->key() == Qt::Key_F && (event->modifiers() & all) == all)
        askServiceMenu();
    else
        QMainWindow::keyPressEvent(event);
}

/// A page that only shows is closed without a question.
bool Veltab::mayLeave()
{
    if (hasPagesToKeep(ui->tabWidget) &&
        QMessDlg::confirm(this, tr("Попередження."), tr("Перед виходом, закрийте всі вкладки!"),
                          tr("&Закрити всі вкладки"), tr("Зали&шитись")))
        closeAllTabs();
    if (hasPagesToKeep(ui->tabWidget) || !mayLeaveJobs())
        return false;
    closeShowingPages(ui->tabWidget);
    return true;
}

bool Veltab::mayLeaveJobs()
{
    // Connecting is nothing that could be lost.
    const int harmless = m_session->isStarting() ? 1 : 0;
    if (RunningJobs::all().jobs().size() <= harmless)
        return true;
    return QMessDlg::confirm(this, tr("Попередження."),
                             tr("Ще триває: «%1».\nСкасувати і вийти?").arg(runningJobTitles()),
                             tr("&Скасувати і вийти"), tr("Зали&шитись"));
}

void Veltab::cancelJobs()
{
    for (Job *job : RunningJobs::all().jobs())
        job->cancel();
}

void Veltab::closeEvent(QCloseEvent *event)
{
    if (!mayLeave()) {
        event->ignore();
        return;
    }
    rememberPlace(this, user().idUser());
    QMainWindow::closeEvent(event);
}

void Veltab::welcome()
{
    restorePlace(this, user().idUser());
    ui->show_toolbar->setChecked(isToolBarWanted(this, user().idUser()));
    m_toolBar->setWanted(ui->show_toolbar->isChecked());
    EnableButton(true);
    if (user().maySee(Permission::BackOffice))
        emit ready();
    // Behind what the login has left to be done, the menus above all.
    QMetaObject::invokeMethod(this, &Veltab::openStartPage, Qt::QueuedConnection);
}

/// Whoever was quicker has opened another one already. The notice of an update is read first.
void Veltab::openStartPage()
{
    const QAction *action =
        m_startPage.isEmpty() || m_showsUpdateNotice ? nullptr : actionOf(qPrintable(m_startPage));
    if (action != nullptr && action->isVisible() && ui->tabWidget->count() == 0)
        m_pages->open(m_startPage);
}

void Veltab::EnableButton(bool enable)
{
    showRights();
    if (enable && !user().maySee(Permission::BackOffice)) {
        refuse(tr("У вас немає доступу до бекофісу."));
        m_session->say(tr("У вас немає доступу до бекофісу."));
    }
}

void Veltab::showRights()
{
    changetab(ui->tabWidget->currentIndex());
    showMenus();
}

void Veltab::showMember(const QString &group, const UserRights &rights)
{
    MemberPreview(group, rights, m_pages->table(), ui->menubar, this).exec();
}

void Veltab::visible(bool vis, bool exp)
{
    const bool exporting = (vis || exp) && user().maySee(Permission::ExportCsv);
    for (QAction *action : {ui->add, ui->edit, ui->dell})
        action->setVisible(vis);
    for (QAction *action : actionsOf(Command::Export))
        action->setVisible(exporting);
    for (QAction *action : actionsOf(Command::Import))
        action->setVisible(mayImport());
    showMenus();
}

void Veltab::visible(bool vis)
{
    visible(vis, vis);
}

void Veltab::showSession()
{
    const QString name = m_session->userName();
    setWindowTitle(tr("Veltab  База:") + m_session->address().name);
    ui->labelConnection->setText(m_session->words());
    m_userLabel->setText(name.isEmpty() ? name : tr("Користувач") + QStringLiteral(": ") + name);
    showServer();
    showMenus();
}

/// Whether the connection stands, in words; where to and how, in the tool tip.
void Veltab::showServer()
{
    QString text = tr("Немає з'єднання");
    if (m_session->isLost())
        text = tr("Зв'язок втрачено");
    else if (m_session->isConnected())
        text = tr("З'єднано");
    else if (m_session->isStarting())
        text = tr("Підключення…");
    m_serverLabel->setText(text);
    m_serverLabel->setToolTip(m_session->details());
    QFont font = m_userLabel->font();
    font.setBold(m_session->isLost());
    m_serverLabel->setFont(font);
}

void Veltab::showMenus()
{
    const bool isConnected = m_session->isConnected();
    const bool isStarting = m_session->isStarting();
    const bool nobody = !user().isLoaded();
    const QMap<QString, bool> shown =
        shownActions(m_pages->table(), {&user(), isConnected, isStarting,
                                        !m_session->address().host.isEmpty(), m_isServiceShown});
    for (auto action = shown.begin(); action != shown.end(); ++action)
        actionOf(qPrintable(action.key()))->setVisible(action.value());
    ui->pbLogin->setVisible(isConnected && nobody);
    ui->pbReconnect->setVisible(!isConnected && !isStarting);
    ui->pbSettings->setVisible(!isConnected || nobody);
    ui->connectionBar->setVisible(!ui->labelConnection->text().isEmpty());
    for (QMenu *menu : ui->menubar->findChildren<QMenu *>(QString(), Qt::FindDirectChildrenOnly)) {
        const QList<QAction *> actions = menu->actions();
        const bool any = std::any_of(actions.begin(), actions.end(), [](const QAction *action) {
            return action->isVisible() && !action->isSeparator();
        });
        menu->menuAction()->setVisible(any);
    }
}

void Veltab::s_setting()
{
    m_setting->exec();
}

void Veltab::askServiceMenu()
{
    if (!QMessDlg::confirm(this, tr("Ви впевнені?"),
                           tr("Невірні налаштування\nможуть пошкодити дані в базі!"), tr("&Так")))
        return;
    m_isServiceShown = true;
    showMenus();
}

bool Veltab::event(QEvent *event)
{
    if (event->type() != QMessEvent::eventType)
        return QMainWindow::event(event);
    handleMessage(*static_cast<QMessEvent *>(event));
    return true;
}

void Veltab::handleMessage(const QMessEvent &message)
{
    m_messages->add(message);
    m_logger.wlog(message.kind(), tr("File:") + message.file(), message.line(), message.text());
    const bool isKnown = m_session->isLost() && isLossOfServer(message.text());
    const bool isTold = message.kind() == QMessEvent::Information && m_jobs->isTelling(message.text());
    if (message.kind() == QMessEvent::Warning || (message.kind() == QMessEvent::Information && !isTold) ||
        isKnown)
        ui->statusbar->showMessage(message.text().simplified(), messageMs);
    if (message.kind() == QMessEvent::Critical && !isKnown)
        m_errors->add(message.text(), m_setting->countMsg());
}

void Veltab::announceUpdate()
{
    const QString before = setting::GetVersion(m_directory);
    m_showsUpdateNotice = !before.isEmpty() && before != QLatin1String(programVersion);
    if (before != QLatin1String(programVersion))
        setting::SetCurVersion(m_directory);
    if (m_showsUpdateNotice)
        ui->tabWidget->installEventFilter(this);
}

bool Veltab::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != ui->tabWidget || !m_showsUpdateNotice)
        return QMainWindow::eventFilter(watched, event);
    if (event->type() == QEvent::MouseButtonPress) {
        m_showsUpdateNotice = false;
        ui->tabWidget->removeEventFilter(this);
        ui->tabWidget->update();
        openStartPage();
    } else if (event->type() == QEvent::Paint) {
        QPainter painter(ui->tabWidget);
        QFont large = font();
        large.setPointSize(large.pointSize() * 3);
        painter.setFont(large);
        painter.drawText(ui->tabWidget->rect(), Qt::AlignCenter,
                         tr("ПРОГРАМА ОНОВЛЕНА\nДО ВЕРСІЇ\n3. 0. 0. 17"));
        return true;
    }
    return QMainWindow::eventFilter(watched, event);
}
