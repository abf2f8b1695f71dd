#include "veltab.h"
#include "ui_veltab.h"

#include "joblist.h"
#include "pages.h"
#include "permissions.h"
#include "qchangpass.h"
#include "qmessdlg.h"
#include "qmessevent.h"
#include "qprocevent.h"
#include "qqestion.h"
#include "qreports.h"
#include "qtablebase.h"
#include "setting.h"
#include "userstate.h"
#include "version.h"

#include <QCloseEvent>
#include <QDir>
#include <QFileDialog>
#include <QKeyEvent>
#include <QPainter>
#include <QPushButton>
#include <QScreen>
#include <QStyle>
#include <QTimer>

namespace {
const QLatin1String connectionName("veltab");
const QLatin1String geometryKey("geometry");
const int allMessages = 4;
} // namespace

Veltab::Veltab(const QString &directory, QWidget *parent)
    : QMainWindow(parent)
    , ui(std::make_unique<Ui::Veltab>())
    , m_directory(directory)
    , m_logger(directory + QDir::separator() + QStringLiteral("veltab.log"), true, allMessages, nullptr)
    , m_user(&m_logger, this)
{
    buildForm();
    m_logger.wlog(QMessEvent::Information, QStringLiteral(__FILE__), QString::number(__LINE__),
                  QStringLiteral(" ver:") + QLatin1String(programVersion));
    m_setting = new setting(directory, this);
    m_pages = new Pages(ui->tabWidget, &m_db, m_setting, &m_user, this);
    connectEntries();
    connectRecordCommands();
    connectSession();
    announceUpdate();
    logout();
    connectDatabase();
}

Veltab::~Veltab()
{
    // All at once before each is waited for; they need the connection to end their statements.
    cancelJobs();
    qDeleteAll(findChildren<Job *>(QString(), Qt::FindDirectChildrenOnly));
    // They use the connection too.
    delete m_pages;
    m_db = QSqlDatabase();
    QSqlDatabase::removeDatabase(connectionName);
}

void Veltab::buildForm()
{
    ui->setupUi(this);
    ui->tabWidget->setAccessibleName(tr("Вкладки"));
    ui->close_tab->setVisible(false);
    ui->close_all->setVisible(false);
    buildStatusBar();
    restorePlace(QString());
}

/// Where the window stood last; back on a screen, should that one be gone or smaller now.
void Veltab::restorePlace(const QString &idUser)
{
    const QVariant remembered = rememberedState(idUser, geometryKey);
    if (remembered.isValid())
        restoreGeometry(remembered.toByteArray());
    if (!isMaximized() && !isFullScreen())
        fitOntoScreen();
}

void Veltab::fitOntoScreen()
{
    const QScreen *screen = QGuiApplication::screenAt(geometry().center());
    const QRect free = (screen == nullptr ? QGuiApplication::primaryScreen() : screen)->availableGeometry();
    QSize frame = frameGeometry().size() - size();
    // Before it is shown, a window has no frame yet.
    if (frame.isNull())
        frame.setHeight(style()->pixelMetric(QStyle::PM_TitleBarHeight));
    const QSize fitting = size().boundedTo(free.size() - frame);
    const QPoint corner(qBound(free.left(), x(), free.right() + 1 - fitting.width() - frame.width()),
                        qBound(free.top(), y(), free.bottom() + 1 - fitting.height() - frame.height()));
    if (fitting != size())
        resize(fitting);
    if (corner != pos())
        move(corner);
}

void Veltab::buildStatusBar()
{
    m_jobs = new JobList(this);
    ui->statusbar->addPermanentWidget(m_jobs);
    m_serverLabel = new QLabel(this);
    m_serverLabel->setObjectName(QStringLiteral("labelServer"));
    ui->statusbar->addPermanentWidget(m_serverLabel);
    m_userLabel = new QLabel(this);
    m_userLabel->setObjectName(QStringLiteral("labelUser"));
    ui->statusbar->addPermanentWidget(m_userLabel);
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

void Veltab::connectEntries()
{
    for (const PageEntry &entry : m_pages->table())
        connect(actionOf(entry.action), &QAction::triggered, this,
                [this, action = QString::fromLatin1(entry.action)] { m_pages->open(action); });
    connect(ui->changpass, &QAction::triggered, this, &Veltab::changpass);
    connect(ui->about, &QAction::triggered, this, &Veltab::about);
    connect(ui->settings, &QAction::triggered, this, &Veltab::s_setting);
    connect(ui->reconnect, &QAction::triggered, this, &Veltab::connectDatabase);
    connect(ui->mt_create_tables, &QAction::triggered, this, &Veltab::CreateTables);
    connect(ui->mt_tune, &QAction::triggered, this, &Veltab::TuneDatabase);
    connect(ui->login, &QAction::triggered, this, &Veltab::login);
    connect(ui->close_tab, &QAction::triggered, this, [this] { closetab(ui->tabWidget->currentIndex()); });
    connect(ui->close_all, &QAction::triggered, this, &Veltab::closeAllTabs);
    connect(ui->quit, &QAction::triggered, this, &Veltab::close);
    connect(ui->tabWidget, &QTabWidget::tabCloseRequested, this, &Veltab::closetab);
    connect(ui->tabWidget, &QTabWidget::currentChanged, this, &Veltab::changetab);
}

void Veltab::connectRecordCommands()
{
    connect(ui->add, &QAction::triggered, this, &Veltab::add);
    connect(ui->edit, &QAction::triggered, this, &Veltab::edit);
    connect(ui->dell, &QAction::triggered, this, &Veltab::dell);
    for (const QAction *action : {ui->export_to_csv, ui->export_to_csv_UTF8})
        connect(action, &QAction::triggered, this, &Veltab::export_to_csv);
    connect(ui->export_to_csv_cp1251, &QAction::triggered, this, &Veltab::export_to_csvCP1251);
    connect(tableBase(), qOverload<bool, bool>(&QTableBase::visible), this,
            qOverload<bool, bool>(&Veltab::visible));
    connect(tableBase(), qOverload<bool>(&QTableBase::visible), this, qOverload<bool>(&Veltab::visible));
    connect(m_pages->reports(), &QReports::visible, this, qOverload<bool, bool>(&Veltab::visible));
}

void Veltab::connectSession()
{
    connect(ui->pbLogin, &QPushButton::clicked, this, &Veltab::login);
    connect(ui->pbReconnect, &QPushButton::clicked, this, &Veltab::connectDatabase);
    connect(ui->pbSettings, &QPushButton::clicked, this, &Veltab::s_setting);
    connect(m_setting, &setting::saved, this, &Veltab::applySettings);
    connect(&m_user, &QLoadedUser::rightsChanged, this, &Veltab::showRights);
}

void Veltab::SaleAdmission()
{
    m_pages->open(QStringLiteral("man_saleadmiss"));
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
    refreshNextStep();
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
        return {ui->export_to_csv, ui->export_to_csv_UTF8, ui->export_to_csv_cp1251};
    }
    return {};
}

/// What the page in front cannot do is told at the command, not after a file was chosen.
void Veltab::offerCommands(const Page *page)
{
    const Commands offered = page == nullptr ? Commands() : page->commands();
    visible(offered.contains(Command::Edit), offered.contains(Command::Export));
    for (const Command command : {Command::Add, Command::Edit, Command::Delete, Command::Export}) {
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
    if (Page *page = m_pages->current())
        page->run(command);
    refreshNextStep();
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
    askAndExport(QString());
}

void Veltab::export_to_csvCP1251()
{
    askAndExport(QStringLiteral("cp1251"));
}

/// The page in front when its list may be exported, else null.
Page *Veltab::exportedPage() const
{
    Page *page = m_pages->current();
    return page != nullptr && page->isOffered(Command::Export) && m_user.maySee(Permission::ExportCsv)
               ? page
               : nullptr;
}

void Veltab::askAndExport(const QString &code)
{
    if (exportedPage() == nullptr)
        return;
    const QString path = m_chooseFile(ui->tabWidget->tabText(ui->tabWidget->currentIndex()));
    // The rights, and with them the page, may have gone while the file was chosen.
    if (Page *page = path.isEmpty() ? nullptr : exportedPage())
        page->export_to_csv(code, path);
}

QString Veltab::chooseFile(const QString &suggested)
{
    QFileDialog dialog(this, tr("Зберегти файл"), QString(), tr("csv (*.csv)"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(QStringLiteral("csv"));
    dialog.selectFile(suggested + QStringLiteral(".csv"));
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
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

void Veltab::changpass()
{
    if (m_user.isLoaded())
        QChangPass(m_user.idUser().toUInt(), &m_db, this).exec();
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

bool Veltab::mayLeave()
{
    if (ui->tabWidget->count() > 0 &&
        QMessDlg::confirm(this, tr("Попередження."), tr("Перед виходом, закрийте всі вкладки!"),
                          tr("&Закрити всі вкладки"), tr("Зали&шитись")))
        closeAllTabs();
    if (ui->tabWidget->count() > 0)
        return false;
    return mayLeaveJobs();
}

bool Veltab::mayLeaveJobs()
{
    // Connecting is nothing that could be lost.
    const int harmless = isStarting() ? 1 : 0;
    if (RunningJobs::all().jobs().size() <= harmless)
        return true;
    return QMessDlg::confirm(this, tr("Попередження."),
                             tr("Ще триває: «%1».\nСкасувати і вийти?").arg(workTitles()),
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
    rememberGeometry();
    QMainWindow::closeEvent(event);
}

void Veltab::rememberGeometry()
{
    rememberState(QString(), geometryKey, saveGeometry());
    if (m_user.isLoaded())
        rememberState(m_user.idUser(), geometryKey, saveGeometry());
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
