#include "testing.h"

#include "qqestion.h"
#include "setting.h"
#include "settingfile.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTemporaryDir>
#include <sys/stat.h>

/// The main window of a test: it remembers what is posted to it.
class Window : public QWidget
{
public:
    bool event(QEvent *event) override
    {
        return event->type() == static_cast<QEvent::Type>(1000) ? heard.event(event) : QWidget::event(event);
    }
    Heard heard;
};

/// The settings file, its dialog and the keys that are read without either.
class TstSetting : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void emptyFileGivesDefaults();
    void everyKeySurvives_data();
    void everyKeySurvives();
    void handWrittenFile();
    void cancelChangesNothing();
    void singleKeysSeeEachOther();
    void copiesKeepEachOthersKeys();
    void fileIsForItsOwnerOnly();
    void unreadableFileIsNamed_data();
    void unreadableFileIsNamed();
    void missingLibraryIsTold();
    void unwritableFileIsTold();
    void chosenFilesGoToTheirFields();
    void everyInputHasALabel();
    void encryptionIsChosen_data();
    void encryptionIsChosen();
    void fitsASmallScreen();

private:
    QString text(const char *key) const
    {
        return SettingFile(m_directory->path()).typed(key, QString()).toString();
    }

    std::unique_ptr<QTemporaryDir> m_directory;
    std::unique_ptr<Window> m_window;
};

void TstSetting::init()
{
    m_directory = std::make_unique<QTemporaryDir>();
    m_window = std::make_unique<Window>();
}

void TstSetting::cleanup()
{
    m_window.reset();
    m_directory.reset();
}

void TstSetting::emptyFileGivesDefaults()
{
    const setting set(m_directory->path(), m_window.get());
    const DatabaseAddress address = set.databaseAddress();
    QCOMPARE(address.host, QString("localhost"));
    QCOMPARE(address.port, 3306);
    QCOMPARE(address.user, QString("user"));
    QCOMPARE(address.name, QString("testbase"));
    QCOMPARE(address.driver, QString("QMYSQL"));
    QCOMPARE(address.password, QString("lemk"));
    QCOMPARE(set.countMsg(), 100);
    QCOMPARE(set.prefIdentify(), QString("220"));
    QVERIFY(!set.isAutoUpdate() && set.isTransferMode());
    QVERIFY(set.kassaDrag().path.isEmpty() && set.pathLanguage().isEmpty() && set.loginAt().isEmpty());
    QVERIFY2(!QFile::exists(SettingFile::path(m_directory->path())), "reading must write nothing");
}

void TstSetting::everyKeySurvives_data()
{
    QTest::addColumn<QString>("text");
    for (const char *value : {"a, b;c=\"d\" [x]", "C:\\prog\\new\\test.exe", "ґанок їжака №1 — 100%",
                              " blanks ", "@Invalid()", "@x", "-a 1,2 [{IP}]", "\\x41", "", "true"})
        QTest::newRow(value) << QString::fromUtf8(value);
}

void TstSetting::everyKeySurvives()
{
    QFETCH(QString, text);
    setting first(m_directory->path(), m_window.get());
    for (auto *edit : first.findChildren<QLineEdit *>(QRegularExpression("^le")))
        edit->setText(text.left(edit->maxLength()));
    child<QSpinBox>(&first, "sbPort")->setValue(65535);
    child<QSpinBox>(&first, "sbCountMsg")->setValue(7);
    child<QComboBox>(&first, "cbDriver")->setCurrentText("QPSQL");
    child<QCheckBox>(&first, "chbAutoUpdate")->setChecked(true);
    child<QCheckBox>(&first, "chbTransferMode")->setChecked(false);
    const QSignalSpy saved(&first, &setting::saved);
    first.save();
    QCOMPARE(saved.size(), 1);
    QCOMPARE(first.loginAt(), text + "@");

    const setting second(m_directory->path(), m_window.get());
    for (const SettingKey &key : settingKeys()) {
        const auto *edit = second.findChild<QLineEdit *>(key.widget);
        if (edit != nullptr)
            QVERIFY2(edit->text() == text.left(edit->maxLength()), key.path);
    }
    QCOMPARE(second.databaseAddress().port, 65535);
    QCOMPARE(second.databaseAddress().driver, QString("QPSQL"));
    QCOMPARE(second.databaseAddress().password, text);
    QCOMPARE(second.countMsg(), 7);
    QVERIFY(second.isAutoUpdate() && !second.isTransferMode());
    QCOMPARE(second.kassaDrag().param, text);
    QCOMPARE(second.shopRightClick().path, text);
}

void TstSetting::handWrittenFile()
{
    QFile file(SettingFile::path(m_directory->path()));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("[QMYSQL]\nPORT=none\nNAMEBASE=мережа\n[COMAND_RCLICK_KASS]\nPATH_PROGRAM=/opt/v\n"
               "PARAM_PRG=-a 1,2,[{IP}]\n[UNKNOWN]\nKEY=stays\n");
    file.close();
    setting set(m_directory->path(), m_window.get());
    QCOMPARE(set.databaseAddress().port, 3306);
    QCOMPARE(set.databaseAddress().name, QString("мережа"));
    QCOMPARE(set.kassaRightClick().param, QString("-a 1,2,[{IP}]"));
    set.save();
    QCOMPARE(text("UNKNOWN/KEY"), QString("stays"));
    QCOMPARE(text("COMAND_RCLICK_KASS/PARAM_PRG"), QString("-a 1,2,[{IP}]"));
}

void TstSetting::cancelChangesNothing()
{
    setting set(m_directory->path(), m_window.get());
    const QSignalSpy saved(&set, &setting::saved);
    QVERIFY(withModal<setting>([&] { QCOMPARE(set.exec(), 0); },
                               [](setting *dialog) {
                                   child<QLineEdit>(dialog, "leHost")->setText("other");
                                   const auto leave = [&] { dialog->reject(); };
                                   QVERIFY(answerConfirm(leave, false).contains("Зміни не збережено."));
                                   QVERIFY(dialog->isVisible());
                                   QCOMPARE(child<QLineEdit>(dialog, "leHost")->text(), QString("other"));
                                   answerConfirm(leave, true);
                                   QVERIFY(!dialog->isVisible());
                               }));
    QVERIFY(saved.isEmpty());
    QCOMPARE(set.databaseAddress().host, QString("localhost"));
    QVERIFY(withModal<setting>([&] { QCOMPARE(set.exec(), 1); },
                               [](setting *dialog) {
                                   QCOMPARE(child<QLineEdit>(dialog, "leHost")->text(), QString("localhost"));
                                   child<QLineEdit>(dialog, "leHost")->setText("new");
                                   QTest::keyClick(child<QLineEdit>(dialog, "leHost"), Qt::Key_Return);
                               }));
    QCOMPARE(saved.size(), 1);
    QCOMPARE(text("QMYSQL/IP"), QString("new"));
}

void TstSetting::singleKeysSeeEachOther()
{
    const QString directory = m_directory->path();
    setting::SetStyle(directory, "Fusion");
    QCOMPARE(setting::GetStyle(directory), QString("Fusion"));
    QCOMPARE(setting::GetPathLanguage(directory), QString());
    QVERIFY(!setting::GetAutoupdate(directory));
    SettingFile(directory).setValue("VERSION/VERSION", "9");
    setting::SetCurVersion(directory);
    QCOMPARE(setting::GetVersion(directory), QString("3. 0. 0. 17"));
}

void TstSetting::copiesKeepEachOthersKeys()
{
    setting(m_directory->path(), m_window.get()).save();
    setting one(m_directory->path(), m_window.get());
    setting other(m_directory->path(), m_window.get());
    const auto type = [](const char *field, const QString &text) {
        return [field, text](setting *dialog) {
            child<QLineEdit>(dialog, field)->setText(text);
            dialog->save();
        };
    };
    // The other copy saves while the dialog of the one is open, and again after it was closed.
    QVERIFY(withModal<setting>([&] { one.exec(); },
                               [&](setting *dialog) {
                                   child<QLineEdit>(&other, "leHost")->setText("другий");
                                   other.save();
                                   SettingFile(m_directory->path()).setValue("DEFLOGIN/DEFLOGIN", "olena");
                                   type("leBase", "перший")(dialog);
                               }));
    QCOMPARE(text("QMYSQL/IP"), QString("другий"));
    QCOMPARE(text("QMYSQL/NAMEBASE"), QString("перший"));
    QCOMPARE(text("DEFLOGIN/DEFLOGIN"), QString("olena"));
    QVERIFY(withModal<setting>([&] { one.exec(); }, type("leUser", "third")));
    QCOMPARE(text("QMYSQL/IP"), QString("другий"));
    QCOMPARE(one.databaseAddress().host, QString("другий"));
    QCOMPARE(text("DEFLOGIN/DEFLOGIN"), QString("olena"));
    // What was changed here and changed back is not a change.
    QVERIFY(withModal<setting>([&] { other.exec(); }, [](setting *dialog) { dialog->save(); }));
    QCOMPARE(other.databaseAddress().name, QString("перший"));
    QCOMPARE(text("QMYSQL/DEFLOGIN"), QString("third"));
}

void TstSetting::fileIsForItsOwnerOnly()
{
    const QString directory = m_directory->path();
    const QFile::Permissions others =
        QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
    const QList<std::function<void()>> writers = {[&] { setting(directory, m_window.get()).save(); },
                                                  [&] { setting::SetStyle(directory, "Fusion"); },
                                                  [&] {
                                                      SettingFile(directory).setValue("VERSION/VERSION", "9");
                                                      setting::SetCurVersion(directory);
                                                  }};
    for (const auto &write : writers) {
        QFile file(SettingFile::path(directory));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("[QMYSQL]\nPORT=1\n");
        file.close();
        QVERIFY(file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | others));
        write();
        QCOMPARE(QFile(file.fileName()).permissions() & others, QFile::Permissions());
        QVERIFY(file.remove());
        write();
        QCOMPARE(QFile(file.fileName()).permissions() & others, QFile::Permissions());
    }
}

void TstSetting::unreadableFileIsNamed_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("reason");
    QTest::newRow("folder") << QByteArray("folder") << "це каталог.";
    QTest::newRow("pipe") << QByteArray("pipe") << "це не звичайний файл.";
    QTest::newRow("large") << QByteArray(10 * 1024 * 1024, 'x') << "він завеликий для файлу налаштувань.";
    QTest::newRow("one line") << QByteArray("\x7f"
                                            "ELF\0\1\2=",
                                            8)
                              << "у ньому немає налаштувань програми.";
    QTest::newRow("page") << QByteArray("<html>\n<body>QMYSQL/PORT</body>\n")
                          << "у ньому немає налаштувань програми.";
}

/// Neither hangs nor goes on with the defaults as if nothing were the matter, and leaves the file alone.
void TstSetting::unreadableFileIsNamed()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, reason);
    const QString path = SettingFile::path(m_directory->path());
    const auto make = [&] {
        if (content == "folder")
            return QDir().mkdir(path);
        if (content == "pipe")
            return mkfifo(QFile::encodeName(path).constData(), 0600) == 0;
        QFile file(path);
        return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
    };
    QVERIFY(make());
    QElapsedTimer clock;
    clock.start();
    setting set(m_directory->path(), m_window.get());
    QCOMPARE(set.problem(), "Файл налаштувань не прочитано: " + path + "\n" + reason);
    QCOMPARE(setting::GetStyle(m_directory->path()), QString());
    QVERIFY2(clock.elapsed() < 2000, qPrintable(QString::number(clock.elapsed())));
    setting::SetCurVersion(m_directory->path());
    QVERIFY(answerQuestion([&] { set.save(); }).contains(path));
    QVERIFY2(set.problem().isEmpty(), "what was typed counts, for this session");
    QFile file(path);
    if (content == "folder" || content == "pipe")
        QVERIFY(!QFileInfo(path).isFile());
    else
        QVERIFY(file.open(QIODevice::ReadOnly) && file.readAll() == content);
}

void TstSetting::missingLibraryIsTold()
{
    setting set(m_directory->path(), m_window.get());
    Heard &heard = m_window->heard;
    QCoreApplication::sendPostedEvents(m_window.get());
    QCOMPARE(heard.all().size(), 3);
    QCOMPARE(heard.all().at(0).text, QString("In constructor setting load library"));
    QVERIFY(heard.all().at(1).text.startsWith("Не вдалося завантажити криптографічну бібліотеку."));
    QCOMPARE(heard.all().at(2).text, QString("Помилка виклику фунції розшифровки паолю"));
    QVERIFY(heard.all().at(2).location.startsWith("In file: setting/setting line: "));
    QVERIFY2(heard.texts().isEmpty(), "a start without the library must not be interrupted");
    QVERIFY(!child<QLabel>(&set, "labelLibrary")->isHidden());
    heard.forget();
    set.save();
    QCoreApplication::sendPostedEvents(m_window.get());
    QVERIFY(heard.has("Помилка виклику фунції шифрування паолю"));
    QCOMPARE(text("QMYSQL/PASSWORD"), QString("lemk"));
}

void TstSetting::unwritableFileIsTold()
{
    QFile blocking(m_directory->filePath("file"));
    QVERIFY(blocking.open(QIODevice::WriteOnly));
    setting set(blocking.fileName(), m_window.get());
    child<QLineEdit>(&set, "leHost")->setText("other");
    const QSignalSpy saved(&set, &setting::saved);
    const QString told = answerQuestion([&] { set.save(); });
    QVERIFY2(told.startsWith("Не вдалося записати файл налаштувань:\n" + blocking.fileName()),
             qPrintable(told));
    QCOMPARE(saved.size(), 1);
    QCOMPARE(set.databaseAddress().host, QString("other"));
}

void TstSetting::chosenFilesGoToTheirFields()
{
    setting set(m_directory->path(), m_window.get());
    QStringList asked;
    QString answer = "/chosen";
    set.chooseFile = [&](const QString &title, const QString &filter, const QString &path) {
        asked = QStringList{title, filter, path};
        return answer;
    };
    const QList<QStringList> choosers = {
        {"pbPathLang", "lePathLang", "Вибрати файл мови.", "Файл перекладу (*.qm)"},
        {"pbShopRMousPath", "leShopRMousPath", "Вибрати програму.", "*.* (*.*)"},
        {"pbKassRMousPath", "leKassRMousPath", "Вибрати програму.", "*.* (*.*)"},
        {"pbKassLMovePath", "leKassLMovePath", "Вибрати файл мови.", "*.* (*.*)"}};
    for (const QStringList &chooser : choosers) {
        auto *edit = child<QLineEdit>(&set, chooser.at(1));
        answer = "/chosen";
        child<QPushButton>(&set, chooser.at(0))->click();
        QCOMPARE(asked.mid(0, 2), chooser.mid(2));
        QCOMPARE(edit->text(), answer);
        answer.clear();
        child<QPushButton>(&set, chooser.at(0))->click();
        QCOMPARE(edit->text(), QString("/chosen"));
    }
}

void TstSetting::everyInputHasALabel()
{
    const setting set(m_directory->path(), m_window.get());
    for (const SettingKey &key : settingKeys()) {
        const auto *widget = child<QWidget>(&set, key.widget);
        const auto labels = set.findChildren<QLabel *>();
        const bool labelled = std::any_of(labels.begin(), labels.end(),
                                          [&](const QLabel *label) { return label->buddy() == widget; });
        QVERIFY2(labelled || qobject_cast<const QCheckBox *>(widget) != nullptr, key.path);
    }
}

void TstSetting::encryptionIsChosen_data()
{
    using Tls = DatabaseAddress::Tls;
    QTest::addColumn<QString>("stored");
    QTest::addColumn<int>("mode");
    QTest::newRow("absent") << QString() << static_cast<int>(Tls::Off);
    QTest::newRow("off") << "off" << static_cast<int>(Tls::Off);
    QTest::newRow("wanted") << "wanted" << static_cast<int>(Tls::Wanted);
    QTest::newRow("required") << "required" << static_cast<int>(Tls::Required);
    QTest::newRow("mistyped") << "requried" << static_cast<int>(Tls::Required);
}

void TstSetting::encryptionIsChosen()
{
    QFETCH(QString, stored);
    if (!stored.isEmpty())
        SettingFile(m_directory->path()).setValue("QMYSQL_TLS/MODE", stored);
    SettingFile(m_directory->path()).setValue("QMYSQL_TLS/CA_FILE", "/etc/ca.pem");
    setting set(m_directory->path(), m_window.get());
    QTEST(static_cast<int>(set.databaseAddress().tls), "mode");
    QCOMPARE(set.databaseAddress().caFile, QString("/etc/ca.pem"));
    set.save();
    QTEST(static_cast<int>(setting(m_directory->path(), m_window.get()).databaseAddress().tls), "mode");
    auto *box = child<QComboBox>(&set, "cbTls");
    box->setCurrentIndex(1);
    set.save();
    QCOMPARE(text("QMYSQL_TLS/MODE"), QString("wanted"));
}

void TstSetting::fitsASmallScreen()
{
    const QFont before = QApplication::font();
    QFont large = before;
    large.setPointSize(12);
    QApplication::setFont(large);
    setting set(m_directory->path(), m_window.get());
    set.show();
    QVERIFY(QTest::qWaitForWindowExposed(&set));
    QApplication::setFont(before);
    // What a title bar and a panel leave of 1024 x 600.
    QVERIFY2(set.width() <= 1000 && set.height() <= 540,
             qPrintable(QString("%1 x %2").arg(set.width()).arg(set.height())));
    QVERIFY(child<QPushButton>(&set, "pbOk")->isVisible());
}

QTEST_MAIN(TstSetting)
#include "tst_setting.moc"
