#include "testing.h"

#include "setting.h"

#include <QFile>
#include <QLineEdit>
#include <QTemporaryDir>

/// The settings beside a password library: only the encrypted password is on the disk.
class TstPasscrypt : public QObject
{
    Q_OBJECT

private slots:
    void passwordIsStoredEncrypted();
};

void TstPasscrypt::passwordIsStoredEncrypted()
{
    const QTemporaryDir directory;
    setting first(directory.path(), nullptr);
    child<QLineEdit>(&first, "lePassword")->setText("таємниця");
    first.save();
    QFile file(directory.filePath("Velta.ini"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QString stored = QString::fromUtf8(file.readAll());
    QVERIFY2(stored.contains("PASSWORD=[яцинмєат]"), qPrintable(stored));
    QCOMPARE(setting(directory.path(), nullptr).databaseAddress().password, QString("таємниця"));
}

QTEST_MAIN(TstPasscrypt)
#include "tst_passcrypt.moc"
