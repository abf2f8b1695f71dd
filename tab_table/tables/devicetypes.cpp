#include "devicetypes.h"

#include "qtab.h"
#include "qupdatebd.h"

#include <QCoreApplication>

namespace {
struct Devices
{
    Q_DECLARE_TR_FUNCTIONS(Devices)
};

CellWritten refused(const QString &why)
{
    return {CellWritten::Refused, why};
}

CellWritten changedMeanwhile(const QString &now)
{
    const QString shown = now.isEmpty() ? Devices::tr("не вказано") : now;
    return {CellWritten::Refused,
            Devices::tr("Поки ви редагували, інша програма записала тут «%1». Натисніть Enter ще раз, щоб "
                        "записати своє, або Esc, щоб залишити це.")
                .arg(shown),
            {},
            now};
}
} // namespace

std::optional<QStringList> readDeviceTypes(const Db &db)
{
    return db.firstColumn(QStringLiteral("SELECT name FROM type_device WHERE name<>'' ORDER BY id"));
}

QString deviceTypeRefusal(const QStringList &types, const QString &type)
{
    return type.isEmpty() || types.contains(type)
               ? QString()
               : Devices::tr("Типу «%1» немає. Виберіть один із цих: %2; без типу залиште поле порожнім.")
                     .arg(type, types.join(QStringLiteral(", ")));
}

CellWritten writeDeviceType(const Db &db, const CellDraft &draft)
{
    const auto types = readDeviceTypes(db);
    const QString why = types ? deviceTypeRefusal(*types, draft.value) : QString();
    if (!types || !why.isEmpty())
        return types ? refused(why) : CellWritten();
    const QString id = QString::number(draft.id.toUInt());
    Transaction t(db);
    const auto row = t ? db.firstRow(QStringLiteral("SELECT (SELECT name FROM type_device WHERE "
                                                    "id=id_type_device) FROM devices WHERE id=%1 FOR UPDATE")
                                         .arg(id))
                       : std::nullopt;
    if (!row)
        return {};
    if (row->isEmpty())
        return refused(QTab::tr("Запис не знайдено в базі!"));
    if (row->first() != draft.shown && row->first() != draft.value)
        return changedMeanwhile(row->first());
    if (!db.run(QStringLiteral("UPDATE devices SET id_type_device=(SELECT MIN(id) FROM type_device WHERE "
                               "name=:type) WHERE id=") +
                    id,
                {{QStringLiteral(":type"), draft.value}}, Devices::tr("Помилка оновлення запису.")))
        return {};
    if (!QUpdateBD().updateShown(QStringList(draft.table), *db.connection(), db.receiver()) || !t.commit())
        return {};
    return {CellWritten::Written, {}, id};
}
