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
} // namespace

Difference differenceOf(const Db &db, const QString &table, const QString &id, const MeantColumns &meant)
{
    QStringList columns;
    for (const MeantColumn &column : meant)
        columns.append(QLatin1String(column.column));
    auto row = db.run(QStringLiteral("SELECT ") + columns.join(QLatin1Char(',')) + QStringLiteral(" FROM ") +
                      table + QStringLiteral(" WHERE id=") + id + QStringLiteral(" FOR UPDATE"));
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
