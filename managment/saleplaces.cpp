#include "saleplaces.h"

#include "permittedlists.h"
#include "qloadeduser.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QHash>

namespace {
constexpr int closingOnlyRole = Qt::UserRole + 1;

struct SalePlacesText
{
    Q_DECLARE_TR_FUNCTIONS(SalePlaces)
};

// A shop without days of trade is an office or a warehouse.
const QLatin1String forSale("(shops.count_day_cycle>0 AND (shops.block=0 OR shops.block IS NULL))");
const QLatin1String hasOpenShift("kassa.id IN (SELECT id_kass FROM z_zvit WHERE data_time=0)");

SalePlaces::Offered closingOnly(DbId id, const QString &name, bool isBlocked)
{
    return {id,
            (isBlocked ? SalePlacesText::tr("%1 (заблоковано, лише закриття зміни)")
                       : SalePlacesText::tr("%1 (лише закриття зміни)"))
                .arg(name),
            true};
}

/// Where nothing is sold, and whether because it is blocked.
QHash<DbId, bool> closedShops(const Db &db)
{
    QHash<DbId, bool> closed;
    auto query =
        db.run(QStringLiteral("SELECT id,IFNULL(block,0)<>0 FROM shops WHERE NOT IFNULL(%1,0)").arg(forSale));
    while (query && query->next())
        closed.insert(query->value(0).toUInt(), query->value(1).toBool());
    return closed;
}
} // namespace

QString SalePlaces::shopsSql(const QLoadedUser &user)
{
    return permittedShopsSql(user, QStringLiteral(" AND (%1 OR %2) GROUP BY shops.id ORDER BY IFNULL(%1,0) "
                                                  "DESC,shops.address")
                                       .arg(forSale, hasOpenShift));
}

SalePlaces::Offer SalePlaces::read(const Db &db, const QString &sql, DbId home)
{
    Offer offer;
    const auto shops = readPermittedShops(db, sql);
    if (!shops || shops->isEmpty())
        return offer;
    const QHash<DbId, bool> closed = closedShops(db);
    offer.chosen = 0;
    for (const auto &[name, data] : *shops) {
        const DbId id = data.toUInt();
        if (id == home)
            offer.chosen = offer.shops.size();
        const auto found = closed.constFind(id);
        offer.shops.append(found == closed.constEnd() ? Offered{id, name, false}
                                                      : closingOnly(id, name, *found));
    }
    offer.registers = registers(db, offer.shops.at(offer.chosen));
    return offer;
}

QVector<SalePlaces::Offered> SalePlaces::registers(const Db &db, const Offered &shop)
{
    QVector<Offered> found;
    auto query =
        db.run(QStringLiteral("SELECT IF(IFNULL(advertising_str,'')='',CONCAT('№ ',id),"
                              "advertising_str),id,IFNULL(block,0)<>0 FROM kassa WHERE id_shop=%1 "
                              "AND (%2 OR %3) ORDER BY 3,id")
                   .arg(shop.id)
                   .arg(QLatin1String(shop.isClosingOnly ? "0" : "block=0 OR block IS NULL"), hasOpenShift));
    while (query && query->next()) {
        const Offered kass = {query->value(1).toUInt(), toText(query->value(0)), shop.isClosingOnly};
        found.append(query->value(2).toBool() ? closingOnly(kass.id, kass.name, true) : kass);
    }
    return found;
}

QString SalePlaces::otherShopOfShift(const Db &db, const QString &kass, const QString &shop)
{
    return db
        .firstText(
            QStringLiteral("SELECT IFNULL(shops.address,z_zvit.id_shop) FROM z_zvit LEFT JOIN shops ON "
                           "shops.id=z_zvit.id_shop WHERE z_zvit.data_time=0 AND z_zvit.id_kass=%1 AND "
                           "z_zvit.id_shop<>%2")
                .arg(kass, shop))
        .value_or(QString());
}

void SalePlaces::show(QComboBox *box, const QVector<Offered> &places, int chosen)
{
    ListEntries entries;
    for (const Offered &place : places)
        entries.append({place.name, place.id});
    showEntries(box, entries);
    const QSignalBlocker hold(box);
    for (int i = 0; i < places.size(); ++i) {
        if (places.at(i).isClosingOnly)
            box->setItemData(i, true, closingOnlyRole);
    }
    box->setCurrentIndex(chosen);
}

SalePlaces::Offered SalePlaces::chosen(const QComboBox *box)
{
    return {box->currentData().toUInt(), box->currentText(), box->currentData(closingOnlyRole).toBool()};
}
