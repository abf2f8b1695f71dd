#include "workplace.h"

#include "actiontimes.h"
#include "actionweek.h"
#include "changesdialog.h"
#include "listpane.h"
#include "qaddedtactions.h"
#include "qloadeduser.h"
#include "qmessdlg.h"
#include "qntableview.h"
#include "qrowmodel.h"
#include "qtabactions.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTableWidget>
#include <QTimeEdit>

namespace {
const char *const every = "'Mon,Tue,Wed,Thu,Fri,Sat,Sun,'";
} // namespace

/// The promotions, their editor and their removal.
class TstQTabActions : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { m_place = std::make_unique<Workplace>(); }
    void cleanupTestCase() { m_place.reset(); }
    void init();
    void cleanup();

    void listTellsWhatItDoesAndWhen();
    void otherActionsAtTheSameTime();
    void addedIsStored();
    void editingKeepsWhatWasNotTouched_data();
    void editingKeepsWhatWasNotTouched();
    void wrongValuesAreRefused_data();
    void wrongValuesAreRefused();
    void overMidnightIsTold();
    void neverInForceIsAskedAbout();
    void usedOneIsAskedAboutBeforePricesChange();
    void changedByTwo();
    void thatOfTheProgramsStays();
    void removedAfterAQuestion();
    void usedOneIsNotRemoved();
    void twoRemove_data();
    void twoRemove();
    void viewersDeleteNothing();
    void rightThatGoesDuringTheQuestion();

private:
    bool add(const std::function<void(QAddEdtActions *)> &drive);
    bool edit(int id, const std::function<void(QAddEdtActions *)> &drive);
    void goTo(int id);
    QString shown(int id, int column);
    QString row(int id);

    std::unique_ptr<Workplace> m_place;
    FreshDatabase *m_base = nullptr;
    std::unique_ptr<QTabActions> m_tab;
};

void TstQTabActions::init()
{
    m_place->clear();
    m_base = &m_place->base;
    m_base->exec(
        {"DELETE FROM action WHERE id>1", "INSERT IGNORE INTO type_action(id,name) VALUES(3,'Подарунок')",
         "INSERT INTO shops(id,address,group_shop,count_day_cycle,block) VALUES(10,'Львів',2,1,0),"
         "(11,'Київ',3,1,0)",
         "INSERT INTO goods(id,name,type,group_g,tax,block) VALUES(7,'Молоко',1,1,1,0),(8,'Хліб',1,1,1,0)",
         QString(
             "INSERT INTO action(id,name,id_type_action,val,val_1,val_2,datetime_start,datetime_end,"
             "week_day) VALUES(2,'Вихідні',2,1050,0,0,0,0,'Sat,Sun,'),"
             "(3,'Ранки',2,700,5,6,20200101080000,20991231115959,%1),"
             "(4,'Подарунок',3,12,1,2,NULL,NULL,'будні'),(5,'Дивна',2,20000,9,8,0,20301231000000,'sun,mon,')")
             .arg(every),
         "INSERT INTO goods_shop(id_shop,id_goods,id_action) VALUES(10,7,3),(10,8,3),(11,7,3),(11,8,1)"});
    m_place->logIn(Permission::Actions);
    m_tab = std::make_unique<QTabActions>(m_place->connection(), m_place->user(), &m_base->heard,
                                          m_place->settings(), nullptr);
    m_tab->setPermission(Permission::Actions);
    m_tab->show();
    QTRY_VERIFY(!m_tab->isLoading());
    m_base->heard.forget();
}

void TstQTabActions::cleanup()
{
    m_tab.reset();
    Db::setStatementHook(nullptr);
    QCOMPARE(m_base->heard.texts(), QStringList());
}

bool TstQTabActions::add(const std::function<void(QAddEdtActions *)> &drive)
{
    return inEditor<QAddEdtActions>([&] { m_tab->Add(); }, drive);
}

void TstQTabActions::goTo(int id)
{
    m_tab->view()->setCurrentIndex(m_tab->list()->indexOf(QString::number(id)).siblingAtColumn(1));
}

bool TstQTabActions::edit(int id, const std::function<void(QAddEdtActions *)> &drive)
{
    goTo(id);
    return inEditor<QAddEdtActions>([&] { m_tab->run(Command::Edit); }, drive);
}

QString TstQTabActions::shown(int id, int column)
{
    return m_tab->list()->indexOf(QString::number(id)).siblingAtColumn(column).data().toString();
}

QString TstQTabActions::row(int id)
{
    return m_base->value(QString("SELECT CONCAT_WS('|',name,id_type_action,val,val_1,val_2,"
                                 "IFNULL(datetime_start,'NULL'),IFNULL(datetime_end,'NULL'),"
                                 "IFNULL(week_day,'NULL')) FROM action WHERE id=%1")
                             .arg(id));
}

void TstQTabActions::listTellsWhatItDoesAndWhen()
{
    const auto line = [this](int id) {
        QStringList cells;
        for (int column = 1; column < m_tab->model()->columnCount(); ++column)
            cells.append(shown(id, column));
        return cells.join('|');
    };
    const bool isWeekend = QDate::currentDate().dayOfWeek() > 5;
    QCOMPARE(line(1), QString("Без акції|Без акції||без знижки||||||"));
    QCOMPARE(line(2), QString("Вихідні|Знижка %|10.50|%1|||цілодобово|Сб Нд|0|0")
                          .arg(isWeekend ? "діє зараз" : "діє в інші дні"));
    QCOMPARE(line(3), QString("Ранки|Знижка %|7.00|%1|01-01-2020|31-12-2099|08:00–11:59|щодня|2|2")
                          .arg(QTime::currentTime() < QTime(8, 0) || QTime::currentTime() >= QTime(12, 0)
                                   ? "діє в інші години"
                                   : "діє зараз"));
    QCOMPARE(line(4), QString("Подарунок|Подарунок|12; 1; 2|вимкнена|||цілодобово|будні|0|0"));
    // What is sold changes nothing here.
    for (const TableTime &time : m_tab->list()->readTimes())
        QVERIFY2(time.table != "goods_shop", "every sale would tell that the list is old");
}

/// Goods 8 has "Вихідні" in one shop and "Ранки" in the other; "Вихідні" and "Дивна" share the Sundays.
void TstQTabActions::otherActionsAtTheSameTime()
{
    m_base->exec("UPDATE goods_shop SET id_action=2 WHERE id_goods=8 AND id_shop=11");
    const auto *others = child<QListWidget>(m_tab.get(), "lwOthers");
    const auto *week = child<ActionWeek>(m_tab.get(), "actionWeek");
    goTo(2);
    QCOMPARE(week->accessibleDescription(), QString("Діє: Сб Нд, цілодобово, без дат"));
    QTRY_COMPARE(others->count(), 2);
    QCOMPARE(
        others->item(0)->text(),
        QString("Ранки, щодня, 08:00–11:59, 01.01.2020 – 31.12.2099; ті самі товари в інших магазинах: 1"));
    QCOMPARE(others->item(1)->text(), QString("Дивна, Пн Нд, цілодобово, без дат"));
    m_tab->resize(600, 250);
    QTRY_VERIFY2(!week->isVisible(), "the list needs the room");
    m_tab->resize(800, 600);
    QTRY_VERIFY(week->isVisible());
    goTo(4);
    QCOMPARE(others->count(), 0);
    QCOMPARE(week->accessibleDescription(), QString("Не діє ніколи: Не вибрано жодного дня тижня."));
}

void TstQTabActions::addedIsStored()
{
    QVERIFY(add([](QAddEdtActions *editor) {
        QVERIFY(!editor->isChanged());
        QVERIFY(child<QWidget>(editor, "leVal1")->isHidden());
        enter(editor, "leName", " Осінь ");
        enter(editor, "leVal", "12,5");
        child<QCheckBox>(editor, "chDated")->click();
        auto *start = child<QWidget>(editor, "start");
        auto *end = child<QWidget>(editor, "end");
        QCOMPARE(child<QDateEdit>(start, "deDay")->date(), QDate::currentDate());
        // An hour that the summer time leaves out.
        child<QDateEdit>(start, "deDay")->setDate(QDate(2027, 3, 28));
        child<QTimeEdit>(start, "teHour")->setTime(QTime(3, 30));
        QCOMPARE(child<QDateEdit>(end, "deDay")->date(), QDate(2027, 4, 3));
        child<QDateEdit>(end, "deDay")->setDate(QDate(2027, 4, 4));
        child<QTimeEdit>(end, "teHour")->setTime(QTime(21, 59, 59));
        for (const char *day : {"chDay1", "chDay3"})
            child<QCheckBox>(editor, day)->click();
        QCOMPARE(child<ActionWeek>(editor, "week")->accessibleDescription(),
                 QString("Діє: Вт Чт Пт Сб Нд, 03:30–21:59, 28.03.2027 – 04.04.2027"));
        QCOMPARE(saveMeets(editor), QString());
    }));
    const int id = m_base->value("SELECT MAX(id) FROM action").toInt();
    QCOMPARE(row(id),
             QString("Осінь|2|1250|0|0|2027-03-28 03:30:00|2027-04-04 21:59:59|Tue,Thu,Fri,Sat,Sun,"));
    QTRY_COMPARE(shown(id, 4), QString("заплановано"));
    // Read back and saved with another name it stays as it is.
    QVERIFY(edit(id, [](QAddEdtActions *editor) {
        enter(editor, "leName", "Весна");
        QCOMPARE(saveMeets(editor), QString());
    }));
    QCOMPARE(row(id),
             QString("Весна|2|1250|0|0|2027-03-28 03:30:00|2027-04-04 21:59:59|Tue,Thu,Fri,Sat,Sun,"));
}

void TstQTabActions::editingKeepsWhatWasNotTouched_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<QString>("kept");
    QTest::newRow("weekend") << 2 << "|2|1050|0|0|0000-00-00 00:00:00|0000-00-00 00:00:00|Sat,Sun,";
    QTest::newRow("hours and values of others")
        << 3 << "|2|700|5|6|2020-01-01 08:00:00|2099-12-31 11:59:59|Mon,Tue,Wed,Thu,Fri,Sat,Sun,";
    QTest::newRow("of another program") << 4 << "|3|12|1|2|NULL|NULL|будні";
    QTest::newRow("odd") << 5 << "|2|20000|9|8|0000-00-00 00:00:00|2030-12-31 00:00:00|sun,mon,";
}

void TstQTabActions::editingKeepsWhatWasNotTouched()
{
    QFETCH(int, id);
    QFETCH(QString, kept);
    QVERIFY(edit(id, [](QAddEdtActions *editor) {
        QVERIFY(!editor->isChanged());
        enter(editor, "leName", "Інша назва");
        QCOMPARE(saveMeets(editor), QString());
    }));
    QCOMPARE(row(id), "Інша назва" + kept);
}

void TstQTabActions::wrongValuesAreRefused_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("why");
    QTest::newRow("no name") << " "
                             << "5"
                             << "Введіть назву акції.";
    QTest::newRow("nothing") << "Нова"
                             << ""
                             << "Знижка, %: ";
    QTest::newRow("zero") << "Нова"
                          << "0"
                          << "Знижка, %: ";
    QTest::newRow("more than the price") << "Нова"
                                         << "100,01"
                                         << "Знижка, %: ";
    QTest::newRow("two points") << "Нова"
                                << "1.2.3"
                                << "Знижка, %: ";
    QTest::newRow("taken name") << "ранки"
                                << "5"
                                << "Назва акції повинна бути унікальною";
}

void TstQTabActions::wrongValuesAreRefused()
{
    QFETCH(QString, name);
    QFETCH(QString, value);
    QFETCH(QString, why);
    QVERIFY(add([&](QAddEdtActions *editor) {
        enter(editor, "leName", name);
        enter(editor, "leVal", value);
        const QString met = saveMeets(editor);
        QVERIFY2(met.startsWith(why), qPrintable(met));
        QVERIFY(editor->isVisible());
        QCOMPARE(child<QLineEdit>(editor, "leVal")->text(), value);
    }));
    QCOMPARE(m_base->value("SELECT COUNT(*) FROM action").toInt(), 5);
}

void TstQTabActions::overMidnightIsTold()
{
    QVERIFY(add([](QAddEdtActions *editor) {
        enter(editor, "leName", "Ніч");
        enter(editor, "leVal", "5");
        child<QCheckBox>(editor, "chDated")->click();
        auto *start = child<QWidget>(editor, "start");
        auto *end = child<QWidget>(editor, "end");
        child<QTimeEdit>(start, "teHour")->setTime(QTime(22, 0));
        child<QTimeEdit>(end, "teHour")->setTime(QTime(6, 0));
        QVERIFY(child<QLabel>(editor, "labelState")->text().startsWith("Не діятиме ніколи"));
        QVERIFY(saveMeets(editor).contains("через північ"));
        child<QTimeEdit>(end, "teHour")->setTime(QTime(23, 0));
        child<QDateEdit>(end, "deDay")->setDate(QDate::currentDate().addDays(-1));
        QVERIFY(saveMeets(editor).contains("раніше, ніж починається"));
        auto *day = child<QDateEdit>(end, "deDay");
        day->selectAll();
        QTest::keyClicks(day, "31.02.2027");
        const QString met = saveMeets(editor);
        QVERIFY2(met.startsWith("Останній день: «31.02.2027» не є датою"), qPrintable(met));
    }));
    QCOMPARE(m_base->value("SELECT COUNT(*) FROM action").toInt(), 5);
}

void TstQTabActions::neverInForceIsAskedAbout()
{
    QVERIFY(edit(2, [](QAddEdtActions *editor) {
        for (const char *day : {"chDay6", "chDay7"})
            child<QCheckBox>(editor, day)->click();
        const auto save = [editor] { child<QPushButton>(editor, "pbOk")->click(); };
        QVERIFY(answerConfirm(save, false).contains("Не вибрано жодного дня"));
        QVERIFY(editor->isVisible());
        QVERIFY(answerConfirm(save, true).contains("не діятиме ніколи"));
    }));
    QCOMPARE(row(2), QString("Вихідні|2|1050|0|0|0000-00-00 00:00:00|0000-00-00 00:00:00|"));
}

void TstQTabActions::usedOneIsAskedAboutBeforePricesChange()
{
    QVERIFY(edit(3, [](QAddEdtActions *editor) {
        QCOMPARE(child<QLabel>(editor, "labelUsage")->text(),
                 QString("Призначена: товарів: 2, магазинів: 2."));
        enter(editor, "leVal", "70");
        const auto save = [editor] { child<QPushButton>(editor, "pbOk")->click(); };
        QVERIFY(answerConfirm(save, false).contains("товарів: 2, магазинів: 2"));
        enter(editor, "leVal", "7.00");
        enter(editor, "leName", "Ранкова");
        // A name changes no price.
        QCOMPARE(saveMeets(editor), QString());
    }));
    QVERIFY(row(3).startsWith("Ранкова|2|700|5|6|"));
}

void TstQTabActions::changedByTwo()
{
    QVERIFY(edit(2, [this](QAddEdtActions *editor) {
        enter(editor, "leName", "Сонячні вихідні");
        m_base->exec("UPDATE action SET val=2500,week_day='Fri,',datetime_start=20260101000000,"
                     "datetime_end=20261231220000 WHERE id=2");
        QVERIFY(withModal<ChangesDialog>(
            [&] {
                child<QPushButton>(editor, "pbOk")->click();
                waitOutTasks();
            },
            [](ChangesDialog *dialog) {
                const auto *table = child<QTableWidget>(dialog, "twChanges");
                QStringList theirs;
                for (int row = 0; row < table->rowCount(); ++row)
                    theirs.append(table->item(row, 0)->text() + '/' + table->item(row, 3)->text());
                QCOMPARE(theirs.join('|'), QString("Знижка, %/25.00|Перший день/01.01.2026 00:00:00|"
                                                   "Останній день/31.12.2026 22:00:00|Дні тижня/Пт"));
                waitOutGuard();
                child<QPushButton>(dialog, "pbMine")->click();
            }));
    }));
    QCOMPARE(row(2), QString("Сонячні вихідні|2|2500|0|0|2026-01-01 00:00:00|2026-12-31 22:00:00|Fri,"));
}

void TstQTabActions::thatOfTheProgramsStays()
{
    goTo(1);
    QVERIFY(answerQuestion([this] { m_tab->run(Command::Edit); }).startsWith("«Без акції» потрібна"));
    QVERIFY(answerQuestion([this] { m_tab->run(Command::Delete); }).startsWith("«Без акції» потрібна"));
    QVERIFY(row(1).startsWith("Без акції|1|"));
}

void TstQTabActions::removedAfterAQuestion()
{
    m_base->exec("UPDATE updat SET updat=20200101000000 WHERE name='action'");
    goTo(2);
    const auto remove = [this] {
        m_tab->run(Command::Delete);
        waitOutTasks();
    };
    QVERIFY(answerConfirm(remove, false).contains("«Вихідні»"));
    QVERIFY(!row(2).isEmpty());
    QVERIFY(!answerConfirm(remove, true).isEmpty());
    waitOutTasks();
    QCOMPARE(row(2), QString());
    QTRY_VERIFY(!m_tab->list()->indexOf("2").isValid() && !m_tab->isLoading());
    QVERIFY(m_base->value("SELECT updat>20250101000000 FROM updat WHERE name='action'") == "1");
    QVERIFY(m_base->heard.has("Акцію «Вихідні» видалено."));
}

void TstQTabActions::usedOneIsNotRemoved()
{
    goTo(3);
    const QString words = answerQuestion([this] {
        m_tab->run(Command::Delete);
        waitOutTasks();
    });
    QVERIFY2(words.contains("товарів: 2, магазинів: 2") &&
                 words.contains("Львів – товарів: 2\nКиїв – товарів: 1"),
             qPrintable(words));
    QVERIFY(!row(3).isEmpty());
}

void TstQTabActions::twoRemove_data()
{
    QTest::addColumn<QString>("other");
    QTest::addColumn<QString>("told");
    QTest::addColumn<bool>("isThere");
    QTest::newRow("already removed") << "DELETE FROM action WHERE id=2"
                                     << "вже видалив хтось інший" << false;
    QTest::newRow("changed") << "UPDATE action SET val=3000 WHERE id=2"
                             << "змінив хтось інший" << true;
    QTest::newRow("assigned") << "UPDATE goods_shop SET id_action=2 WHERE id_goods=8 AND id_shop=11"
                              << "Київ – товарів: 1" << true;
}

/// While the question is open.
void TstQTabActions::twoRemove()
{
    QFETCH(QString, other);
    QFETCH(QString, told);
    QFETCH(bool, isThere);
    goTo(2);
    const QString words = answerQuestion([&] {
        const bool isAsked = withModal<QMessDlg>(
            [this] {
                m_tab->run(Command::Delete);
                waitOutTasks();
            },
            [&](QMessDlg *question) {
                m_base->exec(other);
                waitOutGuard();
                for (auto *button : question->findChildren<QPushButton *>()) {
                    if (button->text().remove('&') == "Видалити")
                        button->click();
                }
            });
        QVERIFY(isAsked);
        waitOutTasks();
    });
    QVERIFY2(words.contains(told), qPrintable(words));
    QCOMPARE(!row(2).isEmpty(), isThere);
    QTRY_COMPARE(m_tab->list()->indexOf("2").isValid(), isThere);
}

void TstQTabActions::viewersDeleteNothing()
{
    m_tab.reset();
    m_place->logIn(Permission::Actions, 2);
    m_tab = std::make_unique<QTabActions>(m_place->connection(), m_place->user(), &m_base->heard,
                                          m_place->settings(), nullptr);
    m_tab->setPermission(Permission::Actions);
    QTRY_VERIFY(!m_tab->isLoading());
    QVERIFY(!m_tab->commands().contains(Command::Delete));
    goTo(2);
    m_tab->run(Command::Delete);
    waitOutTasks();
    QVERIFY(!row(2).isEmpty());
    QVERIFY(edit(2, [](QAddEdtActions *editor) {
        QVERIFY(editor->isReadOnly());
        QVERIFY(!child<QCheckBox>(editor, "chDay1")->isEnabled());
        QVERIFY(child<QTimeEdit>(child<QWidget>(editor, "start"), "teHour")->isReadOnly());
    }));
}

void TstQTabActions::rightThatGoesDuringTheQuestion()
{
    goTo(2);
    const auto agreeWithoutRight = [this](QMessDlg *question) {
        m_base->exec(QString("UPDATE lst_permis SET permission=2 WHERE id_prem=%1").arg(Permission::Actions));
        m_place->user()->loadpermis(m_place->connection(), "admin", QString());
        waitOutGuard();
        child<QPushButton>(question, "pb0")->click();
    };
    const QString why = answerQuestion([&] {
        withModal<QMessDlg>(
            [this] {
                m_tab->run(Command::Delete);
                waitOutTasks();
            },
            agreeWithoutRight);
        waitOutTasks();
    });
    QVERIFY2(why.contains("лише переглядати"), qPrintable(why));
    QVERIFY(!row(2).isEmpty());
}

QTEST_MAIN(TstQTabActions)
#include "tst_qtabactions.moc"
