#include "namestore.h"

#include "qtabdelegate.h"
#include "qupdatebd.h"

namespace {
NameWritten refused(const QString &why)
{
    return {NameWritten::Refused, why};
}

/// True also when nobody knows: the answer holds what came of it then.
bool isTaken(const Db &db, const NameDraft &draft, const QString &condition, const QString &value,
             const QString &why, NameWritten *answer)
{
    const auto other =
        db.firstText(QStringLiteral("SELECT id FROM ") + draft.table + QStringLiteral(" WHERE ") + condition,
                     {{QStringLiteral(":value"), value}});
    if (other && !other->isEmpty())
        *answer = refused(why);
    return !other || !other->isEmpty();
}

NameWritten insertName(const Db &db, const NameDraft &draft)
{
    NameWritten answer;
    const QString takenId = QTabDelegate::tr("Код %1 вже зайнятий. Введіть інший або залиште його порожнім.");
    if (isTaken(db, draft, QStringLiteral("name=:value"), draft.name,
                QTabDelegate::tr("Такий запис вже існує в базі!"), &answer) ||
        (!draft.id.isEmpty() &&
         isTaken(db, draft, QStringLiteral("id=:value"), draft.id, takenId.arg(draft.id), &answer)))
        return answer;
    const QVariant id = draft.id.toUInt() == 0 ? QVariant(QVariant::UInt) : QVariant(draft.id.toUInt());
    if (!db.run(QStringLiteral("INSERT INTO ") + draft.table + QStringLiteral(" (id,name) VALUES(:id,:name)"),
                {{QStringLiteral(":id"), id}, {QStringLiteral(":name"), draft.name}}))
        return answer;
    // LAST_INSERT_ID tells nothing about a row whose id was given.
    const auto newId = id.isNull() ? db.lastInsertId() : std::optional<quint64>(draft.id.toUInt());
    if (!newId)
        return answer;
    return {NameWritten::Written, {}, QString::number(*newId)};
}

NameWritten updateName(const Db &db, const NameDraft &draft)
{
    NameWritten answer;
    const QString id = QString::number(draft.id.toUInt());
    if (isTaken(db, draft, QStringLiteral("name=:value AND id<>") + id, draft.name,
                QTabDelegate::tr("Такий запис вже існує в базі!"), &answer))
        return answer;
    const auto now =
        db.firstText(QStringLiteral("SELECT name FROM ") + draft.table + QStringLiteral(" WHERE id=") + id);
    if (!now)
        return answer;
    if (*now != draft.shown) {
        answer =
            refused(QTabDelegate::tr("Поки ви редагували, назву змінили на «%1». Натисніть Enter ще раз, "
                                     "щоб записати свою, або Esc, щоб залишити цю.")
                        .arg(*now));
        answer.theirs = *now;
        return answer;
    }
    if (db.run(QStringLiteral("UPDATE ") + draft.table + QStringLiteral(" SET name=:name WHERE id=") + id,
               {{QStringLiteral(":name"), draft.name}}, QTabDelegate::tr("Помилка оновлення запису.")))
        answer = {NameWritten::Written, {}, draft.id};
    return answer;
}
} // namespace

NameWritten writeName(const Db &db, const NameDraft &draft)
{
    const NameWritten written = draft.isNew ? insertName(db, draft) : updateName(db, draft);
    if (written.outcome == NameWritten::Written)
        QUpdateBD().update(draft.table, *db.connection(), db.receiver());
    return written;
}
