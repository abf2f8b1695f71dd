#include "veltab.h"
#include "ui_veltab.h"

#include "databasestart.h"
#include "permissions.h"
#include "qchangpass.h"
#include "qmessdlg.h"
#include "qmessevent.h"
#include "qprocevent.h"
#include "qqestion.h"
#include "qregistersale.h"
#include "qreports.h"
#include "qtablebase.h"
#include "setting.h"
#include "tunewindow.h"
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
#include <QtConcurrent>

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
    , m_ownTabs(OwnTabCount, nullptr)
{
    buildForm();
    m_logger.wlog(QMessEvent::Information, QStringLiteral(__FILE__), QString::number(__LINE__),
                  QStringLiteral(" ver:") + QLatin1String(programVersion));
    m_setting = new setting(directory, this);
    m_tables = new QTableBase(ui->tabWidget, &m_db, m_setting, &m_user, this);
    m_reports = new QReports(ui->tabWidget, &m_db, m_setting, &m_user, this);
    buildEntries();
    connectEntries();
    connectRecordCommands();
    connectSession();
    announceUpdate();
    logout();
    connectDatabase();
}

Veltab::~Veltab()
{
    m_isTaskGivenUp = true;
    m_task.waitForFinished();
    // It needs the connection to end its statement.
    delete m_tuning;
    closeTabs();
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
    m_serverLabel = new QLabel(this);
    m_serverLabel->setObjectName(QStringLiteral("labelServer"));
    ui->statusbar->addPermanentWidget(m_serverLabel);
    m_userLabel = new QLabel(this);
    m_userLabel->setObjectName(QStringLiteral("labelUser"));
    ui->statusbar->addPermanentWidget(m_userLabel);
}

void Veltab::buildEntries()
{
    const auto table = [](QTableBase::Kind kind, const std::function<void()> &open) {
        return QTableBase::canOpen(kind) ? open : std::function<void()>();
    };
    using Host = QTableBase;
    m_entries = {
        {ui->man_saleadmiss, Permission::Sales, [this] { SaleAdmission(); }},
        {ui->man_goods, Permission::GoodsManagement, {}},
        {ui->man_finance, Permission::Finance, {}},
        {ui->man_action, Permission::ActionsManagement, {}},
        {ui->mt_shops, Permission::Shops, table(Host::KindShops, [this] { m_tables->shops(); })},
        {ui->mt_kass, Permission::Kassa, table(Host::KindKass, [this] { m_tables->kass(); })},
        {ui->mt_devices, Permission::Devices, table(Host::KindDevices, [this] { m_tables->devices(); })},
        {ui->mt_group_shops, Permission::GroupShops,
         table(Host::KindGroupShops, [this] { m_tables->Group_Shops(); })},
        {ui->mt_goods, Permission::Goods, table(Host::KindGoods, [this] { m_tables->Goods(); })},
        {ui->mt_group_goods, Permission::GroupGoods,
         table(Host::KindGroupGoods, [this] { m_tables->GroupGoods(); })},
        {ui->mt_goods_shops, Permission::GoodsShops,
         table(Host::KindGoodsShops, [this] { m_tables->GoodsShops(); })},
        {ui->mt_clients, Permission::Clients, table(Host::KindClients, [this] { m_tables->Clients(); })},
        {ui->mt_diskount, Permission::Discount, table(Host::KindDiscount, [this] { m_tables->Discount(); })},
        {ui->mt_action, Permission::Actions, table(Host::KindAction, [this] { m_tables->Action(); })},
        {ui->mt_cheks, Permission::Transactions,
         table(Host::KindTrancaction, [this] { m_tables->Trancaction(); })},
        {ui->mt_type_cheks, Permission::TypeTransactions,
         table(Host::KindTypeTransaction, [this] { m_tables->TypeTransaction(); })},
        {ui->mt_z_zvits, Permission::ZZvit, table(Host::KindZzvit, [this] { m_tables->Zzvit(); })},
        {ui->mt_slujb_op, Permission::SlujbOp, table(Host::KindSlujbOp, [this] { m_tables->SlujbOp(); })},
        {ui->mt_day_update, Permission::DayUpdate,
         table(Host::KindDayUpdate, [this] { m_tables->Day_Update(); })},
        {ui->mt_tax, Permission::Tax, table(Host::KindTax, [this] { m_tables->Tax(); })},
        {ui->mz_cheks, Permission::Cheks, [this] { m_reports->ChekViewer(); }},
        {ui->mz_zzvit, Permission::ZReports, [this] { m_reports->ZReports(); }},
        {ui->mz_art_zvit, Permission::Articles, [this] { m_reports->ArtReports(); }},
        {ui->mz_StatisticOnLine, Permission::Online, [this] { m_reports->StatOnLine(); }},
        {ui->cashdrive, Permission::RegisterServer, {}},
        {ui->importcln, Permission::ClientImport, {}},
        {ui->comands, Permission::Comands, {}},
        {ui->mc_users, Permission::Users, {}},
        {ui->premis_group, Permission::PermissionGroups, {}},
        {ui->mt_importBD, Permission::PreviousImport, {}},
        {ui->changpass, Permission::BackOffice, [this] { changpass(); }},
        {ui->about, Permission::BackOffice, [this] { about(); }},
    };
}

QList<QAction *> Veltab::openingActions() const
{
    QList<QAction *> actions;
    for (const Entry &entry : m_entries) {
        if (entry.action->isVisible() && entry.permission != Permission::BackOffice)
            actions.append(entry.action);
    }
    return actions;
}

void Veltab::connectEntries()
{
    for (const Entry &entry : m_entries) {
        if (entry.open)
            connect(entry.action, &QAction::triggered, this, [open = entry.open] { open(); });
    }
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
    connect(m_tables, qOverload<bool, bool>(&QTableBase::visible), this,
            qOverload<bool, bool>(&Veltab::visible));
    connect(m_reports, &QReports::visible, this, qOverload<bool, bool>(&Veltab::visible));
    connect(m_tables, &QTableBase::statOnLine, this, [this](uint shop) { m_reports->StatOnLine(shop); });
    connect(m_tables, qOverload<bool>(&QTableBase::visible), this, qOverload<bool>(&Veltab::visible));
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
    openOwnTab(SaleTab, [this]() -> QWidget * {
        auto *tab = new QRegisterSale(&m_db, &m_user, this, m_setting, nullptr);
        connect(tab, &QRegisterSale::slipWanted, m_reports, &QReports::showSlip);
        return tab;
    });
}

/// The one place that opens a tab of the window's own, whoever asks for it.
void Veltab::openOwnTab(OwnTab kind, const std::function<QWidget *()> &make)
{
    struct Page
    {
        const char *title;
        int permission;
    };
    static const Page pages[OwnTabCount] = {{QT_TR_NOOP("Продаж"), Permission::Sales}};
    const Page &page = pages[kind];
    if (!m_user.maySee(page.permission)) {
        postMessage(this, tr("Вам не дозволено відкривати «%1».").arg(tr(page.title)), QMessEvent::Warning);
        return;
    }
    QWidget *&tab = m_ownTabs[kind];
    if (tab == nullptr) {
        tab = make();
        ui->tabWidget->addTab(tab, tr(page.title));
    }
    ui->tabWidget->setCurrentWidget(tab);
}

void Veltab::closetab(int index)
{
    if (m_tables->closetab(index) || m_reports->closetab(index))
        return;
    QWidget *widget = ui->tabWidget->widget(index);
    // The tab may ask about what would be lost, and stay.
    if (widget == nullptr || !widget->close())
        return;
    std::replace(m_ownTabs.begin(), m_ownTabs.end(), widget, static_cast<QWidget *>(nullptr));
    ui->tabWidget->removeTab(index);
    delete widget;
}

bool Veltab::closeAllTabs()
{
    for (int index = ui->tabWidget->count() - 1; index >= 0; --index) {
        // What it asks is asked about the tab in front.
        ui->tabWidget->setCurrentIndex(index);
        closetab(index);
    }
    return ui->tabWidget->count() == 0;
}

void Veltab::closeTabs()
{
    while (ui->tabWidget->count() > 0) {
        if (m_tables->closetab(0) || m_reports->closetab(0))
            continue;
        QWidget *widget = ui->tabWidget->widget(0);
        ui->tabWidget->removeTab(0);
        delete widget;
    }
    std::fill(m_ownTabs.begin(), m_ownTabs.end(), nullptr);
}

void Veltab::changetab(int index)
{
    ui->close_tab->setVisible(index >= 0);
    ui->close_all->setVisible(index >= 0);
    refreshNextStep();
    if (!m_tables->ChangeTab(index) && !m_reports->changetab(index))
        visible(false);
    offer(ui->menu_export, {ui->export_to_csv, ui->export_to_csv_UTF8, ui->export_to_csv_cp1251},
          m_reports->exportRefusal());
    offer(ui->menu_edit, {ui->add, ui->edit, ui->dell}, m_tables->recordRefusal());
    focusCurrentTab();
}

/// What the page in front cannot do is told at the command, not after a file was chosen.
void Veltab::offer(QMenu *menu, const QList<QAction *> &actions, const QString &refusal)
{
    menu->setToolTipsVisible(!refusal.isEmpty());
    for (QAction *action : actions) {
        action->setEnabled(refusal.isEmpty());
        action->setToolTip(refusal);
        action->setStatusTip(refusal);
    }
}

/// A tab that comes to the front for the first time gets the focus in its first field; one that was there
/// before keeps it where it was.
void Veltab::focusCurrentTab()
{
    QWidget *tab = ui->tabWidget->currentWidget();
    if (tab == nullptr)
        return;
    const char *const wasInFront = "wasInFront";
    const QWidget *focus = QApplication::focusWidget();
    if (tab->property(wasInFront).toBool() && focus != nullptr && tab->isAncestorOf(focus))
        return;
    tab->setProperty(wasInFront, true);
    if (tab->focusProxy() != nullptr || tab->focusPolicy() != Qt::NoFocus)
        return tab->setFocus(Qt::TabFocusReason);
    for (QWidget *next = tab->nextInFocusChain(); next != tab; next = next->nextInFocusChain()) {
        if (tab->isAncestorOf(next) && next->isVisibleTo(tab) && next->isEnabledTo(tab) &&
            (next->focusPolicy() & Qt::TabFocus) != 0)
            return next->setFocus(Qt::TabFocusReason);
    }
}

void Veltab::add()
{
    m_tables->AddRecord();
    refreshNextStep();
}

void Veltab::edit()
{
    m_tables->EditRecord();
    refreshNextStep();
}

void Veltab::dell()
{
    m_tables->DelRecord();
}

void Veltab::export_to_csv()
{
    askAndExport(QString());
}

void Veltab::export_to_csvCP1251()
{
    askAndExport(QStringLiteral("cp1251"));
}

void Veltab::askAndExport(const QString &code)
{
    if (!m_user.maySee(Permission::ExportCsv))
        return;
    const QString path = m_chooseFile(ui->tabWidget->tabText(ui->tabWidget->currentIndex()));
    if (!path.isEmpty() && !exportCurrent(code, path))
        refuse(tr("Цю вкладку не можна зберегти у файл."));
}

/// Whoever owns the tab in front exports it; false when it is nobody's.
bool Veltab::exportCurrent(const QString &code, const QString &path)
{
    return m_tables->export_to_csv(code, path) || m_reports->export_to_csv(code, path);
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
        m_tables->DelRecord();
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
    if (m_tuning != nullptr)
        refuse(tr("Перед виходом дочекайтесь кінця прискорення звітів або зупиніть його!"));
    return m_tuning == nullptr;
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
