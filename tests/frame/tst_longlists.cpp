#include "heartbeat.h"
#include "testing.h"

#include "listpane.h"
#include "qloadeduser.h"
#include "qntableview.h"
#include "qrowmodel.h"

#include <QClipboard>
#include <QFile>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QSettings>
#include <QSignalSpy>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <fstream>

namespace {
/// A name stands in many rows, every second row has no price.
const char *const manyRows = "SELECT seq,CONCAT('Товар ',LPAD(seq*7919%9973,4,'0')),"
                             "IF(seq%2,seq*104729%99991,NULL) FROM seq_1_to_100000";
const int rowCount = 100000;
const int longestGapMs = 300;
/// A thread that is told to stop does so when the machine lets it go on.
const int stopMs = 400;
const char *const sorting = "Сортується… Esc зупиняє.";
enum Columns { Id, Name, Price };

double residentMegabytes()
{
    std::ifstream status("/proc/self/statm");
    double size = 0;
    double resident = 0;
    status >> size >> resident;
    return resident * 4096 / (1 << 20);
}
} // namespace

/// Lists of very many rows in hurried hands: what is done with them leaves the window alive.
class TstLongLists : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void sortingLeavesTheWindowAlive();
    void sortingIsStopped();
    void newestSortingWins();
    void rowsComeAndGoMeanwhile();
    void loadAndCloseMeanwhile();
    void rowsArriveSorted();
    void csvTakesTheShownOrder();
    void largeSelections();
    void manyRowsAreCopied();
    void memoryGoesBack();

private:
    void load(const QString &sql = manyRows);
    QString state() { return child<QLabel>(m_list.get(), "labelState")->text(); }
    void clickCaption(int column);
    QString first(int column) { return m_list->model()->stored(0, column); }
    QHeaderView *header() { return m_list->view()->horizontalHeader(); }
    bool isSorted();

    QTemporaryDir m_home;
    std::unique_ptr<FreshDatabase> m_base;
    std::unique_ptr<QLoadedUser> m_user;
    std::unique_ptr<ListPane> m_list;
};

void TstLongLists::initTestCase()
{
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, m_home.path());
    m_base = std::make_unique<FreshDatabase>();
    m_user = std::make_unique<QLoadedUser>(nullptr, &m_base->heard);
    QVERIFY(m_user->loadpermis(m_base->connection(), "admin", ""));
}

void TstLongLists::init()
{
    QSettings(QSettings::IniFormat, QSettings::UserScope, "Veltab", "windows").clear();
    m_base->heard.forget();
    m_list = std::make_unique<ListPane>();
    m_list->open(m_base->connection(), m_user.get(), &m_base->heard);
    m_list->setColumns({{"Код", 9, &asNumber}, {"Назва", 20}, {"Ціна", 9, &asMoney}}, "long");
    m_list->resize(700, 300);
    m_list->show();
    QVERIFY(QTest::qWaitForWindowActive(m_list.get()));
    m_list->view()->setFocus();
    load();
}

void TstLongLists::cleanup()
{
    m_list.reset();
    QCOMPARE(m_base->heard.texts(), QStringList());
}

void TstLongLists::load(const QString &sql)
{
    QSignalSpy loaded(m_list.get(), &ListPane::loaded);
    m_list->load(sql);
    QTRY_COMPARE_WITH_TIMEOUT(loaded.count(), 1, 20000);
}

void TstLongLists::clickCaption(int column)
{
    QTest::mouseClick(header()->viewport(), Qt::LeftButton, {},
                      {header()->sectionViewportPosition(column) + 20, header()->height() / 2});
}

bool TstLongLists::isSorted()
{
    return QTest::qWaitFor([this] { return !m_list->model()->isSorting(); }, 20000);
}

void TstLongLists::sortingLeavesTheWindowAlive()
{
    m_list->view()->setCurrentIndex(m_list->model()->index(4999, Name));
    Heartbeat beat;
    clickCaption(Name);
    QCOMPARE(state(), QString(sorting));
    QCOMPARE(first(Id), QString("1"));
    pressKeys({Qt::Key_Down});
    QCOMPARE(m_list->view()->currentIndex().row(), 5000);
    QVERIFY(isSorted());
    const qint64 gap = beat.longestGap();
    QVERIFY2(gap <= longestGapMs, qPrintable(QString::number(gap)));
    QCOMPARE(state(), QString("Записів: 100000"));
    // 7919 and 9973 have no common divisor: every 9973rd row has the same name, from row 9973 on.
    QCOMPARE(m_list->model()->stored(10, Id),
             QString::number(m_base
                                 ->value("SELECT seq FROM seq_1_to_9973 WHERE "
                                         "seq*7919%9973=1")
                                 .toInt()));
    QCOMPARE(first(Id), QString("9973"));
    QCOMPARE(m_list->model()->stored(9, Id), QString("99730"));
    const QModelIndex current = m_list->view()->currentIndex();
    QCOMPARE(m_list->model()->stored(current.row(), Id), QString("5001"));
    QVERIFY(m_list->view()->selectionModel()->isRowSelected(current.row(), {}));
}

void TstLongLists::sortingIsStopped()
{
    clickCaption(Price);
    QVERIFY(isSorted());
    const QString before = first(Id);
    const Qt::SortOrder order = header()->sortIndicatorOrder();
    clickCaption(Name);
    QVERIFY(m_list->model()->isSorting());
    pressKeys({Qt::Key_Escape});
    QVERIFY(!m_list->model()->isSorting());
    QCOMPARE(state(), QString("Записів: 100000"));
    QTest::qWait(300);
    QCOMPARE(first(Id), before);
    QVERIFY(header()->sortIndicatorSection() == Price && header()->sortIndicatorOrder() == order);
}

void TstLongLists::newestSortingWins()
{
    const QSignalSpy sorted(m_list->model(), &QRowModel::aboutToSort);
    clickCaption(Name);
    clickCaption(Price);
    clickCaption(Id);
    clickCaption(Id);
    QVERIFY(isSorted());
    QCOMPARE(sorted.count(), 1);
    const bool isAscending = header()->sortIndicatorOrder() == Qt::AscendingOrder;
    QCOMPARE(first(Id), QString::number(isAscending ? 1 : rowCount));
    // What is sorted at once ends what is not.
    clickCaption(Name);
    header()->setSortIndicator(-1, Qt::AscendingOrder);
    QVERIFY(!m_list->model()->isSorting());
    QTest::qWait(300);
    QCOMPARE(first(Id), QString("1"));
}

void TstLongLists::rowsComeAndGoMeanwhile()
{
    QRowModel *model = m_list->model();
    model->removeRow(0);
    m_list->view()->sortByColumn(Id, Qt::DescendingOrder);
    QVERIFY(model->isSorting());
    model->insertRow(model->rowCount());
    QVERIFY(model->setData(model->index(model->rowCount() - 1, Id), "200000"));
    model->removeRow(model->rowCount() - 2);
    QVERIFY(model->setData(model->index(0, Name), "Інша назва"));
    QVERIFY(isSorted());
    QCOMPARE(model->rowCount(), rowCount - 1);
    QCOMPARE(first(Id), QString("99999"));
    QCOMPARE(model->stored(model->rowCount() - 1, Id), QString("200000"));
    QCOMPARE(model->stored(model->rowCount() - 2, Name), QString("Інша назва"));
}

void TstLongLists::loadAndCloseMeanwhile()
{
    clickCaption(Name);
    load("SELECT seq,CONCAT('Б',seq),seq FROM seq_5_to_7");
    QVERIFY(!m_list->model()->isSorting());
    QTest::qWait(200);
    QCOMPARE(m_list->model()->rowCount(), 3);
    load();
    clickCaption(Price);
    QVERIFY(m_list->model()->isSorting());
    Heartbeat beat;
    m_list->clear();
    QVERIFY(!m_list->model()->isSorting());
    QVERIFY2(beat.longestGap() <= stopMs, "emptying waited for the sorting");
    load();
    clickCaption(Id);
    beat.restart();
    m_list.reset();
    QVERIFY2(beat.longestGap() <= stopMs, "closing waited for the sorting");
}

void TstLongLists::rowsArriveSorted()
{
    clickCaption(Name);
    QVERIFY(isSorted());
    QPushButton button(m_list.get());
    m_list->setButtons(nullptr, &button);
    QSignalSpy loaded(m_list.get(), &ListPane::loaded);
    const auto arrive = [&](const char *sql) {
        m_list->load(sql);
        QTRY_COMPARE_WITH_TIMEOUT(state(), QString(sorting), 20000);
        QVERIFY(m_list->isLoading() && !button.isHidden());
    };
    const QString others = QString(manyRows).replace("seq,CONCAT", "seq+1000000,CONCAT");
    arrive(qPrintable(others));
    QCOMPARE(first(Id), QString("9973"));
    button.click();
    QCOMPARE(state(), QString("Завантаження зупинено."));
    QTest::qWait(300);
    QVERIFY(loaded.isEmpty() && first(Id) == "9973");
    // Another column while they are being sorted; then none.
    arrive(qPrintable(others));
    header()->setSortIndicator(Id, Qt::DescendingOrder);
    QTRY_COMPARE_WITH_TIMEOUT(loaded.count(), 1, 20000);
    QCOMPARE(first(Id), QString("1100000"));
    arrive(manyRows);
    pressKeys({Qt::Key_Escape});
    QCOMPARE(loaded.count(), 2);
    QCOMPARE(first(Id), QString("1"));
    QCOMPARE(header()->sortIndicatorSection(), -1);
}

void TstLongLists::csvTakesTheShownOrder()
{
    clickCaption(Id);
    QVERIFY(isSorted());
    const QString shown = first(Id);
    clickCaption(Name);
    const QString path = m_home.filePath("list.csv");
    QVERIFY(m_list->exportCsv(QString(), path));
    QVERIFY(isSorted());
    waitOutJobs();
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    file.readLine();
    QVERIFY(file.readLine().startsWith(shown.toUtf8() + ";"));
    m_base->heard.forget();
}

/// Sorted apart, each of its rows would be a selection of its own, and every repaint would look at all.
void TstLongLists::largeSelections()
{
    QItemSelectionModel *selected = m_list->view()->selectionModel();
    const auto select = [&](int first, int last) {
        m_list->view()->setCurrentIndex(m_list->model()->index(first, 0));
        selected->select({m_list->model()->index(first, 0), m_list->model()->index(last, 2)},
                         QItemSelectionModel::ClearAndSelect);
    };
    select(100, 60000);
    Heartbeat beat;
    clickCaption(Name);
    QVERIFY(isSorted());
    m_list->view()->repaint();
    QVERIFY2(beat.longestGap() <= longestGapMs, qPrintable(QString::number(beat.longestGap())));
    QCOMPARE(m_list->model()->stored(m_list->view()->currentIndex().row(), Id), QString("101"));
    QCOMPARE(selected->selectedRows().size(), 1);
    select(10, 20);
    clickCaption(Price);
    QVERIFY(isSorted());
    QCOMPARE(selected->selectedRows().size(), 11);
    beat.restart();
    pressKeys({Qt::CTRL + Qt::Key_A});
    m_list->view()->repaint();
    clickCaption(Id);
    QVERIFY(isSorted());
    QVERIFY2(beat.longestGap() <= longestGapMs, qPrintable(QString::number(beat.longestGap())));
    QVERIFY(selected->isRowSelected(0, {}) && selected->isRowSelected(rowCount - 1, {}));
}

void TstLongLists::manyRowsAreCopied()
{
    const auto clipboard = [] { return QGuiApplication::clipboard()->text(); };
    header()->moveSection(Price, 0);
    Heartbeat beat;
    pressKeys({Qt::CTRL + Qt::Key_A, Qt::CTRL + Qt::Key_C});
    // What is copied is what was shown then.
    m_list->view()->sortByColumn(Id, Qt::DescendingOrder);
    waitOutJobs();
    QVERIFY2(beat.longestGap() <= longestGapMs, qPrintable(QString::number(beat.longestGap())));
    const QStringList lines = clipboard().split('\n');
    QCOMPARE(lines.size(), rowCount + 2);
    // 3 * 104729 % 99991 = 14214
    QCOMPARE(lines.at(3), QString("142,14\t3\tТовар %1").arg(3 * 7919 % 9973));
    QCOMPARE(lines.at(4).section('\t', 0, 1), QString("\t4"));
    QVERIFY(m_base->heard.has("Скопійовано рядків: 100000."));
    m_base->heard.forget();
    QVERIFY(isSorted());
    load(QString(manyRows).replace("100000", "100001"));
    pressKeys({Qt::CTRL + Qt::Key_A, Qt::CTRL + Qt::Key_C});
    QVERIFY(m_base->heard.has("Вибрано рядків: 100001. Копіюється не більше ніж 100000"));
    QCOMPARE(clipboard().split('\n').size(), rowCount + 2);
    m_base->heard.forget();
}

void TstLongLists::memoryGoesBack()
{
#ifdef __SANITIZE_ADDRESS__
    QSKIP("The sanitizer keeps what is freed");
#endif
    m_list->clear();
    const double before = residentMegabytes();
    const QString large = "SELECT seq,REPEAT('ї',150),seq FROM seq_1_to_200000"; // 62 MB of texts
    for (int time = 0; time < 2; ++time)
        load(large);
    const double loaded = residentMegabytes() - before;
    QVERIFY2(loaded < 90, qPrintable(QString::number(loaded)));
    clickCaption(Name);
    QVERIFY(isSorted());
    load("SELECT 1,2,3");
    const double left = residentMegabytes() - before;
    QVERIFY2(left < 15, qPrintable(QString::number(left)));
}

QTEST_MAIN(TstLongLists)
#include "tst_longlists.moc"
