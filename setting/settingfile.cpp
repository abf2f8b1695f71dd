#include "settingfile.h"

const QVector<SettingKey> &settingKeys()
{
    static const QVector<SettingKey> keys = {
        {"QMYSQL/IP", "localhost", "leHost"},
        {"QMYSQL/PORT", 3306, "sbPort"},
        {"QMYSQL/DEFLOGIN", "user", "leUser"},
        {"QMYSQL/NAMEBASE", "testbase", "leBase"},
        {"QMYSQL/DRIVER", "QMYSQL", "cbDriver"},
        {"QMYSQL/PASSWORD", "lemk", "lePassword"},
        {"INTERFACE/PATH_LANGUAGE", "", "lePathLang"},
        {"INTERFACE/COUNT_MSG", 100, "sbCountMsg"},
        {"INTERFACE/STYLE", "", "cbStyle"},
        {"INTERFACE/PREF_IDENTIFY", "220", "lePrefIdentify"},
        {"COMAND_RCLICK_SHOP/PATH_PROGRAM", "", "leShopRMousPath"},
        {"COMAND_RCLICK_SHOP/PARAM_PRG", "", "leShopRMousParam"},
        {"COMAND_RCLICK_KASS/PATH_PROGRAM", "", "leKassRMousPath"},
        {"COMAND_RCLICK_KASS/PARAM_PRG", "", "leKassRMousParam"},
        {"COMAND_LMOVE_KASS/PATH_PROGRAM", "", "leKassLMovePath"},
        {"COMAND_LMOVE_KASS/PARAM_PRG", "", "leKassLMoveParam"},
        {"M_UPDATER/IS_AUTOUPDATE", false, "chbAutoUpdate"},
        {"M_UPDATER/TRANSFER_MODE", true, "chbTransferMode"},
        {"VERSION/VERSION", "", "leVersion", true},
        {"DEFLOGIN/DEFLOGIN", "", "leDefLogin", true},
        {"DEFLOGIN/PASS", "", "leDefPass", true},
    };
    return keys;
}

SettingFile::SettingFile(const QString &directory, QObject *parent)
    : QSettings(path(directory), QSettings::IniFormat, parent)
{
    setIniCodec("UTF-8");
}

QString SettingFile::path(const QString &directory)
{
    return directory + QStringLiteral("/Velta.ini");
}

QVariant SettingFile::typed(const QString &key, const QVariant &fallback) const
{
    QVariant read = value(key, fallback);
    if (read.type() == QVariant::StringList || read.type() == QVariant::List)
        read = read.toStringList().join(QLatin1Char(','));
    return read.convert(static_cast<int>(fallback.type())) ? read : fallback;
}

bool SettingFile::store()
{
    sync();
    return status() == QSettings::NoError;
}
