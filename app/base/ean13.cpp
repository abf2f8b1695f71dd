#include "ean13.h"

#include <algorithm>

bool isAllDigits(const QString &text)
{
    return !text.isEmpty() &&
           std::all_of(text.begin(), text.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
}

QChar eanCheckDigit(const QString &code, int len)
{
    int sum = 0;
    for (int i = len - 1, weight = 3; i >= 0; --i, weight = 4 - weight)
        sum += code.at(i).digitValue() * weight;
    const int last = sum % 10;
    return QLatin1Char(static_cast<char>('0' + (last == 0 ? 0 : 10 - last)));
}

bool isSoundEan(const QString &code)
{
    if ((code.size() != 8 && code.size() != 13) || !isAllDigits(code))
        return false;
    return code.back() == eanCheckDigit(code, code.size() - 1);
}

bool looksScanned(const QString &text)
{
    return (text.size() == 8 || (text.size() >= 12 && text.size() <= 14)) && isAllDigits(text);
}
