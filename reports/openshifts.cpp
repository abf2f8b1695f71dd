#include "openshifts.h"
#include "ui_openshifts.h"

#include "dbtasks.h"
#include "money.h"
#include "qloadeduser.h"
#include "qntableview.h"
#include "qrowmodel.h"

#include <QCoreApplication>

namespace {
constexpr int money = 10;
constexpr int count = 5;
constexpr int dateTime = 15;

/// A column: how it is headed, how wide it is, and what its figures are.
struct Field
{
    OpenShiftColumn column;
    int digits;
    const char *caption;
    const CellFormat *format = &asText;
    const char *explanation = nullptr;
    bool isHidden = false;
};

constexpr Field fields[] = {
    {OpenShiftColumn::Shop, 18, QT_TRANSLATE_NOOP("OpenShifts", "магазин")},
    {OpenShiftColumn::Register, 10, QT_TRANSLATE_NOOP("OpenShifts", "каса")},
    {OpenShiftColumn::State, 8, QT_TRANSLATE_NOOP("OpenShifts", "зміна")},
    {OpenShiftColumn::Number, count, QT_TRANSLATE_NOOP("OpenShifts", "№"), &asNumber},
    {OpenShiftColumn::Turnover, money, QT_TRANSLATE_NOOP("OpenShifts", "продаж"), &asSum,
     QT_TRANSLATE_NOOP("OpenShifts", "Оборот за вирахуванням знижок")},
    {OpenShiftColumn::Cheks, count, QT_TRANSLATE_NOOP("OpenShifts", "чеків"), &asNumber},
    {OpenShiftColumn::Expected, money, QT_TRANSLATE_NOOP("OpenShifts", "має бути в касі"), &asSum,
     QT_TRANSLATE_NOOP("OpenShifts", "Перенесено + готівкою − повернуто + внесено − видано")},
    {OpenShiftColumn::Opened, dateTime, QT_TRANSLATE_NOOP("OpenShifts", "відкрита з"), &asDateTime,
     QT_TRANSLATE_NOOP("OpenShifts", "Час першого чека зміни")},
    {OpenShiftColumn::User, 14, QT_TRANSLATE_NOOP("OpenShifts", "хто відкрив")},
    {OpenShiftColumn::Latest, dateTime, QT_TRANSLATE_NOOP("OpenShifts", "останній чек"), &asDateTime},
    {OpenShiftColumn::Began, money, QT_TRANSLATE_NOOP("OpenShifts", "перенесено"), &asSum,
     QT_TRANSLATE_NOOP("OpenShifts", "Готівка, яку попередня зміна за своїми сумами лишила в касі")},
    {OpenShiftColumn::Cash, money, QT_TRANSLATE_NOOP("OpenShifts", "готівкою"), &asSum},
    {OpenShiftColumn::Returned, money, QT_TRANSLATE_NOOP("OpenShifts", "повернуто готівкою"), &asSum},
    {OpenShiftColumn::BroughtIn, money, QT_TRANSLATE_NOOP("OpenShifts", "внесено"), &asSum,
     QT_TRANSLATE_NOOP("OpenShifts", "Службові внесення за чеками зміни")},
    {OpenShiftColumn::Issued, money, QT_TRANSLATE_NOOP("OpenShifts", "видано"), &asSum,
     QT_TRANSLATE_NOOP("OpenShifts", "Службові видачі за чеками зміни")},
    {OpenShiftColumn::ClosedNumber, count, QT_TRANSLATE_NOOP("OpenShifts", "попередня №"), &asNumber,
     QT_TRANSLATE_NOOP("OpenShifts", "Зміна перед відкритою; де жодна не відкрита – остання закрита")},
    {OpenShiftColumn::ClosedTime, dateTime, QT_TRANSLATE_NOOP("OpenShifts", "закрита"), &asDateTime},
    {OpenShiftColumn::ClosedTurnover, money, QT_TRANSLATE_NOOP("OpenShifts", "її продаж"), &asSum},
    {OpenShiftColumn::ToTakeOut, money, QT_TRANSLATE_NOOP("OpenShifts", "її готівка"), &asSum,
     QT_TRANSLATE_NOOP("OpenShifts", "Готівкою − повернуто + внесено: стільки зібралося за всю зміну")},
    {OpenShiftColumn::TakenOut, money, QT_TRANSLATE_NOOP("OpenShifts", "вилучено"), &asSum,
     QT_TRANSLATE_NOOP("OpenShifts", "За зміну і під час її закриття")},
    {OpenShiftColumn::Counted, money, QT_TRANSLATE_NOOP("OpenShifts", "пораховано"), &asSum,
     QT_TRANSLATE_NOOP("OpenShifts", "Відоме, коли під час закриття вилучено всю готівку")},
    {OpenShiftColumn::Difference, money, QT_TRANSLATE_NOOP("OpenShifts", "різниця"), &asSum,
     QT_TRANSLATE_NOOP("OpenShifts", "Пораховано мінус готівка зміни")},
    {OpenShiftColumn::Left, money, QT_TRANSLATE_NOOP("OpenShifts", "лишила"), &asSum,
     QT_TRANSLATE_NOOP("OpenShifts", "Готівка зміни мінус вилучене: з цим починається наступна")},
    {OpenShiftColumn::IdShop, 1, "", &asNumber, nullptr, true},
    {OpenShiftColumn::IdClosedShop, 1, "", &asNumber, nullptr, true},
    {OpenShiftColumn::IdKass, 1, "", &asNumber, nullptr, true},
};

static_assert(standInOrder(fields, OpenShiftColumn::Count));

QString text(const char *words)
{
    return QCoreApplication::translate("OpenShifts", words);
}

int at(OpenShiftColumn column)
{
    return static_cast<int>(column);
}
} // namespace

OpenShifts::OpenShifts(QWidget *parent) : QWidget(parent), ui(std::make_unique<Ui::OpenShifts>())
{
    ui->setupUi(this);
}

OpenShifts::~OpenShifts() = default;

ListPane *OpenShifts::list() const
{
    return ui->listOpen;
}

void OpenShifts::open(QSqlDatabase *db, QLoadedUser *user, QObject *mainWindow)
{
    m_shifts = new DbTasks(db->connectionName(), mainWindow, this);
    list()->open(db, user, mainWindow);
    list()->setEmptyText(tr("Тут немає кас, які мають зміни."));
    list()->keepRowsAfterFailure();
    list()->setTotals([this] { return totals(); });
    list()->breakCaptions();
    setColumns();
    list()->sumUsually(at(OpenShiftColumn::Expected));
    connect(list(), &ListPane::rowsShown, this, &OpenShifts::rowsShown);
    list()->connectOpening([this](const QModelIndex &line) { openReceipts(line); });
}

void OpenShifts::setColumns()
{
    QVector<Column> columns;
    for (const Field &field : fields)
        columns.append({text(field.caption), field.digits, field.format, field.isHidden});
    list()->setColumns(columns, QStringLiteral("OpenShifts"));
    explainColumns();
}

void OpenShifts::explainColumns()
{
    for (const Field &field : fields) {
        if (field.explanation != nullptr)
            list()->model()->setHeaderData(at(field.column), Qt::Horizontal, text(field.explanation),
                                           Qt::ToolTipRole);
    }
}

void OpenShifts::load(const OpenShiftsAsked &asked, const QString &placeWords)
{
    m_shifts->drop();
    // Where it is expected already, its place may be kept.
    if (!list()->isLoading())
        list()->expectLoad();
    m_shifts->read([asked](const Db &db) { return findOpenShifts(db, asked); },
                   [this, asked, placeWords](const std::optional<QVector<OpenShift>> &open) {
                       if (!open)
                           return list()->stop();
                       const QDateTime now = QDateTime::currentDateTime();
                       m_heading = QStringList{
                           tr("Відкриті зміни"), placeWords,
                           tr("станом на %1").arg(now.toString(QStringLiteral("dd.MM.yyyy hh:mm:ss")))};
                       list()->load(openShiftsSql(asked, *open, now));
                   });
}

void OpenShifts::stop()
{
    m_shifts->drop();
    list()->stop();
}

void OpenShifts::clear()
{
    m_shifts->drop();
    list()->clear();
}

void OpenShifts::rowsShown()
{
    list()->setHeading(m_heading);
    list()->setDetails(m_heading.mid(1).join(QStringLiteral(", ")));
    for (int row = 0; row < list()->model()->rowCount(); ++row)
        explain(row);
}

/// What the database does not tell stays empty, and says so.
void OpenShifts::explain(int row)
{
    QRowModel *model = list()->model();
    const auto isKnown = [&](OpenShiftColumn column) { return !model->stored(row, at(column)).isEmpty(); };
    const auto tell = [&](OpenShiftColumn column, const QString &why) {
        if (!isKnown(column))
            model->setData(model->index(row, at(column)), why, Qt::ToolTipRole);
    };
    const QString unknown =
        isKnown(OpenShiftColumn::ClosedNumber)
            ? tr("Вилучено не всю готівку зміни, а скільки її пораховано, не записується: чи "
                 "решту лишили в касі, чи її бракує, невідомо.")
            : tr("На цій касі ще не закривали змін.");
    tell(OpenShiftColumn::Counted, unknown);
    tell(OpenShiftColumn::Difference, unknown);
    tell(OpenShiftColumn::Opened, isKnown(OpenShiftColumn::Number)
                                      ? tr("У зміні ще немає чеків.")
                                      : tr("На цій касі немає відкритої зміни."));
}

qint64 OpenShifts::sum(OpenShiftColumn column) const
{
    qint64 sum = 0;
    for (int row = 0; row < list()->model()->rowCount(); ++row)
        sum += list()->model()->number(row, at(column));
    return sum;
}

QStringList OpenShifts::totals() const
{
    const QRowModel *model = list()->model();
    int open = 0;
    for (int row = 0; row < model->rowCount(); ++row)
        open += model->number(row, at(OpenShiftColumn::Number)) != 0 ? 1 : 0;
    if (model->rowCount() == 0)
        return {};
    return {tr("Відкритих змін: %1, кас: %2").arg(open).arg(model->rowCount()),
            tr("продаж: %1").arg(moneyShown(sum(OpenShiftColumn::Turnover))),
            tr("має бути в касах: %1").arg(moneyShown(sum(OpenShiftColumn::Expected)))};
}

/// Of the open shift; in the columns of the one before, and where none is open, of that.
void OpenShifts::openReceipts(const QModelIndex &index)
{
    if (!index.isValid())
        return;
    const auto stored = [&](OpenShiftColumn column) {
        return list()->model()->stored(index.row(), at(column));
    };
    const bool isOpen =
        index.column() < at(OpenShiftColumn::ClosedNumber) && !stored(OpenShiftColumn::Number).isEmpty();
    ChekOrigin origin;
    origin.kass = stored(OpenShiftColumn::IdKass).toUInt();
    origin.shop = stored(isOpen ? OpenShiftColumn::IdShop : OpenShiftColumn::IdClosedShop).toUInt();
    origin.zFrom = origin.zTo = stored(isOpen ? OpenShiftColumn::Number : OpenShiftColumn::ClosedNumber);
    if (!origin.zFrom.isEmpty())
        emit cheksWanted(origin);
}
