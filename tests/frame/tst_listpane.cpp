#include "testing.h"

#include "listpane.h"
#include "qloadeduser.h"
#include "qmessevent.h"
#include "qntableview.h"
#include "qrowmodel.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QMimeData>
#include <QPushButton>
#include <QSettings>
#include <QSignalSpy>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QVBoxLayout>

namespace {
const char *const goods = "SELECT id,name,price FROM goods";
}

/// The list of every tab and report, as hands and a server treat it.
class TstListPane : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void stoppedLoadLeavesTheListAsItWas();
    void failureKeepsOrDropsTheRows();
    void enteredBeforeItsRowsCame();
    void oneRecordIsRefreshedWhereverItStands();

    void columnsAreRemembered();
    void columnsOfAnotherUserAreHisOwn();
    void columnsAreChosenByKeyboard();
    void lastColumnStays();
    void unsortedAndAsAtFirst();

    void copyTakesWhatIsShown();
    void moneyBelowZeroIsRed_data();
    void moneyBelowZeroIsRed();

private:
    void open(const QString &key = "goods");
    void load(const QString &sql = goods);
    QString state() { return child<QLabel>(m_list.get(), "labelState")->text(); }
    QStringList shown(int column = 1);
    QStringList captions();
    void clickInMenu(const QString &text);

    QTemporaryDir m_home;
    std::unique_ptr<FreshDatabase> m_base;
    std::unique_ptr<QLoadedUser> m_user;
    std::unique_ptr<ListPane> m_list;
};

void TstListPane::initTestCase()
{
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, m_home.path());
    m_base = std::make_unique<FreshDatabase>();
    m_base->exec("INSERT INTO goods(id,name,price) VALUES(1,'Хліб',2350),(2,'Сіль\tморська\nкам''яна',1990),"
                 "(10,'Молоко',123450),(21,'Яйця',NULL)");
}

void TstListPane::init()
{
    QSettings(QSettings::IniFormat, QSettings::UserScope, "Veltab", "windows").clear();
    m_user = std::make_unique<QLoadedUser>(nullptr, &m_base->heard);
    QVERIFY(m_user->loadpermis(m_base->connection(), "admin", ""));
    m_base->heard.forget();
    open();
}

void TstListPane::cleanup()
{
    m_list.reset();
    m_user.reset();
}

void TstListPane::open(const QString &key)
{
    m_list = std::make_unique<ListPane>();
    m_list->open(m_base->connection(), m_user.get(), &m_base->heard);
    m_list->setColumns({{"Код", 6, &asNumber}, {"Назва", 20}, {"Ціна", 9, &asMoney}}, key);
    m_list->resize(700, 300);
    m_list->show();
    QVERIFY(QTest::qWaitForWindowActive(m_list.get()));
}

void TstListPane::load(const QString &sql)
{
    QSignalSpy loaded(m_list.get(), &ListPane::loaded);
    m_list->load(sql);
    QTRY_COMPARE(loaded.count(), 1);
}

QStringList TstListPane::shown(int column)
{
    QStringList texts;
    for (int row = 0; row < m_list->model()->rowCount(); ++row)
        texts.append(m_list->model()->index(row, column).data().toString().section('\t', 0, 0));
    return texts;
}

/// Of the columns that are seen, from left to right.
QStringList TstListPane::captions()
{
    QStringList texts;
    const QHeaderView *header = m_list->view()->horizontalHeader();
    for (int place = 0; place < header->count(); ++place) {
        const int column = header->logicalIndex(place);
        if (header->sectionSize(column) > 0)
            texts.append(m_list->model()->headerData(column, Qt::Horizontal).toString());
    }
    return texts;
}

void TstListPane::clickInMenu(const QString &text)
{
    QWidget *header = m_list->view()->horizontalHeader()->viewport();
    bool found = false;
    QTimer::singleShot(50, this, [&] {
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        const auto actions = menu == nullptr ? QList<QAction *>() : menu->actions();
        for (QAction *action : actions) {
            if (action->text().remove('&') == text) {
                found = true;
                QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(action).center());
                return;
            }
        }
        if (menu != nullptr)
            menu->close();
    });
    QContextMenuEvent event(QContextMenuEvent::Mouse, {20, 5}, header->mapToGlobal({20, 5}));
    QApplication::sendEvent(header, &event);
    QVERIFY2(found, qPrintable(text));
}

void TstListPane::stoppedLoadLeavesTheListAsItWas()
{
    QPushButton load;
    QPushButton stop;
    m_list->setButtons(&load, &stop);
    this->load();
    QCOMPARE(state(), QString("Записів: 4"));
    QVERIFY(child<QPushButton>(m_list.get(), "pbPrintList")->isEnabled());
    QSignalSpy loaded(m_list.get(), &ListPane::loaded);
    m_list->load(QString(goods) + " WHERE id=1 AND SLEEP(30)=0");
    QCOMPARE(state(), QString("Завантаження…"));
    QVERIFY(!load.isEnabled() && !stop.isHidden());
    QVERIFY2(!child<QPushButton>(m_list.get(), "pbPrintList")->isEnabled(), "what would be printed?");
    stop.click();
    QCOMPARE(state(), QString("Завантаження зупинено."));
    QVERIFY(load.isEnabled() && stop.isHidden() && !m_list->isLoading());
    QCOMPARE(shown().size(), 4);
    QTest::qWait(100);
    QCOMPARE(loaded.count(), 0);
    m_list->setEmptyText("порожньо");
    this->load(QString(goods) + " WHERE id=99");
    QCOMPARE(m_list->view()->emptyText(), QString("порожньо"));
    QVERIFY(!child<QPushButton>(m_list.get(), "pbPdfList")->isEnabled());
}

void TstListPane::failureKeepsOrDropsTheRows()
{
    QSignalSpy failed(m_list.get(), &ListPane::failed);
    load();
    m_list->load("SELECT nothing FROM goods");
    QTRY_COMPARE(failed.count(), 1);
    QCOMPARE(m_list->model()->rowCount(), 0);
    QCOMPARE(state(), QString("Список не прочитано: сервер відповів помилкою."));
    QVERIFY(m_base->heard.has("Помилка запиту:", QMessEvent::Critical));
    load();
    m_list->keepRowsAfterFailure();
    m_list->load("SELECT nothing FROM goods");
    QTRY_COMPARE(failed.count(), 2);
    QCOMPARE(m_list->model()->rowCount(), 4);
    QCOMPARE(state(), QString("Список не прочитано: сервер відповів помилкою."));
}

void TstListPane::enteredBeforeItsRowsCame()
{
    m_list->load(QString(goods) + " WHERE SLEEP(0.1)=0");
    m_list->enter();
    pressKeys({Qt::Key_Down});
    QTRY_VERIFY(!m_list->isLoading());
    QCOMPARE(m_list->view()->currentIndex().row(), 0);
    pressKeys({Qt::Key_Down});
    QCOMPARE(m_list->view()->currentIndex().row(), 1);
    m_list->enter();
    QCOMPARE(m_list->view()->currentIndex().row(), 1);
}

void TstListPane::oneRecordIsRefreshedWhereverItStands()
{
    load();
    m_list->view()->sortByColumn(2, Qt::DescendingOrder);
    QCOMPARE(m_list->indexOf("10").row(), 0);
    QVERIFY(!m_list->indexOf("1 ").isValid() && !m_list->indexOf("0").isValid());
    QSqlQuery record(*m_base->connection());
    QVERIFY(record.exec("SELECT 2,'Сіль',2000"));
    m_list->refreshRow(RowStore::read(record), 0, m_list->indexOf("2").row());
    QCOMPARE(shown(), QStringList({"Молоко", "Хліб", "Сіль", "Яйця"}));
    QVERIFY(record.exec("SELECT 3,'Цукор',1"));
    m_list->refreshRow(RowStore::read(record), 0, -1);
    QCOMPARE(shown().last(), QString("Цукор"));
    QCOMPARE(m_list->view()->currentIndex().row(), 4);
    QCOMPARE(state(), QString("Записів: 5"));
}

void TstListPane::columnsAreRemembered()
{
    load();
    QHeaderView *header = m_list->view()->horizontalHeader();
    header->resizeSection(0, 133);
    header->moveSection(header->visualIndex(2), 0);
    clickInMenu("Назва");
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {},
                      {header->sectionViewportPosition(2) + 20, header->height() / 2});
    QCOMPARE(captions(), QStringList({"Ціна", "Код"}));
    const Qt::SortOrder order = header->sortIndicatorOrder();
    const QStringList sorted = shown(0);
    open("another");
    QCOMPARE(captions(), QStringList({"Код", "Назва", "Ціна"}));
    open();
    header = m_list->view()->horizontalHeader();
    QCOMPARE(captions(), QStringList({"Ціна", "Код"}));
    QCOMPARE(header->sectionSize(0), 133);
    QCOMPARE(header->sortIndicatorSection(), 2);
    QCOMPARE(header->sortIndicatorOrder(), order);
    load();
    QCOMPARE(shown(0), sorted);
    clickInMenu("Назва");
    QCOMPARE(captions(), QStringList({"Ціна", "Код", "Назва"}));
    // With a column more than before nothing of it fits.
    m_list->setColumns({{"Код", 6}, {"Назва", 20}, {"Ціна", 9}, {"Група", 9}}, "goods");
    QCOMPARE(captions(), QStringList({"Код", "Назва", "Ціна", "Група"}).mid(0, captions().size()));
}

void TstListPane::columnsOfAnotherUserAreHisOwn()
{
    clickInMenu("Ціна");
    m_list.reset();
    QVERIFY(m_user->load(m_base->connection(), "1", "2", QString()));
    open();
    QCOMPARE(captions().size(), 3);
    m_list.reset();
    QVERIFY(m_user->load(m_base->connection(), "1", "1", QString()));
    open();
    QCOMPARE(captions(), QStringList({"Код", "Назва"}));
}

void TstListPane::columnsAreChosenByKeyboard()
{
    load();
    m_list->view()->setFocus();
    const auto inMenu = [](std::initializer_list<Qt::Key> keys) {
        QTimer::singleShot(50, qApp, [keys = std::vector<Qt::Key>(keys)] {
            for (const Qt::Key key : keys) {
                if (QWidget *menu = QApplication::activePopupWidget(); menu != nullptr)
                    QTest::keyClick(menu, key);
            }
        });
    };
    inMenu({Qt::Key_Down, Qt::Key_Down, Qt::Key_Return});
    pressKeys({Qt::SHIFT + Qt::Key_F10});
    QCOMPARE(captions(), QStringList({"Код", "Ціна"}));
    inMenu({Qt::Key_Down, Qt::Key_Escape});
    QContextMenuEvent menuKey(QContextMenuEvent::Keyboard, {20, 20});
    QApplication::sendEvent(m_list->view(), &menuKey);
    QCOMPARE(captions(), QStringList({"Код", "Ціна"}));
    inMenu({Qt::Key_Down, Qt::Key_Down, Qt::Key_Return});
    QApplication::sendEvent(m_list->view(), &menuKey);
    QCOMPARE(captions(), QStringList({"Код", "Назва", "Ціна"}));
}

void TstListPane::lastColumnStays()
{
    clickInMenu("Код");
    clickInMenu("Ціна");
    clickInMenu("Назва");
    QCOMPARE(captions(), QStringList({"Назва"}));
}

void TstListPane::unsortedAndAsAtFirst()
{
    load(QString(goods) + " ORDER BY name DESC");
    const QStringList fromServer = shown();
    m_list->view()->sortByColumn(0, Qt::AscendingOrder);
    QVERIFY(shown() != fromServer);
    clickInMenu("Без сортування");
    QCOMPARE(shown(), fromServer);
    QHeaderView *header = m_list->view()->horizontalHeader();
    header->moveSection(0, 2);
    clickInMenu("Ціна");
    clickInMenu("Стовпці як спочатку");
    QCOMPARE(captions(), QStringList({"Код", "Назва", "Ціна"}));
}

void TstListPane::copyTakesWhatIsShown()
{
    load();
    m_list->view()->horizontalHeader()->moveSection(2, 0);
    m_list->view()->setColumnHidden(0, true);
    m_list->view()->setFocus();
    const auto click = [this](int row, Qt::KeyboardModifiers keys) {
        const QRect place = m_list->view()->visualRect(m_list->model()->index(row, 1));
        QTest::mouseClick(m_list->view()->viewport(), Qt::LeftButton, keys, place.center());
    };
    click(2, Qt::NoModifier);
    click(1, Qt::ControlModifier);
    click(3, Qt::ControlModifier);
    pressKeys({Qt::CTRL + Qt::Key_C});
    QCOMPARE(QGuiApplication::clipboard()->text(),
             QString("Ціна\tНазва\n19,90\tСіль морська кам'яна\n1234,50\tМолоко\n\tЯйця\n"));
    const QString html = QGuiApplication::clipboard()->mimeData()->html();
    QVERIFY2(html.contains("sdval=\"1234.50\" sdnum=\"1033;0;#,##0.00\">1234,50</td>"), qPrintable(html));
    QVERIFY2(html.contains("sdnum=\"1033;0;@\">Сіль морська кам'яна</td>"), qPrintable(html));
    QVERIFY(html.contains("<th>Ціна</th><th>Назва</th>") && !html.contains("Код"));
}

void TstListPane::moneyBelowZeroIsRed_data()
{
    QTest::addColumn<QColor>("paper");
    QTest::addColumn<QColor>("letters");
    QTest::newRow("light") << QColor(Qt::white) << QColor(Qt::black);
    QTest::newRow("dark") << QColor(0x20, 0x20, 0x20) << QColor(Qt::white);
}

/// Legible on its paper; not the other numbers, nor rows that have a colour of their own.
void TstListPane::moneyBelowZeroIsRed()
{
    QFETCH(QColor, paper);
    QFETCH(QColor, letters);
    QNTableView view;
    QRowModel model;
    model.setColumns({{"Сума", 12, &asMoney}, {"К-сть", 12, &asQuantity}});
    RowStore rows;
    rows.append({"-123456", "-123456"});
    rows.append({"123456", "123456"});
    rows.append({"-123456", "-123456"});
    model.replaceRows(std::move(rows));
    model.setRowColour(2, QColor(Qt::yellow));
    view.setModel(&model);
    view.setAlternatingRowColors(false);
    QPalette palette;
    palette.setColor(QPalette::Base, paper);
    palette.setColor(QPalette::Text, letters);
    view.setPalette(palette);
    view.resize(400, 200);
    const QImage picture = view.viewport()->grab().toImage();
    // How far the reddest letter is from the paper, by its brightness; 0 where none is red.
    const auto redness = [&](int row, int column) {
        int contrast = 0;
        const QRect cell = view.visualRect(model.index(row, column)).adjusted(2, 2, -2, -2);
        for (int y = cell.top(); y <= cell.bottom(); ++y) {
            for (int x = cell.left(); x <= cell.right(); ++x) {
                const QColor dot = picture.pixelColor(x, y);
                if (dot.red() - qMax(dot.green(), dot.blue()) > 60)
                    contrast = qMax(contrast, qAbs(qGray(dot.rgb()) - qGray(paper.rgb())));
            }
        }
        return contrast;
    };
    QVERIFY2(redness(0, 0) > 120, qPrintable(QString::number(redness(0, 0))));
    for (const QPair<int, int> &other : {qMakePair(0, 1), qMakePair(1, 0), qMakePair(1, 1), qMakePair(2, 0)})
        QCOMPARE(redness(other.first, other.second), 0);
}

QTEST_MAIN(TstListPane)
#include "tst_listpane.moc"
