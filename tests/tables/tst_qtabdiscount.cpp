#include "workplace.h"

#include "qaddedtdiscount.h"
#include "qntableview.h"
#include "qrowmodel.h"
#include "qtabdiscount.h"
#include "thresholds.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

/// The discount levels and their editor.
class TstQTabDiscount : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { m_place = std::make_unique<Workplace>(); }
    void cleanupTestCase() { m_place.reset(); }
    void init();
    void cleanup() { m_tab.reset(); }

    void thresholdsKeepSixDigits();
    void listShowsLevels();
    void searchFindsLevels();
    void addedLevelIsStored_data();
    void addedLevelIsStored();
    void wrongNumbersAreRefused_data();
    void wrongNumbersAreRefused();
    void newLevelPresets();
    void percentageNamesTheLevel();
    void namesAreUnique();
    void editingKeepsWhatWasNotTouched();
    void noRowOpensNoEditor();

private:
    bool add(const std::function<void(QAddEdtDiscount *)> &drive);
    bool edit(int id, const std::function<void(QAddEdtDiscount *)> &drive);
    QStringList levels();

    std::unique_ptr<Workplace> m_place;
    FreshDatabase *m_base = nullptr;
    std::unique_ptr<QTabDiscount> m_tab;
};

void TstQTabDiscount::init()
{
    m_place->clear();
    m_base = &m_place->base;
    m_base->exec({"DELETE FROM clients", "DELETE FROM procent",
                  "INSERT INTO procent(id,name,discount,sum,auto,block) VALUES(1,'Без знижки',0,0,1,0),"
                  "(2,'Срібна',350,100000,1,0),(3,'Стара',12550,12345678,0,1)"});
    m_place->logIn(Permission::Discount);
    m_tab = std::make_unique<QTabDiscount>(m_place->connection(), m_place->user(), &m_base->heard,
                                           m_place->settings(), nullptr);
    m_tab->setPermission(Permission::Discount);
    m_tab->show();
    QTRY_VERIFY(!m_tab->isLoading());
    m_tab->view()->sortByColumn(1, Qt::AscendingOrder);
    m_base->heard.forget();
}

bool TstQTabDiscount::add(const std::function<void(QAddEdtDiscount *)> &drive)
{
    return inEditor<QAddEdtDiscount>([&] { m_tab->Add(); }, drive);
}

bool TstQTabDiscount::edit(int id, const std::function<void(QAddEdtDiscount *)> &drive)
{
    for (int row = 0; row < m_tab->model()->rowCount(); ++row) {
        if (m_tab->model()->stored(row, 0) == QString::number(id))
            return inEditor<QAddEdtDiscount>([&] { m_tab->Edit(m_tab->model()->index(row, 1)); }, drive);
    }
    return false;
}

QStringList TstQTabDiscount::levels()
{
    return m_base->rows("SELECT name,discount,sum,auto,block FROM procent WHERE id>3 ORDER BY id");
}

/// What a number written with six significant digits is read back as.
void TstQTabDiscount::thresholdsKeepSixDigits()
{
    QCOMPARE(storedThreshold(0), 0);
    QCOMPARE(storedThreshold(999999), 999999);
    QCOMPARE(storedThreshold(1000000), 1000000);
    QCOMPARE(storedThreshold(1234564), 1234560);
    QCOMPARE(storedThreshold(1234565), 1234570);
    QCOMPARE(storedThreshold(9999995), 10000000);
    QCOMPARE(storedThreshold(12345678), 12345700);
    QCOMPARE(storedThreshold(99999950), 100000000);
    for (const qint64 kopecks : {1LL, 525LL, 7654321LL, 55555550LL, 123456749LL, 2147483647LL, 4294964999LL})
        QCOMPARE(storedThreshold(kopecks),
                 static_cast<qint64>(QString::number(static_cast<double>(kopecks), 'g', 6).toDouble()));
    QCOMPARE(storedThreshold(largestThreshold), largestThreshold);
}

void TstQTabDiscount::listShowsLevels()
{
    QStringList shown;
    for (int column = 1; column < m_tab->model()->columnCount(); ++column)
        shown.append(m_tab->model()->index(1, column).data().toString() + '/' +
                     m_tab->model()->headerData(column, Qt::Horizontal).toString());
    QCOMPARE(shown, QStringList({"Срібна/Назва", "3.50/Знижка", "1\u00a0000.00/Сума після якої діє знижка",
                                 "Так/Авто", "Ні/Блокування"}));
}

void TstQTabDiscount::searchFindsLevels()
{
    child<QLineEdit>(m_tab.get(), "leSearch")->setText("ЗНИЖ без");
    QTRY_COMPARE(m_tab->model()->rowCount(), 1);
    m_base->exec("UPDATE procent SET name='Зовсім без знижок' WHERE id=1");
    m_tab->ShowData();
    QTRY_COMPARE(m_tab->model()->index(0, 1).data().toString(), QString("Зовсім без знижок"));
    QCOMPARE(m_tab->model()->rowCount(), 1);
}

void TstQTabDiscount::addedLevelIsStored_data()
{
    QTest::addColumn<QString>("percent");
    QTest::addColumn<QString>("sum");
    QTest::addColumn<QString>("stored");
    QTest::newRow("points") << "05.50"
                            << "1000.00"
                            << "Нова|550|100000|0|0";
    QTest::newRow("commas") << "5,5"
                            << "999,9"
                            << "Нова|550|99990|0|0";
    QTest::newRow("hundredths that no double has") << "5.29"
                                                   << "1.13"
                                                   << "Нова|529|113|0|0";
    QTest::newRow("whole") << "7"
                           << "150"
                           << "Нова|700|15000|0|0";
    QTest::newRow("rounded") << "10.00"
                             << "123456.78"
                             << "Нова|1000|12345700|0|0";
    QTest::newRow("largest") << "99.99"
                             << "42949600.00"
                             << "Нова|9999|4294960000|0|0";
}

void TstQTabDiscount::addedLevelIsStored()
{
    QFETCH(QString, percent);
    QFETCH(QString, sum);
    QVERIFY(add([&](QAddEdtDiscount *editor) {
        enter(editor, "leName", " Нова ");
        enter(editor, "leDiscount", percent);
        enter(editor, "leSum", sum);
        enter(editor, "cbBlock", "Ні");
        QCOMPARE(child<QLabel>(editor, "labelRounding")->text().contains("123\u00a0457.00"),
                 sum == "123456.78");
        QCOMPARE(saveMeets(editor), QString());
    }));
    QFETCH(QString, stored);
    QCOMPARE(levels(), QStringList(stored));
    QCOMPARE(m_tab->model()->stored(3, 1), QString("Нова"));
    QCOMPARE(m_base->heard.texts(), QStringList());
}

void TstQTabDiscount::wrongNumbersAreRefused_data()
{
    QTest::addColumn<QString>("percent");
    QTest::addColumn<QString>("sum");
    QTest::addColumn<QString>("why");
    // Typed key by key: what the fields let pass.
    QTest::newRow("semicolon") << "5;5"
                               << "1.0"
                               << "Відсоток знижки: «5;5» не є числом відсотків";
    QTest::newRow("blank") << "5.5"
                           << "10 00"
                           << "Сума після якої діє знижка: «10 00» не є сумою";
    QTest::newRow("digit as separator") << "12345"
                                        << "1.0"
                                        << "не може бути більше, ніж 99.99";
    QTest::newRow("no percentage") << ""
                                   << "1.0"
                                   << "Введіть ставку";
    QTest::newRow("more than its column") << "5.5"
                                          << "42949600.01"
                                          << "не може бути більше";
}

void TstQTabDiscount::wrongNumbersAreRefused()
{
    QFETCH(QString, percent);
    QFETCH(QString, sum);
    QFETCH(QString, why);
    QVERIFY(add([&](QAddEdtDiscount *editor) {
        enter(editor, "leName", "Нова");
        for (const auto &typed :
             {qMakePair(QString("leDiscount"), percent), qMakePair(QString("leSum"), sum)}) {
            auto *field = child<QLineEdit>(editor, typed.first);
            field->selectAll();
            QTest::keyClick(field, Qt::Key_Delete);
            QTest::keyClicks(field, typed.second);
            QCOMPARE(field->text(), typed.second);
        }
        const QString met = saveMeets(editor);
        QVERIFY2(met.contains(why), qPrintable(met));
        QVERIFY(editor->isVisible());
        QCOMPARE(child<QLineEdit>(editor, "leDiscount")->text(), percent);
    }));
    QCOMPARE(levels(), QStringList());
}

void TstQTabDiscount::newLevelPresets()
{
    QVERIFY(add([](QAddEdtDiscount *editor) {
        QCOMPARE(editor->windowTitle(), QString("Додавання нового запису"));
        QCOMPARE(child<QLineEdit>(editor, "leDiscount")->text(), QString("00.00"));
        QCOMPARE(child<QComboBox>(editor, "cbAuto")->currentText(), QString("Ні"));
        QCOMPARE(child<QComboBox>(editor, "cbBlock")->currentText(), QString("Так"));
        QVERIFY(!editor->isChanged());
    }));
}

void TstQTabDiscount::percentageNamesTheLevel()
{
    QVERIFY(add([](QAddEdtDiscount *editor) {
        editor->activateWindow();
        auto *percent = child<QLineEdit>(editor, "leDiscount");
        const auto *name = child<QLineEdit>(editor, "leName");
        percent->setFocus();
        QTRY_VERIFY(percent->hasFocus());
        // Somebody looks at another window before typing: the field is not left.
        QFocusEvent away(QEvent::FocusOut, Qt::ActiveWindowFocusReason);
        QApplication::sendEvent(percent, &away);
        QCOMPARE(name->text(), QString());
        percent->selectAll();
        typeText("05.00");
        pressKeys({Qt::Key_Tab});
        QCOMPARE(name->text(), QString("Знижка 05.00%"));
        percent->setFocus();
        percent->setText("07.00");
        pressKeys({Qt::Key_Tab});
        QCOMPARE(name->text(), QString("Знижка 05.00%"));
    }));
}

void TstQTabDiscount::namesAreUnique()
{
    QVERIFY(add([](QAddEdtDiscount *editor) {
        enter(editor, "leName", "Срібна");
        QVERIFY(saveMeets(editor).startsWith("Назва знижки повинна бути унікальною"));
    }));
    QVERIFY(edit(1, [](QAddEdtDiscount *editor) {
        enter(editor, "leName", "Срібна");
        QVERIFY(saveMeets(editor).startsWith("Назва знижки повинна бути унікальною"));
    }));
    QVERIFY(edit(2, [](QAddEdtDiscount *editor) {
        QCOMPARE(editor->windowTitle(), QString("Редагування запису №2"));
        enter(editor, "leSum", "1500.00");
        QCOMPARE(saveMeets(editor), QString());
    }));
    QCOMPARE(m_base->rows("SELECT id,name,sum FROM procent ORDER BY id"),
             QStringList({"1|Без знижки|0", "2|Срібна|150000", "3|Стара|12345678"}));
}

/// Also numbers that this editor would not take.
void TstQTabDiscount::editingKeepsWhatWasNotTouched()
{
    QVERIFY(edit(3, [](QAddEdtDiscount *editor) {
        QCOMPARE(child<QLineEdit>(editor, "leDiscount")->text(), QString("125.50"));
        QCOMPARE(child<QLineEdit>(editor, "leSum")->text(), QString("123456.78"));
        QCOMPARE(child<QLabel>(editor, "labelRounding")->text(), QString());
        enter(editor, "leName", "Давня");
        QCOMPARE(saveMeets(editor), QString());
    }));
    QCOMPARE(m_base->rows("SELECT name,discount,sum,auto,block FROM procent WHERE id=3"),
             QStringList("Давня|12550|12345678|0|1"));
}

void TstQTabDiscount::noRowOpensNoEditor()
{
    m_tab->Edit(QModelIndex());
    QVERIFY(m_base->heard.has("QTabDiscount::Edit !index.isValid()"));
}

QTEST_MAIN(TstQTabDiscount)
#include "tst_qtabdiscount.moc"
