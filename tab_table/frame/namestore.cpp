#include "namestore.h"

#include "qtabdelegate.h"
#include "qupdatebd.h"
#include "servererror.h"

namespace {
/// To get an id that others do not take meanwhile.
const int mostAttempts = 5;

NameWritten refused(const QString &why)
{
    return {NameWritten::Refused, why};
}

QString takenWords()
{
    return QTabDelegate::tr("Такий запис вже існує в базі!");
}

/// Another program may be quicker between the look and the writing.
NameWritten writtenAs(const Db &db, const QString &sql, const QString &id, const QString &failure = {})
{
    if (db.runExpecting(ServerError::DuplicateKey, sql, failure))
        return {NameWritten::Written, {}, id};
    return db.lastErrorNumber() == ServerError::DuplicateKey ? refused(takenWords()) : NameWritten();
}

/// The id of the row that has the value; nothing after a failure.
std::optional<QString> ownerOf(const Db &db, const NameDraft &draft, const QString &condition)
{
    return db.firstText(QStringLiteral("SELECT id FROM ") + draft.table + QStringLiteral(" WHERE ") +
                        condition);
}

NameWritten insertAs(const Db &db, const NameDraft &draft, const QString &id)
{
    return writtenAs(db,
                     QStringLiteral("INSERT INTO %1 (id,name) VALUES(%2,")
                             .arg(draft.table, id.isEmpty() ? QStringLiteral("NULL") : id) +
                         lit(draft.name) + QLatin1Char(')'),
                     id);
}

/// Empty when it is free.
std::optional<QString> ownerOfName(const Db &db, const NameDraft &draft)
{
    return ownerOf(db, draft, QStringLiteral("name=") + lit(draft.name));
}

NameWritten insertWithTypedId(const Db &db, const NameDraft &draft, const QString &id)
{
    const NameWritten written = insertAs(db, draft, id);
    if (written.outcome != NameWritten::Refused)
        return written;
    const auto sameName = ownerOfName(db, draft);
    if (!sameName)
        return {};
    return sameName->isEmpty()
               ? refused(QTabDelegate::tr("Код %1 вже зайнятий. Введіть інший або залиште його порожнім.")
                             .arg(draft.id))
               : written;
}

NameWritten insertWithAnyId(const Db &db, const NameDraft &draft)
{
    const NameWritten written = insertAs(db, draft, QString());
    const auto newId = written.outcome == NameWritten::Written ? db.lastInsertId() : std::nullopt;
    if (written.outcome != NameWritten::Written)
        return written;
    return newId ? NameWritten{NameWritten::Written, {}, QString::number(*newId)} : NameWritten();
}

/// Behind the highest id. While other programs take it first, behind theirs.
NameWritten insertFromLowestId(const Db &db, const NameDraft &draft)
{
    for (int attempt = 0; attempt < mostAttempts; ++attempt) {
        const auto id = db.firstText(
            QStringLiteral("SELECT GREATEST(%1,IFNULL(MAX(id),0)+1) FROM ").arg(draft.lowestNewId) +
            draft.table);
        if (!id)
            return {};
        const NameWritten written = insertAs(db, draft, *id);
        if (written.outcome != NameWritten::Refused)
            return written;
        const auto sameName = ownerOfName(db, draft);
        if (!sameName)
            return {};
        if (!sameName->isEmpty())
            return written;
    }
    return refused(QTabDelegate::tr("Інші програми саме додають сюди записи. Натисніть Enter ще раз."));
}

NameWritten insertName(const Db &db, const NameDraft &draft)
{
    const auto sameName = ownerOfName(db, draft);
    if (!sameName)
        return {};
    if (!sameName->isEmpty())
        return draft.mayHaveArrived ? NameWritten{NameWritten::Written, {}, *sameName}
                                    : refused(takenWords());
    if (const uint id = draft.id.toUInt(); id != 0)
        return insertWithTypedId(db, draft, QString::number(id));
    return draft.lowestNewId == 0 ? insertWithAnyId(db, draft) : insertFromLowestId(db, draft);
}

NameWritten updateName(const Db &db, const NameDraft &draft)
{
    const QString id = QString::number(draft.id.toUInt());
    const auto sameName = ownerOf(db, draft, QStringLiteral("name=%1 AND id<>").arg(lit(draft.name)) + id);
    if (!sameName)
        return {};
    if (!sameName->isEmpty())
        return refused(takenWords());
    const auto now =
        db.firstText(QStringLiteral("SELECT name FROM ") + draft.table + QStringLiteral(" WHERE id=") + id);
    if (!now)
        return {};
    if (*now != draft.shown && *now != draft.name) {
        NameWritten answer =
            refused(QTabDelegate::tr("Поки ви редагували, назву змінили на «%1». Натисніть Enter ще раз, "
                                     "щоб записати свою, або Esc, щоб залишити цю.")
                        .arg(*now));
        answer.theirs = *now;
        return answer;
    }
    return writtenAs(db,
                     QStringLiteral("UPDATE %1 SET name=").arg(draft.table) + lit(draft.name) +
                         QStringLiteral(" WHERE id=") + id,
                     draft.id, QTabDelegate::tr("Помилка оновлення запису."));
}
} // namespace

NameWritten writeName(const Db &db, const NameDraft &draft)
{
    NameWritten written = draft.isNew ? insertName(db, draft) : updateName(db, draft);
    if (written.outcome == NameWritten::Written)
        QUpdateBD().update(draft.table, *db.connection(), db.receiver());
    return written;
}
