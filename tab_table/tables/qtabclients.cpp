#include "qtabclients.h"
#include "ui_qtabclientsfilter.h"

#include "cardreceipts.h"
#include "clientstatements.h"
#include "db.h"
#include "listpane.h"
#include "pagebar.h"
#include "permissions.h"
#include "qaddedtcln.h"
#include "qloadeduser.h"
#include "qmessevent.h"
#include "qntableview.h"
#include "qrowmodel.h"
#include "queryservice.h"
#include "typedinput.h"
#include "typingpause.h"

#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QSplitter>
#include <QVBoxLayout>

namespace {
enum ColumnOf { Code, Level, Bonus, Purchases, Kind, Fixed, Group, Name };

/// The joins change no count: every card has one row.
QString countSql()
{
    return QStringLiteral("SELECT COUNT(*) FROM ") + clientTables();
}

QString listSql()
{
    return QStringLiteral("SELECT ") + clientColumns() + QStringLiteral(" FROM ") + clientTables();
}

/// A code is printed with ten digits; the zeros before it stand in no number.
QString codeCondition(const QString &text)
{
    const int printedDigits = 10;
    if (text.isEmpty())
        return {};
    if (text.size() == printedDigits && text.startsWith(QLatin1Char('0')))
        return QStringLiteral("clients.id=%1").arg(text.toLongLong());
    return QStringLiteral("clients.id LIKE ") + likeContains(text);
}

QString also(const QString &before, const QString &condition)
{
    if (condition.isEmpty())
        return before;
    return before + (before.isEmpty() ? QStringLiteral(" WHERE ") : QStringLiteral(" AND ")) + condition;
}
} // namespace

QTabClients::QTabClients(QSqlDatabase *db, QLoadedUser *user, QObject *receiver, setting *set,
                         QWidget *parent)
    : QTab(db, user, receiver, set, parent, nullptr, new QVBoxLayout)
    , ui(std::make_unique<Ui::QTabClientsFilter>())
    , m_splitter(new QSplitter(this))
    , m_personTyping(new TypingPause(this))
    , m_cardPause(new TypingPause(this))
    , m_counter(new QueryOwner(db->connectionName(), this))
{
    table = QStringLiteral("clients");
    query = listSql();
    list()->breakCaptions();
    setColumns(columns());
    buildFilter();
    connectFilter();
    static_cast<QVBoxLayout *>(layout())->addWidget(m_splitter, 1);
    m_splitter->addWidget(list());
    m_splitter->setChildrenCollapsible(false);
    QTabClients::followRights();
    seerch(QString());
}

QTabClients::~QTabClients()
{
    // The fields are left on the way out.
    delete m_personTyping;
    delete m_cardPause;
}

QVector<Column> QTabClients::columns()
{
    return {{tr("Код карточки"), 10, &asNumber},
            {tr("Знижка"), 14},
            {tr("Сума бонусів"), 9, &asSum},
            {tr("Сума покупок"), 11, &asSum},
            {tr("Карточка бонунса/на знижку"), 17},
            {tr("Фіксована знижка"), 9},
            {tr("Група"), 14},
            {tr("Ім'я"), 26},
            {tr("Телефон"), 14},
            {tr("E-MAIL"), 20},
            {tr("Дата народження"), 10, &asDate},
            {tr("Блокування"), 8},
            {tr("Інфо"), 14},
            {tr("Передача в CashDrive"), 10}};
}

void QTabClients::buildFilter()
{
    ui->setupUi(addFilterBar());
    limitTo(ui->leSearch, "[0-9]{10}");
    ui->lePerson->installEventFilter(this);
    setSearchField(ui->leSearch, [this](const QString &text) { seerch(text); });
    m_personTyping->follow(ui->lePerson);
}

void QTabClients::connectFilter()
{
    connect(ui->pages, &PageBar::loadWanted, this, &QTabClients::load);
    connect(ui->pages, &PageBar::allToggled, this, &QTabClients::CheckState);
    connect(ui->pages, &PageBar::sizeEntered, this, &QTabClients::searchAgain);
    connect(ui->pages, &PageBar::sizeFilled, this,
            [this] { postTrace(receiver(), QStringLiteral("QTabClients::eventFilter")); });
    connect(ui->pages, &PageBar::previousWanted, this, &QTabClients::previousPage);
    connect(ui->pages, &PageBar::nextWanted, this, &QTabClients::nextPage);
    connect(m_personTyping, &TypingPause::ended, this, &QTabClients::searchAgain);
    connect(m_counter, &QueryOwner::answered, this, &QTabClients::takeCount);
    connect(ui->pbReceipts, &QPushButton::toggled, this, &QTabClients::showReceipts);
    connect(view()->selectionModel(), &QItemSelectionModel::currentRowChanged, m_cardPause,
            &TypingPause::begin);
    connect(m_cardPause, &TypingPause::ended, this, &QTabClients::followCard);
    connect(list(), &ListPane::failed, this, [this] { setTotal(-1); });
}

bool QTabClients::isLoading() const
{
    return QTab::isLoading() || m_counter->isWaiting() || m_personTyping->isRunning() ||
           (m_receipts != nullptr && (m_cardPause->isRunning() || m_receipts->isLoading()));
}

/// Who may not read receipts is not shown those of a card either.
void QTabClients::followRights()
{
    const bool mayRead = user()->maySee(Permission::Cheks);
    ui->pbReceipts->setVisible(mayRead);
    if (!mayRead)
        ui->pbReceipts->setChecked(false);
}

void QTabClients::showReceipts(bool show)
{
    delete m_receipts;
    m_receipts = nullptr;
    if (!show)
        return;
    m_receipts = new CardReceipts(db().connection(), user(), receiver(), m_splitter);
    m_splitter->addWidget(m_receipts);
    m_splitter->setSizes({m_splitter->width() / 2, m_splitter->width() / 2});
    followCard();
}

void QTabClients::followCard()
{
    if (m_receipts == nullptr)
        return;
    const int row = view()->currentIndex().row();
    m_receipts->showCard(row < 0 ? ShownCard()
                                 : ShownCard{model()->stored(row, Code), model()->stored(row, Name),
                                             model()->stored(row, Purchases).toLongLong(),
                                             model()->stored(row, Bonus).toLongLong()});
}

void QTabClients::load()
{
    ui->leSearch->clear();
    ui->lePerson->clear();
    seerch(QString());
}

void QTabClients::searchAgain()
{
    seerch(ui->leSearch->text());
}

void QTabClients::seerch(const QString &text)
{
    postTrace(receiver(), QStringLiteral("QTabClients::seerch(QString)=") + text);
    m_personTyping->drop();
    m_condition = also(also(m_base, codeCondition(text)), personCondition());
    ui->pages->restart();
    m_counter->cancel();
    m_total = -1;
    ui->pages->setCountText(tr("Кількість записів") + QStringLiteral(" …"));
    showPage();
}

QString QTabClients::personCondition() const
{
    return likeWords(QStringLiteral("(clients.name LIKE %1 OR clients.telephone LIKE %1)"),
                     ui->lePerson->text());
}

void QTabClients::CheckState(int state)
{
    postTrace(receiver(), QStringLiteral("QTabClients::CheckState=") + QString::number(state));
}

void QTabClients::showPage()
{
    ShowData(ui->pages->pageSize());
}

/// A page begins behind the last card of the one before: however far it is, the server reads no other.
void QTabClients::ShowData(int n)
{
    postTrace(receiver(), QStringLiteral("In QTab::ShowData.\nName table: ") + table +
                              QStringLiteral("\nquery: ") + query);
    m_limit = n;
    QString where = m_condition;
    if (ui->pages->start().isValid())
        where = also(where, QStringLiteral("clients.id>%1").arg(ui->pages->start().toLongLong()));
    search(n < 1 ? where : where + QStringLiteral(" ORDER BY clients.id LIMIT %1").arg(n));
}

void QTabClients::loadAgain()
{
    m_counter->cancel();
    m_total = -1;
    showPage();
}

void QTabClients::previousPage()
{
    if (!list()->isLoading() && ui->pages->goBack())
        showPage();
}

void QTabClients::nextPage()
{
    if (list()->isLoading())
        return;
    ui->pages->goOn(lastCode(), model()->rowCount());
    showPage();
}

/// The rows may be sorted by something else.
qint64 QTabClients::lastCode() const
{
    qint64 last = ui->pages->start().toLongLong();
    for (int row = 0; row < model()->rowCount(); ++row)
        last = qMax(last, model()->stored(row, 0).toLongLong());
    return last;
}

/// A page that is not full is the last one: then all are counted already.
void QTabClients::rowsShown()
{
    const int rows = model()->rowCount();
    if (m_total < 0 && (m_limit < 1 || rows < m_limit))
        setTotal(ui->pages->rowsBefore() + rows);
    else if (m_total < 0)
        countCards();
    showPaging();
    m_cardPause->begin();
}

void QTabClients::rowShown(int row)
{
    Q_UNUSED(row)
    m_cardPause->begin();
}

void QTabClients::countCards()
{
    m_counter->ask({countSql() + narrowed(m_condition)});
}

void QTabClients::takeCount(const std::shared_ptr<QueryAnswer> &answer)
{
    if (!answer->error.isEmpty())
        postMessage(receiver(), tr("Помилка запиту:") + QLatin1Char('\n') + answer->error, answer->kind);
    setTotal(answer->error.isEmpty() ? answer->number(0) : -1);
}

void QTabClients::setTotal(qint64 total)
{
    m_total = total;
    ui->pages->setCountText(total < 0 ? tr("Кількість записів невідома")
                                      : tr("Кількість записів") + QLatin1Char(' ') + QString::number(total));
    showPaging();
}

/// While a page is on its way the buttons stay as they are: whoever leafs by keyboard keeps the focus.
void QTabClients::showPaging()
{
    if (list()->isLoading())
        return;
    const qint64 shown = ui->pages->rowsBefore() + model()->rowCount();
    const bool isFull = m_limit > 0 && model()->rowCount() >= m_limit;
    ui->pages->showPage(m_total < 0 ? isFull : shown < m_total);
}

bool QTabClients::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == ui->lePerson && event->type() == QEvent::KeyPress &&
        clientKey(static_cast<QKeyEvent *>(event)->key()))
        return true;
    return QTab::eventFilter(watched, event);
}

/// As in the search field: Enter and Down go on into the list, Esc clears.
bool QTabClients::clientKey(int key)
{
    if (key == Qt::Key_Escape) {
        ui->lePerson->clear();
        return true;
    }
    if (key != Qt::Key_Return && key != Qt::Key_Enter && key != Qt::Key_Down)
        return false;
    m_personTyping->end();
    list()->enter();
    return true;
}

void QTabClients::Edit(const QModelIndex &index)
{
    if (!index.isValid())
        postTrace(receiver(), QStringLiteral("QTabClients::Edit !index.isValid()"));
    QTab::Edit(index);
}

std::unique_ptr<RecordDialog> QTabClients::makeEditor(QString *id)
{
    return std::make_unique<QAddEdtCln>(this, db().connection(), id, receiver(), this);
}

void QTabClients::refreshRecord(const QString &id, bool isNew)
{
    if (!isNew)
        return QTab::refreshRecord(id, isNew);
    postTrace(receiver(), tr("Повне оновлення таблиці"));
    searchAgain();
}
