#pragma once

#include <QSettings>
#include <QVariant>
#include <QVector>

/// The keys of the settings file, and how it is opened.

struct SettingKey
{
    const char *path;   ///< group and key
    QVariant fallback;  ///< the value when absent; its type is the key's type
    const char *widget; ///< the field of the settings dialog
};

/// All keys, in the order of the file.
const QVector<SettingKey> &settingKeys();

/// The settings file of a directory. It holds a password: whoever writes it leaves it readable for its owner
/// only. Only what was set is written; what other copies of the program have written meanwhile stays. What is
/// no file of settings (problem()) is neither read nor written, nor waited for.
class SettingFile : public QSettings
{
    Q_OBJECT

public:
    explicit SettingFile(const QString &directory, QObject *parent = nullptr);

    static QString path(const QString &directory);
    /// Why the directory's file cannot be read, in words that name it; empty when it can, or when there is
    /// none.
    static QString problem(const QString &directory);
    /// The value of a key in the type of its default. A text with commas that was written by hand, which
    /// the format takes for a list, is joined again.
    QVariant typed(const QString &key, const QVariant &fallback) const;
    /// Writes to the disk; false when that is not possible.
    bool store();
};
