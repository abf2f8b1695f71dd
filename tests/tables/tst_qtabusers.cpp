#include "workplace.h"

#include "changesdialog.h"
#include "qaddedtusers.h"
#include "qloadeduser.h"
#include "qmessevent.h"
#include "qntableview.h"
#include "qrowmodel.h"
#include "qseluser.h"
#include "qtabusers.h"
#include "signs.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPrintPreviewDialog>
#include <QPushButton>
#include <QTableWidget>
#include <QTemporaryDir>

namespace {
const char *const takenPassword = "Цей пароль використати не можна. Оберіть інший пароль.";

/// Group 1 may do everything; the others are let in, shut out by a right of 0, and shut out without any
/// right.
enum Group { Developers = 1, Sellers = 2, Gone = 3, WithoutRights = 4 };

const char *const people =
    "INSERT INTO users(id,login,pass,key_prem,name,surname,surname2,telephone,id_g_prem,id_group,id_shop) VALUES"
    "(10,'olena',MD5('пароль'),'1000000023','Олена','О''Ніл','Петрівна','0441234501',2,2,10),"
    "(11,'taras','clear','1000000030','Тарас','Гриценко',NULL,NULL,3,1,NULL),"
    "(12,'ганна',MD5('2'),'1000000047','Ганна','Їжакевич',NULL,'вн. 12',4,3,0)";
} // namespace

/// The people who get in, and nobody else.
class TstQTabUsers : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { m_place = std::make_unique<Workplace>(); }
    void cleanupTestCase() { m_place.reset(); }
    void init();
    void cleanup();

    void shutOutPeopleAreSeen();
    void peopleAreFound();
    void viewersSeeNoKeys();
    void newUserGetsIn();
    void homeIsAmongItsGroup();
    void refusals();
    void telephonesAreTidied();
    void passwordIsUnique();
    void passwordStaysUntilTyped();
    void quickerOperatorTakesThePassword();
    void loginAndKeyAreUnique();
    void keysOfOldCardsStay();
    void twoOperatorsChangeOneUser();
    void lostAnswerAboutAPassword();
    void ownRightIsGivenAwayOnPurpose();
    void lastOneInChargeStays();
    void rightsAreGivenByTheirGivers();
    void rightTakenMeanwhile();
    void printedCardLetsIn();
    void usersWithoutACardAreTold();

private:
    void open(int right = Permission::Full);
    QStringList shown(int column);
    bool edit(const QString &login, const std::function<void(QAddEdtUsers *)> &drive);
    bool add(const std::function<void(QAddEdtUsers *)> &drive);
    static void fillNew(QAddEdtUsers *editor, const QString &login, const QString &password);
    static void typePassword(QAddEdtUsers *editor, const QString &password);
    QString stored(int id, const char *columns);

    std::unique_ptr<Workplace> m_place;
    FreshDatabase *m_base = nullptr;
    std::unique_ptr<QTabUsers> m_tab;
};

void TstQTabUsers::init()
{
    m_place->clear();
    m_base = &m_place->base;
    m_base->exec(
        {"DELETE FROM users WHERE id>1", "UPDATE users SET id_g_prem=1,pass='' WHERE id=1",
         "UPDATE lst_permis SET permission=1 WHERE id_g_prem=1", "DELETE FROM lst_permis WHERE id_g_prem>1",
         "DELETE FROM group_premission WHERE id>1",
         "INSERT INTO group_premission(id,name) VALUES(2,'Продавці'),(3,'Звільнені'),(4,'Нова група')",
         "INSERT INTO lst_permis VALUES(2,0,2),(2,24,2),(2,101,1),(3,0,0),(3,24,1)",
         "INSERT INTO shops(id,address,group_shop,count_day_cycle,block) VALUES(10,'Львів',2,7,0),"
         "(11,'Київ',3,1,0),(12,'Склад',1,0,0),(13,'Чужий',4,1,0)",
         people});
    m_place->writeSettings("");
    open();
}

void TstQTabUsers::cleanup()
{
    Db::setStatementHook(nullptr);
    waitOutTasks();
    m_tab.reset();
}

void TstQTabUsers::open(int right)
{
    m_tab.reset();
    m_place->logIn(Permission::Users, right);
    m_tab = std::make_unique<QTabUsers>(m_place->connection(), m_place->user(), &m_base->heard,
                                        m_place->settings(), nullptr);
    m_tab->setPermission(Permission::Users);
    m_tab->resize(1000, 400);
    QVERIFY(showActive(m_tab.get()));
    m_tab->view()->sortByColumn(0, Qt::AscendingOrder);
    QTRY_VERIFY(!m_tab->isLoading());
    waitOutTasks();
    m_base->heard.forget();
}

QStringList TstQTabUsers::shown(int column)
{
    waitOutTasks();
    if (!QTest::qWaitFor([this] { return !m_tab->isLoading(); }))
        qFatal("the search did not end");
    QStringList texts;
    for (int row = 0; row < m_tab->model()->rowCount(); ++row)
        texts.append(m_tab->model()->index(row, column).data().toString());
    return texts;
}

bool TstQTabUsers::edit(const QString &login, const std::function<void(QAddEdtUsers *)> &drive)
{
    const int row = shown(1).indexOf(login);
    return inEditor<QAddEdtUsers>([&] { m_tab->Edit(m_tab->model()->index(row, 1)); }, drive);
}

bool TstQTabUsers::add(const std::function<void(QAddEdtUsers *)> &drive)
{
    return inEditor<QAddEdtUsers>([&] { m_tab->Add(); }, drive);
}

void TstQTabUsers::fillNew(QAddEdtUsers *editor, const QString &login, const QString &password)
{
    enter(editor, "leLogin", login);
    enter(editor, "leSurname", "Новенко");
    enter(editor, "leName", "Іван");
    enter(editor, "cbPremission", "Продавці");
    typePassword(editor, password);
}

void TstQTabUsers::typePassword(QAddEdtUsers *editor, const QString &password)
{
    enter(editor, "lePass", password);
    enter(editor, "leRepeat", password);
}

QString TstQTabUsers::stored(int id, const char *columns)
{
    waitOutTasks();
    return m_base->rows(QString("SELECT %1 FROM users WHERE id=%2").arg(columns).arg(id)).join('/');
}

void TstQTabUsers::shutOutPeopleAreSeen()
{
    m_base->exec(
        {"SET FOREIGN_KEY_CHECKS=0",
         "INSERT INTO users(id,login,pass,key_prem,name,surname,id_g_prem) VALUES(13,'ніхто','3','4','','',0)",
         "SET FOREIGN_KEY_CHECKS=1"});
    m_tab->seerch("");
    QCOMPARE(shown(1), QStringList({"admin", "olena", "taras", "ганна", "ніхто"}));
    QCOMPARE(shown(6), QStringList({"дозволено", "дозволено", "закрито", "закрито", "закрито"}));
    QCOMPARE(shown(9).at(1), QString("Львів"));
    for (int row = 0; row < 5; ++row) {
        const QModelIndex cell = m_tab->model()->index(row, 6);
        QCOMPARE(cell.data(Qt::BackgroundRole).isValid(), row > 1);
        QCOMPARE(cell.data(Qt::ToolTipRole).toString().isEmpty(), row < 2);
        QCOMPARE(cell.data(signRole).toString(), QString(row < 2 ? "" : "✗"));
    }
    enter(m_tab.get(), "cbEntry", "Вхід закрито");
    QCOMPARE(shown(0), QStringList({"11", "12", "13"}));
    enter(m_tab.get(), "cbPremission", "Звільнені");
    QCOMPARE(shown(0), QStringList("11"));
    enter(m_tab.get(), "cbEntry", "Вхід дозволено");
    QCOMPARE(shown(0), QStringList());
    QCOMPARE(m_base->heard.texts(), QStringList());
}

void TstQTabUsers::peopleAreFound()
{
    auto *search = child<QLineEdit>(m_tab.get(), "leSearch");
    const QVector<QPair<QString, QStringList>> searches = {
        {"о'ніл ол", {"10"}}, {"044123", {"10"}}, {"ТАРАС", {"11"}}, {"%", {}}, {"їжак", {"12"}}};
    for (const auto &[text, ids] : searches) {
        search->setText(text);
        QCOMPARE(shown(0), ids);
    }
    search->clear();
    QCOMPARE(shown(0).size(), 4);
    m_tab->view()->setFocus();
    scan(m_tab.get(), "2201000000030");
    QTRY_COMPARE(shown(0), QStringList("11"));
}

void TstQTabUsers::viewersSeeNoKeys()
{
    open(2);
    QCOMPARE(shown(10), QStringList({"", "", "", ""}));
    QVERIFY(!child<QPushButton>(m_tab.get(), "pbCard")->isEnabled());
    m_tab->seerch("2201000000030");
    QCOMPARE(shown(0), QStringList());
    m_tab->seerch("");
    m_tab->Add();
    QVERIFY(edit("olena", [](QAddEdtUsers *editor) {
        QCOMPARE(child<QLineEdit>(editor, "leSurname")->text(), QString("О'Ніл"));
        QCOMPARE(child<QLineEdit>(editor, "leKey")->text(), QString());
        QCOMPARE(child<QLabel>(editor, "labelCard")->text(), QString());
        for (const auto *field : editor->findChildren<QLineEdit *>())
            QVERIFY(field->isReadOnly());
        for (const char *button : {"pbOk", "pbKey"})
            QVERIFY(!child<QPushButton>(editor, button)->isEnabled());
        QTest::keyClick(child<QLineEdit>(editor, "leLogin"), Qt::Key_Escape);
        QTRY_VERIFY(!editor->isVisible());
    }));
    // Rights that come back while the list is open.
    m_base->exec("UPDATE lst_permis SET permission=1 WHERE id_g_prem=1 AND id_prem=24");
    QVERIFY(m_place->user()->reload(m_place->connection()));
    QCOMPARE(shown(10).at(1), QString("1000000023"));
    QVERIFY(child<QPushButton>(m_tab.get(), "pbCard")->isEnabled());
    QCOMPARE(answerQuestion([this] { m_tab->run(Command::Delete); }), QString("Видалення заборонене!!!"));
    QCOMPARE(m_base->value("SELECT COUNT(*) FROM users"), QString("4"));
}

/// By the keys of somebody who does not touch the mouse.
void TstQTabUsers::newUserGetsIn()
{
    QVERIFY(add([](QAddEdtUsers *editor) {
        QTRY_VERIFY(child<QLineEdit>(editor, "leLogin")->hasFocus());
        QCOMPARE(child<QLineEdit>(editor, "leKey")->text(), QString("1000000054"));
        QCOMPARE(child<QLabel>(editor, "labelCard")->text(), QString("Картка: 2201000000054"));
        for (const char *text :
             {"ivan", "Новенко", "Іван", "", "+38 (050) 765-43-21", "Їжак'5\\", "Їжак'5\\"}) {
            typeText(text);
            pressKeys({Qt::Key_Tab});
        }
        QVERIFY(child<QComboBox>(editor, "cbPremission")->hasFocus());
        enter(editor, "cbPremission", "Продавці");
        pressKeys({Qt::Key_Return});
        waitOutTasks();
        QVERIFY(!editor->isVisible());
    }));
    const int id = m_base->value("SELECT MAX(id) FROM users").toInt();
    QCOMPARE(stored(id, "login,key_prem,name,surname,surname2,telephone,id_g_prem,id_group,id_shop"),
             QString("ivan|1000000054|Іван|Новенко||0507654321|2|1|0"));
    QCOMPARE(stored(id, "pass=MD5('Їжак\\'5\\\\')"), QString("1"));
    QCOMPARE(m_tab->model()->stored(m_tab->view()->currentIndex().row(), 1), QString("ivan"));
    const auto entered = findUser(m_base->db(), "ivan", "Їжак'5\\");
    QVERIFY(entered && entered->idUser == QString::number(id) && entered->permissions[101] == 1);
    QCOMPARE(m_base->heard.texts(), QStringList());
}

void TstQTabUsers::homeIsAmongItsGroup()
{
    QVERIFY(edit("olena", [](QAddEdtUsers *editor) {
        const auto *shops = child<QComboBox>(editor, "cbShop");
        const auto offered = [shops] {
            QStringList texts;
            for (int i = 0; i < shops->count(); ++i)
                texts.append(shops->itemText(i));
            return texts.join('/');
        };
        QCOMPARE(shops->currentText(), QString("Львів"));
        QCOMPARE(offered(), QString("без магазину/Львів/Склад"));
        enter(editor, "cbGroup", "default");
        QCOMPARE(offered(), QString("без магазину/Львів/Київ/Склад"));
        QCOMPARE(shops->currentText(), QString("Львів"));
        enter(editor, "cbGroup", "Схід");
        QCOMPARE(shops->currentText(), QString("без магазину"));
        enter(editor, "cbShop", "Київ");
        QCOMPARE(saveMeets(editor), QString());
    }));
    QCOMPARE(stored(10, "id_group,id_shop"), QString("3|11"));
    QCOMPARE(shown(9).at(1), QString("Київ"));
    // A home that the one at work does not see stays.
    m_base->exec("UPDATE users SET id_group=4,id_shop=13 WHERE id=11");
    QVERIFY(edit("taras", [](QAddEdtUsers *editor) {
        QCOMPARE(child<QComboBox>(editor, "cbShop")->currentText(), QString("Чужий"));
        enter(editor, "leSurname2", "Олегович");
        QCOMPARE(saveMeets(editor), QString());
    }));
    QCOMPARE(stored(11, "surname2,id_group,id_shop,pass"), QString("Олегович|4|13|clear"));
}

void TstQTabUsers::refusals()
{
    QVERIFY(add([](QAddEdtUsers *editor) {
        const auto meets = [editor](const char *why) {
            const QString told = saveMeets(editor);
            QVERIFY2(told.startsWith(why), qPrintable(told));
        };
        meets("Логін не може бути порожнім!");
        enter(editor, "leLogin", " ");
        meets("Логін не може бути порожнім!");
        enter(editor, "leLogin", "новий");
        enter(editor, "leName", "Іван");
        meets("Впишіть прізвище та ім'я");
        enter(editor, "leSurname", "Новенко");
        meets("Виберіть групу прав");
        enter(editor, "cbPremission", "Продавці");
        meets("Новому користувачу потрібен пароль");
        enter(editor, "lePass", "слово");
        enter(editor, "leRepeat", "Слово");
        meets("Паролі не співпадають!");
        typePassword(editor, "слово");
        enter(editor, "leTelephone", "044123450");
        meets("Телефон повинен складатися з десяти цифр");
        enter(editor, "leTelephone", "");
        enter(editor, "leKey", "1000000001");
        QCOMPARE(child<QLabel>(editor, "labelCard")->text(),
                 QString("Картка з таким ключем не зчитається: остання цифра ключа має бути 9."));
        meets("Картка з таким ключем не зчитається");
        enter(editor, "leKey", "");
        meets("Ключ повинен складатися з десяти цифр.");
        child<QPushButton>(editor, "pbKey")->click();
        waitOutTasks();
        QCOMPARE(child<QLineEdit>(editor, "leKey")->text(), QString("1000000054"));
        QCOMPARE(child<QLineEdit>(editor, "leLogin")->maxLength(), 20);
    }));
    QCOMPARE(m_base->value("SELECT COUNT(*) FROM users"), QString("4"));
}

/// What others have stored is left alone.
void TstQTabUsers::telephonesAreTidied()
{
    QVERIFY(edit("ганна", [](QAddEdtUsers *editor) {
        enter(editor, "leSurname", "Їжак");
        QCOMPARE(saveMeets(editor), QString());
    }));
    QCOMPARE(stored(12, "surname,telephone,surname2 IS NULL"), QString("Їжак|вн. 12|1"));
    QVERIFY(edit("ганна", [](QAddEdtUsers *editor) {
        auto *telephone = child<QLineEdit>(editor, "leTelephone");
        telephone->setFocus();
        telephone->selectAll();
        typeText("+380 44 123-45-01");
        pressKeys({Qt::Key_Tab});
        QCOMPARE(telephone->text(), QString("0441234501"));
        QCOMPARE(saveMeets(editor), QString());
    }));
    QCOMPARE(stored(12, "telephone"), QString("0441234501"));
}

/// Of another user, in clear or hashed; whose it is stays untold.
void TstQTabUsers::passwordIsUnique()
{
    QVERIFY(add([this](QAddEdtUsers *editor) {
        fillNew(editor, "ivan", "пароль");
        for (const char *password : {"пароль", "clear", "CLEAR"}) {
            typePassword(editor, password);
            QCOMPARE(saveMeets(editor), QString(takenPassword));
            QCOMPARE(child<QLineEdit>(editor, "lePass")->text(), QString(password));
        }
        QCOMPARE(m_base->value("SELECT COUNT(*) FROM users"), QString("4"));
        typePassword(editor, "Пароль");
        QCOMPARE(saveMeets(editor), QString());
    }));
    // The own one may be typed again.
    QVERIFY(edit("taras", [](QAddEdtUsers *editor) {
        typePassword(editor, "clear");
        QCOMPARE(saveMeets(editor), QString());
    }));
    QCOMPARE(stored(11, "pass=MD5('clear')"), QString("1"));
    QCOMPARE(m_base->heard.texts(), QStringList());
}

void TstQTabUsers::passwordStaysUntilTyped()
{
    QVERIFY(edit("admin", [](QAddEdtUsers *editor) {
        QCOMPARE(child<QLineEdit>(editor, "lePass")->text(), QString());
        enter(editor, "leTelephone", "0501234567");
        QCOMPARE(saveMeets(editor), QString());
    }));
    QCOMPARE(stored(1, "telephone,pass,key_prem"), QString("0501234567||1000000001"));
    QVERIFY(edit("olena", [](QAddEdtUsers *editor) {
        enter(editor, "lePass", "інше");
        QVERIFY2(saveMeets(editor).startsWith("Паролі не співпадають!"), "typed once only");
        enter(editor, "leRepeat", "інше");
        QCOMPARE(saveMeets(editor), QString());
    }));
    QVERIFY(findUser(m_base->db(), "olena", "інше").has_value());
    QVERIFY(!findUser(m_base->db(), "olena", "пароль").has_value());
}

/// Between the look and the writing; the words of the server would quote the password.
void TstQTabUsers::quickerOperatorTakesThePassword()
{
    QVERIFY(add([this](QAddEdtUsers *editor) {
        fillNew(editor, "ivan", "слово");
        Db::setStatementHook([this](const QString &sql) {
            if (sql.startsWith("INSERT INTO users"))
                m_base->execElsewhere("UPDATE users SET pass=MD5('слово') WHERE id=12");
        });
        QCOMPARE(saveMeets(editor), QString(takenPassword));
        Db::setStatementHook(nullptr);
        QVERIFY(editor->isVisible());
        QCOMPARE(m_base->value("SELECT COUNT(*) FROM users"), QString("4"));
        typePassword(editor, "інше слово");
        QCOMPARE(saveMeets(editor), QString());
    }));
    QCOMPARE(m_base->value("SELECT pass=MD5('інше слово') FROM users WHERE login='ivan'"), QString("1"));
    QCOMPARE(m_base->heard.texts(), QStringList());
}

void TstQTabUsers::loginAndKeyAreUnique()
{
    QVERIFY(add([this](QAddEdtUsers *editor) {
        fillNew(editor, "Olena", "слово");
        QVERIFY(saveMeets(editor).startsWith("Такий логін вже має інший користувач!"));
        // Two add somebody at once: both were proposed the same key.
        enter(editor, "leLogin", "ivan");
        Db::setStatementHook([this](const QString &sql) {
            if (sql.startsWith("INSERT INTO users"))
                m_base->execElsewhere("INSERT INTO users(login,pass,key_prem,name,surname,id_g_prem) "
                                      "VALUES('petro','5','1000000054','Петро','Другий',2)");
        });
        const QString told = saveMeets(editor);
        Db::setStatementHook(nullptr);
        QVERIFY2(told.startsWith("Такий ключ вже має інший користувач!"), qPrintable(told));
        QVERIFY2(told.contains("\"petro\""), qPrintable(told));
        QCOMPARE(editor->focusWidget()->objectName(), QString("leKey"));
        child<QPushButton>(editor, "pbKey")->click();
        waitOutTasks();
        QCOMPARE(child<QLineEdit>(editor, "leKey")->text(), QString("1000000061"));
        // A card of that password would find two people.
        m_base->exec("UPDATE users SET pass='1000000061' WHERE login='petro'");
        QCOMPARE(saveMeets(editor), QString("Цей ключ використати не можна. Оберіть інший ключ."));
        enter(editor, "leKey", "");
        child<QLineEdit>(editor, "leKey")->setFocus();
        scan(editor, "2201000000078");
        QCOMPARE(child<QLineEdit>(editor, "leKey")->text(), QString("1000000078"));
        QVERIFY2(editor->isVisible(), "a scanner saves nothing");
        QCOMPARE(saveMeets(editor), QString());
    }));
    QCOMPARE(m_base->value("SELECT key_prem FROM users WHERE login='ivan'"), QString("1000000078"));
}

/// After another prefix no key fits any more: that hinders nobody who changes something else.
void TstQTabUsers::keysOfOldCardsStay()
{
    m_place->writeSettings("[INTERFACE]\nPREF_IDENTIFY=221\n");
    m_base->exec("UPDATE users SET key_prem='77' WHERE id=10");
    QVERIFY(edit("olena", [](QAddEdtUsers *editor) {
        QVERIFY(!child<QLabel>(editor, "labelCard")->text().startsWith("Картка: "));
        enter(editor, "leSurname2", "");
        QCOMPARE(saveMeets(editor), QString());
    }));
    QCOMPARE(stored(10, "surname2,key_prem"), QString("|77"));
}

void TstQTabUsers::twoOperatorsChangeOneUser()
{
    QVERIFY(edit("olena", [this](QAddEdtUsers *editor) {
        enter(editor, "leTelephone", "0671112233");
        typePassword(editor, "моє");
        m_base->exec("UPDATE users SET id_g_prem=3,id_group=3,pass=MD5('їхнє') WHERE id=10");
        const auto save = [editor] {
            child<QPushButton>(editor, "pbOk")->click();
            waitOutTasks();
        };
        QVERIFY(withModal<ChangesDialog>(save, [](ChangesDialog *dialog) {
            const auto *table = child<QTableWidget>(dialog, "twChanges");
            QStringList captions;
            for (int row = 0; row < table->rowCount(); ++row) {
                captions.append(table->item(row, 0)->text());
                for (int column = 0; column < table->columnCount(); ++column)
                    QVERIFY2(table->item(row, column)->text().size() < 20, "no password is shown");
            }
            QCOMPARE(captions, QStringList({"Пароль", "Група прав", "Група магазинів"}));
            QTest::mouseClick(child<QPushButton>(dialog, "pbTheirs"), Qt::LeftButton);
        }));
        QVERIFY(!editor->isVisible());
    }));
    QCOMPARE(stored(10, "telephone,id_g_prem,id_group,id_shop,pass=MD5('їхнє')"),
             QString("0671112233|3|3|10|1"));
    QCOMPARE(shown(6).at(1), QString("закрито"));
}

/// Nothing else tells whether it has arrived.
void TstQTabUsers::lostAnswerAboutAPassword()
{
    for (const bool arrives : {false, true}) {
        const QString password = arrives ? "дійшло" : "не дійшло";
        QVERIFY(edit("olena", [&](QAddEdtUsers *editor) {
            typePassword(editor, password);
            bool isLost = false;
            Db::setStatementHook([&](const QString &sql) {
                if (sql != "COMMIT" || isLost)
                    return;
                isLost = true;
                if (arrives)
                    commitHere();
                m_base->killConnection();
            });
            saveMeets(editor);
            Db::setStatementHook(nullptr);
            QCOMPARE(editor->isVisible(), !arrives);
        }));
        waitOutLoss(*m_place->connection());
        QCOMPARE(findUser(m_base->db(), "olena", password).has_value(), arrives);
        open();
    }
}

void TstQTabUsers::ownRightIsGivenAwayOnPurpose()
{
    m_base->exec("UPDATE users SET id_g_prem=1 WHERE id=11");
    QVERIFY(edit("admin", [this](QAddEdtUsers *editor) {
        enter(editor, "cbPremission", "Продавці");
        const auto save = [editor] {
            child<QPushButton>(editor, "pbOk")->click();
            waitOutTasks();
        };
        const QString asked = answerConfirm(save, false);
        QVERIFY2(asked.contains("Це ваш власний запис. У групі прав «Продавці»"), qPrintable(asked));
        QVERIFY(editor->isVisible());
        QCOMPARE(stored(1, "id_g_prem"), QString("1"));
        answerConfirm(save, true);
        QVERIFY(!editor->isVisible());
    }));
    QCOMPARE(stored(1, "id_g_prem"), QString("2"));
    // Others are not asked.
    m_base->exec("UPDATE users SET id_g_prem=1 WHERE id=1");
    open();
    QVERIFY(edit("taras", [](QAddEdtUsers *editor) {
        QCOMPARE(child<QLabel>(editor, "labelEntry")->text(), QString());
        enter(editor, "cbPremission", "Нова група");
        QVERIFY(child<QLabel>(editor, "labelEntry")->text().startsWith("Ця група не дає входу"));
        QCOMPARE(saveMeets(editor), QString());
    }));
    QCOMPARE(shown(6).at(2), QString("закрито"));
}

void TstQTabUsers::lastOneInChargeStays()
{
    m_base->exec("UPDATE users SET id_g_prem=1 WHERE id=11");
    QVERIFY(edit("taras", [this](QAddEdtUsers *editor) {
        enter(editor, "cbPremission", "Звільнені");
        // Meanwhile the other one in charge goes.
        Db::setStatementHook([this](const QString &sql) {
            if (sql.startsWith("START TRANSACTION"))
                m_base->execElsewhere("UPDATE users SET id_g_prem=2 WHERE id=1");
        });
        const QString told = saveMeets(editor);
        Db::setStatementHook(nullptr);
        QVERIFY2(told.startsWith("Після цього не лишилося б жодного користувача"), qPrintable(told));
        QVERIFY(editor->isVisible());
    }));
    QCOMPARE(stored(11, "id_g_prem"), QString("1"));
    QCOMPARE(m_base->heard.texts(), QStringList());
}

/// Somebody with full right to users only: neither the group nor the password of a giver of rights is his.
void TstQTabUsers::rightsAreGivenByTheirGivers()
{
    m_base->exec({"UPDATE lst_permis SET permission=2 WHERE id_g_prem=1 AND id_prem=26",
                  "UPDATE lst_permis SET permission=1 WHERE id_g_prem=3",
                  "INSERT INTO lst_permis VALUES(3,26,1)"});
    const auto isRefused = [](QAddEdtUsers *editor) {
        const QString told = saveMeets(editor);
        QVERIFY2(told.startsWith("Ця людина може або зможе змінювати права"), qPrintable(told));
        QVERIFY(editor->isVisible());
    };
    QVERIFY(edit("admin", [&](QAddEdtUsers *editor) {
        enter(editor, "cbPremission", "Звільнені");
        isRefused(editor);
    }));
    QCOMPARE(stored(1, "id_g_prem"), QString("1"));
    QVERIFY(add([&](QAddEdtUsers *editor) {
        fillNew(editor, "ivan", "слово");
        enter(editor, "cbPremission", "Звільнені");
        isRefused(editor);
        QCOMPARE(m_base->value("SELECT COUNT(*) FROM users"), QString("4"));
        enter(editor, "cbPremission", "Продавці");
        QCOMPARE(saveMeets(editor), QString());
    }));
    QVERIFY(edit("taras", [&](QAddEdtUsers *editor) {
        typePassword(editor, "моє");
        isRefused(editor);
        typePassword(editor, "");
        enter(editor, "leLogin", "тарас");
        isRefused(editor);
        enter(editor, "leLogin", "taras");
        enter(editor, "leTelephone", "0501234567");
        QCOMPARE(saveMeets(editor), QString());
    }));
    QCOMPARE(stored(11, "login,pass,telephone,id_g_prem"), QString("taras|clear|0501234567|3"));
    QCOMPARE(m_base->heard.texts(QMessEvent::Critical), QStringList());
}

/// After the editor was opened; nobody has told it.
void TstQTabUsers::rightTakenMeanwhile()
{
    QVERIFY(edit("olena", [this](QAddEdtUsers *editor) {
        m_base->exec("UPDATE lst_permis SET permission=2 WHERE id_g_prem=1 AND id_prem=24");
        enter(editor, "leSurname", "Інша");
        const QString told = saveMeets(editor);
        QVERIFY2(told.startsWith("Поки ви працювали, у вас забрали право"), qPrintable(told));
    }));
    QCOMPARE(stored(10, "surname"), QString("О'Ніл"));
}

void TstQTabUsers::printedCardLetsIn()
{
    m_tab->view()->selectRow(shown(1).indexOf("olena"));
    QVERIFY(withModal<QPrintPreviewDialog>([this] { m_tab->printCards(); },
                                           [](QPrintPreviewDialog *preview) { preview->reject(); }));
    if (!canReadBarcodes())
        QSKIP("zbarimg (zbar-tools) or pdftoppm (poppler-utils) is missing");
    const QTemporaryDir folder;
    m_tab->chooseFile = [&](const QString &suggested) { return folder.filePath(suggested); };
    m_tab->saveCards();
    waitOutJobs();
    const QString code = barcodeOfPdf(folder.filePath("Картка О'Ніл"));
    QCOMPARE(code, QString("2201000000023"));

    const QTemporaryDir home;
    QSelUser login(home.path(), "220", nullptr, true);
    enter(&login, "leLogin", "будь-хто");
    enter(&login, "lePass", code);
    login.ok();
    QCOMPARE(login.result(), int(QDialog::Accepted));
    QVERIFY(login.isCard());
    const auto entered = findUserOfCard(m_base->db(), login.identifier());
    QVERIFY(entered && entered->idUser == "10");
}

void TstQTabUsers::usersWithoutACardAreTold()
{
    QCOMPARE(answerQuestion([this] { m_tab->printCards(); }),
             QString("Виберіть у списку, чиї картки потрібні."));
    m_tab->view()->selectAll();
    const QTemporaryDir folder;
    m_tab->chooseFile = [&](const QString &) { return folder.filePath("cards.pdf"); };
    const QString told = answerQuestion([this] { m_tab->saveCards(); });
    QVERIFY2(told.startsWith("Без картки лишаються:\nadmin: Картка з таким ключем не зчитається"),
             qPrintable(told));
    waitOutJobs();
    QVERIFY2(m_base->heard.has("Файл збережено"), "the others get theirs");
}

QTEST_MAIN(TstQTabUsers)
#include "tst_qtabusers.moc"
