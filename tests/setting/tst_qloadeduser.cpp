#include "testing.h"

#include "qloadeduser.h"

#include <QSignalSpy>

/// Finding the user and reading the rights.
class TstQLoadedUser : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void loginFindsTheUser();
    void textOfPeopleLogsNobodyIn();
    void cardFindsTheUser();
    void rightsAreBounded();
    void ownShopWithADayCycleIsNotSentTo();
    void shopsThatAreAllowed();
    void secondUserHasNoRightsOfTheFirst();
    void failedReadingChangesNothing();
    void failedLoginTellsNoPassword();
    void hashOfAPassword();
    void namesOfAUser();

private:
    std::unique_ptr<FreshDatabase> m_base;
    std::unique_ptr<QLoadedUser> m_user;
};

void TstQLoadedUser::init()
{
    m_base = std::make_unique<FreshDatabase>();
    m_user = std::make_unique<QLoadedUser>(nullptr, &m_base->heard);
    m_base->exec(
        {"INSERT INTO group_shop(id,name) VALUES(2,'Центр'),(3,'Схід')",
         "INSERT INTO shops(id,name,address,group_shop,count_day_cycle) VALUES(5,'М5','А5',2,1),(6,'С6','А6',2,0),"
         "(7,'М7','А7',3,1)",
         "INSERT INTO group_premission(id,name) VALUES(2,'sale')",
         "INSERT INTO lst_permis(id_g_prem,id_prem,permission) VALUES(2,0,1),(2,10,2),(2,399,1),(2,400,1)",
         "INSERT INTO lst_group(id_g_prem,id_group) VALUES(2,2)",
         "INSERT INTO lst_shops_transmit(id_g_prem,id_shop) VALUES(2,5),(2,6),(2,7)",
         "INSERT INTO users(id,login,pass,key_prem,name,surname,id_g_prem,id_group,id_shop) VALUES"
         "(2,'їжак'," +
             lit(passwordHash("пароль довший за тридцять два знаки")) +
             ",'0000000042','Олена','Коваль',2,2,5),(3,'it''s','clear\\\\\\'','0000000043','О','К',2,1,0)"});
}

void TstQLoadedUser::cleanup()
{
    m_user.reset();
    m_base.reset();
}

void TstQLoadedUser::loginFindsTheUser()
{
    const QList<QStringList> users = {{"їжак", "пароль довший за тридцять два знаки", "2"}, // hashed
                                      {"it's", "clear\\'", "3"},                            // in clear
                                      {"admin", "", "1"}};
    for (const QStringList &user : users) {
        QVERIFY2(m_user->loadpermis(m_base->connection(), user.at(0), user.at(1)), qPrintable(user.at(0)));
        QCOMPARE(m_user->idUser(), user.at(2));
        QVERIFY(!m_base->heard.has("Помилка") && !m_base->heard.has("не знайдено"));
        QVERIFY(!m_user->loadpermis(m_base->connection(), user.at(0), user.at(1) + "x"));
        QCOMPARE(m_user->idUser(), user.at(2));
        m_base->heard.forget();
    }
    // The own name with the password of somebody else.
    m_user->clear();
    QVERIFY(!m_user->loadpermis(m_base->connection(), "it's", "пароль довший за тридцять два знаки"));
    QVERIFY(!m_user->loadpermis(m_base->connection(), "admin", "clear\\'"));
    QVERIFY(!m_user->loadpermis(m_base->connection(), "їжак", ""));
    QVERIFY(!m_user->isLoaded());
}

void TstQLoadedUser::textOfPeopleLogsNobodyIn()
{
    const QString notFound = "Користувача не знайдено!\nПерезавантажте програму!";
    for (const char *text : {"' OR 1=1 -- ", "' OR '1'='1", "\\' OR 1=1 -- ", "admin' -- ",
                             "x'; DELETE FROM users; -- ", "\\", "%", "_dmin", ":login", "?"}) {
        QVERIFY2(!m_user->loadpermis(m_base->connection(), text, text), text);
        QVERIFY2(!m_user->loadpermis(m_base->connection(), "їжак", text), text);
        QVERIFY2(!m_user->loadpermis(m_base->connection(), text), text);
        QCOMPARE(m_base->heard.texts(), QStringList({notFound, notFound, notFound}));
        m_base->heard.forget();
    }
    QCOMPARE(m_base->value("SELECT COUNT(*) FROM users"), QString("3"));
}

void TstQLoadedUser::cardFindsTheUser()
{
    QVERIFY(m_user->loadpermis(m_base->connection(), "0000000042"));
    QCOMPARE(m_user->idUser(), QString("2"));
    for (const char *key : {"", "   ", "0000000044"})
        QVERIFY2(!m_user->loadpermis(m_base->connection(), key), key);
    QCOMPARE(m_user->idUser(), QString("2"));
}

void TstQLoadedUser::rightsAreBounded()
{
    QVERIFY(m_user->load(m_base->connection(), "2", "2", "5"));
    QCOMPARE(m_base->heard.texts(), QStringList("Id параметру виходить за межі списку!"));
    QVERIFY(m_user->maySee(399) && m_user->mayEdit(399));
    QVERIFY(m_user->maySee(Permission::Shops) && !m_user->mayEdit(Permission::Shops));
    for (const int id : {-1, 1, 400, 100000})
        QVERIFY(!m_user->maySee(id));
}

void TstQLoadedUser::ownShopWithADayCycleIsNotSentTo()
{
    const QList<QPair<QString, QStringList>> cases = {
        {"5", {"6", "7"}}, {"6", {"5", "6", "7"}}, {"0", {"5", "6", "7"}}, {"", {"5", "6", "7"}}};
    for (const auto &[home, shops] : cases) {
        QVERIFY(m_user->load(m_base->connection(), "2", "2", home));
        QCOMPARE(m_user->shopsTransmit(), shops);
        QCOMPARE(m_user->idShop(), home == "0" ? QString() : home);
    }
    QVERIFY(m_user->load(m_base->connection(), "1", "1", ""));
    QCOMPARE(m_user->groups(), QStringList("1"));
}

void TstQLoadedUser::shopsThatAreAllowed()
{
    m_base->exec("DELETE FROM lst_shops_transmit WHERE id_shop<>7");
    QVERIFY(m_user->loadpermis(m_base->connection(), "0000000042"));
    QCOMPARE(m_user->idGroup(), QString("2"));
    QVERIFY(m_user->isPermissionForShop("5", ""));  // home
    QVERIFY(m_user->isPermissionForShop("6", "2")); // of a group that the user sees
    QVERIFY(m_user->isPermissionForShop("7", "3")); // may be sent to
    QVERIFY(!m_user->isPermissionForShop("8", "3"));
    QVERIFY(!m_user->isPermissionForShop("", "2"));
}

void TstQLoadedUser::secondUserHasNoRightsOfTheFirst()
{
    QVERIFY(m_user->loadpermis(m_base->connection(), "admin", ""));
    QVERIFY(m_user->mayEdit(Permission::Users));
    QVERIFY(m_user->loadpermis(m_base->connection(), "it's", "clear\\'"));
    QVERIFY(!m_user->maySee(Permission::Users));
    QCOMPARE(m_user->groups(), QStringList("2"));
    m_base->exec("INSERT INTO lst_group(id_g_prem,id_group) VALUES(2,3)");
    QVERIFY(m_user->reload(m_base->connection()));
    QCOMPARE(m_user->groups(), QStringList({"2", "3"}));
    QCOMPARE(m_user->idGroup(), QString("1"));
    const QSignalSpy changed(m_user.get(), &QLoadedUser::rightsChanged);
    m_user->clear();
    QCOMPARE(changed.size(), 1);
    QVERIFY(!m_user->isLoaded() && m_user->groups().isEmpty() && m_user->shopsTransmit().isEmpty());
    QVERIFY(!m_user->reload(m_base->connection()));
}

void TstQLoadedUser::failedReadingChangesNothing()
{
    QSignalSpy changed(m_user.get(), &QLoadedUser::rightsChanged);
    m_base->exec("RENAME TABLE lst_shops_transmit TO away");
    QVERIFY(!m_user->loadpermis(m_base->connection(), "0000000042"));
    QVERIFY2(!m_user->isLoaded() && !m_user->maySee(Permission::BackOffice), "nobody with half the rights");
    QVERIFY(m_base->heard.has("Помилка запиту:"));
    QVERIFY(m_base->heard.all().constFirst().location.startsWith("In file: setting/qloadeduser line: "));
    QCOMPARE(changed.size(), 0);

    m_base->exec("RENAME TABLE away TO lst_shops_transmit");
    QVERIFY(m_user->loadpermis(m_base->connection(), "0000000042"));
    QCOMPARE(changed.size(), 1);
    m_base->exec("DELETE FROM lst_permis WHERE id_g_prem=2 AND id_prem=10");
    m_base->exec("RENAME TABLE lst_shops_transmit TO away");
    QVERIFY(!m_user->reload(m_base->connection()));
    QVERIFY(!m_user->loadpermis(m_base->connection(), "admin", ""));
    QVERIFY2(m_user->maySee(Permission::Shops), "the rights that were read last stay");
    QCOMPARE(m_user->idUser(), QString("2"));
    QCOMPARE(changed.size(), 1);

    m_base->exec("RENAME TABLE away TO lst_shops_transmit");
    QVERIFY(m_user->reload(m_base->connection()));
    QVERIFY(!m_user->maySee(Permission::Shops));
    QCOMPARE(m_user->idGroup(), QString("2"));
    QCOMPARE(m_user->idShop(), QString("5"));
    QCOMPARE(changed.size(), 2);
}

void TstQLoadedUser::failedLoginTellsNoPassword()
{
    m_base->exec("RENAME TABLE users TO away");
    const QString secret = "it's \\ таємний";
    QVERIFY(!m_user->loadpermis(m_base->connection(), "їжак", secret));
    QVERIFY(!m_user->loadpermis(m_base->connection(), "7000000042"));
    const QStringList told = m_base->heard.texts(4);
    QCOMPARE(told.size(), 2);
    QVERIFY2(told.at(0).startsWith("Помилка запиту:\n") && told.at(0).contains("login='їжак'"),
             qPrintable(told.at(0)));
    for (const QString &part : {QString("таємний"), passwordHash(secret), QString("7000000042")})
        QVERIFY2(!told.join('\n').contains(part), qPrintable(told.join('\n')));
}

void TstQLoadedUser::hashOfAPassword()
{
    QCOMPARE(passwordHash("їжак"), QString("660ed5265656dd319b6bdc4f57d0ea96"));
    QCOMPARE(passwordHash(""), QString("d41d8cd98f00b204e9800998ecf8427e"));
}

void TstQLoadedUser::namesOfAUser()
{
    QCOMPARE(m_user->getNameSename(m_base->connection(), 2), QString("Олена Коваль"));
    QVERIFY(m_base->heard.all().isEmpty());
    QCOMPARE(m_user->getNameSename(m_base->connection(), 77), QString());
    QCOMPARE(m_base->heard.texts(), QStringList("Користувача не знайдено!"));
}

QTEST_MAIN(TstQLoadedUser)
#include "tst_qloadeduser.moc"
