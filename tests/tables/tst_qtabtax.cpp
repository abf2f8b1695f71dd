#include "tcpproxy.h"
#include "workplace.h"

#include "qmessevent.h"
#include "qntableview.h"
#include "qrowmodel.h"
#include "qtabtax.h"

#include <QApplication>
#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QTabWidget>

/// The tax groups, whose rates no slip of a hand may change.
class TstQTabTax : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { m_place = std::make_unique<Workplace>(); }
    void cleanupTestCase() { m_place.reset(); }
    void init();
    void cleanup();

    void maskedRates_data();
    void maskedRates();
    void listShowsPercents();
    void typedRateIsStored_data();
    void typedRateIsStored();
    void unclearRateIsRefused_data();
    void unclearRateIsRefused();
    void rateIsChangedOnPurposeOnly();
    void nextCellWhileAsked();
    void renamingFails();
    void levyIsRenamed();
    void changedMeanwhile();
    void groupsAreFixed();
    void hurriedHandsOnASlowLine();
    void unreadableTable();
    void tabLeadsFromTheFieldIntoTheList();

private:
    void open(QSqlDatabase *db, int right = Permission::Full);
    QLineEdit *editor();
    QLineEdit *edit(int row, TaxColumn column);
    QModelIndex cell(int row, TaxColumn column)
    {
        return m_tab->model()->index(row, static_cast<int>(column));
    }
    QString shown(int row, TaxColumn column) { return cell(row, column).data().toString(); }
    QString stored(int id);

    std::unique_ptr<Workplace> m_place;
    FreshDatabase *m_base = nullptr;
    std::unique_ptr<QTabTax> m_tab;
};

void TstQTabTax::init()
{
    m_base = &m_place->base;
    m_base->exec({"DELETE FROM tax",
                  "INSERT INTO tax(id,name,pdv_proc,dod_name,dod_proc) VALUES"
                  "(1,'ПДВ А',2000,'ДОД А',0),(2,'ПДВ Б',2000,'ДОД Б',500),"
                  "(3,'ПДВ В',700,'ДОД В',0),(4,'ПДВ Г',0,NULL,NULL),(5,'ПДВ Д',12550,'',0)"});
    open(m_place->connection());
}

void TstQTabTax::cleanup()
{
    Db::setStatementHook(nullptr);
    waitOutTasks();
    m_tab.reset();
}

void TstQTabTax::open(QSqlDatabase *db, int right)
{
    m_tab.reset();
    m_place->logIn(Permission::Tax, right);
    m_tab = std::make_unique<QTabTax>(db, m_place->user(), &m_base->heard, m_place->settings(), nullptr);
    m_tab->setPermission(Permission::Tax);
    m_tab->resize(800, 300);
    QVERIFY(showActive(m_tab.get()));
    QTRY_VERIFY(!m_tab->isLoading());
    waitOutTasks();
    m_tab->view()->sortByColumn(0, Qt::AscendingOrder);
    m_tab->view()->setFocus();
    m_base->heard.forget();
}

/// The inline editor that is open, or null.
QLineEdit *TstQTabTax::editor()
{
    const auto editors = m_tab->view()->viewport()->findChildren<QLineEdit *>();
    for (QLineEdit *edit : editors) {
        if (edit->isVisible())
            return edit;
    }
    return nullptr;
}

QLineEdit *TstQTabTax::edit(int row, TaxColumn column)
{
    m_tab->view()->setFocus();
    m_tab->view()->setCurrentIndex(cell(row, column));
    pressKeys({Qt::Key_Return});
    if (!QTest::qWaitFor([this] { return editor() != nullptr && editor()->hasFocus(); }))
        qFatal("no editor has opened");
    return editor();
}

QString TstQTabTax::stored(int id)
{
    waitOutTasks();
    return m_base->rows(QString("SELECT name,pdv_proc,dod_name,dod_proc FROM tax WHERE id=%1").arg(id))
        .value(0);
}

void TstQTabTax::maskedRates_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("hundredths");
    const auto row = [](const char *text, int hundredths) { QTest::newRow(text) << text << hundredths; };
    row("07.00", 700);
    row("7 .00", 700);
    row(" 7.00", 700);
    row("7 .5 ", 750);
    row(" 7.05", 705);
    row("20.  ", 2000);
    row("0 .  ", 0);
    row("99.99", 9999);
    row("7 . 5", -1);
    row("  .50", -1);
    row("  .  ", -1);
}

void TstQTabTax::maskedRates()
{
    QFETCH(QString, text);
    QFETCH(int, hundredths);
    qint64 read = -1;
    QCOMPARE(readMaskedRate(text, &read).isEmpty(), hundredths >= 0);
    QCOMPARE(read, hundredths);
}

void TstQTabTax::listShowsPercents()
{
    QStringList captions;
    for (int column = 0; column < m_tab->model()->columnCount(); ++column)
        captions.append(m_tab->model()->headerData(column, Qt::Horizontal).toString());
    QCOMPARE(captions, QStringList({"", "Назва податку", "Ставка податку %", "Назва додаткового збору",
                                    "Ставка додаткового збору %"}));
    QCOMPARE(shown(1, TaxColumn::Name), QString("ПДВ Б"));
    QCOMPARE(shown(1, TaxColumn::Rate), QString("20.00"));
    QCOMPARE(shown(1, TaxColumn::LevyName), QString("ДОД Б"));
    QCOMPARE(shown(1, TaxColumn::LevyRate), QString("5.00"));
    QCOMPARE(shown(3, TaxColumn::LevyRate), QString());
    m_tab.reset();
    QVERIFY(m_base->heard.has("In destructor ~QTabSlujbOp"));
}

void TstQTabTax::typedRateIsStored_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("rate");
    QTest::addColumn<QString>("hundredths");
    const auto row = [](const char *typed, const char *rate, const char *hundredths) {
        QTest::newRow(typed) << typed << rate << hundredths;
    };
    row("0700", "7.00", "700");
    row("8", "8.00", "800");
    row("7,5", "7.50", "750");
    row("paste", "17.50", "1750");
}

void TstQTabTax::typedRateIsStored()
{
    QFETCH(QString, typed);
    QFETCH(QString, rate);
    QFETCH(QString, hundredths);
    m_base->exec("UPDATE updat SET updat='2020-01-01'");
    QGuiApplication::clipboard()->setText("17,5 ");
    const QLineEdit *opened = edit(0, TaxColumn::Rate);
    QCOMPARE(opened->inputMask(), QString("00.00"));
    QCOMPARE(opened->displayText(), QString("20.00"));
    if (typed == "paste")
        pressKeys({Qt::CTRL + Qt::Key_V});
    else
        typeText(typed);
    const QString asked = answerConfirm([] { pressKeys({Qt::Key_Return}); }, true);
    QVERIFY2(asked.contains("ПДВ А: 20.00 % → " + rate + " %"), qPrintable(asked));
    QTRY_VERIFY(editor() == nullptr);
    QCOMPARE(stored(1), "ПДВ А|" + hundredths + "|ДОД А|0");
    QCOMPARE(shown(0, TaxColumn::Rate), rate);
    m_tab->activateWindow();
    QTRY_VERIFY(m_tab->view()->hasFocus());
    QCOMPARE(m_base->rows("SELECT name FROM updat WHERE updat>'2020-01-01'"), QStringList("tax"));
    QCOMPARE(m_base->heard.texts(), QStringList());
}

void TstQTabTax::unclearRateIsRefused_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("why");
    QTest::newRow("nothing") << " "
                             << "Введіть ставку";
    QTest::newRow("no whole part") << ".5"
                                   << "«.5» не є числом відсотків";
    QTest::newRow("gap") << "7. 5"
                         << "Впишіть обидві цифри після крапки";
}

void TstQTabTax::unclearRateIsRefused()
{
    QFETCH(QString, typed);
    QFETCH(QString, why);
    edit(1, TaxColumn::LevyRate);
    typeText(typed);
    const QString text = editor()->displayText();
    const QString told = answerQuestion([] { pressKeys({Qt::Key_Return}); });
    QVERIFY2(told.startsWith(why), qPrintable(told));
    m_tab->activateWindow();
    QTRY_VERIFY(editor() != nullptr && editor()->hasFocus());
    QCOMPARE(editor()->displayText(), text);
    pressKeys({Qt::Key_Escape});
    QTRY_VERIFY(editor() == nullptr);
    QCOMPARE(stored(2), QString("ПДВ Б|2000|ДОД Б|500"));
}

void TstQTabTax::rateIsChangedOnPurposeOnly()
{
    // Looked at and left, also one that the mask cannot hold.
    for (const int row : {0, 4}) {
        edit(row, TaxColumn::Rate);
        QCOMPARE(editor()->displayText(), row == 0 ? QString("20.00") : QString("  .  "));
        QTest::mouseClick(m_tab->view()->viewport(), Qt::LeftButton, {},
                          m_tab->view()->visualRect(cell(2, TaxColumn::Name)).center());
        QTRY_VERIFY(editor() == nullptr);
    }
    QCOMPARE(stored(5), QString("ПДВ Д|12550||0"));
    edit(0, TaxColumn::Rate);
    QVERIFY(answerConfirm([] { scan("4820000123456"); }, false).contains("20.00 % → 48.20 %"));
    m_tab->activateWindow();
    QTRY_VERIFY(editor() != nullptr && editor()->hasFocus());
    QCOMPARE(editor()->displayText(), QString("48.20"));
    pressKeys({Qt::Key_Escape});
    QTRY_VERIFY(editor() == nullptr);
    QCOMPARE(shown(0, TaxColumn::Rate), QString("20.00"));
    QCOMPARE(stored(1), QString("ПДВ А|2000|ДОД А|0"));
}

void TstQTabTax::nextCellWhileAsked()
{
    edit(0, TaxColumn::Rate);
    QGuiApplication::clipboard()->setText("123,45");
    typeText("14");
    pressKeys({Qt::CTRL + Qt::Key_V});
    QCOMPARE(editor()->displayText(), QString("14.  "));
    const QPoint next = m_tab->view()->visualRect(cell(1, TaxColumn::LevyName)).center();
    answerConfirm(
        [&] {
            QTest::mouseClick(m_tab->view()->viewport(), Qt::LeftButton, {}, next);
            QTest::mouseDClick(m_tab->view()->viewport(), Qt::LeftButton, {}, next);
        },
        true);
    QCOMPARE(stored(1), QString("ПДВ А|1400|ДОД А|0"));
    m_tab->activateWindow();
    QTRY_VERIFY(editor() != nullptr && editor()->hasFocus() && editor()->text() == "ДОД Б");
    pressKeys({Qt::Key_Escape});
}

/// The statement of the name is one that the server refuses.
void TstQTabTax::renamingFails()
{
    edit(0, TaxColumn::Name);
    QCOMPARE(editor()->maxLength(), 25);
    editor()->selectAll();
    typeText("ПДВ 20");
    pressKeys({Qt::Key_Return});
    waitOutTasks();
    const auto errors = m_base->heard.texts(QMessEvent::Critical);
    QCOMPARE(errors.size(), 1);
    QVERIFY2(errors.first().startsWith("Помилка оновлення запису."), qPrintable(errors.first()));
    QVERIFY2(errors.first().contains("ntid") && errors.first().contains("Unknown column"),
             qPrintable(errors.first()));
    QTRY_VERIFY2(editor() == nullptr, "whoever leaves it does not try again");
    QTRY_VERIFY(m_tab->view()->hasFocus());
    QCOMPARE(shown(0, TaxColumn::Name), QString("ПДВ А"));
    QCOMPARE(stored(1), QString("ПДВ А|2000|ДОД А|0"));
    // The connection is sound: the next one is written.
    edit(0, TaxColumn::LevyRate);
    typeText("0100");
    answerConfirm([] { pressKeys({Qt::Key_Tab}); }, true);
    QCOMPARE(stored(1), QString("ПДВ А|2000|ДОД А|100"));
}

void TstQTabTax::levyIsRenamed()
{
    edit(1, TaxColumn::LevyName);
    QCOMPARE(editor()->maxLength(), 25);
    editor()->selectAll();
    typeText(" Акциз '5 \\%' ");
    pressKeys({Qt::Key_Return});
    QTRY_COMPARE(stored(2), QString("ПДВ Б|2000|Акциз '5 \\%'|500"));
    QTRY_VERIFY(editor() == nullptr);
    QCOMPARE(shown(1, TaxColumn::LevyName), QString("Акциз '5 \\%'"));
    auto *search = child<QLineEdit>(m_tab.get(), "leSearch");
    search->setFocus();
    typeText("акц 5");
    QTRY_COMPARE(m_tab->model()->rowCount(), 1);
    pressKeys({Qt::Key_Escape});
    QTRY_COMPARE(m_tab->model()->rowCount(), 5);
    QTRY_VERIFY(!m_tab->isLoading());
    // A group may have none.
    edit(1, TaxColumn::LevyName);
    pressKeys({Qt::Key_Delete, Qt::Key_Return});
    QTRY_COMPARE(stored(2), QString("ПДВ Б|2000||500"));
    QCOMPARE(m_base->heard.texts(), QStringList());
}

void TstQTabTax::changedMeanwhile()
{
    edit(0, TaxColumn::Rate);
    typeText("1400");
    m_base->exec({"UPDATE tax SET pdv_proc=1800 WHERE id=1", "UPDATE tax SET pdv_proc=900 WHERE id=3"});
    QString told;
    answerConfirm(
        [&] {
            pressKeys({Qt::Key_Return});
            told = answerQuestion([] { waitOutTasks(); });
        },
        true);
    QVERIFY2(told.contains("інша програма записала тут «18.00»"), qPrintable(told));
    QCOMPARE(stored(1), QString("ПДВ А|1800|ДОД А|0"));
    m_tab->activateWindow();
    QTRY_VERIFY(editor() != nullptr && editor()->hasFocus());
    QCOMPARE(editor()->displayText(), QString("14.00"));
    QVERIFY(answerConfirm([] { pressKeys({Qt::Key_Return}); }, true).contains("18.00 % → 14.00 %"));
    QTRY_VERIFY(editor() == nullptr);
    QCOMPARE(stored(1), QString("ПДВ А|1400|ДОД А|0"));
    QCOMPARE(shown(2, TaxColumn::Rate), QString("9.00"));
}

void TstQTabTax::groupsAreFixed()
{
    const Commands offered = m_tab->commands();
    QVERIFY(offered.value(Command::Add).startsWith("Податкових груп завжди п'ять"));
    QVERIFY(offered.value(Command::Delete).startsWith("Податкових груп завжди п'ять"));
    QCOMPARE(offered.value(Command::Edit, "немає"), QString());
    QVERIFY(answerQuestion([this] { m_tab->run(Command::Add); }).startsWith("Податкових груп завжди п'ять"));
    QCOMPARE(answerQuestion([this] { m_tab->run(Command::Delete); }), QString("Видалення заборонене!!!"));
    QCOMPARE(m_tab->model()->rowCount(), 5);
    QVERIFY(showActive(m_tab.get()));
    m_tab->view()->setFocus();
    // The id is not edited: whoever wants to, edits the rate.
    edit(2, TaxColumn::Id);
    QCOMPARE(editor()->displayText(), QString("07.00"));
    pressKeys({Qt::Key_Escape});
    open(m_place->connection(), 2);
    m_tab->run(Command::Add);
    m_tab->view()->setCurrentIndex(cell(0, TaxColumn::Rate));
    pressKeys({Qt::Key_Return});
    QVERIFY(editor() == nullptr);
    QVERIFY(m_tab->commands().keys() == QList<Command>{Command::Reload});
}

/// The next cell is opened while one is written: neither the answer nor the groups that are read again
/// disturb what is typed there.
void TstQTabTax::hurriedHandsOnASlowLine()
{
    TcpProxy proxy(testServer());
    DatabaseAddress address = proxy.address();
    address.name = m_base->address().name;
    QSqlDatabase slow = addConnection("slow", address);
    QVERIFY(slow.open());
    open(&slow);
    proxy.setDelay(100);
    edit(1, TaxColumn::LevyName);
    typeText("Акциз");
    const QPoint next = m_tab->view()->visualRect(cell(2, TaxColumn::LevyName)).center();
    QTest::mouseClick(m_tab->view()->viewport(), Qt::LeftButton, {}, next);
    QTest::mouseDClick(m_tab->view()->viewport(), Qt::LeftButton, {}, next);
    QTest::mouseRelease(m_tab->view()->viewport(), Qt::LeftButton, {}, next);
    QTRY_COMPARE(child<QLabel>(m_tab.get(), "labelWriting")->text(), QString("Записується…"));
    QVERIFY(!m_tab->mayClose());
    QTRY_VERIFY(editor() != nullptr && editor()->hasFocus() && editor()->text() == "ДОД В");
    typeText("Збір");
    m_base->exec("UPDATE tax SET dod_proc=300 WHERE id=5");
    waitOutTasks();
    QVERIFY(editor() != nullptr && editor()->text() == "Збір");
    pressKeys({Qt::Key_Tab});
    QTRY_VERIFY(editor() == nullptr);
    QCOMPARE(stored(2), QString("ПДВ Б|2000|Акциз|500"));
    QCOMPARE(stored(3), QString("ПДВ В|700|Збір|0"));
    QCOMPARE(shown(2, TaxColumn::LevyName), QString("Збір"));
    QCOMPARE(shown(4, TaxColumn::LevyRate), QString("3.00"));
    QCOMPARE(m_base->heard.texts(), QStringList());
    proxy.setDelay(0);
    m_tab.reset();
    slow = QSqlDatabase();
    QSqlDatabase::removeDatabase("slow");
}

void TstQTabTax::unreadableTable()
{
    m_base->exec("RENAME TABLE tax TO away");
    m_tab = std::make_unique<QTabTax>(m_place->connection(), m_place->user(), &m_base->heard,
                                      m_place->settings(), nullptr);
    QTRY_VERIFY(!m_tab->isLoading());
    const auto errors = m_base->heard.texts(QMessEvent::Critical);
    m_base->exec("RENAME TABLE away TO tax");
    QCOMPARE(errors.size(), 1);
    QVERIFY2(errors.first().startsWith("Помилка при отриманні кількості записів таблиці tax"),
             qPrintable(errors.first()));
    QCOMPARE(m_tab->model()->rowCount(), 0);
    m_tab->run(Command::Reload);
    QTRY_COMPARE(m_tab->model()->rowCount(), 5);
}

/// Among other pages: the tab itself passes the keyboard on to the field.
void TstQTabTax::tabLeadsFromTheFieldIntoTheList()
{
    QTabWidget pages;
    QTabTax *tab = m_tab.release();
    pages.addTab(tab, "Податки");
    QVERIFY(showActive(&pages));
    auto *field = child<QLineEdit>(tab, "leSearch");
    field->setFocus();
    QStringList stops;
    for (const int key : {Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Backtab,
                          Qt::Key_Backtab}) {
        pressKeys({key});
        stops.append(QApplication::focusWidget()->objectName());
    }
    QCOMPARE(stops, QStringList({"view", "pbPrintList", "pbPdfList", "qt_tabwidget_tabbar", "leSearch",
                                 "qt_tabwidget_tabbar", "pbPdfList"}));
}

QTEST_MAIN(TstQTabTax)
#include "tst_qtabtax.moc"
