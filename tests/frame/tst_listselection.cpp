#include "heartbeat.h"
#include "testing.h"

#include "listpane.h"
#include "listselection.h"
#include "qloadeduser.h"
#include "qntableview.h"
#include "qrowmodel.h"

#include <QHeaderView>
#include <QLabel>
#include <QScrollBar>
#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>

namespace {
/// Money that no double holds to the kopeck, a return, NULL, the same item in two rows.
const char *const bills =
    "SELECT * FROM (SELECT 7 AS id,'Каса 1' AS name,500 AS count,9007199254740993 AS paid,100 AS "
    "dropped UNION ALL SELECT 7,'Каса 1',1250,-2,NULL UNION ALL SELECT 8,'Каса 2',NULL,NULL,300 "
    "UNION ALL SELECT 9,'Каса 3',-250,5000000000,-350) AS bills ORDER BY id,count";
const char *const list = "SELECT id,place,name,price FROM bills";
} // namespace

/// What people see of the rows that they have chosen, and that they find them again.
class TstListSelection : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup() { m_list.reset(); }

    void selectedRowsAddUp();
    void recordsCountOnce();
    void aMillionRowsLeaveTheWindowAlive();
    void theWindowIsNotWidened();

    void reloadKeepsThePlace();
    void reloadKeepsTheTopRow();
    void rowsWithoutANumberAreFound();
    void goneRowIsFollowedByItsNeighbour();

private:
    void load(const QString &sql, bool keepsPlace = false);
    QString words();
    QNTableView *view() { return m_list->view(); }
    QRowModel *model() { return m_list->model(); }
    QString current(int column = 0) { return model()->stored(view()->currentIndex().row(), column); }
    int height(const QString &id);

    QTemporaryDir m_home;
    std::unique_ptr<FreshDatabase> m_base;
    std::unique_ptr<QLoadedUser> m_user;
    std::unique_ptr<ListPane> m_list;
};

void TstListSelection::initTestCase()
{
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, m_home.path());
    m_base = std::make_unique<FreshDatabase>();
    m_user = std::make_unique<QLoadedUser>(nullptr, &m_base->heard);
    QVERIFY(m_user->loadpermis(m_base->connection(), "admin", ""));
    m_base->exec("CREATE TABLE bills(id INT,place VARCHAR(20),name VARCHAR(20),price INT)");
}

void TstListSelection::init()
{
    m_base->exec({"DELETE FROM bills",
                  "INSERT INTO bills SELECT seq*10,CONCAT('Магазин ',seq%3),CONCAT('Товар ',seq),seq FROM "
                  "seq_1_to_300"});
    m_list = std::make_unique<ListPane>();
    m_list->open(m_base->connection(), m_user.get(), &m_base->heard);
    m_list->resize(700, 300);
    QVERIFY(showActive(m_list.get()));
    view()->setFocus();
}

void TstListSelection::load(const QString &sql, bool keepsPlace)
{
    QSignalSpy loaded(m_list.get(), &ListPane::loaded);
    m_list->load(sql);
    if (keepsPlace)
        m_list->keepPlace();
    QTRY_COMPARE_WITH_TIMEOUT(loaded.count(), 1, 20000);
}

QString TstListSelection::words()
{
    return child<QLabel>(m_list.get(), "labelSelected")->text().replace(QChar(0xa0), ' ');
}

void TstListSelection::selectedRowsAddUp()
{
    m_list->setColumns({{"Код", 6, &asNumber},
                        {"Каса", 12},
                        {"Кількість", 9, &asQuantity},
                        {"Сума\nпродажу", 20, &asMoney},
                        {"Скинуто", 9, &asMoney}},
                       "sums");
    load(bills);
    QTRY_COMPARE(words(), QString());
    pressKeys({Qt::Key_Down});
    QTRY_COMPARE(words(), QString("Вибрано: 1   Сума «Скинуто»: 1.00"));
    pressKeys({Qt::SHIFT + Qt::Key_Down, Qt::SHIFT + Qt::Key_Down, Qt::SHIFT + Qt::Key_Down});
    QTRY_COMPARE(words(), QString("Вибрано: 4   Сума «Скинуто»: 0.50"));
    // The column under the hand, in quantities too.
    view()->selectionModel()->setCurrentIndex(model()->index(3, 3), QItemSelectionModel::NoUpdate);
    QTRY_COMPARE(words(), QString("Вибрано: 4   Сума продажу: 90 072 042 547 409.91"));
    view()->selectionModel()->setCurrentIndex(model()->index(3, 2), QItemSelectionModel::NoUpdate);
    QTRY_COMPARE(words(), QString("Вибрано: 4   Сума «Кількість»: 1.500"));
    view()->selectionModel()->setCurrentIndex(model()->index(3, 1), QItemSelectionModel::NoUpdate);
    view()->hideColumn(4);
    pressKeys({Qt::SHIFT + Qt::Key_Up});
    QTRY_COMPARE(words(), QString("Вибрано: 3   Сума продажу: 90 071 992 547 409.91"));
    // What is written into a selected row, and rows that come and go.
    model()->setData(model()->index(0, 3), "-7", QRowModel::StoredRole);
    QTRY_COMPARE(words(), QString("Вибрано: 3   Сума продажу: -0.09"));
    model()->removeRow(1);
    QTRY_VERIFY2(words().startsWith("Вибрано: 2 "), qPrintable(words()));
    load(bills);
    QTRY_COMPARE(words(), QString());
    // Amounts before prices, whatever stands last.
    m_list->setColumns({{"Код", 6, &asNumber},
                        {"Каса", 12},
                        {"Кількість", 9, &asQuantity},
                        {"Виручка", 20, &asSum},
                        {"Ціна", 9, &asMoney}},
                       "amounts");
    load(bills);
    pressKeys({Qt::Key_Down, Qt::CTRL + Qt::Key_A});
    QTRY_COMPARE(words(), QString("Вибрано: 4   Сума «Виручка»: 90 072 042 547 409.91"));
    m_list->sumUsually(4);
    QTRY_COMPARE(words(), QString("Вибрано: 4   Сума «Ціна»: 0.50"));
}

void TstListSelection::recordsCountOnce()
{
    m_list->setColumns({{"Код", 6, &asNumber}, {"Каса", 12}, {"Кількість", 9, &asQuantity}}, "records");
    connect(m_list.get(), &ListPane::rowsShown, m_list.get(),
            [this] { m_list->setCount(model()->countNumbers(0)); });
    load("SELECT id,name,1000 FROM (" + QString(bills) + ") AS records");
    view()->selectionModel()->setCurrentIndex(model()->index(0, 2), QItemSelectionModel::NoUpdate);
    pressKeys({Qt::CTRL + Qt::Key_A});
    QTRY_COMPARE(words(), QString("Вибрано: 3   Сума «Кількість»: 3.000"));
    QCOMPARE(child<QLabel>(m_list.get(), "labelState")->text(), QString("Записів: 3"));
}

void TstListSelection::aMillionRowsLeaveTheWindowAlive()
{
    const int rows = 1000000;
    m_list->setColumns({{"Код", 9, &asNumber}, {"Сума", 9, &asMoney}}, "million");
    load(QString("SELECT seq,seq FROM seq_1_to_%1").arg(rows));
    Heartbeat heart;
    heart.restart();
    pressKeys({Qt::CTRL + Qt::Key_A});
    QStringList told;
    QTRY_VERIFY_WITH_TIMEOUT(
        (told.append(child<QLabel>(m_list.get(), "labelSelected")->text()), told.last().endsWith(".00")),
        20000);
    QVERIFY2(told.contains(QString("Вибрано: %1   Сума: …").arg(rows)),
             qPrintable(told.mid(0, 5).join('\n')));
    QTRY_COMPARE(words(), QString("Вибрано: 1000000   Сума: 5 000 005 000.00"));
    // Another choice in the middle of it.
    pressKeys(
        {Qt::CTRL + Qt::Key_End, Qt::CTRL + Qt::SHIFT + Qt::Key_Home, Qt::SHIFT + Qt::Key_Down, Qt::Key_Up});
    QTRY_COMPARE(words(), QString("Вибрано: 1   Сума: 0.01"));
    QVERIFY2(heart.longestGap() < 300, qPrintable(QString::number(heart.longestGap())));
}

void TstListSelection::theWindowIsNotWidened()
{
    m_list->setColumns({{"Код", 9, &asNumber}, {"Сума після якої діє знижка, з податком", 9, &asMoney}},
                       "wide");
    load("SELECT id,price*1000000000 FROM bills");
    const int before = m_list->minimumSizeHint().width();
    pressKeys({Qt::CTRL + Qt::Key_A});
    QTRY_VERIFY(words().endsWith(".00"));
    QCOMPARE(m_list->minimumSizeHint().width(), before);
    m_list->resize(before, 300);
    QTRY_COMPARE(m_list->width(), before);
    auto *label = child<QLabel>(m_list.get(), "labelSelected");
    QCOMPARE(label->toolTip(), label->text());
}

/// Where a row is seen; -1 when it is not.
int TstListSelection::height(const QString &id)
{
    const QRect place = view()->visualRect(m_list->indexOf(id));
    return view()->viewport()->rect().intersects(place) ? place.top() : -1;
}

void TstListSelection::reloadKeepsThePlace()
{
    m_list->setColumns({{"Код", 9, &asNumber}, {"Місце", 9}, {"Назва", 9}, {"Ціна", 9, &asMoney}}, "place");
    load(list);
    for (int i = 0; i < 100; ++i)
        pressKeys({Qt::Key_Down});
    pressKeys({Qt::Key_Right, Qt::Key_Up, Qt::Key_Up, Qt::Key_Up});
    QCOMPARE(current(), QString("970"));
    const int seen = height("970");
    QVERIFY(seen > 0);
    // Others have added rows before it and behind it, changed it, and taken one away.
    m_base->exec({"INSERT INTO bills SELECT seq,'Новий','Товар',seq FROM seq_1_to_9",
                  "UPDATE bills SET name='Інша назва',price=-1 WHERE id IN(970,980)",
                  "DELETE FROM bills WHERE id=50", "INSERT INTO bills VALUES(971,'Новий','Товар',1)"});
    load(QString(list) + " ORDER BY id", true);
    QCOMPARE(current(), QString("970"));
    QCOMPARE(current(3), QString("-1"));
    QCOMPARE(view()->currentIndex().column(), 1);
    QCOMPARE(height("970"), seen);
    QCOMPARE(view()->selectedRows(), QVector<int>{view()->currentIndex().row()});
    QVERIFY(view()->hasFocus());
    // Sorted by what others have changed: the row goes elsewhere, and is shown at the same height.
    view()->sortByColumn(3, Qt::AscendingOrder);
    view()->scrollTo(view()->currentIndex());
    load(list, true);
    QCOMPARE(current(), QString("970"));
    QVERIFY(height("970") >= 0);
    // Rows of another search have no place to be kept, not even those that overtake the same rows.
    m_list->load(QString(list) + " WHERE SLEEP(0.01)=0");
    m_list->keepPlace();
    load(list);
    QVERIFY(!view()->currentIndex().isValid());
}

void TstListSelection::reloadKeepsTheTopRow()
{
    m_list->setColumns({{"Код", 9, &asNumber}, {"Місце", 9}, {"Назва", 9}, {"Ціна", 9, &asMoney}}, "top");
    load(QString(list) + " ORDER BY id");
    pressKeys({Qt::Key_Down});
    view()->verticalScrollBar()->setValue(150);
    const QString top = model()->stored(view()->rowAt(0), 0);
    m_base->exec("INSERT INTO bills SELECT seq,'Новий','Товар',seq FROM seq_1_to_5");
    load(QString(list) + " ORDER BY id", true);
    QCOMPARE(model()->stored(view()->rowAt(0), 0), top);
    QCOMPARE(current(), QString("10"));
}

/// Shop and item tell a row, the number of pieces does not.
void TstListSelection::rowsWithoutANumberAreFound()
{
    m_list->setColumns({{"Місце", 9}, {"Назва", 9}, {"Ціна", 9, &asMoney}}, "pairs");
    const QString pairs = "SELECT place,name,price FROM bills ORDER BY place,id";
    load(pairs);
    view()->setCurrentIndex(model()->index(120, 0));
    const QString name = current(1);
    m_base->exec({"UPDATE bills SET price=price+7", "INSERT INTO bills VALUES(1,'Магазин 1','Товар 0',1)"});
    load(pairs, true);
    QCOMPARE(current(1), name);
    QCOMPARE(view()->currentIndex().row(), 121);
}

void TstListSelection::goneRowIsFollowedByItsNeighbour()
{
    m_list->setColumns({{"Код", 9, &asNumber}, {"Місце", 9}, {"Назва", 9}, {"Ціна", 9, &asMoney}}, "gone");
    load(QString(list) + " ORDER BY id");
    pressKeys({Qt::Key_Down, Qt::CTRL + Qt::Key_End, Qt::Key_Up});
    QCOMPARE(current(), QString("2990"));
    m_base->exec("DELETE FROM bills WHERE id=2990");
    load(QString(list) + " ORDER BY id", true);
    QCOMPARE(current(), QString("3000"));
    m_base->exec("DELETE FROM bills WHERE id>50");
    load(QString(list) + " ORDER BY id", true);
    QCOMPARE(current(), QString("50"));
    m_base->exec("DELETE FROM bills");
    load(QString(list) + " ORDER BY id", true);
    QCOMPARE(model()->rowCount(), 0);
}

QTEST_MAIN(TstListSelection)
#include "tst_listselection.moc"
