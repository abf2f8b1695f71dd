#include "taxrates.h"

#include "columns.h"
#include "money.h"
#include "numberfield.h"
#include "qupdatebd.h"
#include "servererror.h"

#include <QCoreApplication>

namespace {
struct Taxes
{
    Q_DECLARE_TR_FUNCTIONS(Taxes)
};

struct TaxStatement
{
    TaxColumn column;
    const char *name;
    const char *update;
};

/// The table has no column "ntid": a tax group keeps its name, and whoever renames it gets the server's
/// words.
constexpr TaxStatement statements[] = {
    {TaxColumn::Id, "id", nullptr},
    {TaxColumn::Name, "name", "UPDATE tax SET name=:val where ntid="},
    {TaxColumn::Rate, "pdv_proc", "UPDATE tax SET pdv_proc=:val where id="},
    {TaxColumn::LevyName, "dod_name", "UPDATE tax SET dod_name=:val where id="},
    {TaxColumn::LevyRate, "dod_proc", "UPDATE tax SET dod_proc=:val where id="},
};
static_assert(standInOrder(statements, 5));

QVariant bound(const CellDraft &draft)
{
    if (isRate(static_cast<TaxColumn>(draft.column)))
        return draft.value.toLongLong();
    return draft.value;
}

CellWritten changedMeanwhile(const CellDraft &draft, const QString &now)
{
    const bool isNumber = isRate(static_cast<TaxColumn>(draft.column));
    const QString shown = isNumber ? rateText(now.toLongLong()) : now;
    return {CellWritten::Refused,
            Taxes::tr("Поки ви редагували, інша програма записала тут «%1». Натисніть Enter ще раз, щоб "
                      "записати своє, або Esc, щоб залишити це.")
                .arg(shown),
            {},
            now};
}
} // namespace

bool canCountTaxes(const Db &db)
{
    return db
        .firstText(QStringLiteral("SELECT COUNT(*) FROM tax"), {},
                   Taxes::tr("Помилка при отриманні кількості записів таблиці") + QStringLiteral(" tax"))
        .has_value();
}

std::optional<RowStore> readTaxes(const Db &db, const QString &sql)
{
    auto rows = canCountTaxes(db) ? db.run(sql, {}, Taxes::tr("Помилка запиту")) : std::nullopt;
    return rows ? std::optional<RowStore>(RowStore::read(*rows)) : std::nullopt;
}

CellWritten writeTax(const Db &db, const CellDraft &draft)
{
    const TaxStatement &statement = statements[draft.column];
    const QString id = QString::number(draft.id.toUInt());
    Transaction t(db);
    const auto now = t ? db.firstText(QStringLiteral("SELECT %1 FROM tax WHERE id=%2 FOR UPDATE")
                                          .arg(QLatin1String(statement.name), id))
                       : std::nullopt;
    if (!now)
        return {};
    if (*now != draft.shown && *now != draft.value)
        return changedMeanwhile(draft, *now);
    if (!db.run(QLatin1String(statement.update) + id, {{QStringLiteral(":val"), bound(draft)}},
                Taxes::tr("Помилка оновлення запису.")))
        return {db.lastErrorNumber() == ServerError::UnknownColumn ? CellWritten::GivenUp
                                                                   : CellWritten::Failed};
    if (!QUpdateBD().updateShown(QStringList(draft.table), *db.connection(), db.receiver()) || !t.commit())
        return {};
    return {CellWritten::Written, {}, id};
}

QString maskedRate(const QString &hundredths)
{
    const qint64 rate = hundredths.toLongLong();
    return hundredths.isEmpty() || rate > largestRate ? QString() : rateText(rate).rightJustified(5, '0');
}

QString readMaskedRate(const QString &text, qint64 *hundredths)
{
    const QString whole = text.section('.', 0, 0).remove(' ');
    const QString fraction = text.section('.', 1);
    if (fraction.startsWith(' ') && !fraction.trimmed().isEmpty())
        return Taxes::tr("Впишіть обидві цифри після крапки: наприклад 07.50 чи 07.05.");
    const QString number = fraction.trimmed().isEmpty() ? whole : whole + '.' + fraction.trimmed();
    return readNumber(number, NumberKind::Rate, 0, largestRate, hundredths);
}
