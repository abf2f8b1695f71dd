#include "storedrecord.h"

#include "db.h"

#include <QCoreApplication>
#include <QStringList>

namespace {
struct Stored
{
    Q_DECLARE_TR_FUNCTIONS(Stored)
};

/// The server cuts blanks off the end of a CHAR.
QString withoutEndBlanks(QString text)
{
    while (text.endsWith(QLatin1Char(' ')))
        text.chop(1);
    return text;
}

QString selectOf(const QString &table, const QString &id, const MeantColumns &meant)
{
    QStringList columns;
    for (const MeantColumn &column : meant)
        columns.append(QLatin1String(column.column));
    return QStringLiteral("SELECT %1 FROM %2 WHERE id=%3").arg(columns.join(QLatin1Char(',')), table, id);
}
} // namespace

Difference differenceOf(const Db &db, const QString &table, const QString &id, const MeantColumns &meant)
{
    auto row = db.run(selectOf(table, id, meant) + QStringLiteral(" FOR UPDATE"));
    if (!row)
        return {};
    if (!row->next())
        return {Difference::Gone, QString(), QString()};
    for (int i = 0; i < meant.size(); ++i) {
        const QString stored = toText(row->value(i));
        if (withoutEndBlanks(stored) != withoutEndBlanks(meant.at(i).text))
            return {Difference::Column, meant.at(i).caption, stored};
    }
    return {Difference::Nothing, QString(), QString()};
}

QString changedMeanwhile(const Difference &difference)
{
    switch (difference.what) {
    case Difference::Column:
        return Stored::tr("Поки редактор був відкритий, цей запис змінила інша програма (%1). Нічого не "
                          "збережено. Закрийте редактор і відкрийте запис знову.")
            .arg(difference.caption);
    case Difference::Gone:
        return Stored::tr("Поки редактор був відкритий, цей запис вилучила інша програма. Нічого не "
                          "збережено.");
    default:
        return QString();
    }
}

QString storedOtherwise(const Difference &difference)
{
    if (difference.what != Difference::Column && difference.what != Difference::Gone)
        return QString();
    return Stored::tr(
               "Поки редактор був відкритий, вибране в полі \"%1\" перейменувала інша програма. Нічого не "
               "збережено. Закрийте редактор, відкрийте його знову і виберіть ще раз.")
        .arg(difference.caption);
}

Saved refused(const QString &why)
{
    return {why.isEmpty() ? Saved::Failed : Saved::Refused, why};
}

std::optional<MeantColumns> readColumns(const Db &db, const QString &table, const QString &id,
                                        const MeantColumns &columns)
{
    auto row = db.run(selectOf(table, id, columns));
    if (!row || !row->next())
        return std::nullopt;
    MeantColumns stored = columns;
    for (int i = 0; i < stored.size(); ++i)
        stored[i].text = toText(row->value(i));
    return stored;
}

Saved saveRecord(const Db &db, const QString &table, QString *id, const MeantColumns &loaded,
                 const MeantColumns &meant, const std::function<bool(QString *id)> &write)
{
    Transaction t(db);
    if (!t)
        return {};
    if (!loaded.isEmpty()) {
        const Difference before = differenceOf(db, table, *id, loaded);
        if (before.what != Difference::Nothing)
            return refused(changedMeanwhile(before));
    }
    if (!write(id))
        return {};
    const Difference after = differenceOf(db, table, *id, meant);
    if (after.what != Difference::Nothing)
        return refused(storedOtherwise(after));
    return {t.commit() ? Saved::Written : Saved::Unclear, QString()};
}

std::optional<bool> holds(const Db &db, const QString &table, const QString &id, const MeantColumns &meant)
{
    waitForServer(db, 3000);
    const Difference difference = differenceOf(db, table, id, meant);
    return difference.what == Difference::Unknown
               ? std::nullopt
               : std::optional<bool>(difference.what == Difference::Nothing);
}
