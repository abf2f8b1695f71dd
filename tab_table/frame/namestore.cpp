#include "namestore.h"

#include "qtab.h"
#include "qtabdelegate.h"
#include "qupdatebd.h"
#include "servererror.h"

namespace {
/// To get an id that others do not take meanwhile.
const int mostAttempts = 5;

CellWritten refused(const QString &why)
{
    return {CellWritten::Refused, why};
}

QString takenWords()
{
    return QTabDelegate::tr("Такий запис вже існує в базі!");
}

/// Another program may be quicker between the look and the writing.
CellWritten writtenAs(const Db &db, const QString &sql, const QString &id, const QString &failure = {})
{
    if (db.runExpecting(ServerError::DuplicateKey, sql, failure))
        return {CellWritten::Written, {}, id};
    return db.lastErrorNumber() == ServerError::DuplicateKey ? refused(takenWords()) : CellWritten();
}

/// The id of the row that has the value; nothing after a failure.
std::optional<QString> ownerOf(const Db &db, const CellDraft &draft, const QString &condition)
{
    return db.firstText(QStringLiteral("SELECT id FROM ") + draft.table + QStringLiteral(" WHERE ") +
                        condition);
}

CellWritten insertAs(const Db &db, const CellDraft &draft, const QString &id)
{
    return writtenAs(db,
                     QStringLiteral("INSERT INTO %1 (id,name) VALUES(%2,")
                             .arg(draft.table, id.isEmpty() ? QStringLiteral("NULL") : id) +
                         lit(draft.value) + QLatin1Char(')'),
                     id);
}

/// Empty when it is free.
std::optional<QString> ownerOfName(const Db &db, const CellDraft &draft)
{
    return ownerOf(db, draft, QStringLiteral("name=") + lit(draft.value));
}

CellWritten insertWithTypedId(const Db &db, const CellDraft &draft, const QString &id)
{
    CellWritten written = insertAs(db, draft, id);
    if (written.outcome != CellWritten::Refused)
        return written;
    const auto sameName = ownerOfName(db, draft);
    if (!sameName)
        return {};
    return sameName->isEmpty()
               ? refused(QTabDelegate::tr("Код %1 вже зайнятий. Введіть інший або залиште його порожнім.")
                             .arg(draft.id))
               : written;
}

CellWritten insertWithAnyId(const Db &db, const CellDraft &draft)
{
    CellWritten written = insertAs(db, draft, QString());
    const auto newId = written.outcome == CellWritten::Written ? db.lastInsertId() : std::nullopt;
    if (written.outcome != CellWritten::Written)
        return written;
    return newId ? CellWritten{CellWritten::Written, {}, QString::number(*newId)} : CellWritten();
}

/// Behind the highest id. While other programs take it first, behind theirs.
CellWritten insertFromLowestId(const Db &db, const CellDraft &draft)
{
    for (int attempt = 0; attempt < mostAttempts; ++attempt) {
        const auto id = db.firstText(
            QStringLiteral("SELECT GREATEST(%1,IFNULL(MAX(id),0)+1) FROM ").arg(draft.lowestNewId) +
            draft.table);
        if (!id)
            return {};
        CellWritten written = insertAs(db, draft, *id);
        if (written.outcome != CellWritten::Refused)
            return written;
        const auto sameName = ownerOfName(db, draft);
        if (!sameName)
            return {};
        if (!sameName->isEmpty())
            return written;
    }
    return refused(QTabDelegate::tr("Інші програми саме додають сюди записи. Натисніть Enter ще раз."));
}

CellWritten insertName(const Db &db, const CellDraft &draft)
{
    const auto sameName = ownerOfName(db, draft);
    if (!sameName)
        return {};
    if (!sameName->isEmpty())
        return draft.mayHaveArrived ? CellWritten{CellWritten::Written, {}, *sameName}
                                    : refused(takenWords());
    if (const uint id = draft.id.toUInt(); id != 0)
        return insertWithTypedId(db, draft, QString::number(id));
    return draft.lowestNewId == 0 ? insertWithAnyId(db, draft) : insertFromLowestId(db, draft);
}

CellWritten updateName(const Db &db, const CellDraft &draft)
{
    const QString id = QString::number(draft.id.toUInt());
    const auto sameName = ownerOf(db, draft, QStringLiteral("name=%1 AND id<>").arg(lit(draft.value)) + id);
    if (!sameName)
        return {};
    if (!sameName->isEmpty())
        return refused(takenWords());
    const auto row =
        db.firstRow(QStringLiteral("SELECT name FROM ") + draft.table + QStringLiteral(" WHERE id=") + id);
    if (!row)
        return {};
    if (row->isEmpty())
        return refused(QTab::tr("Запис не знайдено в базі!"));
    const QString &now = row->constFirst();
    if (now != draft.shown && now != draft.value) {
        CellWritten answer =
            refused(QTabDelegate::tr("Поки ви редагували, назву змінили на «%1». Натисніть Enter ще раз, "
                                     "щоб записати свою, або Esc, щоб залишити цю.")
                        .arg(now));
        answer.theirs = now;
        return answer;
    }
    return writtenAs(db,
                     QStringLiteral("UPDATE %1 SET name=").arg(draft.table) + lit(draft.value) +
                         QStringLiteral(" WHERE id=") + id,
                     draft.id, QTabDelegate::tr("Помилка оновлення запису."));
}
} // namespace

CellWritten writeName(const Db &db, const CellDraft &draft)
{
    CellWritten written = draft.isNew ? insertName(db, draft) : updateName(db, draft);
    if (written.outcome == CellWritten::Written)
        QUpdateBD().updateShown(QStringList(draft.table), *db.connection(), db.receiver());
    return written;
}
