#include "qtabgoods.h"

#include "combos.h"
#include "db.h"
#include "goodsrules.h"
#include "listpane.h"
#include "permissions.h"
#include "permittedlists.h"
#include "qaddedtgoods.h"
#include "qimportprices.h"
#include "qloadeduser.h"
#include "qntableview.h"
#include "qrowmodel.h"
#include "qwhyprice.h"
#include "ui_qtabgoodsfilter.h"
#include "whypriceoffer.h"

#include <QVBoxLayout>

namespace {
const int idColumn = 0;
} // namespace

QTabGoods::QTabGoods(QSqlDatabase *db, QLoadedUser *user, QObject *receiver, setting *set, QWidget *parent)
    : QTab(db, user, receiver, set, parent, nullptr, new QVBoxLayout), ui(new Ui::QTabGoodsFilter)
{
    table = QStringLiteral("goods");
    countsRecords = true;
    query = QStringLiteral(
        "SELECT goods.id, dk_shc.shtrihcod, goods.name,goods.price, type_goods.name, group_goods.name, "
        "tax.name, ynbon_disk.name, ynblock.name FROM goods LEFT JOIN dk_shc ON goods.id=dk_shc.id_goods "
        "LEFT JOIN type_goods ON goods.type=type_goods.id LEFT JOIN group_goods ON "
        "goods.group_g=group_goods.id LEFT JOIN tax ON goods.tax=tax.id LEFT JOIN yesno AS ynbon_disk ON "
        "goods.bonus_disk=ynbon_disk.id LEFT JOIN yesno AS ynblock ON goods.block=ynblock.id");
    list()->breakCaptions();
    setColumns({{tr("Код"), 7, &asNumber},
                {tr("Штрихкод"), 13},
                {tr("Назва товару"), 42},
                {tr("Ціна"), 9, &asMoney},
                {tr("Тип товару"), 8},
                {tr("Група"), 14},
                {tr("Податкова група"), 8},
                {tr("Знижка/Бонус"), 8},
                {tr("Блокування"), 8}});
    buildFilter();
    seerch(QString());
}

QTabGoods::~QTabGoods() = default;

void QTabGoods::buildFilter()
{
    ui->setupUi(addFilterBar());
    fillFilter(ui->cbGroup, QStringLiteral("SELECT name,id FROM group_goods"), tr("Всі групи"), [](bool) {});
    keepNarrow(ui->cbGroup);
    setSearchField(ui->leSearch, [this](const QString &text) { seerch(text); });
    connect(ui->cbGroup, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &QTabGoods::searchAgain);
    connect(ui->chByCode, &QCheckBox::toggled, this, &QTabGoods::searchAgain);
    offerWhyPrice(this, view(), ui->pbWhyPrice, [this](int row) { whyPrice(row); });
}

/// The list is of no shop: the window asks for one.
void QTabGoods::whyPrice(int row)
{
    PriceQuestion question;
    question.idGoods = model()->stored(row, idColumn).toUInt();
    question.time = QDateTime::currentDateTime();
    QWhyPrice::show(db().connection(), user(), receiver(), question, this);
}

void QTabGoods::seerch(const QString &text)
{
    const QString condition = goodsCondition(ui->cbGroup->currentData().toUInt(), text.trimmed());
    search(condition + grouping());
}

QString QTabGoods::grouping() const
{
    return ui->chByCode->isChecked() ? QStringLiteral(" GROUP BY goods.id") : QString();
}

void QTabGoods::searchAgain()
{
    seerch(ui->leSearch->text());
}

QVector<int> QTabGoods::rowsOf(const QString &id) const
{
    QVector<int> rows;
    const std::string wanted = id.toStdString();
    for (int row = 0; row < model()->rowCount(); ++row) {
        if (model()->storedBytes(row, idColumn) == wanted)
            rows.append(row);
    }
    return rows;
}

std::unique_ptr<RecordDialog> QTabGoods::makeEditor(QString *id)
{
    const QString shops = permittedShopsSql(*user(), QStringLiteral(" GROUP BY shops.id"));
    return std::make_unique<QAddEdtGoods>(this, db().connection(), id, shops, receiver(), this);
}

Commands QTabGoods::commands() const
{
    Commands offered = QTab::commands();
    if (mayEdit() && user()->maySee(Permission::ImportCsv))
        offered.insert(Command::Import, QString());
    return offered;
}

void QTabGoods::importFile(QSqlDatabase *db, QObject *receiver, QWidget *widget, const QString &path,
                           const CsvForm &wanted)
{
    // The tab may go meanwhile, and the dialog with it.
    const QPointer<QImportPrices> import = new QImportPrices(db, user(), receiver, widget);
    connect(import, &QImportPrices::imported, this, [this] {
        // Rows on their way may be those of before.
        if (isLoading())
            searchAgain();
        else
            reload();
    });
    connect(user(), &QLoadedUser::rightsChanged, import, [this, import] {
        if (!isOffered(Command::Import))
            import->reject();
    });
    import->open(path, wanted);
    import->exec();
    delete import;
}

void QTabGoods::refreshRecord(const QString &id, bool isNew)
{
    readRows(QStringLiteral("WHERE goods.id=") + id + grouping(), [this, id, isNew](const RowStore &records) {
        const QVector<int> rows = rowsOf(id);
        if (isNew || !rows.isEmpty())
            writeRows(records, rows);
    });
}

/// Behind the rows that there are; what is left over goes.
void QTabGoods::writeRows(const RowStore &records, const QVector<int> &rows)
{
    if (rows.isEmpty())
        list()->countAdded();
    for (int i = 0; i < records.rowCount(); ++i) {
        int row = rows.value(i, -1);
        if (row < 0) {
            row = rows.isEmpty() ? model()->rowCount() : rows.last() + 1 + i - rows.size();
            model()->insertRow(row);
        }
        list()->refreshRow(records, i, row);
    }
    for (int i = rows.size() - 1; i >= records.rowCount(); --i)
        model()->removeRow(rows.at(i));
    if (rows.isEmpty())
        view()->setCurrentIndex(model()->index(model()->rowCount() - records.rowCount(), idColumn));
}
