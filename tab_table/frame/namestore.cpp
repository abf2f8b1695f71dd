#include "namestore.h"

#include "qtabdelegate.h"
#include "qupdatebd.h"
#include "servererror.h"

namespace {
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

NameWritten insertName(const Db &db, const NameDraft &draft)
{
    const auto sameName = ownerOf(db, draft, QStringLiteral("name=") + lit(draft.name));
    if (!sameName)
        return {};
    if (!sameName->isEmpty())
        return draft.mayHaveArrived ? NameWritten{NameWritten::Written, {}, *sameName}
                                    : refused(takenWords());
    const QString id = draft.id.toUInt() == 0 ? QString() : QString::number(draft.id.toUInt());
    const auto sameId = id.isEmpty() ? QString() : ownerOf(db, draft, QStringLiteral("id=") + id);
    if (!sameId)
        return {};
    if (!sameId->isEmpty())
        return refused(
            QTabDelegate::tr("Код %1 вже зайнятий. Введіть інший або залиште його порожнім.").arg(draft.id));
    NameWritten written = writtenAs(db,
                                    QStringLiteral("INSERT INTO %1 (id,name) VALUES(%2,")
                                            .arg(draft.table, id.isEmpty() ? QStringLiteral("NULL") : id) +
                                        lit(draft.name) + QLatin1Char(')'),
                                    id);
    // LAST_INSERT_ID tells nothing about a row whose id was given.
    if (written.outcome != NameWritten::Written || !id.isEmpty())
        return written;
    const auto newId = db.lastInsertId();
    return newId ? NameWritten{NameWritten::Written, {}, QString::number(*newId)} : NameWritten();
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
