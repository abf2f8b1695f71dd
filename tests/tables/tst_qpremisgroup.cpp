#include "workplace.h"

#include "changesdialog.h"
#include "groupscompare.h"
#include "listpane.h"
#include "qloadeduser.h"
#include "qmessdlg.h"
#include "qpremisgroup.h"
#include "qrowmodel.h"
#include "rightstree.h"

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSignalSpy>
#include <QTableWidget>

/// The page of the permission groups: what is saved, what is left alone, who is in the way.
class TstQPremisGroup : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void onlyWhatWasChangedIsWritten();
    void valuesOfOtherProgramsStay();
    void scannerSetsNothing();
    void wholeMenuAtOnceAndFound();
    void othersChangesAreMerged();
    void shopGroupsAddedByOthersStay();
    void bothHaveChangedTheSame();
    void lostAnswerIsAskedFor();
    void lastOneInChargeStays();
    void oneOfTwoOperatorsIsRefused();
    void ownRightsAreNotTakenByAccident();
    void rightTakenMeanwhile();
    void unsavedIsAskedAbout();
    void hurriedHandsLoseNothing();
    void copyTakesEverything();
    void takenNameIsRefused();
    void viewerChangesNothing();
    void groupsSideBySide();

private:
    void open();
    void choose(const QString &group);
    QTreeWidgetItem *line(const QString &right);
    void setRight(const QString &right, int key);
    void check(const char *list, const QString &name, bool isChecked);
    /// Saves, and tells what the program says to it; empty when it says nothing.
    QString save();
    QString rights(int group, const QString &ids);
    QString stateWords() { return child<QLabel>(m_page.get(), "labelState")->text(); }

    std::unique_ptr<Workplace> m_place;
    std::unique_ptr<QPremisGroup> m_page;
};

/// Group 2 has rights of other programs, too: number 300 and one beyond all that are known.
void TstQPremisGroup::init()
{
    m_place = std::make_unique<Workplace>();
    m_place->base.exec(
        {"INSERT INTO shops(id,address,name,group_shop) VALUES(5,'А5','М5',2),(6,'А6','М6',3)",
         "INSERT INTO group_premission(id,name) VALUES(2,'Касири'),(3,'Аудит')",
         "INSERT INTO lst_permis(id_g_prem,id_prem,permission) VALUES(2,0,1),(2,10,1),(2,11,2),(2,13,5),(2,300,1),"
         "(2,400,7),(3,0,1),(3,10,2)",
         "INSERT INTO lst_group VALUES(2,2)", "INSERT INTO lst_shops_transmit VALUES(2,5)",
         "INSERT INTO lst_groups_transmit VALUES(2,5)",
         "INSERT INTO users(id,login,pass,key_prem,name,surname,id_g_prem) VALUES(7,'k','p','7','К','К',2)"});
    m_place->logIn(Permission::PermissionGroups);
    open();
    choose("Касири");
}

void TstQPremisGroup::cleanup()
{
    Db::setStatementHook(nullptr);
    m_page.reset();
    m_place.reset();
}

void TstQPremisGroup::open()
{
    m_page =
        std::make_unique<QPremisGroup>(m_place->connection(), m_place->user(), &m_place->base.heard, nullptr);
    m_page->setPermission(Permission::PermissionGroups);
    waitOutTasks();
    QVERIFY(showActive(m_page.get()));
}

void TstQPremisGroup::choose(const QString &group)
{
    auto *groups = child<QTreeWidget>(m_page.get(), "groups");
    const auto found = groups->findItems(group, Qt::MatchStartsWith);
    QCOMPARE(found.size(), 1);
    groups->setCurrentItem(found.first());
    waitOutTasks();
}

QTreeWidgetItem *TstQPremisGroup::line(const QString &right)
{
    const auto found =
        child<RightsTree>(m_page.get(), "rights")->findItems(right, Qt::MatchExactly | Qt::MatchRecursive);
    if (found.size() != 1)
        qFatal("%d lines of that name", found.size());
    return found.first();
}

/// By the keyboard: 0, 1 or 2 on the line.
void TstQPremisGroup::setRight(const QString &right, int key)
{
    auto *tree = child<RightsTree>(m_page.get(), "rights");
    tree->setFocus();
    tree->setCurrentItem(line(right));
    pressKeys({Qt::Key_0 + key});
    // The next key of a hand comes later than that of a scanner.
    QTest::qWait(ScanPace::gapMs + 30);
}

void TstQPremisGroup::check(const char *list, const QString &name, bool isChecked)
{
    const auto found = child<QListWidget>(m_page.get(), list)->findItems(name, Qt::MatchExactly);
    QCOMPARE(found.size(), 1);
    found.first()->setCheckState(isChecked ? Qt::Checked : Qt::Unchecked);
}

QString TstQPremisGroup::save()
{
    return answerQuestion([this] {
        child<QPushButton>(m_page.get(), "pbSave")->click();
        waitOutTasks();
    });
}

QString TstQPremisGroup::rights(int group, const QString &ids)
{
    return m_place->base
        .rows(
            QString("SELECT id_prem,permission FROM lst_permis WHERE id_g_prem=%1 AND id_prem IN (%2) ORDER "
                    "BY id_prem")
                .arg(group)
                .arg(ids))
        .join(' ');
}

void TstQPremisGroup::onlyWhatWasChangedIsWritten()
{
    m_place->base.exec("UPDATE updat SET updat=0");
    setRight("Обладнання", 1);
    // By the mouse, into the first column of values.
    auto *tree = child<RightsTree>(m_page.get(), "rights");
    const QRect shops = tree->visualItemRect(line("Магазини"));
    const QPoint denied(tree->columnViewportPosition(1) + tree->columnWidth(1) / 2, shops.center().y());
    QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, denied);
    check("shopGroups", "Схід", true);
    check("shops", "А5", false);
    check("shops", "А6", true);
    QCOMPARE(rights(2, "10,11"), QString("10|1 11|2"));
    QCOMPARE(stateWords(), QString("Змінено, ще не збережено."));
    Sent sent;
    QCOMPARE(save(), QString());
    QCOMPARE(m_place->base.rows("SELECT id_prem,permission FROM lst_permis WHERE id_g_prem=2 ORDER BY 1"),
             (QStringList{"0|1", "10|0", "11|1", "13|5", "300|1", "400|7"}));
    QCOMPARE(m_place->base.rows("SELECT id_group FROM lst_group WHERE id_g_prem=2 ORDER BY 1"),
             (QStringList{"2", "3"}));
    QCOMPARE(m_place->base.rows("SELECT id_shop FROM lst_shops_transmit WHERE id_g_prem=2"),
             QStringList("6"));
    QCOMPARE(m_place->base.rows("SELECT id_g_prem,id_group FROM lst_groups_transmit"), QStringList("2|5"));
    QCOMPARE(m_place->base.value("SELECT COUNT(*) FROM updat WHERE updat<>0 AND name LIKE 'lst\\_%'"),
             QString("3"));
    QVERIFY(!m_page->isChanged() && stateWords().isEmpty());
}

void TstQPremisGroup::valuesOfOtherProgramsStay()
{
    QCOMPARE(line("Товари")->text(2), QString("● (5)"));
    setRight("Товари", 1);
    setRight("Товари", 2);
    QVERIFY2(!m_page->isChanged(), "view only it was");
    // Their own rights take no value here.
    setRight("Право №300", 0);
    QVERIFY(!m_page->isChanged());
    setRight("Товари", 0);
    setRight("Магазини", 2);
    QCOMPARE(save(), QString());
    QCOMPARE(rights(2, "10,13,300,400"), QString("10|2 13|0 300|1 400|7"));
}

void TstQPremisGroup::scannerSetsNothing()
{
    auto *tree = child<RightsTree>(m_page.get(), "rights");
    tree->setFocus();
    tree->setCurrentItem(line("Магазини"));
    scan("2200000000012");
    QTest::qWait(ScanPace::gapMs + 30);
    QVERIFY(!m_page->isChanged());
    // Space goes round: full, denied, view only.
    pressKeys({Qt::Key_Space});
    QVERIFY(!line("Магазини")->text(1).isEmpty());
    pressKeys({Qt::Key_Space});
    QVERIFY(!line("Магазини")->text(2).isEmpty());
    // Quicker than it is known that no scanner was it: the value is not for the next line.
    const QString before = line("Обладнання")->text(2);
    pressKeys({Qt::Key_0});
    tree->setCurrentItem(line("Обладнання"));
    QTest::qWait(ScanPace::gapMs + 30);
    QTRY_VERIFY(!line("Магазини")->text(1).isEmpty());
    QCOMPARE(line("Обладнання")->text(2), before);
}

void TstQPremisGroup::wholeMenuAtOnceAndFound()
{
    setRight("Звіти", 2);
    child<QLineEdit>(m_page.get(), "leSearch")->setFocus();
    typeText("табл груп");
    pressKeys({Qt::Key_Return});
    QVERIFY(!line("Групи товарів")->isHidden() && line("Товари")->isHidden());
    QVERIFY(line("Звіти")->isHidden());
    // Hidden rights of a menu take nothing.
    setRight("Таблиці", 2);
    QCOMPARE(save(), QString());
    QCOMPARE(rights(2, "10,12,14,13,23,70,71,72,73"),
             QString("10|1 12|2 13|5 14|2 23|2 70|2 71|2 72|2 73|2"));
}

void TstQPremisGroup::othersChangesAreMerged()
{
    setRight("Магазини", 0);
    m_place->base.execElsewhere("UPDATE lst_permis SET permission=1 WHERE id_g_prem=2 AND id_prem=11");
    m_place->base.execElsewhere("INSERT INTO lst_group VALUES(2,3)");
    QStringList told;
    QVERIFY(withModal<ChangesDialog>(
        [this] {
            child<QPushButton>(m_page.get(), "pbSave")->click();
            waitOutTasks();
        },
        [&](ChangesDialog *dialog) {
            const auto *table = dialog->findChild<QTableWidget *>();
            for (int row = 0; row < table->rowCount(); ++row)
                told.append(table->item(row, 0)->text() + "|" + table->item(row, 1)->text() + "|" +
                            table->item(row, 3)->text());
            QCOMPARE(rights(2, "10"), QString("10|1"));
            waitOutGuard();
            child<QPushButton>(dialog, "pbMine")->click();
        }));
    QCOMPARE(told, (QStringList{"Таблиці: Обладнання|Тільки перегляд|Повний дозвіл",
                                "Група магазинів: Схід|(немає)|так"}));
    waitOutTasks();
    QCOMPARE(rights(2, "10,11"), QString("10|0 11|1"));
    QCOMPARE(m_place->base.value("SELECT COUNT(*) FROM lst_group WHERE id_g_prem=2"), QString("2"));
    QVERIFY(!m_page->isChanged());
}

/// The page has listed them before.
void TstQPremisGroup::shopGroupsAddedByOthersStay()
{
    m_place->base.exec({"INSERT INTO group_shop(id,name) VALUES(9,'Південь')",
                        "INSERT INTO shops(id,address,name,group_shop) VALUES(9,'А9','М9',9)",
                        "INSERT INTO lst_group VALUES(2,9)", "INSERT INTO lst_shops_transmit VALUES(2,9)"});
    choose("Аудит");
    choose("Касири");
    check("shopGroups", "Схід", true);
    check("shops", "А6", true);
    QCOMPARE(save(), QString());
    QCOMPARE(m_place->base.rows("SELECT id_group FROM lst_group WHERE id_g_prem=2 ORDER BY 1"),
             (QStringList{"2", "3", "9"}));
    QCOMPARE(m_place->base.rows("SELECT id_shop FROM lst_shops_transmit WHERE id_g_prem=2 ORDER BY 1"),
             (QStringList{"5", "6", "9"}));
}

void TstQPremisGroup::bothHaveChangedTheSame()
{
    setRight("Магазини", 0);
    m_place->base.execElsewhere("UPDATE lst_permis SET permission=2 WHERE id_g_prem=2 AND id_prem=10");
    const auto saveAnd = [this](const char *button) {
        return withModal<ChangesDialog>(
            [this] {
                child<QPushButton>(m_page.get(), "pbSave")->click();
                waitOutTasks();
            },
            [button](ChangesDialog *dialog) {
                waitOutGuard();
                child<QPushButton>(dialog, button)->click();
            });
    };
    QVERIFY(saveAnd("pbBack"));
    QVERIFY(m_page->isChanged());
    QCOMPARE(rights(2, "10"), QString("10|2"));
    QVERIFY(saveAnd("pbMine"));
    waitOutTasks();
    QCOMPARE(rights(2, "10"), QString("10|0"));
}

void TstQPremisGroup::lostAnswerIsAskedFor()
{
    setRight("Магазини", 0);
    bool isLost = false;
    Db::setStatementHook([&](const QString &sql) {
        if (sql == "COMMIT" && !isLost) {
            isLost = true;
            commitHere();
            m_place->base.killConnection();
        }
    });
    save();
    Db::setStatementHook(nullptr);
    QVERIFY(isLost);
    waitOutLoss(*m_place->connection());
    QCOMPARE(rights(2, "10"), QString("10|0"));
    QVERIFY2(!m_page->isChanged(), "the server was asked, and has it");
}

void TstQPremisGroup::lastOneInChargeStays()
{
    choose("developer");
    setRight("Групи прав", 2);
    QString told;
    const QString asked = answerConfirm(
        [&] {
            child<QPushButton>(m_page.get(), "pbSave")->click();
            told = answerQuestion([] { waitOutTasks(); });
        },
        true);
    QVERIFY2(asked.contains("Користувачі: Групи прав"), qPrintable(asked));
    QVERIFY2(told.contains("не лишилося б жодного користувача"), qPrintable(told));
    QCOMPARE(rights(1, "26"), QString("26|1"));
    QVERIFY2(m_page->isChanged(), "what was typed stays");
    // A group in charge without anybody who could log in is none.
    m_place->base.exec("INSERT INTO lst_permis(id_g_prem,id_prem,permission) VALUES(3,24,1),(3,26,1)");
    answerConfirm(
        [&] {
            child<QPushButton>(m_page.get(), "pbSave")->click();
            told = answerQuestion([] { waitOutTasks(); });
        },
        true);
    QVERIFY(told.contains("не лишилося б"));
    m_place->base.exec("UPDATE users SET id_g_prem=3 WHERE id=7");
    answerConfirm(
        [&] {
            child<QPushButton>(m_page.get(), "pbSave")->click();
            waitOutTasks();
        },
        true);
    waitOutTasks();
    QCOMPARE(rights(1, "26"), QString("26|2"));
}

/// Two groups are in charge, and each of two operators takes that from another one.
void TstQPremisGroup::oneOfTwoOperatorsIsRefused()
{
    m_place->base.exec({"UPDATE lst_permis SET permission=1 WHERE id_g_prem=2 AND id_prem=0",
                        "INSERT INTO lst_permis(id_g_prem,id_prem,permission) VALUES(2,24,1),(2,26,1)"});
    choose("Аудит");
    choose("Касири");
    setRight("Групи прав", 0);
    // The other one is quicker, right before this one's transaction gets its locks.
    bool isDone = false;
    Db::setStatementHook([&](const QString &sql) {
        if (sql.endsWith("FOR UPDATE") && !std::exchange(isDone, true))
            m_place->base.execElsewhere(
                "UPDATE lst_permis SET permission=0 WHERE id_g_prem=1 AND id_prem=24");
    });
    QVERIFY(save().contains("не лишилося б"));
    QCOMPARE(rights(2, "24,26"), QString("24|1 26|1"));
}

void TstQPremisGroup::ownRightsAreNotTakenByAccident()
{
    m_place->base.exec("INSERT INTO lst_permis(id_g_prem,id_prem,permission) VALUES(2,24,1),(2,26,1)");
    choose("developer");
    setRight("Вхід до бек-офісу", 0);
    const QString asked =
        answerConfirm([this] { child<QPushButton>(m_page.get(), "pbSave")->click(); }, false);
    QVERIFY2(asked.contains("Вхід: Вхід до бек-офісу"), qPrintable(asked));
    waitOutTasks();
    QCOMPARE(rights(1, "0"), QString("0|1"));
    QVERIFY(m_page->isChanged());
    // What anybody with full right could give back is not asked about; the session looks at once.
    child<QPushButton>(m_page.get(), "pbRevert")->setFocus();
    answerConfirm([] { pressKeys({Qt::Key_Space}); }, true);
    QSignalSpy begun(m_place->user(), &QLoadedUser::actBegun);
    setRight("Магазини", 2);
    QCOMPARE(save(), QString());
    QCOMPARE(rights(1, "10"), QString("10|2"));
    // Before the save, whose rights may have gone, and behind it.
    QCOMPARE(begun.count(), 2);
}

/// After the page was opened; nobody has told it.
void TstQPremisGroup::rightTakenMeanwhile()
{
    setRight("Магазини", 0);
    m_place->base.exec("UPDATE lst_permis SET permission=2 WHERE id_g_prem=1 AND id_prem=26");
    const QString told = save();
    QVERIFY2(told.startsWith("Поки ви працювали, у вас забрали право"), qPrintable(told));
    QCOMPARE(rights(2, "10"), QString("10|1"));
    QVERIFY(m_page->isChanged());
}

void TstQPremisGroup::unsavedIsAskedAbout()
{
    QVERIFY2(m_page->mayClose(), "nothing was changed");
    setRight("Магазини", 0);
    auto *groups = child<QTreeWidget>(m_page.get(), "groups");
    // Enter on the answer that has the focus goes back.
    const QString asked = answerConfirm([&] { groups->setCurrentItem(groups->topLevelItem(0)); }, false);
    QVERIFY2(asked.contains("\"Касири\" не збережено"), qPrintable(asked));
    waitOutTasks();
    QCOMPARE(groups->currentItem()->text(0), QString("Касири"));
    QVERIFY(m_page->isChanged());
    bool mayClose = true;
    answerConfirm([&] { mayClose = m_page->mayClose(); }, false);
    QVERIFY(!mayClose);
    answerConfirm([&] { mayClose = m_page->mayClose(); }, true);
    QVERIFY(mayClose);
    QCOMPARE(rights(2, "10"), QString("10|1"));
}

void TstQPremisGroup::hurriedHandsLoseNothing()
{
    // Changed once more before the save has answered: that is not saved yet.
    setRight("Магазини", 0);
    auto *tree = child<RightsTree>(m_page.get(), "rights");
    child<QPushButton>(m_page.get(), "pbSave")->click();
    emit tree->chosen({Permission::Kassa}, Permission::Full);
    m_page->run(Command::Reload);
    bool mayClose = true;
    mayClose = m_page->mayClose();
    QVERIFY2(!mayClose && stateWords().startsWith("Записується…"), qPrintable(stateWords()));
    waitOutTasks();
    QCOMPARE(rights(2, "10,11"), QString("10|0 11|2"));
    QVERIFY(m_page->isChanged());
    QCOMPARE(save(), QString());
    QCOMPARE(rights(2, "10,11"), QString("10|0 11|1"));
    // A new group while another one is still being read.
    auto *groups = child<QTreeWidget>(m_page.get(), "groups");
    groups->setCurrentItem(groups->findItems("Аудит", Qt::MatchExactly).first());
    child<QPushButton>(m_page.get(), "pbAdd")->click();
    typeText("Нічні");
    waitOutTasks();
    QCOMPARE(child<QLineEdit>(m_page.get(), "leName")->text(), QString("Нічні"));
    QCOMPARE(save(), QString());
    QCOMPARE(
        m_place->base.value("SELECT COUNT(*) FROM lst_permis JOIN group_premission g ON g.id=id_g_prem WHERE "
                            "name='Нічні'"),
        QString("0"));
}

void TstQPremisGroup::copyTakesEverything()
{
    m_place->base.exec("INSERT INTO lst_permis(id_g_prem,id_prem,permission) VALUES(2,301,0),(2,12,0)");
    child<QPushButton>(m_page.get(), "pbCopy")->click();
    QCOMPARE(child<QLineEdit>(m_page.get(), "leName")->text(), QString("Касири - копія"));
    QVERIFY2(m_page->mayClose(), "nobody has touched it");
    typeText("Старші касири");
    setRight("Обладнання", 1);
    QCOMPARE(save(), QString());
    const QString id = m_place->base.value("SELECT id FROM group_premission WHERE name='Старші касири'");
    QCOMPARE(
        m_place->base.rows("SELECT id_prem,permission FROM lst_permis WHERE id_g_prem=" + id + " ORDER BY 1"),
        (QStringList{"0|1", "10|1", "11|1", "13|5", "300|1", "400|7"}));
    QCOMPARE(m_place->base.rows("SELECT id_group FROM lst_group WHERE id_g_prem=" + id), QStringList("2"));
    QCOMPARE(m_place->base.rows("SELECT id_shop FROM lst_shops_transmit WHERE id_g_prem=" + id),
             QStringList("5"));
    QCOMPARE(child<QTreeWidget>(m_page.get(), "groups")->currentItem()->text(0), QString("Старші касири"));
    QCOMPARE(rights(2, "11"), QString("11|2"));
}

void TstQPremisGroup::takenNameIsRefused()
{
    m_page->run(Command::Add);
    QVERIFY(save().contains("Назва не може бути пустою"));
    typeText("Аудит");
    const QString why = save();
    QVERIFY2(why.startsWith("Група прав з такою назвою вже є.") && why.contains("№3"), qPrintable(why));
    QCOMPARE(m_place->base.value("SELECT COUNT(*) FROM group_premission"), QString("3"));
    // Renamed where it stands.
    answerConfirm([this] { choose("Аудит"); }, true);
    m_page->run(Command::Edit);
    typeText("Ревізори");
    QCOMPARE(save(), QString());
    QCOMPARE(m_place->base.value("SELECT name FROM group_premission WHERE id=3"), QString("Ревізори"));
    QCOMPARE(rights(3, "0,10"), QString("0|1 10|2"));
}

void TstQPremisGroup::viewerChangesNothing()
{
    m_page.reset();
    m_place->logIn(Permission::PermissionGroups, 2);
    open();
    choose("Касири");
    QCOMPARE(stateWords(), QString("Тільки перегляд."));
    setRight("Магазини", 0);
    QVERIFY(!m_page->isChanged() && !m_page->commands().contains(Command::Add));
    QVERIFY(child<QLineEdit>(m_page.get(), "leName")->isReadOnly());
    auto *groups = child<QListWidget>(m_page.get(), "shopGroups");
    QVERIFY((groups->item(0)->flags() & Qt::ItemIsUserCheckable) == 0);
    for (const char *button : {"pbSave", "pbAdd", "pbCopy", "pbRevert"})
        QVERIFY2(!child<QPushButton>(m_page.get(), button)->isVisible(), button);
    QVERIFY(child<QPushButton>(m_page.get(), "pbCompare")->isVisible());
}

void TstQPremisGroup::groupsSideBySide()
{
    const QRowModel *matrix = m_page->list()->model();
    QCOMPARE(matrix->headerData(1, Qt::Horizontal).toString(), QString("developer"));
    QStringList shops;
    for (int row = 0; row < matrix->rowCount(); ++row) {
        const QString caption = matrix->index(row, 0).data().toString();
        if (caption == "Таблиці: Магазини" || caption == "Група магазинів: Захід" ||
            caption == "Передача в магазин: А5")
            shops.append(matrix->index(row, 2).data().toString() + "|" +
                         matrix->index(row, 3).data().toString());
    }
    // Аудит, Касири.
    QCOMPARE(shops, (QStringList{"перегляд|повний", "–|так", "–|так"}));
    QStringList differences;
    QVERIFY(withModal<GroupsCompare>([this] { child<QPushButton>(m_page.get(), "pbCompare")->click(); },
                                     [&](GroupsCompare *dialog) {
                                         enter(dialog, "cbOther", "Аудит");
                                         waitOutTasks();
                                         const QRowModel *rows = child<ListPane>(dialog, "list")->model();
                                         for (int row = 0; row < rows->rowCount(); ++row)
                                             differences.append(rows->index(row, 0).data().toString() + "|" +
                                                                rows->index(row, 1).data().toString() + "|" +
                                                                rows->index(row, 2).data().toString());
                                     }));
    QCOMPARE(
        differences,
        (QStringList{"Таблиці: Магазини|Повний дозвіл|Тільки перегляд",
                     "Таблиці: Обладнання|Тільки перегляд|Заборона",
                     "Таблиці: Товари|Тільки перегляд|Заборона", "Група магазинів: Захід|так|(немає)",
                     "Передача в магазин: А5|так|(немає)", "Інші програми: право №300|Повний дозвіл|(немає)",
                     "Інші програми: право №400|Тільки перегляд|(немає)"}));
}

QTEST_MAIN(TstQPremisGroup)
#include "tst_qpremisgroup.moc"
