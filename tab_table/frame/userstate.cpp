#include "userstate.h"

#include <QSettings>

namespace {
QString path(const QString &idUser, const QString &key)
{
    return QStringLiteral("user_") + idUser + QLatin1Char('/') + key;
}
} // namespace

QVariant rememberedState(const QString &idUser, const QString &key)
{
    return QSettings(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("Veltab"),
                     QStringLiteral("windows"))
        .value(path(idUser, key));
}

void rememberState(const QString &idUser, const QString &key, const QVariant &value)
{
    QSettings(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("Veltab"), QStringLiteral("windows"))
        .setValue(path(idUser, key), value);
}
