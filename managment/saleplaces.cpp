#include "saleplaces.h"

#include "db.h"
#include "qtab.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QSignalBlocker>

namespace {
constexpr int closingOnlyRole = Qt::UserRole + 1;

struct SalePlacesText
{
    Q_DECLARE_TR_FUNCTIONS(SalePlaces)
};

// A shop without days of trade is an office or a warehouse.
const QLatin1String forSale("(shops.count_day_cycle>0 AND (shops.block=0 OR shops.block IS NULL))");
const QLatin1String hasOpenShift("kassa.id IN (SELECT id_kass FROM z_zvit WHERE data_time=0)");

/// Only the label tells it: the data stays the id.
void markClosingOnly(QComboBox *box, int index, bool isBlocked)
{
    const QString name = box->itemText(index);
    box->setItemText(index, isBlocked ? SalePlacesText::tr("%1 (заблоковано, лише закриття зміни)").arg(name)
                                      : SalePlacesText::tr("%1 (лише закриття зміни)").arg(name));
    box->setItemData(index, true, closingOnlyRole);
}
} // namespace

void SalePlaces::fillShops(QComboBox *box, QSqlDatabase *db, QLoadedUser *user, QObject *receiver)
{
    QTab::GetLstShopFromPermis(db, user, receiver,
                               QStringLiteral(" AND (%1 OR %2) GROUP BY shops.id ORDER BY IFNULL(%1,0) DESC,"
                                              "shops.address")
                                   .arg(forSale, hasOpenShift),
                               box);
    auto closed = Db(db, receiver)
                      .run(QStringLiteral("SELECT id,IFNULL(block,0)<>0 FROM shops WHERE NOT IFNULL(%1,0)")
                               .arg(forSale));
    while (closed && closed->next()) {
        const int index = box->findData(closed->value(0).toUInt());
        if (index >= 0)
            markClosingOnly(box, index, closed->value(1).toBool());
    }
}

void SalePlaces::fillRegisters(QComboBox *box, const QComboBox *shops, QSqlDatabase *db, QObject *receiver)
{
    const QSignalBlocker hold(box);
    box->clear();
    const bool isShopClosed = isClosingOnly(shops);
    auto query =
        Db(db, receiver)
            .run(QStringLiteral("SELECT IF(IFNULL(advertising_str,'')='',CONCAT('№ ',id),"
                                "advertising_str),id,IFNULL(block,0)<>0 FROM kassa WHERE id_shop=%1 "
                                "AND (%2 OR %3) ORDER BY 3,id")
                     .arg(shops->currentData().toUInt())
                     .arg(QLatin1String(isShopClosed ? "0" : "block=0 OR block IS NULL"), hasOpenShift));
    while (query && query->next()) {
        box->addItem(toText(query->value(0)), query->value(1));
        const int index = box->count() - 1;
        if (query->value(2).toBool())
            markClosingOnly(box, index, true);
        else
            box->setItemData(index, isShopClosed, closingOnlyRole);
    }
    box->setCurrentIndex(box->count() > 0 ? 0 : -1);
}

bool SalePlaces::isClosingOnly(const QComboBox *box)
{
    return box->currentData(closingOnlyRole).toBool();
}

QString SalePlaces::otherShopOfShift(QSqlDatabase *db, QObject *receiver, const QString &kass,
                                     const QString &shop)
{
    return Db(db, receiver)
        .firstText(
            QStringLiteral("SELECT IFNULL(shops.address,z_zvit.id_shop) FROM z_zvit LEFT JOIN shops ON "
                           "shops.id=z_zvit.id_shop WHERE z_zvit.data_time=0 AND z_zvit.id_kass=%1 AND "
                           "z_zvit.id_shop<>%2")
                .arg(kass, shop))
        .value_or(QString());
}
