#include "cardkeys.h"

#include "ean13.h"

#include <QCoreApplication>
#include <QSet>
#include <algorithm>

namespace {
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(UserCard)
};

const int prefixLength = 3;
const int keyLength = 10;
const int numberLength = keyLength - 1;
/// The key without its check digit; no leading zeros, which people would leave out.
const qint64 firstNumber = 100000000;
const qint64 lastNumber = 999999999;

bool isPrefix(const QString &prefix)
{
    return prefix.size() == prefixLength && isAllDigits(prefix);
}

QString keyOf(const QString &prefix, qint64 number)
{
    const QString digits = QString::number(number);
    return digits + eanCheckDigit(prefix + digits, prefixLength + numberLength);
}
} // namespace

QString cardCode(const QString &prefix, const QString &key)
{
    return cardKeyRefusal(prefix, key).isEmpty() ? prefix + key : QString();
}

QString keyOfCard(const QString &prefix, const QString &code)
{
    const QString key = code.mid(prefixLength);
    return code.startsWith(prefix) && !cardCode(prefix, key).isEmpty() ? key : QString();
}

QString cardKeyRefusal(const QString &prefix, const QString &key)
{
    if (!isPrefix(prefix))
        return Texts::tr("Картки неможливі: префікс ідентифікації в налаштуваннях повинен складатися з трьох "
                         "цифр.");
    if (key.size() != keyLength || !isAllDigits(key))
        return Texts::tr("Ключ повинен складатися з десяти цифр.");
    const QChar check = eanCheckDigit(prefix + key, prefixLength + numberLength);
    return key.back() == check
               ? QString()
               : Texts::tr("Картка з таким ключем не зчитається: остання цифра ключа має бути %1.")
                     .arg(check);
}

QString nextFreeKey(const QString &prefix, const QStringList &taken)
{
    if (!isPrefix(prefix))
        return QString();
    QSet<qint64> numbers;
    qint64 highest = firstNumber - 1;
    for (const QString &key : taken) {
        const qint64 number = isAllDigits(key) && key.size() == keyLength ? key.toLongLong() / 10 : 0;
        numbers.insert(number);
        highest = std::max(highest, number);
    }
    qint64 number = highest < lastNumber ? highest + 1 : firstNumber;
    while (numbers.contains(number) && number <= lastNumber)
        ++number;
    return number <= lastNumber ? keyOf(prefix, number) : QString();
}
