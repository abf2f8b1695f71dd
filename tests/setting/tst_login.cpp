#include "testing.h"

#include "qchangpass.h"
#include "qloadeduser.h"
#include "qmessevent.h"
#include "qqestion.h"
#include "qseluser.h"
#include "setting.h"
#include "settingfile.h"
#include "waitnote.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTemporaryDir>

/// A window that remembers what is posted to it: place and text.
class ListeningWindow : public QWidget
{
public:
    bool event(QEvent *event) override
    {
        if (event->type() != QMessEvent::eventType)
            return QWidget::event(event);
        const auto *message = static_cast<QMessEvent *>(event);
        told.append(message->location() + message->text());
        return true;
    }

    QStringList told;
};

/// The login dialog with passwords and cards, and the change of the own password.
class TstLogin : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { m_told.clear(); }

    void checkDigit();
    void identifierIsTaken_data();
    void identifierIsTaken();
    void identifierIsRefused_data();
    void identifierIsRefused();
    void emptyLoginIsRefused();
    void enterAcceptsAndEscapeRejects();
    void scanIsTakenWhereverTheFocusIs();
    void digitsOfANameStayInIt();
    void enterTwiceAsksOnce();
    void typingOnTakesTheQuestionBack();
    void suggestedName();
    void rememberedLogin();
    void passwordIsChanged_data();
    void passwordIsChanged();
    void passwordIsRefused();
    void failedChangeIsReported();
    void passwordTakenMeanwhileStaysUntold();
    void closingWaitsForThePassword();

private:
    /// Runs act, waits for its answer and remembers title and text of the warning it shows.
    void hear(const std::function<void()> &act);
    void fill(QSelUser *dialog, const QString &login, const QString &pass);

    QStringList m_told;
};

void TstLogin::hear(const std::function<void()> &act)
{
    const auto actAndWait = [&act] {
        act();
        waitOutTasks();
    };
    withModal<QQestion>(actAndWait, [this](QQestion *question) {
        m_told = QStringList{question->windowTitle(), child<QLabel>(question, "labelText")->text()};
        question->accept();
    });
}

void TstLogin::fill(QSelUser *dialog, const QString &login, const QString &pass)
{
    child<QLineEdit>(dialog, "leLogin")->setText(login);
    child<QLineEdit>(dialog, "lePass")->setText(pass);
}

void TstLogin::checkDigit()
{
    QCOMPARE(QSelUser::CSEAN13("220000000000"), QChar('2'));
    QCOMPARE(QSelUser::CSEAN13("4006381333931"), QChar('1'));
    QVERIFY(QSelUser::CSEAN13("22000000000").isNull());
}

void TstLogin::identifierIsTaken_data()
{
    QTest::addColumn<bool>("cardMode");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("identifier");
    QTest::addColumn<bool>("isCard");
    QTest::newRow("card") << true << "2200000000422"
                          << "0000000422" << true;
    QTest::newRow("card in password mode") << false << "2200000000422"
                                           << "0000000422" << true;
    QTest::newRow("wrong check digit is a password") << false << "2200000000423"
                                                     << "2200000000423" << false;
    QTest::newRow("foreign prefix is a password") << false << "4820000000000"
                                                  << "4820000000000" << false;
    QTest::newRow("nine in card mode") << true << "123456789"
                                       << "123456789" << false;
    QTest::newRow("empty") << false << ""
                           << "" << false;
    QTest::newRow("long password") << false << "пароль з пробілами ' \\ і 40 знаками у ньому"
                                   << "пароль з пробілами ' \\ і 40 знаками у ньому" << false;
}

void TstLogin::identifierIsTaken()
{
    QFETCH(bool, cardMode);
    QFETCH(QString, typed);
    const QTemporaryDir directory;
    QSelUser dialog(directory.path(), "220", nullptr, cardMode);
    fill(&dialog, "admin", typed);
    hear([&] { dialog.ok(); });
    QCOMPARE(m_told, QStringList());
    QCOMPARE(dialog.result(), static_cast<int>(QDialog::Accepted));
    QTEST(dialog.identifier(), "identifier");
    QTEST(dialog.isCard(), "isCard");
    QCOMPARE(dialog.login(), QString("admin"));
}

void TstLogin::identifierIsRefused_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("title");
    QTest::newRow("prefix") << "2210000000425"
                            << "Попередження error prefics";
    QTest::newRow("check digit") << "2200000000423"
                                 << "Попередження error rcr";
    QTest::newRow("letters") << "220000000004x"
                             << "Попередження error rcr";
    for (const int length : {10, 12, 14, 40})
        QTest::addRow("%d", length) << QString(length, '2') << "Попередження >9";
}

void TstLogin::identifierIsRefused()
{
    QFETCH(QString, typed);
    QFETCH(QString, title);
    const QTemporaryDir directory;
    QSelUser dialog(directory.path(), "220", nullptr, true);
    fill(&dialog, "admin", typed);
    hear([&] { dialog.ok(); });
    QCOMPARE(m_told, QStringList({title, "Невірний ідентифікатор"}));
    QCOMPARE(dialog.result(), static_cast<int>(QDialog::Rejected));
    QCOMPARE(child<QLineEdit>(&dialog, "lePass")->text(), typed);
}

void TstLogin::emptyLoginIsRefused()
{
    const QTemporaryDir directory;
    QSelUser dialog(directory.path(), "220", nullptr);
    fill(&dialog, "", "2200000000422");
    hear([&] { dialog.ok(); });
    QCOMPARE(m_told, QStringList({"Попередження", "Імя користувача не може бути пустим"}));
    QCOMPARE(dialog.result(), static_cast<int>(QDialog::Rejected));
}

void TstLogin::enterAcceptsAndEscapeRejects()
{
    const QTemporaryDir directory;
    QSelUser dialog(directory.path(), "220", nullptr);
    QCOMPARE(dialog.windowTitle(), QString("Введіть дані користувача"));
    QCOMPARE(child<QLineEdit>(&dialog, "lePass")->echoMode(), QLineEdit::Password);
    fill(&dialog, "admin", "x");
    QVERIFY(withModal<QSelUser>([&] { QCOMPARE(dialog.exec(), 0); },
                                [](QSelUser *shown) { QTest::keyClick(shown, Qt::Key_Escape); }));
    QVERIFY(withModal<QSelUser>(
        [&] { QCOMPARE(dialog.exec(), 1); },
        [](QSelUser *shown) { QTest::keyClick(child<QLineEdit>(shown, "lePass"), Qt::Key_Return); }));
}

void TstLogin::scanIsTakenWhereverTheFocusIs()
{
    for (const char *focus : {"leLogin", "lePass", "chbCard", "chbRemember", "pbOk", "pbCancel"}) {
        const QTemporaryDir directory;
        QSelUser dialog(directory.path(), "220", nullptr);
        fill(&dialog, "olena", "");
        const QSignalSpy shown(child<QLineEdit>(&dialog, "leLogin"), &QLineEdit::textChanged);
        withModal<QSelUser>([&] { dialog.exec(); },
                            [&](QSelUser *window) {
                                child<QWidget>(window, focus)->setFocus();
                                scan(window, "2200000000422");
                                QTest::qWait(100);
                            });
        QVERIFY2(dialog.result() == QDialog::Accepted && dialog.isCard(), focus);
        QCOMPARE(dialog.identifier(), QString("0000000422"));
        QVERIFY2(shown.isEmpty() && dialog.login() == "olena", focus);
    }
}

void TstLogin::digitsOfANameStayInIt()
{
    const QTemporaryDir directory;
    QSelUser dialog(directory.path(), "220", nullptr);
    withModal<QSelUser>([&] { dialog.exec(); },
                        [&](QSelUser *window) {
                            auto *login = child<QLineEdit>(window, "leLogin");
                            login->setFocus();
                            QTest::keyClicks(login, "kasa12x3");
                            QCOMPARE(login->text(), QString("kasa12x"));
                            QTRY_COMPARE(login->text(), QString("kasa12x3"));
                            QTest::keyClicks(login, "45");
                            QTest::keyClick(login, Qt::Key_Return);
                        });
    QCOMPARE(dialog.result(), static_cast<int>(QDialog::Accepted));
    QCOMPARE(dialog.login(), QString("kasa12x345"));
    QVERIFY(dialog.identifier().isEmpty());
}

/// What a dialog under check did: each name and identifier that was looked for, and "-" for a question that
/// was taken back.
static void watch(QSelUser *dialog, QStringList *asked)
{
    dialog->setCheck([=] { asked->append(dialog->login() + ' ' + dialog->identifier()); },
                     [=] { asked->append("-"); });
}

void TstLogin::enterTwiceAsksOnce()
{
    const QTemporaryDir directory;
    QSelUser dialog(directory.path(), "220", nullptr);
    QStringList asked;
    watch(&dialog, &asked);
    fill(&dialog, "olena", "");
    QVERIFY(withModal<QSelUser>([&] { dialog.exec(); },
                                [&](QSelUser *shown) {
                                    const auto *note = child<QLabel>(shown, "labelWait");
                                    typeText("wrong");
                                    pressKeys({Qt::Key_Return, Qt::Key_Return});
                                    QVERIFY(note->text().isEmpty());
                                    QTRY_COMPARE(note->text(), QString("Читається…"));
                                    pressKeys({Qt::Key_Return});
                                    QCOMPARE(asked, QStringList("olena wrong"));
                                    shown->answer(false);
                                    QVERIFY(note->text().isEmpty() && shown->isVisible());
                                    // The next try takes the place of the wrong one.
                                    typeText("right");
                                    pressKeys({Qt::Key_Return});
                                    shown->answer(true);
                                }));
    QCOMPARE(dialog.result(), static_cast<int>(QDialog::Accepted));
    QCOMPARE(asked, QStringList({"olena wrong", "olena right"}));
}

void TstLogin::typingOnTakesTheQuestionBack()
{
    const QTemporaryDir directory;
    QSelUser dialog(directory.path(), "220", nullptr);
    QStringList asked;
    watch(&dialog, &asked);
    fill(&dialog, "olena", "");
    QVERIFY(withModal<QSelUser>([&] { dialog.exec(); },
                                [&](QSelUser *shown) {
                                    typeText("wrong");
                                    pressKeys({Qt::Key_Return});
                                    typeText("right");
                                    QVERIFY(!shown->isWaiting());
                                    pressKeys({Qt::Key_Return});
                                    scan(shown, "2200000000422");
                                    QTRY_VERIFY(shown->isWaiting());
                                    pressKeys({Qt::Key_Escape});
                                }));
    QCOMPARE(dialog.result(), static_cast<int>(QDialog::Rejected));
    QCOMPARE(asked, QStringList({"olena wrong", "-", "olena right", "-", "olena 0000000422", "-"}));
}

void TstLogin::suggestedName()
{
    const QTemporaryDir directory;
    QSelUser dialog(directory.path(), "220", nullptr);
    dialog.suggestLogin("olena");
    dialog.suggestLogin("other");
    QCOMPARE(dialog.login(), QString("olena"));
    QVERIFY2(!child<QCheckBox>(&dialog, "chbRemember")->isChecked(), "a name alone remembers nothing");
    QVERIFY(child<QLabel>(&dialog, "labelHint")->isHidden());
}

void TstLogin::rememberedLogin()
{
    const QTemporaryDir directory;
    QSelUser first(directory.path(), "220", nullptr);
    fill(&first, "їжак, 'o\\", "2200000000422");
    child<QCheckBox>(&first, "chbRemember")->setChecked(true);
    first.ok();
    QCOMPARE(SettingFile(directory.path()).value("DEFLOGIN/PASS").toString(), QString("2200000000422"));

    QSelUser second(directory.path(), "220", nullptr);
    QCOMPARE(second.login(), QString("їжак, 'o\\"));
    QCOMPARE(child<QLineEdit>(&second, "lePass")->text(), QString("2200000000422"));
    child<QCheckBox>(&second, "chbRemember")->setChecked(false);
    second.ok();
    QCOMPARE(SettingFile(directory.path()).value("DEFLOGIN/DEFLOGIN").toString(), QString());
    QCOMPARE(SettingFile(directory.path()).value("DEFLOGIN/PASS").toString(), QString());
    QVERIFY(QSelUser(directory.path(), "220", nullptr).login().isEmpty());
}

void TstLogin::passwordIsChanged_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("current");
    QTest::addColumn<QString>("next");
    QTest::newRow("empty, in clear") << ""
                                     << ""
                                     << "їжак'\\";
    QTest::newRow("in clear") << "clear"
                              << "clear"
                              << "новий пароль довший за тридцять два знаки";
    QTest::newRow("hashed, long") << passwordHash(QString(50, 'x')) << QString(50, 'x') << " ";
}

void TstLogin::passwordIsChanged()
{
    QFETCH(QString, stored);
    QFETCH(QString, current);
    QFETCH(QString, next);
    FreshDatabase base;
    base.exec("UPDATE users SET pass=" + lit(stored));
    QChangPass dialog(1, base.connection(), nullptr);
    child<QLineEdit>(&dialog, "leCurrent")->setText(current);
    child<QLineEdit>(&dialog, "leNew")->setText(next);
    child<QLineEdit>(&dialog, "leRepeat")->setText(next);
    hear([&] { child<QPushButton>(&dialog, "pbChang")->click(); });
    QCOMPARE(m_told, QStringList());
    QCOMPARE(dialog.result(), static_cast<int>(QDialog::Accepted));
    QCOMPARE(base.value("SELECT pass FROM users WHERE id=1"), passwordHash(next));
    QLoadedUser user(nullptr, &base.heard);
    QVERIFY(user.loadpermis(base.connection(), "admin", next));
    QVERIFY(!user.loadpermis(base.connection(), "admin", current));
}

void TstLogin::passwordIsRefused()
{
    FreshDatabase base;
    base.exec("UPDATE users SET pass='now'");
    base.exec("INSERT INTO users(login,pass,key_prem,name,surname,id_g_prem) VALUES('b'," +
              lit(passwordHash("taken")) + ",'2','Б','Б',1)");
    const QList<QPair<QStringList, QString>> refusals = {
        {{"now", "one", "One"}, "Нові паролі не співпадають!"},
        {{"now", "", ""}, "Новий пароль не може бути пустим!"},
        {{"' OR 1=1 -- ", "one", "one"}, "Поточний пароль не вірний!"},
        {{"now", "taken", "taken"}, "Цей пароль використати не можна. Оберіть інший пароль."}};
    const QStringList fields = {"leCurrent", "leNew", "leRepeat"};
    for (const auto &[typed, text] : refusals) {
        QChangPass dialog(1, base.connection(), nullptr);
        for (int i = 0; i < fields.size(); ++i)
            child<QLineEdit>(&dialog, fields.at(i))->setText(typed.at(i));
        hear([&] { dialog.chang(); });
        QCOMPARE(m_told, QStringList({"Попередження", text}));
        QCOMPARE(dialog.result(), static_cast<int>(QDialog::Rejected));
        for (int i = 0; i < fields.size(); ++i)
            QCOMPARE(child<QLineEdit>(&dialog, fields.at(i))->text(), typed.at(i));
        QCOMPARE(base.value("SELECT pass FROM users WHERE id=1"), QString("now"));
    }
}

void TstLogin::failedChangeIsReported()
{
    FreshDatabase base;
    base.exec(
        "CREATE TRIGGER stop BEFORE UPDATE ON users FOR EACH ROW SIGNAL SQLSTATE '45000' SET MESSAGE_TEXT='ні'");
    ListeningWindow window;
    QChangPass dialog(1, base.connection(), &window);
    child<QLineEdit>(&dialog, "leNew")->setText("one");
    child<QLineEdit>(&dialog, "leRepeat")->setText("one");
    dialog.chang();
    waitOutTasks();
    QCOMPARE(window.told.size(), 1);
    QVERIFY2(window.told.at(0).contains(
                 QRegularExpression("^In file: setting/qchangpass line: .*Помилка запиту\nні\nUPDATE")),
             qPrintable(window.told.at(0)));
    QCOMPARE(child<QLabel>(&dialog, "labelWait")->text(), QString("Пароль не змінено."));
    QCOMPARE(dialog.result(), static_cast<int>(QDialog::Rejected));
    QCOMPARE(base.value("SELECT pass FROM users WHERE id=1"), QString());
}

/// The server names the value that stands twice: here the stored form of a password.
void TstLogin::passwordTakenMeanwhileStaysUntold()
{
    FreshDatabase base;
    base.exec(
        "INSERT INTO users(login,pass,key_prem,name,surname,id_g_prem) VALUES('b','other','2','Б','Б',1)");
    ListeningWindow window;
    QChangPass dialog(1, base.connection(), &window);
    child<QLineEdit>(&dialog, "leNew")->setText("one");
    child<QLineEdit>(&dialog, "leRepeat")->setText("one");
    bool isTaken = false;
    Db::setStatementHook([&](const QString &sql) {
        if (isTaken || !sql.startsWith("UPDATE"))
            return;
        isTaken = true;
        base.exec("UPDATE users SET pass=" + lit(passwordHash("one")) + " WHERE login='b'");
    });
    dialog.chang();
    waitOutTasks();
    Db::setStatementHook({});
    QCOMPARE(window.told.size(), 1);
    QVERIFY2(window.told.at(0).contains(
                 QRegularExpression("Duplicate entry '\\*\\*\\*' for key .*\nUPDATE users SET "
                                    "pass='\\*\\*\\*' WHERE id=1$")),
             qPrintable(window.told.at(0)));
    QCOMPARE(dialog.result(), static_cast<int>(QDialog::Rejected));
}

void TstLogin::closingWaitsForThePassword()
{
    FreshDatabase base;
    base.exec("LOCK TABLES users WRITE");
    QChangPass dialog(1, base.connection(), nullptr);
    QVERIFY(withModal<QChangPass>([&] { dialog.exec(); },
                                  [&](QChangPass *shown) {
                                      pressKeys({Qt::Key_Tab});
                                      typeText("one");
                                      pressKeys({Qt::Key_Tab});
                                      typeText("one");
                                      pressKeys({Qt::Key_Return, Qt::Key_Return});
                                      typeText("two");
                                      pressKeys({Qt::Key_Escape});
                                      QTest::qWait(2 * WaitNote::delayMs);
                                      QVERIFY(shown->isVisible());
                                      QCOMPARE(child<QLabel>(shown, "labelWait")->text(),
                                               QString("Пароль ще записується. Зачекайте."));
                                      base.exec("UNLOCK TABLES");
                                      waitOutTasks();
                                      QVERIFY(!shown->isVisible());
                                  }));
    QCOMPARE(base.value("SELECT pass FROM users WHERE id=1"), passwordHash("one"));
}

QTEST_MAIN(TstLogin)
#include "tst_login.moc"
