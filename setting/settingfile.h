#pragma once

#include <QSettings>
#include <QVariant>
#include <QVector>

/// The keys of the settings file, and how it is opened.

struct SettingKey
{
    const char *path;       ///< group and key
    QVariant fallback;      ///< the value when absent; its type is the key's type
    const char *widget;     ///< the field of the settings dialog
    bool isForeign = false; ///< written by others while the program runs
};

/// All keys, in the order of the file.
const QVector<SettingKey> &settingKeys();

/// The settings file of a directory.
class SettingFile : public QSettings
{
    Q_OBJECT

public:
    explicit SettingFile(const QString &directory, QObject *parent = nullptr);

    static QString path(const QString &directory);
    /// The value of a key in the type of its default. A text with commas that was written by hand, which
    /// the format takes for a list, is joined again.
    QVariant typed(const QString &key, const QVariant &fallback) const;
    /// Writes to the disk; false when that is not possible.
    bool store();
};
