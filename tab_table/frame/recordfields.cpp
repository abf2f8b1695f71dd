#include "recordfields.h"

#include <QStringList>

namespace {
std::optional<RecordField> find(const RecordFields &fields, const QString &key)
{
    for (const RecordField &field : fields) {
        if (field.key == key)
            return field;
    }
    return std::nullopt;
}

QString withoutEndBlanks(QString text)
{
    while (text.endsWith(QLatin1Char(' ')))
        text.chop(1);
    return text;
}

bool isSame(const std::optional<RecordField> &one, const std::optional<RecordField> &other)
{
    if (!one || !other)
        return !one && !other;
    return withoutEndBlanks(one->stored) == withoutEndBlanks(other->stored);
}

/// The keys of both, those of the first one in their order, then what only the second one has.
QStringList keysOf(const RecordFields &one, const RecordFields &other)
{
    QStringList keys;
    for (const RecordFields &fields : {one, other}) {
        for (const RecordField &field : fields) {
            if (!keys.contains(field.key))
                keys.append(field.key);
        }
    }
    return keys;
}
} // namespace

QVector<RecordChange> changesByOthers(const RecordFields &read, const RecordFields &mine,
                                      const RecordFields &theirs)
{
    QVector<RecordChange> changes;
    for (const QString &key : keysOf(read, theirs)) {
        RecordChange change = {find(read, key), find(mine, key), find(theirs, key), false};
        if (isSame(change.before, change.theirs) || isSame(change.mine, change.theirs))
            continue;
        change.isConflict = !isSame(change.before, change.mine);
        changes.append(change);
    }
    return changes;
}

std::optional<RecordField> firstDifference(const RecordFields &one, const RecordFields &other)
{
    for (const QString &key : keysOf(one, other)) {
        const auto first = find(one, key);
        const auto second = find(other, key);
        if (!isSame(first, second))
            return second ? second : first;
    }
    return std::nullopt;
}
