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

const QLatin1String anywhere("(dk_shc.shtrihcod LIKE %1 OR goods.name LIKE %1 OR goods.id LIKE %1)");

/// Beside other words a short number is a weight or a size, which some place of nearly every barcode holds.
QString besideOthers(const QString &word)
{
    const int shortestPartOfBarcode = 6;
    return isAllDigits(word) && word.size() >= shortestPartOfBarcode
               ? QString(anywhere)
               : QStringLiteral("(goods.name LIKE %1 OR goods.id LIKE %1)");
}
} // namespace

QString goodsCondition(uint group, const QString &text)
{
    QStringList conditions;
    if (group != 0)
        conditions.append(QStringLiteral("goods.group_g=") + QString::number(group));
    const QStringList words = wordsOf(text);
    for (const QString &word : words)
        conditions.append(likeWords(words.size() > 1 ? besideOthers(word) : QString(anywhere), word));
    return conditions.isEmpty() ? QString()
                                : QStringLiteral(" WHERE ") + conditions.join(QStringLiteral(" AND "));
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
