#include "testing.h"

#include "gotobox.h"
#include "keylist.h"
#include "listpane.h"
#include "page.h"
#include "qmessevent.h"
#include "qrowmodel.h"
#include "veltab.h"

#include <QAbstractButton>
#include <QAction>
#include <QDockWidget>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QShortcut>
#include <QTabWidget>
#include <QTemporaryDir>

/// The keys that the whole program has: the list of them tells what is true, none means two things, and those
/// that lead somewhere do so from every page.
class TstKeyList : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void cleanup();

    void everyKeyHasItsWords();
    void noKeyMeansTwoThings();
    void listFollowsWhatIsInFront();
    void listFollowsTheActions();
    void keyShowsTheListToBeSearched();
    void codeIsGoneToFromAnyPage();
    void noticesAreCollected();

private:
    QAction *action(const char *name) { return child<QAction>(m_window.get(), QLatin1String(name)); }
    QWidget *page() { return child<QTabWidget>(m_window.get(), "tabWidget")->currentWidget(); }
    QWidget *open(QAction *action);
    /// "keys: words" of the places that begin so.
    QStringList keysAt(const QString &place);
    bool has(const QString &place, const QString &key) { return keysAt(place).join('\n').contains(key); }

    QTemporaryDir m_folder;
    std::unique_ptr<FreshDatabase> m_base;
    std::unique_ptr<Veltab> m_window;
};

void TstKeyList::initTestCase()
{
    qputenv("XDG_CONFIG_HOME", m_folder.path().toLocal8Bit());
    m_base = std::make_unique<FreshDatabase>();
    m_base->exec(QStringList{
        "INSERT INTO shops(id,address,name,group_shop,block,count_day_cycle) VALUES(1,'Львів','А',1,0,3)",
        "INSERT INTO kassa(id,advertising_str,id_shop,block) VALUES(1,'Каса',1,0)",
        "INSERT INTO goods(id,name,price,type,group_g,tax,id_rules_goods,block) VALUES"
        "(1,'Сир',500,1,1,1,1,0),(2,'Хліб',700,1,1,1,1,0)",
        "INSERT INTO dk_shc(id_goods,shtrihcod) VALUES(1,'1111111111116'),(2,'4820000000109')",
        "INSERT INTO goods_shop(id_shop,id_goods,count_showroom) VALUES(1,1,5000)"});
    writeSettings(m_folder.path(), m_base->address());
    m_window = std::make_unique<Veltab>(m_folder.path());
    m_window->setLoginUnattended(true);
    QVERIFY(showActive(m_window.get()));
    QTRY_VERIFY_WITH_TIMEOUT(m_window->isReady(), 30000);
    waitOutTasks();
}

void TstKeyList::cleanupTestCase()
{
    m_window.reset();
    m_base.reset();
}

void TstKeyList::cleanup()
{
    waitOutTasks();
    m_window->closeAllTabs();
}

QWidget *TstKeyList::open(QAction *action)
{
    action->trigger();
    waitOutTasks();
    const auto *opened = dynamic_cast<Page *>(page());
    return QTest::qWaitFor([opened] { return opened == nullptr || !opened->isLoading(); }) ? page() : nullptr;
}

QStringList TstKeyList::keysAt(const QString &place)
{
    QStringList lines;
    for (const ShownKey &key : keysOf(*m_window)) {
        if (key.place.startsWith(place))
            lines.append(key.keys + ": " + key.words);
    }
    return lines;
}

/// A new shortcut without words would be missing in the list.
void TstKeyList::everyKeyHasItsWords()
{
    const auto actions = m_window->openingActions();
    QVERIFY(actions.size() > 15);
    QStringList mute;
    for (QAction *one : actions) {
        QVERIFY(open(one) != nullptr);
        for (const QShortcut *shortcut : m_window->findChildren<QShortcut *>()) {
            if (shortcut->whatsThis().isEmpty())
                mute.append(one->objectName() + ": " + shortcut->key().toString());
        }
        for (const ShownKey &key : keysOf(*m_window)) {
            if (key.words.isEmpty())
                mute.append(one->objectName() + ": " + key.keys);
        }
        m_window->closeAllTabs();
    }
    mute.removeDuplicates();
    QVERIFY2(mute.isEmpty(), qPrintable(mute.join('\n')));
}

/// Qt carries out none of two actions that have the same key.
void TstKeyList::noKeyMeansTwoThings()
{
    QStringList windowKeys;
    const auto note = [](QStringList *keys, const QKeySequence &sequence) {
        if (!sequence.isEmpty())
            keys->append(sequence.toString());
    };
    for (const QAction *one : m_window->findChildren<QAction *>(QString(), Qt::FindDirectChildrenOnly))
        note(&windowKeys, one->shortcut());
    for (const QShortcut *one : m_window->findChildren<QShortcut *>(QString(), Qt::FindDirectChildrenOnly))
        note(&windowKeys, one->key());
    note(&windowKeys, child<QPushButton>(m_window.get(), "pbMessages")->shortcut());
    QVERIFY(windowKeys.contains("Ctrl+K") && windowKeys.contains("F1") && windowKeys.contains("Ctrl+M"));
    QCOMPARE(windowKeys.removeDuplicates(), 0);
    QStringList taken;
    for (QAction *one : m_window->openingActions()) {
        QStringList keys;
        const QWidget *opened = open(one);
        for (const QShortcut *shortcut : opened->findChildren<QShortcut *>())
            note(&keys, shortcut->key());
        for (const QAbstractButton *button : opened->findChildren<QAbstractButton *>())
            note(&keys, button->shortcut());
        for (const QString &key : qAsConst(keys)) {
            if (windowKeys.contains(key))
                taken.append(one->objectName() + ": " + key);
        }
        m_window->closeAllTabs();
    }
    QVERIFY2(taken.isEmpty(), qPrintable(taken.join('\n')));
}

void TstKeyList::listFollowsWhatIsInFront()
{
    QVERIFY(has("Меню «Правка»", "Ctrl+K: Перейти до…"));
    QVERIFY(has("Меню «Довідка»", "F1: Клавіші"));
    QVERIFY(has("Вікно програми", "Ctrl+M: Повідомлення"));
    QVERIFY(has("Вікно програми", "Ctrl+J: "));
    QVERIFY(keysAt("Вкладка").isEmpty());

    QVERIFY(open(action("man_saleadmiss")) != nullptr);
    for (const char *key : {"F6: ", "F7: ", "F8: ", "F9: ", "F11: ", "F12: ", "F3: ", "F2: ", "+: ", "Esc: "})
        QVERIFY2(has("Вкладка «Продаж»", key), key);

    QVERIFY(open(action("mt_goods")) != nullptr);
    QVERIFY(keysAt("Вкладка «Продаж»").isEmpty());
    for (const char *key : {"Ctrl+F: ", "Ctrl+P: Друк списку", "F3: Чому така ціна", "Enter: У списку",
                            "Shift+F10: ", "Ctrl+C: "})
        QVERIFY2(has("Вкладка «Товари»", key), key);
    // What is in front stands first.
    QVERIFY(keysOf(*m_window).first().place == "Вкладка «Товари»");
}

void TstKeyList::listFollowsTheActions()
{
    QAction *devices = action("mt_devices");
    QVERIFY(!has("Меню «Таблиці»", ": Пристрої"));
    devices->setShortcut(QKeySequence("Ctrl+9"));
    QVERIFY(has("Меню «Таблиці»", "Ctrl+9: Пристрої"));
    devices->setVisible(false);
    QVERIFY(!has("Меню «Таблиці»", ": Пристрої"));
    devices->setVisible(true);
    devices->setShortcut({});
}

void TstKeyList::keyShowsTheListToBeSearched()
{
    QVERIFY(open(action("mt_goods")) != nullptr);
    const bool isShown =
        withModal<KeyList>([] { pressKeys({Qt::Key_F1}); },
                           [](KeyList *dialog) {
                               const QRowModel *rows = child<ListPane>(dialog, "keyList")->model();
                               QVERIFY(rows->rowCount() > 20);
                               dialog->activateWindow();
                               QTRY_VERIFY(child<QLineEdit>(dialog, "leSearch")->hasFocus());
                               typeText("така чому");
                               QTRY_COMPARE(rows->rowCount(), 1);
                               QCOMPARE(rows->stored(0, 1), QString("F3"));
                               // It leads into the list, and neither prints nor closes.
                               pressKeys({Qt::Key_Return});
                               QVERIFY(dialog->isVisible() && QApplication::activeModalWidget() == dialog);
                               child<QLineEdit>(dialog, "leSearch")->setFocus();
                               typeText("x");
                               QTRY_COMPARE(rows->rowCount(), 0);
                               pressKeys({Qt::Key_Escape});
                               QVERIFY(!dialog->isVisible());
                           });
    QVERIFY(isShown);
}

void TstKeyList::codeIsGoneToFromAnyPage()
{
    QVERIFY(open(action("mt_shops")) != nullptr);
    QWidget *before = QApplication::focusWidget();
    pressKeys({Qt::CTRL + Qt::Key_K});
    QPointer<GotoBox> box = m_window->findChild<GotoBox *>();
    QVERIFY(box != nullptr);
    box->activateWindow();
    QTRY_VERIFY(child<QLineEdit>(box, "leGoto")->hasFocus());
    pressKeys({Qt::Key_Escape});
    QTRY_VERIFY(box == nullptr);
    m_window->activateWindow();
    QTRY_COMPARE(QApplication::focusWidget(), before);

    pressKeys({Qt::CTRL + Qt::Key_K});
    box = m_window->findChild<GotoBox *>();
    box->activateWindow();
    QTRY_VERIFY(child<QLineEdit>(box, "leGoto")->hasFocus());
    scan("4820000000109");
    QTRY_VERIFY(box == nullptr);
    waitOutTasks();
    auto *goods = dynamic_cast<Page *>(page());
    QTRY_VERIFY(!goods->isLoading());
    QCOMPARE(goods->list()->model()->rowCount(), 1);
    QCOMPARE(goods->list()->model()->stored(0, 2), QString("Хліб"));

    // A command is given, not only a page opened.
    pressKeys({Qt::CTRL + Qt::Key_K});
    box = m_window->findChild<GotoBox *>();
    box->activateWindow();
    QTRY_VERIFY(child<QLineEdit>(box, "leGoto")->hasFocus());
    typeText("закрити всі");
    QVERIFY(QTest::qWaitFor([&] { return !box->isSearching(); }));
    pressKeys({Qt::Key_Return});
    QTRY_COMPARE(child<QTabWidget>(m_window.get(), "tabWidget")->count(), 0);
}

void TstKeyList::noticesAreCollected()
{
    auto *button = child<QPushButton>(m_window.get(), "pbMessages");
    pressKeys({Qt::CTRL + Qt::Key_M});
    auto *messages = child<QDockWidget>(m_window.get(), "messages");
    QTRY_VERIFY(messages->isVisible());
    pressKeys({Qt::Key_Escape});
    QTRY_VERIFY(!messages->isVisible());
    const QString quiet = button->text();
    postMessage(m_window.get(), "Готово", QMessEvent::Information);
    postTrace(m_window.get(), "In setting::save()");
    QCoreApplication::sendPostedEvents();
    QCOMPARE(button->text(), quiet + ": 1");
}

QTEST_MAIN(TstKeyList)
#include "tst_keylist.moc"
