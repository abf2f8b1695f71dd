#include "qcashdrive.h"
#include "ui_qcashdrive.h"

#include "autostart.h"
#include "listpane.h"
#include "placeselector.h"
#include "qloadeduser.h"
#include "qmessdlg.h"
#include "qmessevent.h"
#include "refusedlist.h"
#include "setting.h"
#include "userstate.h"

#include <QFileDialog>
#include <QKeyEvent>

namespace {
const QString timeFormat = QStringLiteral("dd.MM.yyyy HH:mm");

QString stateKey(const char *name)
{
    return QStringLiteral("QCashDrive/") + QLatin1String(name);
}
} // namespace

QCashDrive::QCashDrive(QSqlDatabase *db, QLoadedUser *user, QObject *mainWindow, setting *set,
                       QWidget *parent)
    : QWidget(parent)
    , ui(std::make_unique<Ui::QCashDrive>())
    , m_db(db)
    , m_user(user)
    , m_mainWindow(mainWindow)
    , m_autoStart(new AutoStart(this))
{
    Q_UNUSED(set)
    ui->setupUi(this);
    // One line or two: what stands below does not jump.
    ui->labelStatus->setMinimumHeight(ui->labelStatus->sizeHint().height());
    setUpPlaces();
    setUpAutoStart();
    setUpRefused();
    connect(ui->pbStart, &QPushButton::clicked, this, &QCashDrive::start);
    connect(ui->pbStop, &QPushButton::clicked, this, &QCashDrive::stop);
    connect(ui->chClients, &QCheckBox::toggled, ui->chOnlyChanged, &QWidget::setEnabled);
    connect(ui->chRead, &QCheckBox::stateChanged, this, &QCashDrive::enablereadtransaction);
    connect(user, &QLoadedUser::rightsChanged, this, &QCashDrive::followRights);
    enable(true);
}

QCashDrive::~QCashDrive()
{
    // Closed without a question, as the end of the program does.
    if (m_job != nullptr)
        m_job->cancel();
}

void QCashDrive::setUpPlaces()
{
    ui->place->open(m_db->connectionName(), m_mainWindow);
    setFocusProxy(ui->place);
    connect(ui->place, &PlaceSelector::groupChanged, this, &QCashDrive::GroupChanged);
    connect(ui->place, &PlaceSelector::shopChanged, this, &QCashDrive::ShopChanged);
    refillPlaces();
}

void QCashDrive::refillPlaces()
{
    m_groups = m_user->groups();
    ui->place->refillGroups(exchangeGroupsSql(m_groups));
    GroupChanged(QString());
}

void QCashDrive::followRights()
{
    enable(!isRunning());
    if (!m_user->isLoaded() || m_user->groups() == m_groups)
        return;
    ui->place->keepChoice();
    refillPlaces();
}

void QCashDrive::GroupChanged(const QString &name)
{
    ui->place->refillShops(exchangeShopsSql(), {{QStringLiteral(":name"), name}});
}

void QCashDrive::ShopChanged(const QString &name)
{
    ui->place->refillRegisters(exchangeKassaSql(), {{QStringLiteral(":name"), name}});
}

void QCashDrive::enablereadtransaction(int state)
{
    ui->chWithoutSums->setEnabled(state != Qt::Unchecked && !isRunning());
}

void QCashDrive::setUpAutoStart()
{
    m_autoStart->setLast(rememberedState(m_user->idUser(), stateKey("lastStart")).toDateTime());
    ui->teTime->setTime(rememberedState(m_user->idUser(), stateKey("time")).toTime());
    ui->chAutoStart->setChecked(rememberedState(m_user->idUser(), stateKey("isOn")).toBool());
    const auto take = [this] {
        armAutoStart();
        remember();
    };
    connect(ui->teTime, &QTimeEdit::timeChanged, this, take);
    ui->teTime->installEventFilter(this);
    connect(ui->chAutoStart, &QCheckBox::toggled, this, take);
    connect(m_autoStart, &AutoStart::due, this, &QCashDrive::startByClock);
    connect(m_autoStart, &AutoStart::moved, this, &QCashDrive::showStarts);
    armAutoStart();
}

bool QCashDrive::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != ui->teTime || event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    m_pace.take(static_cast<const QKeyEvent &>(*event));
    if (m_pace.code().size() == 1)
        m_timeBefore = ui->teTime->time();
    if (m_pace.isCode())
        ui->teTime->setTime(m_timeBefore);
    return m_pace.isCode();
}

void QCashDrive::setClock(const std::function<QDateTime()> &now)
{
    m_autoStart->setClock(now);
    armAutoStart();
}

void QCashDrive::armAutoStart()
{
    if (ui->chAutoStart->isChecked())
        m_autoStart->turnOn(ui->teTime->time());
    else
        m_autoStart->turnOff();
    showStarts();
}

void QCashDrive::remember() const
{
    rememberState(m_user->idUser(), stateKey("lastStart"), m_autoStart->last());
    rememberState(m_user->idUser(), stateKey("time"), ui->teTime->time());
    rememberState(m_user->idUser(), stateKey("isOn"), ui->chAutoStart->isChecked());
}

void QCashDrive::showStarts()
{
    const QDateTime next(m_autoStart->nextDay(), m_autoStart->time());
    ui->labelNextStart->setText(
        m_autoStart->isOn() ? tr("Наступний: %1,\nпоки відкрита ця вкладка").arg(next.toString(timeFormat))
                            : tr("Вимкнено") + QLatin1Char('\n'));
    const QDateTime &last = m_autoStart->last();
    ui->labelLastStart->setText(
        tr("Останній: %1").arg(last.isValid() ? last.toString(timeFormat) : tr("ще не було")));
}

/// A start that was skipped or refused is none.
void QCashDrive::startByClock(const QDateTime &now)
{
    if (isRunning()) {
        postMessage(m_mainWindow, tr("Автостарт дозвону пропущено: попередній дозвін ще триває."),
                    QMessEvent::Warning);
    } else {
        start();
        if (isRunning())
            m_autoStart->setLast(now);
    }
    showStarts();
    remember();
}

void QCashDrive::setUpRefused()
{
    openRefused(ui->listRefused, m_db, m_user, m_mainWindow, tr("Товар або картка"),
                QStringLiteral("QCashDrive"));
    connect(ui->pbSaveRefused, &QPushButton::clicked, this, &QCashDrive::saveRefusedLines);
    chooseFile = [this](const QString &title) {
        return QFileDialog::getSaveFileName(this, title, QString(), tr("Файл CSV (*.csv)"));
    };
}

ListPane *QCashDrive::list() const
{
    return ui->listRefused;
}

Commands QCashDrive::commands() const
{
    return {{Command::Export, QString()}};
}

void QCashDrive::showRefusedLines(const RefusedLines &lines)
{
    showRefused(ui->listRefused, lines);
    ui->pbSaveRefused->setEnabled(!lines.isEmpty());
}

void QCashDrive::saveRefusedLines()
{
    const QString path = chooseFile(ui->pbSaveRefused->text());
    if (!path.isEmpty())
        ui->listRefused->exportCsv(QString(), path);
}

void QCashDrive::enable(bool isFree)
{
    const bool mayEdit = m_user->mayEdit(Permission::RegisterServer);
    for (QWidget *part : {static_cast<QWidget *>(ui->place), static_cast<QWidget *>(ui->gbWrite),
                          static_cast<QWidget *>(ui->gbRead), static_cast<QWidget *>(ui->pbStart)})
        part->setEnabled(isFree && mayEdit);
    ui->gbAutoStart->setEnabled(mayEdit);
    ui->pbStart->setToolTip(mayEdit ? QString() : tr("Ваші права дозволяють лише перегляд."));
    ui->pbStop->setEnabled(!isFree);
    enablereadtransaction(ui->chRead->checkState());
}

bool QCashDrive::isRunning() const
{
    return m_job != nullptr;
}

bool QCashDrive::isLoading() const
{
    return ui->place->isReading();
}

ExchangeOrder QCashDrive::order() const
{
    ExchangeOrder order;
    order.place = {ui->place->groupName(), ui->place->shopName(), ui->place->registerName()};
    order.writesCards = ui->chClients->isChecked();
    order.writesChangedCards = ui->chOnlyChanged->isChecked();
    order.articles = static_cast<ExchangeOrder::Articles>(ui->cbArticles->currentIndex());
    order.writesLevels = ui->chDiscounts->isChecked();
    order.fetchesTransactions = ui->chFetch->isChecked();
    order.readsTransactions = ui->chRead->isChecked();
    order.isWithoutSums = ui->chWithoutSums->isChecked();
    order.connection = m_db->connectionName();
    order.host = setting::registerServerHost();
    order.port = setting::registerServerPort();
    order.folder = exchangeFolder(order.connection);
    order.server = m_server;
    return order;
}

QString QCashDrive::refusal() const
{
    const ExchangeOrder wanted = order();
    if (!m_user->mayEdit(Permission::RegisterServer))
        return tr("Ваші права дозволяють лише перегляд.");
    if (wanted.isEmpty())
        return tr("Позначте, що передати або отримати.");
    if (ui->place->isReading())
        return tr("Список місць ще читається: повторіть за мить.");
    if (wanted.writesCards && !wanted.writesChangedCards && wanted.place.group.isEmpty())
        return tr("Виберіть групу: на каси записуються картки її клієнтів.");
    return QString();
}

void QCashDrive::start()
{
    if (isRunning())
        return;
    if (!m_server()->isThere())
        return postMessage(m_mainWindow, noRegisterServer());
    const QString why = refusal();
    ui->labelResult->setText(why);
    if (!why.isEmpty())
        return postMessage(m_mainWindow, why, QMessEvent::Warning);
    showRefusedLines({});
    m_job = new Job(
        tr("Дозвін CashDrive"), m_db->connectionName(),
        [order = order()](JobContext &context) { return AutoCall(context, order); }, m_mainWindow);
    follow();
}

void QCashDrive::follow()
{
    Job *job = m_job;
    enable(false);
    const QString unconnected = ui->labelStatus->text();
    connect(job, &Job::progressed, this, [this, job] {
        if (!job->progress().stage.isEmpty())
            ui->labelStatus->setText(tr("Зєднання з БД всановлено."));
    });
    connect(job, &Job::finished, this, [this, unconnected](const JobResult &result) {
        m_job = nullptr;
        ui->labelStatus->setText(unconnected);
        enable(true);
        showEnd(result);
    });
    // The window may have gone meanwhile.
    connect(job, &Job::finished, job, &QObject::deleteLater);
    ui->panel->follow(job);
    job->start();
}

void QCashDrive::showEnd(const JobResult &result)
{
    ui->labelResult->setText(result.words);
    showRefusedLines(result.value.value<ExchangeOutcome>().count.refused);
    if (!result.words.isEmpty())
        postMessage(m_mainWindow, result.words,
                    result.outcome == JobResult::Failed ? QMessEvent::Critical : QMessEvent::Information);
}

/// It ends within a second; its end is shown then.
void QCashDrive::stop()
{
    if (m_job == nullptr)
        return;
    ui->pbStop->setEnabled(false);
    m_job->cancel();
}

bool QCashDrive::mayClose()
{
    if (isRunning() &&
        !QMessDlg::confirm(this, tr("Дозвін триває."),
                           tr("Зупинити дозвін і закрити вкладку?\nЩо вже розібрано, лишається; решту "
                              "розбере наступний дозвін."),
                           tr("Зупинити і закрити")))
        return false;
    stop();
    return true;
}
