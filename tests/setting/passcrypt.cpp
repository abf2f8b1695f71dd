#include <QString>

/// A password library that encrypts by writing the text backwards between brackets.
extern "C" Q_DECL_EXPORT QString mcrypt(QString text)
{
    std::reverse(text.begin(), text.end());
    return QLatin1Char('[') + text + QLatin1Char(']');
}

extern "C" Q_DECL_EXPORT QString mucrypt(QString text)
{
    text = text.mid(1, text.size() - 2);
    std::reverse(text.begin(), text.end());
    return text;
}
