#include "goodsrules.h"

#include "db.h"
#include "ean13.h"
#include "money.h"

#include <QCoreApplication>

namespace {
struct Rules
{
    Q_DECLARE_TR_FUNCTIONS(Rules)
};

const uint firstExclusiveRule = 2;
const uint lastExclusiveRule = 4;
} // namespace

QString goodsCondition(uint group, const QString &text)
{
    QString condition;
    if (group != 0)
        condition = QStringLiteral(" WHERE goods.group_g=") + QString::number(group);
    if (text.isEmpty())
        return condition;
    const QString pattern = likeContains(text);
    condition += group != 0 ? QStringLiteral(" AND (") : QStringLiteral(" WHERE (");
    return condition + QStringLiteral("dk_shc.shtrihcod LIKE ") + pattern +
           QStringLiteral(" OR goods.name LIKE ") + pattern + QStringLiteral(" OR goods.id LIKE ") + pattern +
           QLatin1Char(')');
}

bool isExclusiveRule(uint rule)
{
    return rule >= firstExclusiveRule && rule <= lastExclusiveRule;
}

bool priceFromText(const QString &text, qint64 *kopecks)
{
    return !looksScanned(text.trimmed()) && kopecksFromText(text, kopecks) && *kopecks >= 0 &&
           *kopecks <= greatestPrice;
}

QString priceRefusal(const QString &text)
{
    qint64 kopecks = 0;
    if (priceFromText(text, &kopecks))
        return QString();
    if (looksScanned(text.trimmed()))
        return Rules::tr("\"%1\" схоже на штрихкод, а не на ціну. Зітріть його і введіть ціну.").arg(text);
    return Rules::tr("\"%1\" не є ціною від 0 до %2.").arg(text, moneyText(greatestPrice));
}

bool isTypedBarcode(const QString &code)
{
    return code.size() == 13 && isAllDigits(code);
}

bool isStoredBarcode(const QString &code)
{
    return (code.size() == 8 || code.size() == 13) && isAllDigits(code);
}
