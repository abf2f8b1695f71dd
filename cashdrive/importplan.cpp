#include "importplan.h"

#include <QCoreApplication>
#include <QHash>
#include <QSet>
#include <QTextCodec>

namespace {
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(ClientImport)
};

const int codeField = 2;
const int levelField = 5;
const quint32 anonymous = 1;
const int checkedBetween = 4096;

/// Without the blanks and zeros that fill a field up; valid as long as the table.
QByteArray trimmedField(const DbfTable &table, int record, int field)
{
    const QByteArray bytes = table.borrowedData(record, field);
    const auto isFill = [](char c) { return c == ' ' || c == '\0' || c == '\t'; };
    int begin = 0;
    int end = bytes.size();
    while (begin < end && isFill(bytes.at(begin)))
        ++begin;
    while (end > begin && isFill(bytes.at(end - 1)))
        --end;
    return QByteArray::fromRawData(bytes.constData() + begin, end - begin);
}

enum class Digits { Sound, None, Other, TooLarge };

Digits readDigits(const QByteArray &text, quint32 *number)
{
    if (text.isEmpty())
        return Digits::None;
    quint64 value = 0;
    for (const char c : text) {
        if (c < '0' || c > '9')
            return Digits::Other;
        value = qMin(value * 10 + static_cast<quint64>(c - '0'), quint64(1) << 32U);
    }
    *number = static_cast<quint32>(value);
    return value >> 32U == 0 ? Digits::Sound : Digits::TooLarge;
}

/// Why a record has no code that a card can have; empty when it has.
QString codeRefusal(const QByteArray &text, quint32 *code)
{
    switch (readDigits(text, code)) {
    case Digits::None:
        return Texts::tr("код порожній");
    case Digits::Other:
        return Texts::tr("у коді не лише цифри");
    case Digits::TooLarge:
        break;
    case Digits::Sound:
        if (*code != 0)
            return QString();
    }
    return Texts::tr("код не від 1 до 4294967295");
}

QString levelRefusal(const QByteArray &text, quint32 *level)
{
    switch (readDigits(text, level)) {
    case Digits::None:
        return Texts::tr("знижку не вказано");
    case Digits::Other:
    case Digits::TooLarge:
        return Texts::tr("знижка – не номер рівня");
    case Digits::Sound:
        break;
    }
    return QString();
}

/// Sorts the records of a table into those that can be written and those that cannot.
class Planner
{
public:
    Planner(const DbfTable &table, const QByteArray &codePage, const QStringList &levels, ImportPlan *plan)
        : m_table(table), m_codec(QTextCodec::codecForName(codePage)), m_plan(plan)
    {
        for (const QString &level : levels)
            m_levels.insert(level.toUInt());
        plan->cards.reserve(static_cast<size_t>(table.recordCount()));
    }

    void take(int record)
    {
        ImportedCard card{record + 1, 0, 0};
        const QByteArray code = trimmedField(m_table, record, codeField);
        const QString why = refusal(record, code, &card);
        if (!why.isEmpty()) {
            m_plan->refused.append({card.record, shown(code), why});
            return;
        }
        m_plan->cards.push_back(card);
        m_plan->hasAnonymous = m_plan->hasAnonymous || card.code == anonymous;
        if (m_table.isDeleted(record))
            ++m_plan->deletedCount;
    }

private:
    QString refusal(int record, const QByteArray &code, ImportedCard *card)
    {
        // What is missing might be the end of the code.
        if (!m_table.isWhole(record))
            return Texts::tr("запис обірвано");
        QString why = codeRefusal(code, &card->code);
        if (why.isEmpty())
            why = levelRefusal(trimmedField(m_table, record, levelField), &card->level);
        return why.isEmpty() && !m_levels.contains(card->level) ? unknownLevel(card->level) : why;
    }

    /// The same text for all records of a level.
    QString unknownLevel(quint32 level)
    {
        ++m_plan->unknownLevels[level];
        QString &reason = m_reasons[level];
        if (reason.isEmpty())
            reason = Texts::tr("рівня знижки %1 немає у базі").arg(level);
        return reason;
    }

    /// In one line and without what separates the columns of a file.
    QString shown(const QByteArray &code) const
    {
        const QString text = m_codec == nullptr ? QString::fromLatin1(code) : m_codec->toUnicode(code);
        return text.simplified().replace(QLatin1Char(';'), QLatin1Char(','));
    }

    const DbfTable &m_table;
    const QTextCodec *m_codec;
    QSet<quint32> m_levels;
    QHash<quint32, QString> m_reasons;
    ImportPlan *m_plan;
};
} // namespace

bool hasCardFields(const DbfTable &table)
{
    return table.fieldCount() > levelField && table.field(codeField).length > 0 &&
           table.field(levelField).length > 0;
}

JobResult planImport(JobContext &context, const DbfTable &table, const QByteArray &codePage, ImportPlan *plan)
{
    Db::letHooksHearThisThread();
    const Db db = context.db();
    const auto group =
        db.firstText(QStringLiteral("SELECT id FROM group_shop WHERE id=") + QString::number(plan->group));
    const auto levels = db.firstColumn(QStringLiteral("SELECT id FROM procent"));
    if (!group || !levels)
        return {};
    plan->isGroupKnown = !group->isEmpty();
    Planner planner(table, codePage, *levels, plan);
    for (int record = 0; record < table.recordCount(); ++record) {
        if (record % checkedBetween == 0) {
            if (context.isCancelled())
                return {JobResult::Cancelled,
                        Texts::tr("Перевірку файла зупинено; у базу нічого не записано."),
                        {}};
            context.progress(record, table.recordCount());
        }
        planner.take(record);
    }
    return {JobResult::Done, QString(), {}};
}
