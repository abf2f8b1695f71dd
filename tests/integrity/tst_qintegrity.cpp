#include "qintegrity.h"

#include "checks.h"
#include "destination.h"
#include "listpane.h"
#include "qloadeduser.h"
#include "qntableview.h"
#include "qrowmodel.h"
#include "workplace.h"

#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTreeWidget>

/// The page on which the database is checked, driven as a hurried administrator does.
class TstQIntegrity : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void keysStartAndReadTheFindings();
    void soundDatabase();
    void chosenCheckNarrowsTheList();
    void stoppedKeepsWhatWasFound();
    void closedWhileItRuns();
    void unreadAndUnlistedArePrinted();
    void printedWithWholeSentences();
    void whoseRightIsGoneDoesNotStart();

private:
    void plant();
    /// Presses the button and waits for the end.
    void check();
    QPushButton *button(const char *name) { return child<QPushButton>(m_page.get(), name); }
    QString label(const char *name) { return child<QLabel>(m_page.get(), name)->text(); }
    QTreeWidgetItem *item(const char *key);
    QStringList listed(int column);

    std::unique_ptr<Workplace> m_place;
    std::unique_ptr<QIntegrity> m_page;
};

namespace {
enum Column { Kind = 1, ShopName = 2 };
}

void TstQIntegrity::init()
{
    qRegisterMetaType<Destination>();
    m_place = std::make_unique<Workplace>();
    m_place->base.exec(QStringList{
        "INSERT INTO shops(id,address,group_shop,block) VALUES(1,'Львів, Ринок 1',2,0)",
        "INSERT INTO goods(id,name,price,type,group_g,tax,bonus_disk,block) VALUES(1,'Сир',100,1,1,1,1,0),"
        "(2,'Хліб',100,1,1,1,1,0)"});
    m_page =
        std::make_unique<QIntegrity>(m_place->connection(), m_place->user(), &m_place->base.heard, nullptr);
    QVERIFY(showActive(m_page.get()));
}

void TstQIntegrity::cleanup()
{
    m_page.reset();
    m_place.reset();
}

/// Two of one kind and one of another.
void TstQIntegrity::plant()
{
    m_place->base.exec(QStringList{
        "INSERT INTO goods_shop(id_shop,id_goods,count_showroom,count_syllable) VALUES(1,1,-1000,0),(1,2,0,-2000)",
        "INSERT INTO dk_shc(id_goods,shtrihcod) VALUES(2,'4820000000018')"});
}

void TstQIntegrity::check()
{
    button("pbStart")->click();
    QVERIFY(QTest::qWaitFor([this] { return !m_page->isLoading(); }, 30000));
}

QTreeWidgetItem *TstQIntegrity::item(const char *key)
{
    return child<QTreeWidget>(m_page.get(), "checks")->topLevelItem(integrity::checkNumber(key) + 1);
}

QStringList TstQIntegrity::listed(int column)
{
    QStringList cells;
    for (int row = 0; row < m_page->list()->model()->rowCount(); ++row)
        cells.append(m_page->list()->model()->stored(row, column));
    return cells;
}

void TstQIntegrity::keysStartAndReadTheFindings()
{
    plant();
    QSignalSpy wanted(m_page.get(), &QIntegrity::wanted);
    QVERIFY(m_page->list()->view()->emptyText().contains("Нічого не змінюється"));
    m_page->setFocus();
    // Whoever presses it twice gets one run.
    pressKeys({Qt::Key_Space, Qt::Key_Space});
    QVERIFY(m_page->isLoading() && !button("pbStart")->isEnabled());
    QTRY_VERIFY_WITH_TIMEOUT(!m_page->isLoading(), 30000);
    QCOMPARE(listed(Kind),
             (QStringList{"Від'ємні залишки", "Від'ємні залишки", "Контрольні цифри штрихкодів"}));
    QCOMPARE(listed(ShopName), (QStringList{"Львів, Ринок 1", "Львів, Ринок 1", QString()}));
    QCOMPARE(item("stock_negative")->text(1), QString("помилок: 2"));
    QCOMPARE(item("payment")->text(1), QString("гаразд"));
    QVERIFY2(label("labelResult").startsWith("Знайдено помилок: 3.\nПочато "),
             qPrintable(label("labelResult")));
    QVERIFY(label("labelResult").contains(", закінчено "));
    m_page->list()->view()->setFocus();
    pressKeys({Qt::Key_Down, Qt::Key_Return});
    QCOMPARE(wanted.size(), 1);
    QVERIFY2(label("labelWords").startsWith("Товар 2 «Хліб»: у залі 0.000, на складі -2.000.\n"),
             qPrintable(label("labelWords")));
    pressKeys({Qt::Key_Down});
    button("pbOpen")->click();
    const QNTableView *view = m_page->list()->view();
    const QPoint first = view->visualRect(view->model()->index(0, Kind)).center();
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, first);
    QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, first);
    QStringList conditions;
    for (const QList<QVariant> &signal : wanted)
        conditions.append(signal.first().value<Destination>().condition);
    QCOMPARE(conditions, (QStringList{"goods_shop.id_shop=1 AND goods_shop.id_goods=2", "goods.id IN (2)",
                                      "goods_shop.id_shop=1 AND goods_shop.id_goods=1"}));
}

/// Mended, and checked again: what was found before is gone.
void TstQIntegrity::soundDatabase()
{
    plant();
    check();
    QCOMPARE(listed(Kind).size(), 3);
    m_place->base.exec(QStringList{"DELETE FROM goods_shop", "DELETE FROM dk_shc"});
    m_page->run(Command::Reload);
    QTRY_VERIFY_WITH_TIMEOUT(!m_page->isLoading(), 30000);
    QCOMPARE(listed(Kind), QStringList());
    QCOMPARE(m_page->list()->view()->emptyText(), QString("Помилок не знайдено."));
    QVERIFY(label("labelResult").startsWith("Помилок не знайдено."));
    QVERIFY(!button("pbOpen")->isEnabled());
    QVERIFY2(m_place->base.heard.texts().isEmpty(), qPrintable(m_place->base.heard.texts().join('\n')));
}

void TstQIntegrity::chosenCheckNarrowsTheList()
{
    plant();
    check();
    auto *checks = child<QTreeWidget>(m_page.get(), "checks");
    checks->setCurrentItem(item("barcode_digit"));
    QCOMPARE(listed(Kind), QStringList{"Контрольні цифри штрихкодів"});
    checks->setCurrentItem(item("chek_gap"));
    QCOMPARE(listed(Kind), QStringList());
    checks->setCurrentItem(checks->topLevelItem(0));
    QCOMPARE(listed(Kind).size(), 3);
}

void TstQIntegrity::stoppedKeepsWhatWasFound()
{
    plant();
    m_place->base.exec("LOCK TABLES clients WRITE");
    button("pbStart")->click();
    QTRY_COMPARE_WITH_TIMEOUT(item("stock_negative")->text(1), QString("помилок: 2"), 20000);
    QTRY_COMPARE(item("card_level")->text(1), QString("перевіряється…"));
    QElapsedTimer clock;
    clock.start();
    button("pbStop")->click();
    QVERIFY(!button("pbStop")->isEnabled());
    QTRY_VERIFY(!m_page->isLoading());
    QVERIFY2(clock.elapsed() < 1500, qPrintable(QString::number(clock.elapsed())));
    m_place->base.exec("UNLOCK TABLES");
    QVERIFY2(label("labelResult").startsWith("Перевірку зупинено"), qPrintable(label("labelResult")));
    QCOMPARE(listed(Kind).size(), 3);
    QCOMPARE(item("card_level")->text(1), QString("зупинено"));
    QCOMPARE(item("user_group")->text(1), QString());
    QVERIFY(button("pbStart")->isEnabled());
    check();
    QCOMPARE(item("user_group")->text(1), QString("гаразд"));
}

void TstQIntegrity::closedWhileItRuns()
{
    m_place->base.exec("LOCK TABLES clients WRITE");
    button("pbStart")->click();
    QTRY_COMPARE_WITH_TIMEOUT(item("card_level")->text(1), QString("перевіряється…"), 20000);
    QVERIFY(m_page->mayClose());
    m_page.reset();
    QVERIFY(RunningJobs::all().jobs().isEmpty());
    m_place->base.exec("UNLOCK TABLES");
}

/// What is not among the rows stands below them.
void TstQIntegrity::unreadAndUnlistedArePrinted()
{
    plant();
    m_place->base.exec("RENAME TABLE procent TO away");
    m_page->setMostListed(1);
    check();
    m_place->base.exec("RENAME TABLE away TO procent");
    QCOMPARE(item("stock_negative")->text(1), QString("помилок: 2"));
    QCOMPARE(listed(Kind).filter("Від'ємні залишки").size(), 1);
    QVERIFY(child<QLabel>(m_page->list(), "labelState")->text().contains("не показано ще: 1"));
    QCOMPARE(item("card_level")->text(1), QString("не прочитано"));
    const QStringList heading = m_page->list()->heading();
    QCOMPARE(heading.first(), QString("Перевірка даних"));
    QVERIFY2(heading.last().endsWith("Перевірок, що не вдалися: 1."), qPrintable(heading.last()));
    const QStringList totals = m_page->totals();
    QCOMPARE(totals.size(), 2);
    QCOMPARE(totals.first(), QString("Від'ємні залишки: не показано ще 1."));
    QVERIFY2(totals.last().startsWith("Картки без рівня знижки: не перевірено. "), qPrintable(totals.last()));
    child<QTreeWidget>(m_page.get(), "checks")->setCurrentItem(item("card_level"));
    QVERIFY(m_page->list()->view()->emptyText().startsWith("Цієї перевірки не виконано: "));
}

void TstQIntegrity::printedWithWholeSentences()
{
    if (!canReadPdf())
        QSKIP("pdftotext is missing");
    plant();
    check();
    const QTemporaryDir folder;
    const QString path = folder.filePath("check.pdf");
    m_page->list()->setFileChooser([&folder](const QString &) { return folder.filePath("check.pdf"); });
    m_page->list()->savePdf();
    waitOutJobs();
    const QString text = textOfPdf(path);
    for (const char *part :
         {"Перевіркаданих", "Знайденопомилок:3.", "Львів,Ринок1", "Товар2«Хліб»:узалі0.000,наскладі-2.000.",
          "Запишітьприйом,переміщеннячипередачу,якихбракує,абоперерахуйтетовар."})
        QVERIFY2(text.contains(part), part);
}

void TstQIntegrity::whoseRightIsGoneDoesNotStart()
{
    m_place->logIn(Permission::Service, Permission::Denied);
    m_page =
        std::make_unique<QIntegrity>(m_place->connection(), m_place->user(), &m_place->base.heard, nullptr);
    QCOMPARE(answerQuestion([this] { button("pbStart")->click(); }),
             QString("У вас немає права перевіряти базу."));
    QVERIFY(!m_page->isLoading());
}

QTEST_MAIN(TstQIntegrity)
#include "tst_qintegrity.moc"
