#include "placenames.h"

#include "db.h"

PlaceNames readPlaceNames(const Db &db, const Place &place)
{
    PlaceNames names;
    names.group = place.group;
    const auto row =
        db.firstRow(QStringLiteral("SELECT address,group_shop FROM shops WHERE id=%1").arg(place.shop));
    if (row && !row->isEmpty()) {
        names.shop = row->at(0);
        names.group = row->at(1).toUInt();
        names.kass =
            db.firstText(QStringLiteral("SELECT advertising_str FROM kassa WHERE id=%1").arg(place.kass))
                .value_or(QString());
    }
    return names;
}
