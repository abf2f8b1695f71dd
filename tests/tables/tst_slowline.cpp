#include "workplace.h"

#include "dbtasks.h"
#include "heartbeat.h"
#include "qaddedtgoods.h"
#include "qaddedtshop.h"
#include "qrowmodel.h"
#include "qtabshops.h"
#include "tcpproxy.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

/// Editors on a line to the server that is slow or silent, by a person in a hurry.
class TstSlowLine : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { m_place = std::make_unique<Workplace>(); }
    void cleanupTestCase() { m_place.reset(); }
    void init();
    void cleanup();

    void keysTypedWhileReadingAreKept();
    void wholeEditOnASlowLine();
    void escapeWhileReading();
    void escapeWhileWriting();
    void silentWhileReading();
    void silentWhileWriting();
    void editorGoneWhileWriting();
    void tabGoneWithItsEditor_data();
    void tabGoneWithItsEditor();

private:
    std::unique_ptr<QAddEdtGoods> openEditor(const QString &id);
    FreshDatabase &base() { return m_place->base; }
    QString item() { return base().value("SELECT CONCAT_WS('|',name,price) FROM goods WHERE id=7"); }

    std::unique_ptr<Workplace> m_place;
    std::unique_ptr<TcpProxy> m_proxy;
    QSqlDatabase m_window;
    QString m_id;
};

void TstSlowLine::init()
{
    m_place->clear();
    base().exec({"INSERT INTO goods(id,name,name_short,price,type,group_g,tax,id_rules_goods,paym_bonus,"
                 "bonus_disk,block) VALUES(7,'Молоко','Молоко',4250,1,1,1,1,1,0,0)",
                 "INSERT INTO dk_shc(id_goods,shtrihcod) VALUES(7,'4820000000017')"});
    base().heard.forget();
    m_proxy = std::make_unique<TcpProxy>(testServer());
    DatabaseAddress address = m_proxy->address();
    address.name = base().address().name;
    address.readSeconds = 1;
    m_window = addConnection("slow", address);
}

void TstSlowLine::cleanup()
{
    m_proxy->setSilent(false);
    m_proxy->setDelay(0);
    waitOutTasks();
    m_window = QSqlDatabase();
    QSqlDatabase::removeDatabase("slow");
    m_proxy.reset();
}

/// Shown and active; what it reads is on its way.
std::unique_ptr<QAddEdtGoods> TstSlowLine::openEditor(const QString &id)
{
    m_id = id;
    auto editor = std::make_unique<QAddEdtGoods>(nullptr, &m_window, &m_id, "SELECT address,id FROM shops",
                                                 &base().heard, nullptr);
    editor->show();
    editor->activateWindow();
    if (!QTest::qWaitForWindowActive(editor.get()))
        qFatal("The editor has not become active");
    return editor;
}

void TstSlowLine::keysTypedWhileReadingAreKept()
{
    m_proxy->setDelay(40);
    const auto editor = openEditor(QString());
    typeText("Сирx");
    pressKeys({Qt::Key_Backspace, Qt::Key_Tab});
    typeText("Сирок ");
    // Neither Enter nor a letter of a button decides anything, also when the wait is shown.
    pressKeys({Qt::Key_Return});
    QTest::sendKeyEvent(QTest::Click, editor->focusWidget(), static_cast<Qt::Key>(L'Е'), "Е",
                        Qt::AltModifier);
    QTRY_COMPARE(child<QLabel>(editor.get(), "labelBusy")->text(), QString("Читається…"));
    QVERIFY(!child<QLineEdit>(editor.get(), "leName")->isEnabled());
    QVERIFY(child<QPushButton>(editor.get(), "pbCancel")->isEnabled());
    pressKeys({Qt::Key_Space, Qt::Key_Return});
    QTest::mouseClick(child<QPushButton>(editor.get(), "pbOk"), Qt::LeftButton);
    typeText("15%");
    QVERIFY(child<QLineEdit>(editor.get(), "leName")->text().isEmpty());
    waitOutTasks();
    QVERIFY(editor->isVisible() && !editor->isBusy());
    QCOMPARE(child<QLineEdit>(editor.get(), "leName")->text(), QString("Сир"));
    QCOMPARE(child<QLineEdit>(editor.get(), "leShortName")->text(), QString("Сирок  15%"));
    QVERIFY2(child<QLineEdit>(editor.get(), "leShortName")->hasFocus(), "the keyboard goes on there");
    QVERIFY(child<QLabel>(editor.get(), "labelBusy")->text().isEmpty());
    QVERIFY2(!answerConfirm([&] { pressKeys({Qt::Key_Escape}); }, true).isEmpty(),
             "what was typed is a change");
    QCOMPARE(base().value("SELECT COUNT(*) FROM goods"), QString("1"));
}

/// Opening, typing and two Enters: the window is alive throughout, and what is entered is written once.
void TstSlowLine::wholeEditOnASlowLine()
{
    m_proxy->setDelay(120);
    int updates = 0;
    Db::setStatementHook([&](const QString &sql) { updates += sql.startsWith("UPDATE goods ") ? 1 : 0; });
    Heartbeat heart;
    heart.restart();
    const auto editor = openEditor("7");
    typeText("43,5");
    waitOutTasks();
    QCOMPARE(child<QLineEdit>(editor.get(), "lePrice")->text(), QString("43,5"));
    pressKeys({Qt::Key_Return, Qt::Key_Return});
    typeText("99");
    QTRY_COMPARE(child<QLabel>(editor.get(), "labelBusy")->text(), QString("Записується…"));
    pressKeys({Qt::Key_Return});
    QTest::mouseClick(child<QPushButton>(editor.get(), "pbOk"), Qt::LeftButton);
    waitOutTasks();
    const qint64 gap = heart.longestGap();
    Db::setStatementHook(nullptr);
    QCOMPARE(editor->result(), int(QDialog::Accepted));
    QCOMPARE(updates, 1);
    QCOMPARE(item(), QString("Молоко|4350"));
    QVERIFY2(gap <= 100, qPrintable(QString("the window did not answer for %1 ms").arg(gap)));
}

void TstSlowLine::escapeWhileReading()
{
    m_proxy->setDelay(40);
    for (const int waitMs : {0, 250}) {
        for (const bool byMouse : {true, false}) {
            const auto editor = openEditor("7");
            QTest::qWait(waitMs);
            if (byMouse)
                QTest::mouseClick(child<QPushButton>(editor.get(), "pbCancel"), Qt::LeftButton);
            else
                pressKeys({Qt::Key_Escape});
            QVERIFY(!editor->isVisible() && !editor->hasFailed());
            waitOutTasks();
            QCOMPARE(editor->result(), int(QDialog::Rejected));
        }
    }
    QCOMPARE(base().heard.texts(), QStringList());
}

void TstSlowLine::escapeWhileWriting()
{
    const auto editor = openEditor("7");
    waitOutTasks();
    typeText("50");
    m_proxy->setDelay(40);
    pressKeys({Qt::Key_Return, Qt::Key_Escape});
    QVERIFY(editor->isVisible());
    QCOMPARE(child<QLabel>(editor.get(), "labelBusy")->text(),
             QString("Записується… Скасувати вже не можна."));
    editor->close();
    QTest::mouseClick(child<QPushButton>(editor.get(), "pbCancel"), Qt::LeftButton);
    QVERIFY(editor->isVisible());
    waitOutTasks();
    QCOMPARE(editor->result(), int(QDialog::Accepted));
    QCOMPARE(item(), QString("Молоко|5000"));
}

void TstSlowLine::silentWhileReading()
{
    openEditor("7");
    waitOutTasks();
    m_proxy->setSilent(true);
    Heartbeat heart;
    heart.restart();
    const auto editor = openEditor("7");
    QTRY_COMPARE(child<QLabel>(editor.get(), "labelBusy")->text(), QString("Читається…"));
    waitOutTasks();
    QVERIFY2(heart.longestGap() <= 100, qPrintable(QString::number(heart.longestGap())));
    QVERIFY2(!editor->isVisible() && editor->hasFailed(), "there is nothing to edit");
    QVERIFY2(!base().heard.texts().isEmpty(), "it is told");
}

/// What was entered stays, and is saved when the server answers again.
void TstSlowLine::silentWhileWriting()
{
    const auto editor = openEditor("7");
    waitOutTasks();
    typeText("51");
    m_proxy->setSilent(true);
    Heartbeat heart;
    heart.restart();
    pressKeys({Qt::Key_Return});
    waitOutTasks();
    QVERIFY2(heart.longestGap() <= 100, qPrintable(QString::number(heart.longestGap())));
    QVERIFY(editor->isVisible() && !editor->isBusy());
    QVERIFY2(!base().heard.texts().isEmpty(), "it is told");
    QVERIFY(child<QLineEdit>(editor.get(), "lePrice")->hasFocus());
    QCOMPARE(item(), QString("Молоко|4250"));
    m_proxy->setSilent(false);
    waitOutLoss(m_window);
    pressKeys({Qt::Key_Return});
    waitOutTasks();
    QCOMPARE(editor->result(), int(QDialog::Accepted));
    QCOMPARE(item(), QString("Молоко|5100"));
}

void TstSlowLine::editorGoneWhileWriting()
{
    m_proxy->setDelay(20);
    auto editor = openEditor("7");
    waitOutTasks();
    typeText("52");
    pressKeys({Qt::Key_Return});
    editor.reset();
    waitOutTasks();
    QCOMPARE(item(), QString("Молоко|5200"));
    // And one that reads.
    editor = openEditor("7");
    editor.reset();
    waitOutTasks();
    QCOMPARE(base().heard.texts(), QStringList());
}

void TstSlowLine::tabGoneWithItsEditor_data()
{
    QTest::addColumn<bool>("isSaving");
    QTest::newRow("while it reads") << false;
    QTest::newRow("while it writes") << true;
}

/// Whoever asked for the editor is on the stack still.
void TstSlowLine::tabGoneWithItsEditor()
{
    QFETCH(bool, isSaving);
    base().exec("INSERT INTO shops(id,address,name,group_shop,day_update,count_day_cycle,block) "
                "VALUES(10,'Львів','Їжак',2,3,7,0)");
    auto tab = std::make_unique<QTabShops>(m_place->connection(), m_place->user(), &base().heard,
                                           m_place->settings(), nullptr);
    tab->setPermission(Permission::Shops);
    tab->show();
    QTRY_COMPARE(tab->model()->rowCount(), 1);
    QVERIFY(withModal<QAddEdtShop>([&] { tab->Edit(tab->model()->index(0, 1)); },
                                   [&](QAddEdtShop *editor) {
                                       if (isSaving) {
                                           waitOutTasks();
                                           enter(editor, "leName", "Їжачок");
                                           editor->btok();
                                           QVERIFY(editor->isBusy());
                                       }
                                       tab.reset();
                                   }));
    waitOutTasks();
    QCOMPARE(base().value("SELECT name FROM shops"), QString(isSaving ? "Їжачок" : "Їжак"));
    QCOMPARE(base().heard.texts(), QStringList());
}

QTEST_MAIN(TstSlowLine)
#include "tst_slowline.moc"
