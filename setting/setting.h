#pragma once

#include "connection.h"
#include "launch.h"

#include <QDialog>
#include <QHash>
#include <QVariant>
#include <functional>
#include <memory>

namespace Ui {
class setting;
}
class QLineEdit;
class SettingFile;
struct SettingKey;

/// The program's settings, kept in Velta.ini (UTF-8) of a directory, and the dialog that edits them.
/// Whatever the file lacks has its default. The parent receives the posted messages.
class setting : public QDialog
{
    Q_OBJECT

public:
    setting(const QString &directory, QWidget *parent);
    ~setting() override;

    /// Reads the whole file of the directory. Without the password library the stored password is taken
    /// as it stands (posted).
    void ReadSetting(const QString &directory);
    /// Writes what the file lacks and what was changed here since it was read: other copies of the program
    /// share the file. False when it cannot be written. Without the password library the password is stored
    /// in clear (posted).
    bool WriteSetting(const QString &directory);
    /// Why the file was not read the last time, in words that name it; the values are the defaults then.
    /// Empty when it was read, when there is none, and when the values were given in the dialog since.
    const QString &problem() const { return m_problem; }

    DatabaseAddress databaseAddress() const;
    QString directory() const { return m_directory; }
    LaunchCommand shopRightClick() const { return command(QStringLiteral("COMAND_RCLICK_SHOP")); }
    LaunchCommand kassaRightClick() const { return command(QStringLiteral("COMAND_RCLICK_KASS")); }
    LaunchCommand kassaDrag() const { return command(QStringLiteral("COMAND_LMOVE_KASS")); }
    /// The three digits that a user card begins with.
    QString prefIdentify() const;
    int countMsg() const;
    QString style() const;
    QString pathLanguage() const;
    bool isAutoUpdate() const;
    bool isTransferMode() const;
    QString version() const;
    /// The database login followed by "@"; empty until the settings are saved for the first time.
    QString loginAt() const { return m_loginAt; }

    /// The register server, the same for every installation and never stored.
    static QString registerServerHost() { return QStringLiteral("127.0.0.1"); }
    static int registerServerPort() { return 12981; }
    static QString registerServerFile() { return QStringLiteral("C:\\CashDrive\\BASE\\trans.dbf"); }
    static int registerServerSecondPort() { return 22; }

    /// One key of a directory's file each, read or written at once without any instance.
    static QString GetStyle(const QString &directory);
    static void SetStyle(const QString &directory, const QString &style);
    static QString GetPathLanguage(const QString &directory);
    static bool GetAutoupdate(const QString &directory);
    static QString GetVersion(const QString &directory);
    /// Writes the program's own version.
    static void SetCurVersion(const QString &directory);

    /// How a file is chosen: from the title, the filter and the path so far to the path, empty when
    /// cancelled. Tests replace it.
    std::function<QString(const QString &title, const QString &filter, const QString &path)> chooseFile;

public slots:
    int exec() override;
    void save();
    void cancel();
    /// Esc and the closing of the window, too: asks before what was typed is lost.
    void reject() override;
    void DialogPathLang();
    void DialogShopRMousPathPrg();
    void DialogKassRMousPathPrg();
    void DialogKassLMoveMousPathPrg();
    /// Shows, as the placeholder of the parameter fields, what parameters for a device of that kind
    /// usually look like. Nothing is stored.
    void ChangeTypeDevice(int type);

signals:
    /// The settings were edited and saved.
    void saved();

private:
    void makePagesScroll();
    void fillTls();
    void loadPasswordLibrary();
    void connectButtons();
    void readKey(const SettingFile &file, const SettingKey &key);
    void readChangedKeys();
    QVariant decoded(const QString &path, const QVariant &stored) const;
    QVariant encoded(const QString &path, const QVariant &value) const;
    void showValues();
    void takeValues();
    QVariantList shownValues() const;
    void choose(QLineEdit *target, const QString &title, const QString &filter);
    QVariant value(const QString &path) const;
    LaunchCommand command(const QString &group) const;

    using Crypt = QString (*)(QString);

    std::unique_ptr<Ui::setting> ui;
    QString m_directory;
    QHash<QString, QVariant> m_values;
    /// What stood in the file of m_origin when it was read or written last: as it is stored, and as a value.
    QHash<QString, QVariant> m_stored;
    QHash<QString, QVariant> m_read;
    /// What the fields held when the dialog opened.
    QVariantList m_opened;
    QString m_origin;
    QString m_problem;
    QString m_loginAt;
    Crypt m_encrypt = nullptr;
    Crypt m_decrypt = nullptr;
};
