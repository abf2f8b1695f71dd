#include "settingfile.h"

#include <QFile>
#include <QFileInfo>
#include <algorithm>

namespace {
/// Far above any file of settings; a larger one would only keep the start waiting.
const qint64 largestFile = qint64(1024) * 1024;
/// What stands for a file that must not be touched: reading finds nothing there, writing fails.
const char *const nowhere = "/dev/null/Velta.ini";

bool isBlankOrComment(const QByteArray &line)
{
    return line.isEmpty() || line.startsWith(';') || line.startsWith('#');
}

/// True for the title of a group that the program knows.
bool isKnownGroup(const QByteArray &line)
{
    const QVector<SettingKey> &keys = settingKeys();
    return std::any_of(keys.begin(), keys.end(), [&line](const SettingKey &key) {
        return line == '[' + QByteArray(key.path).split('/').first() + ']';
    });
}

/// An empty file, and one of comments, is a file of settings that all have their defaults; stray lines do no
/// harm to one that holds settings beside them.
bool holdsSettings(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    QList<QByteArray> lines = file.readAll().split('\n');
    for (QByteArray &line : lines)
        line = line.trimmed();
    return std::all_of(lines.begin(), lines.end(), isBlankOrComment) ||
           std::any_of(lines.begin(), lines.end(), isKnownGroup);
}

/// Why the file is better left alone; empty when it can be read, or made.
QString obstacle(const QString &path)
{
    const QFileInfo file(path);
    if (!file.exists() && !file.isSymLink())
        return QString();
    if (file.isDir())
        return SettingFile::tr("це каталог.");
    if (!file.isFile())
        return SettingFile::tr("це не звичайний файл.");
    if (file.size() > largestFile)
        return SettingFile::tr("він завеликий для файлу налаштувань.");
    if (!file.isReadable())
        return SettingFile::tr("немає дозволу на читання.");
    return holdsSettings(path) ? QString() : SettingFile::tr("у ньому немає налаштувань програми.");
}

QString usablePath(const QString &directory)
{
    const QString path = SettingFile::path(directory);
    return obstacle(path).isEmpty() ? path : QLatin1String(nowhere);
}
} // namespace

const QVector<SettingKey> &settingKeys()
{
    static const QVector<SettingKey> keys = {
        {"QMYSQL/IP", "localhost", "leHost"},
        {"QMYSQL/PORT", 3306, "sbPort"},
        {"QMYSQL/DEFLOGIN", "user", "leUser"},
        {"QMYSQL/NAMEBASE", "testbase", "leBase"},
        {"QMYSQL/DRIVER", "QMYSQL", "cbDriver"},
        {"QMYSQL/PASSWORD", "lemk", "lePassword"},
        {"QMYSQL_TLS/MODE", "off", "cbTls"},
        {"QMYSQL_TLS/CA_FILE", "", "leTlsCa"},
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
        {"VERSION/VERSION", "", "leVersion"},
        {"DEFLOGIN/DEFLOGIN", "", "leDefLogin"},
        {"DEFLOGIN/PASS", "", "leDefPass"},
    };
    return keys;
}

SettingFile::SettingFile(const QString &directory, QObject *parent)
    : QSettings(usablePath(directory), QSettings::IniFormat, parent)
{
    setIniCodec("UTF-8");
}

QString SettingFile::path(const QString &directory)
{
    return directory + QStringLiteral("/Velta.ini");
}

QString SettingFile::problem(const QString &directory)
{
    const QString why = obstacle(path(directory));
    return why.isEmpty() ? why : tr("Файл налаштувань не прочитано: %1\n%2").arg(path(directory), why);
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
    const QFile::Permissions ownerOnly = QFile::ReadOwner | QFile::WriteOwner;
    // Before and after: another copy may make the file between the two.
    QFile::setPermissions(fileName(), ownerOnly);
    sync();
    QFile::setPermissions(fileName(), ownerOnly);
    return status() != QSettings::AccessError;
}
