#include "testing.h"

#include "rightsguard.h"

/// Who is the last one in charge.
class TstRightsGuard : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void onlyWhoMayDoAllAndCanLogInCounts();
    void lastOneMayNotGo();
    void secondOfTwoSeesWhatTheFirstHasDone();

private:
    std::unique_ptr<FreshDatabase> m_base;
};

/// Beside the seeded administrator in group 1: Olena in a group in charge, Taras in one that only looks.
void TstRightsGuard::init()
{
    m_base = std::make_unique<FreshDatabase>();
    m_base->exec({"INSERT INTO group_premission(id,name) VALUES(2,'Директор'),(3,'Аудит')",
                  "INSERT INTO lst_permis(id_g_prem,id_prem,permission) VALUES(2,0,2),(2,24,1),(2,26,1),"
                  "(3,0,1),(3,24,1),(3,26,2)",
                  "INSERT INTO users(id,login,pass,key_prem,name,surname,id_g_prem) VALUES"
                  "(2,'olena','p2','0000000042','Олена','Коваль',2),"
                  "(3,'taras','p3','0000000043','Тарас','Бойко',3)"});
}

void TstRightsGuard::onlyWhoMayDoAllAndCanLogInCounts()
{
    const auto inCharge = [this] { return usersInCharge(m_base->db()).value_or(-1); };
    QCOMPARE(inCharge(), 2);
    m_base->exec("UPDATE users SET login='' WHERE id=2");
    QCOMPARE(inCharge(), 1);
    m_base->exec("UPDATE users SET login='olena' WHERE id=2");
    // Of the three rights each is needed; the one to enter may have any value but 0.
    for (const char *right : {"0", "24", "26"}) {
        m_base->exec("UPDATE lst_permis SET permission=0 WHERE id_g_prem=2 AND id_prem=" + QString(right));
        QCOMPARE(inCharge(), 1);
        m_base->exec("UPDATE lst_permis SET permission=1 WHERE id_g_prem=2 AND id_prem=" + QString(right));
    }
    m_base->exec("UPDATE lst_permis SET permission=1 WHERE id_g_prem=3");
    QCOMPARE(inCharge(), 3);
    m_base->exec("DELETE FROM lst_permis WHERE id_prem=24");
    QCOMPARE(inCharge(), 0);
}

void TstRightsGuard::lastOneMayNotGo()
{
    const auto loses = [this](const char *user, const char *from, const char *to) {
        return losesLastInCharge(m_base->db(), user, from, to);
    };
    QCOMPARE(loses("1", "1", "3"), std::optional(false));
    m_base->exec("UPDATE users SET id_g_prem=3 WHERE id=2");
    QCOMPARE(loses("1", "1", "3"), std::optional(true));
    QCOMPARE(loses("1", "1", "2"), std::optional(false));
    QCOMPARE(loses("3", "3", "2"), std::optional(false));
    // Written already, in the same transaction.
    Transaction t(m_base->db());
    m_base->exec("UPDATE users SET id_g_prem=3 WHERE id=1");
    QCOMPARE(loses("1", "1", "3"), std::optional(true));
    QCOMPARE(usersInCharge(m_base->db()), std::optional(0));
}

void TstRightsGuard::secondOfTwoSeesWhatTheFirstHasDone()
{
    // What the transaction has read before the other one has ended must not count.
    Transaction t(m_base->db());
    QCOMPARE(m_base->value("SELECT COUNT(*) FROM users"), QString("3"));
    m_base->execElsewhere("UPDATE users SET id_g_prem=3 WHERE id=2");
    QVERIFY(m_base->db().run(rightsLock()));
    QCOMPARE(usersInCharge(m_base->db()), std::optional(1));
    QCOMPARE(losesLastInCharge(m_base->db(), "1", "1", "3"), std::optional(true));
}

QTEST_MAIN(TstRightsGuard)
#include "tst_rightsguard.moc"
