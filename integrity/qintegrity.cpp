#include "qintegrity.h"
#include "ui_qintegrity.h"

#include "checks.h"
#include "integrityrun.h"
#include "listpane.h"
#include "money.h"
#include "permissions.h"
#include "qloadeduser.h"
#include "qntableview.h"
#include "qqestion.h"
#include "qrowmodel.h"
#include "sqldate.h"

#include <QHeaderView>
#include <QSqlDatabase>
#include <QStyle>
#include <algorithm>

using namespace integrity;

namespace {
enum Column { Number, Kind, ShopName, KassName, Words, Advice };
enum CheckColumn { CheckName, CheckStateText };
const int checkRole = Qt::UserRole;

QString checkName(int check)
{
    return QCoreApplication::translate("Integrity", integrityChecks().at(check).name);
}

QString stateText(const CheckState &state, bool isOver)
{
    switch (state.kind) {
    case CheckState::Waiting:
        return QString();
    case CheckState::Running:
        if (isOver)
            return QIntegrity::tr("зупинено");
        return state.found == 0 ? QIntegrity::tr("перевіряється…")
                                : QIntegrity::tr("помилок: %1…").arg(wholeShown(state.found));
    case CheckState::Unread:
        return QIntegrity::tr("не прочитано");
    case CheckState::Done:
        break;
    }
    return state.found == 0 ? QIntegrity::tr("гаразд")
                            : QIntegrity::tr("помилок: %1").arg(wholeShown(state.found));
}
void appendRow(RowStore *rows, int number, const Finding &one)
{
    const QByteArray cells[] = {QByteArray::number(number), checkName(one.check).toUtf8(),
                                one.shop.toUtf8(),          one.kass.toUtf8(),
                                one.words.toUtf8(),         one.advice.toUtf8()};
    std::vector<std::string_view> texts;
    for (const QByteArray &cell : cells)
        texts.emplace_back(cell.constData(), static_cast<size_t>(cell.size()));
    rows->append(texts);
}
} // namespace

QIntegrity::QIntegrity(QSqlDatabase *db, QLoadedUser *user, QObject *mainWindow, QWidget *parent)
    : QWidget(parent)
    , ui(std::make_unique<Ui::QIntegrity>())
    , m_db(db)
    , m_user(user)
    , m_mainWindow(mainWindow)
{
    ui->setupUi(this);
    buildChecks();
    buildList();
    connectInputs();
    showStates();
    showFindings();
    showButtons();
}

/// Reading loses nothing: what runs is cancelled.
QIntegrity::~QIntegrity()
{
    delete m_job;
}

void QIntegrity::buildChecks()
{
    const auto add = [this](const QString &name, int check) {
        auto *item = new QTreeWidgetItem(ui->checks, {name, QString()});
        item->setData(CheckName, checkRole, check);
    };
    add(tr("Усі перевірки"), -1);
    for (int check = 0; check < integrityChecks().size(); ++check)
        add(checkName(check), check);
    ui->checks->setCurrentItem(ui->checks->topLevelItem(0));
    ui->checks->resizeColumnToContents(CheckName);
    // Room for a state; no more is needed however wide the window is, and no more than two fifths of it.
    const int state =
        ui->checks->fontMetrics().horizontalAdvance(tr("помилок: %1").arg(QStringLiteral("000 000")));
    const int wanted =
        ui->checks->columnWidth(CheckName) + state + 2 * style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    ui->splitter->setSizes({wanted, 3 * wanted / 2});
    ui->splitter->setStretchFactor(0, 0);
    ui->splitter->setStretchFactor(1, 1);
}

void QIntegrity::buildList()
{
    ui->list->open(m_db, m_user, m_mainWindow);
    ui->list->setColumns({{tr("№"), 5, &asNumber, true},
                          {tr("Перевірка"), 16},
                          {tr("Магазин"), 12},
                          {tr("Каса"), 8},
                          {tr("Що не так"), 45},
                          {tr("Що зробити"), 45}},
                         QLatin1String(staticMetaObject.className()));
    ui->list->setTotals([this] { return totals(); });
    ui->list->view()->setMainColumn(Words);
    // The list stays where it is when a finding is chosen.
    ui->labelWords->setMinimumHeight(3 * fontMetrics().lineSpacing());
    setFocusProxy(ui->pbStart);
}

void QIntegrity::connectInputs()
{
    connect(ui->pbStart, &QPushButton::clicked, this, &QIntegrity::start);
    connect(ui->pbStop, &QPushButton::clicked, this, &QIntegrity::stop);
    connect(ui->checks, &QTreeWidget::currentItemChanged, this, &QIntegrity::showFindings);
    ui->list->connectOpening([this](const QModelIndex &finding) { open(finding); });
    connect(ui->pbOpen, &QPushButton::clicked, this, [this] { open(ui->list->view()->currentIndex()); });
    connect(ui->list->view()->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            &QIntegrity::showWords);
}

ListPane *QIntegrity::list() const
{
    return ui->list;
}

Commands QIntegrity::commands() const
{
    return {{Command::Export, QString()}, {Command::Reload, QString()}};
}

void QIntegrity::run(Command command)
{
    if (command == Command::Reload)
        start();
}

void QIntegrity::start()
{
    if (m_job != nullptr)
        return;
    m_user->beginAct();
    if (!m_user->maySee(Permission::Service)) {
        QQestion::question(this, tr("Попередження."), tr("У вас немає права перевіряти базу."), true);
        return;
    }
    IntegrityAsked asked;
    asked.now = QDateTime::currentDateTime();
    asked.mostListed = m_mostListed;
    m_begun = asked.now;
    m_ended = QDateTime();
    m_findings.clear();
    m_found = std::make_shared<FindingsSoFar>();
    const auto work = [asked, found = m_found](JobContext &context) {
        return checkIntegrity(context, asked, found.get());
    };
    follow(new Job(tr("Перевірка даних"), m_db->connectionName(), work, m_mainWindow));
    ui->labelResult->setText(timesText());
    ui->list->setHeading({tr("Перевірка даних"), m_db->databaseName(), timesText()});
    showStates();
    showFindings();
    showButtons();
}

void QIntegrity::follow(Job *job)
{
    m_job = job;
    job->start();
    ui->panel->follow(job);
    connect(job, &Job::progressed, this, &QIntegrity::showProgress);
    connect(job, &Job::finished, this, [this, job](const JobResult &result) {
        m_job = nullptr;
        job->deleteLater();
        end(result);
    });
}

void QIntegrity::stop()
{
    if (m_job == nullptr)
        return;
    m_job->cancel();
    showButtons();
}

void QIntegrity::end(const JobResult &result)
{
    m_ended = QDateTime::currentDateTime();
    ui->labelResult->setText(result.words + QLatin1Char('\n') + timesText());
    ui->list->setHeading({tr("Перевірка даних"), m_db->databaseName(), timesText(), result.words});
    showStates();
    showFindings();
    showButtons();
}

/// While somebody looks at a finding, those that come behind it wait until all are there.
void QIntegrity::showProgress()
{
    showStates();
    if (!ui->list->view()->currentIndex().isValid() && !m_found->after(m_findings.size()).isEmpty())
        showFindings();
}

void QIntegrity::showStates()
{
    m_states = m_found ? m_found->states() : QVector<CheckState>(integrityChecks().size());
    for (int check = 0; check < m_states.size(); ++check) {
        QTreeWidgetItem *item = ui->checks->topLevelItem(check + 1);
        const QString text = stateText(m_states.at(check), m_job == nullptr);
        QFont font = ui->checks->font();
        font.setBold(m_states.at(check).found > 0 || m_states.at(check).kind == CheckState::Unread);
        item->setText(CheckStateText, text);
        item->setFont(CheckStateText, font);
        item->setToolTip(CheckStateText, m_states.at(check).error);
    }
}

int QIntegrity::chosenCheck() const
{
    const QTreeWidgetItem *item = ui->checks->currentItem();
    return item == nullptr ? -1 : item->data(CheckName, checkRole).toInt();
}

void QIntegrity::showFindings()
{
    if (m_found)
        m_findings += m_found->after(m_findings.size());
    const Finding *current = finding(ui->list->view()->currentIndex());
    const QString number = QString::number(current == nullptr ? -1 : current - m_findings.constData());
    RowStore rows;
    for (const int listed : listedFindings())
        appendRow(&rows, listed, m_findings.at(listed));
    ui->list->setEmptyText(emptyText());
    ui->list->setDetails(unlistedText());
    ui->list->showRows(std::move(rows));
    if (current != nullptr)
        ui->list->view()->setCurrentIndex(ui->list->indexOf(number));
    showWords();
}

/// Those of the chosen check, in the order of the checks.
QVector<int> QIntegrity::listedFindings() const
{
    QVector<int> listed;
    for (int i = 0; i < m_findings.size(); ++i) {
        if (chosenCheck() < 0 || chosenCheck() == m_findings.at(i).check)
            listed.append(i);
    }
    std::stable_sort(listed.begin(), listed.end(), [this](int one, int other) {
        return m_findings.at(one).check < m_findings.at(other).check;
    });
    return listed;
}

QString QIntegrity::unlistedText() const
{
    qint64 unlisted = 0;
    for (int check = 0; check < m_states.size(); ++check) {
        if (chosenCheck() < 0 || chosenCheck() == check)
            unlisted += qMax(m_states.at(check).found - m_mostListed, qint64(0));
    }
    return unlisted == 0 ? QString() : tr("не показано ще: %1").arg(wholeShown(unlisted));
}

QString QIntegrity::emptyText() const
{
    if (!m_found)
        return tr("«Перевірити» прочитає всю базу і покаже тут, що в ній не так. Нічого не змінюється.");
    const int check = chosenCheck();
    if (check >= 0 && m_states.at(check).kind == CheckState::Unread)
        return tr("Цієї перевірки не виконано: %1").arg(m_states.at(check).error);
    return m_job != nullptr ? tr("Перевіряється…") : tr("Помилок не знайдено.");
}

QStringList QIntegrity::totals() const
{
    QStringList lines;
    for (int check = 0; check < m_states.size(); ++check) {
        const CheckState &state = m_states.at(check);
        if (state.found > m_mostListed)
            lines.append(
                tr("%1: не показано ще %2.").arg(checkName(check), wholeShown(state.found - m_mostListed)));
        if (state.kind == CheckState::Unread)
            lines.append(tr("%1: не перевірено. %2").arg(checkName(check), state.error));
    }
    return lines;
}

QString QIntegrity::timesText() const
{
    const QString begun = tr("Почато %1").arg(shownDateTime(m_begun));
    return m_ended.isValid() ? begun + tr(", закінчено %1.").arg(shownDateTime(m_ended)) : begun + u'.';
}

const Finding *QIntegrity::finding(const QModelIndex &index) const
{
    if (!index.isValid())
        return nullptr;
    const int number = index.sibling(index.row(), Number).data(Qt::EditRole).toInt();
    return number < m_findings.size() ? &m_findings.at(number) : nullptr;
}

/// The list has no room for whole sentences.
void QIntegrity::showWords()
{
    const Finding *one = finding(ui->list->view()->currentIndex());
    ui->labelWords->setText(one == nullptr ? QString() : one->words + QLatin1Char('\n') + one->advice);
    ui->pbOpen->setEnabled(one != nullptr && !one->destination.action.isEmpty());
}

void QIntegrity::showButtons()
{
    ui->pbStart->setEnabled(m_job == nullptr);
    ui->pbStop->setEnabled(m_job != nullptr && !m_job->isCancelled());
    ui->panel->setVisible(m_job != nullptr);
}

void QIntegrity::open(const QModelIndex &index)
{
    const Finding *one = finding(index);
    if (one != nullptr && !one->destination.action.isEmpty())
        emit wanted(Destination(one->destination));
}
