#include "turnoverbars.h"

#include "qrowmodel.h"

#include <QCoreApplication>
#include <QHash>
#include <QMap>
#include <algorithm>

namespace {
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(TurnoverBars)
};

const int mostDays = 92;
const int mostNames = 20;
const int dayLength = 10;  // "2026-03-01"
const int monthLength = 7; // "2026-03"

/// Sums of the rows by the first characters of a column; the keys stand in the order of their text.
QMap<QString, qint64> sumsByDate(const QRowModel &model, int sumColumn, int dayColumn, int length)
{
    QMap<QString, qint64> sums;
    for (int row = 0; row < model.rowCount(); ++row)
        sums[model.stored(row, dayColumn).left(length)] += model.number(row, sumColumn);
    return sums;
}

TurnoverBar dateBar(const QString &date, qint64 kopecks)
{
    if (date.isEmpty())
        return {Texts::tr("відкриті зміни"), Texts::tr("відкриті"), kopecks};
    QStringList parts = date.split(QLatin1Char('-'));
    std::reverse(parts.begin(), parts.end());
    const QString name = parts.join(QLatin1Char('.'));
    return {name, parts.size() == 3 ? name.left(5) : name, kopecks};
}
} // namespace

QVector<TurnoverBar> barsByDay(const QRowModel &model, int sumColumn, int dayColumn)
{
    QMap<QString, qint64> sums = sumsByDate(model, sumColumn, dayColumn, dayLength);
    if (sums.size() > mostDays)
        sums = sumsByDate(model, sumColumn, dayColumn, monthLength);
    QVector<TurnoverBar> bars;
    for (auto sum = sums.cbegin(); sum != sums.cend(); ++sum)
        bars.append(dateBar(sum.key(), sum.value()));
    if (sums.contains(QString()))
        std::rotate(bars.begin(), bars.begin() + 1, bars.end());
    return bars;
}

QVector<TurnoverBar> barsByName(const QRowModel &model, int sumColumn, int nameColumn)
{
    QHash<QString, qint64> sums;
    for (int row = 0; row < model.rowCount(); ++row)
        sums[model.stored(row, nameColumn)] += model.number(row, sumColumn);
    QVector<TurnoverBar> bars;
    for (auto sum = sums.cbegin(); sum != sums.cend(); ++sum)
        bars.append({sum.key(), sum.key(), sum.value()});
    std::sort(bars.begin(), bars.end(), [](const TurnoverBar &a, const TurnoverBar &b) {
        return a.kopecks != b.kopecks ? a.kopecks > b.kopecks : a.name < b.name;
    });
    if (bars.size() <= mostNames)
        return bars;
    const QString others = Texts::tr("інші (%1)").arg(bars.size() - mostNames);
    TurnoverBar rest = {others, others, 0};
    for (int i = mostNames; i < bars.size(); ++i)
        rest.kopecks += bars.at(i).kopecks;
    bars.resize(mostNames);
    bars.append(rest);
    return bars;
}
