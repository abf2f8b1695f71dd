#include "qtabgoodsshops.h"

#include "combos.h"
#include "db.h"
#include "listpane.h"
#include "permittedlists.h"
#include "qloadeduser.h"
#include "qrowmodel.h"
#include "qwhyprice.h"
#include "ui_qtabgoodsshopsfilter.h"
#include "whypriceoffer.h"

#include <QVBoxLayout>

namespace {
/// Behind what is shown: of whom a row is.
enum HiddenColumn { IdShop = 4, IdGoods };
} // namespace

QTabGoodsShops::QTabGoodsShops(QSqlDatabase *db, QLoadedUser *user, QObject *receiver, setting *set,
                               QWidget *parent)
    : QTab(db, user, receiver, set, parent, nullptr, new QVBoxLayout), ui(new Ui::QTabGoodsShopsFilter)
{
    table = QStringLiteral("goods_shop");
    recordRefusal =
        tr("Залишки змінюють продаж, прийом і переміщення. Новий товар магазину додайте у вкладці "
           "\"Товари\": список \"Продається в магазинах\".");
    query = QStringLiteral(
        "SELECT shops.address,goods.name,goods_shop.count_showroom,"
        "goods_shop.count_syllable,goods_shop.id_shop,goods_shop.id_goods FROM goods_shop LEFT JOIN shops ON "
        "goods_shop.id_shop=shops.id LEFT JOIN goods ON goods_shop.id_goods=goods.id");
    list()->breakCaptions();
    setColumns({{tr("Назва магазину"), 35},
                {tr("Назва товару"), 42},
                {tr("Кількість в торговому залі"), 14, &asQuantity},
                {tr("Кількість на складі"), 14, &asQuantity},
                {QString(), 0, &asNumber, true},
                {QString(), 0, &asNumber, true}});
    buildFilter();
    seerch(QString());
}

QTabGoodsShops::~QTabGoodsShops() = default;

void QTabGoodsShops::buildFilter()
{
    ui->setupUi(addFilterBar());
    fillShops();
    keepNarrow(ui->cbShop);
    setSearchField(ui->leSearch, [this](const QString &text) { seerch(text); });
    connect(ui->cbShop, QOverload<int>::of(&QComboBox::currentIndexChanged), this, [this] { searchAgain(); });
    offerWhyPrice(this, view(), ui->pbWhyPrice, [this](int row) { whyPrice(row); });
}

void QTabGoodsShops::whyPrice(int row)
{
    PriceQuestion question;
    question.idShop = model()->stored(row, IdShop).toUInt();
    question.idGoods = model()->stored(row, IdGoods).toUInt();
    question.time = QDateTime::currentDateTime();
    QWhyPrice::show(db().connection(), user(), receiver(), question, this);
}

void QTabGoodsShops::fillShops()
{
    fillFilter(ui->cbShop, permittedShopsSql(*user(), QStringLiteral(" GROUP BY shops.id")),
               tr("Всі магазини"), [this](bool isKept) {
                   if (!isKept)
                       searchAgain();
               });
}

void QTabGoodsShops::followRights()
{
    fillShops();
    searchAgain();
}

QString QTabGoodsShops::condition(const QString &text) const
{
    QString where = QStringLiteral(" WHERE (") +
                    GetStrLstGroupFromPermis(user(), QStringLiteral("shops.group_shop"), true);
    if (!user()->idShop().isEmpty())
        where += QStringLiteral(" OR shops.id=") + user()->idShop();
    where += QLatin1Char(')');
    if (const uint shop = ui->cbShop->currentData().toUInt(); shop != 0)
        where += QStringLiteral(" AND goods_shop.id_shop=") + QString::number(shop);
    const QString words = likeWords(QStringLiteral("(goods.name LIKE %1 OR shops.address LIKE %1)"), text);
    return words.isEmpty() ? where : where + QStringLiteral(" AND ") + words;
}

void QTabGoodsShops::searchAgain()
{
    seerch(ui->leSearch->text());
}

void QTabGoodsShops::seerch(const QString &text)
{
    search(condition(text));
}
