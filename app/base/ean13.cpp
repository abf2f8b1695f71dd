#include "ean13.h"

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
    if (code.size() != 8 && code.size() != 13)
        return false;
    for (const QChar c : code) {
        if (c < QLatin1Char('0') || c > QLatin1Char('9'))
            return false;
    }
    return code.back() == eanCheckDigit(code, code.size() - 1);
}
