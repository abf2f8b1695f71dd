#include "saledesk.h"

#include "qpayment.h"
#include "qregistersale.h"
#include "receiptpane.h"
#include "testing.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace {
/// Of goods that a till sells without any question.
QString barcodesStatement(DbId shop)
{
    return QStringLiteral(
               "SELECT dk_shc.shtrihcod FROM goods_shop JOIN goods ON goods.id=goods_shop.id_goods JOIN "
               "dk_shc ON dk_shc.id_goods=goods.id WHERE goods_shop.id_shop=%1 AND goods.block=0 AND "
               "(goods.group_g<2 OR goods.group_g>5) AND goods.price>0 AND goods.name IS NOT NULL AND "
               "goods_shop.count_showroom>100000 AND dk_shc.shtrihcod<'49' LIMIT 60")
        .arg(shop);
}

void choose(QComboBox *box, DbId id)
{
    waitFor([&] { return box->findData(id) >= 0; });
    box->setCurrentIndex(box->findData(id));
}
} // namespace

SaleDesk::SaleDesk(const Bench &bench, const Place &place) : m_admin(bench)
{
    ActClock clock;
    m_tab = std::make_unique<QRegisterSale>(bench.connection, m_admin.user(), nullptr, nullptr, nullptr);
    showWindow(m_tab.get());
    choosePlace(place);
    m_openingGapMs = clock.end().gapMs;
    m_barcodes = bench.db().firstColumn(barcodesStatement(place.shop)).value_or(QStringList());
}

SaleDesk::~SaleDesk() = default;

void SaleDesk::choosePlace(const Place &place)
{
    choose(child<QComboBox>(m_tab.get(), QStringLiteral("cbShop")), place.shop);
    choose(child<QComboBox>(m_tab.get(), QStringLiteral("cbKass")), place.kass);
}

int SaleDesk::rowCount() const
{
    return m_tab->findChild<ReceiptPane *>()->receipt().rows().size();
}

QString SaleDesk::notice() const
{
    return child<QLabel>(m_tab.get(), QStringLiteral("lbNotice"))->text();
}

Cost SaleDesk::scan(int rows)
{
    ActClock clock;
    auto *search = child<QLineEdit>(m_tab.get(), QStringLiteral("leSearch"));
    for (int i = 0; i < rows; ++i) {
        QTest::keyClicks(search, m_barcodes.at(i));
        QTest::keyClick(search, Qt::Key_Return);
        waitFor([&] { return rowCount() == i + 1; });
    }
    return clock.end();
}

Cost SaleDesk::sell()
{
    const QString before = notice();
    const auto isWritten = [&] { return notice().startsWith(QStringLiteral("Чек №")) && notice() != before; };
    Cost cost;
    std::unique_ptr<ActClock> clock;
    const auto sale = [&] {
        m_tab->sale();
        waitFor([&] { return clock != nullptr && isWritten(); });
        cost = clock->end();
    };
    withModal<QPayment>(sale, [&](QPayment *payment) {
        child<QPushButton>(payment, QStringLiteral("pbRestCash"))->click();
        clock = std::make_unique<ActClock>();
        payment->ok();
    });
    return cost;
}

SaleDesk::Closing SaleDesk::closeShift()
{
    Closing closing;
    auto clock = std::make_unique<ActClock>();
    const auto close = [&] {
        m_tab->CloseZ_zvit();
        waitFor([&] { return notice().startsWith(QStringLiteral("Зміну №")); });
        closing.writing = clock->end();
    };
    withModal<QPayment>(close, [&](QPayment *form) {
        closing.opening = clock->end();
        clock = std::make_unique<ActClock>();
        form->ok();
    });
    return closing;
}
