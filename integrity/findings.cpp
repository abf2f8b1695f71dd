#include "findings.h"

#include "checks.h"
#include "money.h"
#include "sqldate.h"

#include <QCoreApplication>
#include <QHash>
#include <QRegularExpression>
#include <limits>

namespace integrity {
namespace {
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(Integrity)
};

/// As stored, without a doubt what it is: nothing for a text.
qint64 whole(const QString &text)
{
    return text.section(u'.', 0, 0).toLongLong();
}

QString timeShown(const QString &stored)
{
    return shownDateTime(QDateTime::fromString(stored.left(19), QStringLiteral("yyyy-MM-dd hh:mm:ss")));
}

/// Those sums of a shift that are not what its receipts make.
QString differingSums(const FoundRow &row)
{
    QStringList parts;
    const QVector<ShiftSum> &sums = shiftSumTable();
    for (int i = 0; i < sums.size(); ++i) {
        const qint64 stored = whole(row.value(storedColumn(i)));
        const qint64 reckoned = whole(row.value(reckonedColumn(i)));
        if (stored == reckoned || (sums.at(i).isOfOpenShift && row.value(QStringLiteral("isOpen")) == u"0"))
            continue;
        const auto shown = sums.at(i).isCount ? &wholeShown : &moneyShown;
        parts.append(Texts::tr("%1 у зміні %2, за чеками %3")
                         .arg(Texts::tr(sums.at(i).name), shown(stored), shown(reckoned)));
    }
    return parts.join(QStringLiteral("; "));
}

/// What is wrong with the receipt that ends a shift.
QString zReceiptWords(const FoundRow &row)
{
    if (row.value(QStringLiteral("isOpen")) != u"0")
        return Texts::tr("вона відкрита, а Z-чек уже є");
    if (row.value(QStringLiteral("zRows")) == u"0")
        return Texts::tr("вона закрита, а Z-чека немає");
    return Texts::tr("у Z-чеку %1, а оборот зміни без знижки %2")
        .arg(moneyShown(whole(row.value(QStringLiteral("zSum")))),
             moneyShown(whole(row.value(QStringLiteral("net")))));
}

/// The action of the page that lists a table; empty for none.
QString pageOf(const QString &table)
{
    static const QHash<QString, QString> pages = {{QStringLiteral("shops"), QStringLiteral("mt_shops")},
                                                  {QStringLiteral("kassa"), QStringLiteral("mt_kass")},
                                                  {QStringLiteral("devices"), QStringLiteral("mt_devices")},
                                                  {QStringLiteral("goods"), QStringLiteral("mt_goods")},
                                                  {QStringLiteral("clients"), QStringLiteral("mt_clients")},
                                                  {QStringLiteral("action"), QStringLiteral("mt_action")},
                                                  {QStringLiteral("z_zvit"), QStringLiteral("mt_z_zvits")},
                                                  {QStringLiteral("users"), QStringLiteral("mc_users")}};
    return pages.value(table);
}

QString valueText(const QString &name, const QString &format, const FoundRow &row)
{
    if (name == u"sums")
        return differingSums(row);
    if (name == u"zReceipt")
        return zReceiptWords(row);
    if (name == u"page")
        return pageOf(row.value(QStringLiteral("tableName")));
    const QString stored = row.value(name);
    if (format == u"money")
        return moneyShown(whole(stored));
    if (format == u"quantity")
        return quantityShown(whole(stored));
    return format == u"time" ? timeShown(stored) : stored;
}

/// The text with the row's values in the places of {name} and {name:format}.
QString filled(const QString &text, const FoundRow &row)
{
    static const QRegularExpression place(QStringLiteral("\\{(\\w+)(?::(\\w+))?\\}"));
    QString result;
    int from = 0;
    for (auto places = place.globalMatch(text); places.hasNext();) {
        const QRegularExpressionMatch match = places.next();
        result += text.mid(from, match.capturedStart() - from) +
                  valueText(match.captured(1), match.captured(2), row);
        from = match.capturedEnd();
    }
    return result + text.mid(from);
}

QString placeName(const QMap<QString, QString> &names, const QString &id)
{
    if (id.isEmpty() || id == u"0")
        return QString();
    const QString name = names.value(id);
    return name.isEmpty() ? Texts::tr("№ %1").arg(id) : name;
}

ChekOrigin originOf(const FoundRow &row)
{
    ChekOrigin origin;
    origin.shop = row.value(QStringLiteral("shop")).toUInt();
    origin.kass = row.value(QStringLiteral("kass")).toUInt();
    // All shifts where none is known.
    origin.zFrom = row.value(QStringLiteral("zvit"), QStringLiteral("0"));
    origin.zTo = row.value(QStringLiteral("zvit"), QString::number(std::numeric_limits<int>::max()));
    origin.chek = row.value(QStringLiteral("chek")).toUInt();
    return origin;
}
} // namespace

Finding findingOf(int check, const FoundRow &row, const KnownPlaces &places)
{
    const Check &kind = integrityChecks().at(check);
    Finding finding;
    finding.check = check;
    finding.shop = placeName(places.shops, row.value(QStringLiteral("shop")));
    finding.kass = placeName(places.registers, row.value(QStringLiteral("kass")));
    finding.words = filled(Texts::tr(kind.words), row);
    finding.advice = filled(Texts::tr(kind.advice), row);
    finding.destination = {filled(QLatin1String(kind.lead.action), row),
                           filled(QLatin1String(kind.lead.condition), row), finding.words, originOf(row), 0};
    return finding;
}

FindingsSoFar::FindingsSoFar() : m_states(integrityChecks().size()) {}

void FindingsSoFar::begin(int check)
{
    const std::lock_guard<std::mutex> lock(m_guard);
    m_states[check].kind = CheckState::Running;
}

void FindingsSoFar::add(const Finding &finding)
{
    const std::lock_guard<std::mutex> lock(m_guard);
    ++m_states[finding.check].found;
    m_findings.append(finding);
}

void FindingsSoFar::addUnlisted(int check, qint64 count)
{
    const std::lock_guard<std::mutex> lock(m_guard);
    m_states[check].found += count;
}

void FindingsSoFar::end(int check)
{
    const std::lock_guard<std::mutex> lock(m_guard);
    if (m_states.at(check).kind == CheckState::Running)
        m_states[check].kind = CheckState::Done;
}

void FindingsSoFar::fail(int check, const QString &error)
{
    const std::lock_guard<std::mutex> lock(m_guard);
    m_states[check].kind = CheckState::Unread;
    m_states[check].error = error;
}

bool FindingsSoFar::isRunning(int check) const
{
    const std::lock_guard<std::mutex> lock(m_guard);
    return m_states.at(check).kind == CheckState::Running;
}

qint64 FindingsSoFar::found(int check) const
{
    const std::lock_guard<std::mutex> lock(m_guard);
    return m_states.at(check).found;
}

QVector<CheckState> FindingsSoFar::states() const
{
    const std::lock_guard<std::mutex> lock(m_guard);
    return m_states;
}

QVector<Finding> FindingsSoFar::after(int count) const
{
    const std::lock_guard<std::mutex> lock(m_guard);
    return m_findings.mid(count);
}
} // namespace integrity
