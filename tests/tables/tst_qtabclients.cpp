#include "workplace.h"

#include "cardrange.h"
#include "cardreceipts.h"
#include "clnfilter.h"
#include "job.h"
#include "listpane.h"
#include "optionaldate.h"
#include "qaddedtcln.h"
#include "qntableview.h"
#include "qrowmodel.h"
#include "qtabclients.h"

#include <QCalendarWidget>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMutex>
#include <QPushButton>

/// The loyalty cards: their list with its pages and searches, the editor of a card, the creation of ranges.
class TstQTabClients : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { m_place = std::make_unique<Workplace>(); }
    void cleanupTestCase() { m_place.reset(); }
    void init();
    void cleanup();

    void listShowsCards();
    void searchesNarrowTheList();
    void pagesDoNotOverlap();
    void allRowsAreShownWhenAsked();
    void countThatFailsIsUnknown();
    void pageSizeIsNeverEmpty();
    void typingIsOneQuestion();

    void cardsAreScannedOneAfterTheOther();

    void editedCardIsStored();
    void birthdayStaysEmpty();
    void datesAsTheyAreTyped_data();
    void datesAsTheyAreTyped();
    void calendarOfNoDate();
    void blockedLevelStays();
    void lostLevelIsNamed();
    void otherProgramsSumsStay();
    void missingCardIsTold();
    void viewerMayOnlyLook();

    void rangeIsCreatedInPieces();
    void rangeIsCreatedInTheDialog();
    void scannedNumberCreatesNothing();
    void takenRangeIsRefused();
    void codesFillTheColumn();
    void noLevelNoCards();
    void failedPieceLeavesTheOnesBefore();
    void lostAnswerIsAskedFor();
    void creationIsCancelled();

    void creationOutlivesItsTab();

    void receiptsFollowTheCard();
    void manyReceiptsNeedAShop();
    void filterIsACondition();

private:
    void insertCards(qint64 first, int count);
    void insertReceipts();
    QStringList receipts();
    QTabClients *openTab();
    QStringList shown(int column = 0);
    QString label(const char *name) { return child<QLabel>(m_tab.get(), name)->text(); }
    void click(const char *name) { child<QPushButton>(m_tab.get(), name)->click(); }
    bool edit(qint64 id, const std::function<void(QAddEdtCln *)> &drive);
    bool add(const std::function<void(QAddEdtCln *)> &drive);
    QString saveRange(QAddEdtCln *editor, const QString &first, const QString &count);
    JobResult create(const CardRange &range);
    QString stored(const QString &id);

    std::unique_ptr<Workplace> m_place;
    FreshDatabase *m_base = nullptr;
    std::unique_ptr<QTabClients> m_tab;
};

void TstQTabClients::init()
{
    m_place->clear();
    m_base = &m_place->base;
    m_base->exec(
        {"DELETE FROM procent",
         "INSERT INTO procent(id,name,discount,sum,auto,block) VALUES(1,'Без знижки',0,0,1,0),"
         "(2,'Срібна',350,100000,1,0),(3,'Стара',500,0,0,1),(4,'Дрібна',100,0,1,0)",
         "INSERT INTO clients(id,id_procent,bonus_summ,summ,bonus_discount,fiksed,group_shop,name,telephone,"
         "email,birthday,block,info,send) VALUES(1,1,0,0,0,1,1,NULL,NULL,NULL,0,0,NULL,0),"
         "(2200000012,2,1250,123456,1,0,2,'Марія В\\'юн','+380671234567','m@v.ua',19900315,0,'нова',1),"
         "(2200001203,3,0,500000,0,1,3,'100% Їжак','050 111','',NULL,1,NULL,0)"});
    m_place->logIn(Permission::Clients);
}

void TstQTabClients::cleanup()
{
    Db::setStatementHook(nullptr);
    Db::setStatementRefusal(nullptr);
    m_tab.reset();
    m_base->exec({"DELETE FROM cheks", "DELETE FROM clients"});
}

void TstQTabClients::insertCards(qint64 first, int count)
{
    QStringList rows;
    for (int i = 0; i < count; ++i)
        rows.append(QString("(%1,1)").arg(first + i));
    m_base->exec("INSERT INTO clients(id,group_shop) VALUES" + rows.join(','));
}

QTabClients *TstQTabClients::openTab()
{
    m_tab = std::make_unique<QTabClients>(m_place->connection(), m_place->user(), &m_base->heard,
                                          m_place->settings(), nullptr);
    m_tab->setPermission(Permission::Clients);
    m_tab->resize(1000, 400);
    m_tab->show();
    m_tab->view()->sortByColumn(0, Qt::AscendingOrder);
    shown();
    m_base->heard.forget();
    return m_tab.get();
}

QStringList TstQTabClients::shown(int column)
{
    if (!QTest::qWaitFor([this] { return !m_tab->isLoading(); }))
        qFatal("the list did not come");
    QStringList texts;
    for (int row = 0; row < m_tab->model()->rowCount(); ++row)
        texts.append(m_tab->model()->stored(row, column));
    return texts;
}

bool TstQTabClients::edit(qint64 id, const std::function<void(QAddEdtCln *)> &drive)
{
    const int row = shown().indexOf(QString::number(id));
    return inEditor<QAddEdtCln>([&] { m_tab->Edit(m_tab->model()->index(row, 1)); }, drive);
}

bool TstQTabClients::add(const std::function<void(QAddEdtCln *)> &drive)
{
    return inEditor<QAddEdtCln>([&] { m_tab->Add(); }, drive);
}

QString TstQTabClients::saveRange(QAddEdtCln *editor, const QString &first, const QString &count)
{
    enter(editor, "leId", first);
    enter(editor, "leCount", count);
    return answerQuestion([&] {
        child<QPushButton>(editor, "pbOk")->click();
        waitOutJobs();
    });
}

/// The statements that create cards are heard by the test's hooks.
JobResult TstQTabClients::create(const CardRange &range)
{
    JobResult ended;
    Job job(
        "картки", m_place->connection()->connectionName(),
        [range](JobContext &context) {
            Db::letHooksHearThisThread();
            return createCards(context, range);
        },
        &m_base->heard);
    connect(&job, &Job::finished, &job, [&ended](const JobResult &result) { ended = result; });
    job.start();
    waitOutJobs();
    return ended;
}

QString TstQTabClients::stored(const QString &id)
{
    return m_base
        ->rows("SELECT id_procent,bonus_summ,summ,bonus_discount,fiksed,group_shop,IFNULL(name,'NULL'),"
               "telephone,email,IFNULL(birthday+0,'NULL'),block,info,send FROM clients WHERE id=" +
               id)
        .join('/');
}

void TstQTabClients::listShowsCards()
{
    openTab();
    QStringList texts;
    for (int column = 0; column < m_tab->model()->columnCount(); ++column)
        texts.append(m_tab->model()->headerData(column, Qt::Horizontal).toString() + '=' +
                     m_tab->model()->index(1, column).data().toString());
    QCOMPARE(texts, QStringList({"Код карточки=2200000012", "Знижка=Срібна", "Сума бонусів=12.50",
                                 "Сума покупок=1\u00a0234.56", "Карточка бонунса/на знижку=Бонус",
                                 "Фіксована знижка=Ні", "Група=Захід", "Ім'я=Марія В'юн",
                                 "Телефон=+380671234567", "E-MAIL=m@v.ua", "Дата народження=15-03-1990",
                                 "Блокування=Ні", "Інфо=нова", "Передача в CashDrive=Так"}));
    QCOMPARE(label("labelCount"), QString("Кількість записів 3"));
}

void TstQTabClients::searchesNarrowTheList()
{
    openTab();
    auto *code = child<QLineEdit>(m_tab.get(), "leSearch");
    auto *person = child<QLineEdit>(m_tab.get(), "lePerson");
    code->setText("12");
    QCOMPARE(shown(), QStringList({"2200000012", "2200001203"}));
    QCOMPARE(label("labelCount"), QString("Кількість записів 2"));
    person->setText("їжак");
    QCOMPARE(shown(), QStringList("2200001203"));
    code->clear();
    person->setText("71234");
    QCOMPARE(shown(), QStringList("2200000012"));
    person->setText("В'ЮН");
    QCOMPARE(shown(), QStringList("2200000012"));
    person->setText("%");
    QCOMPARE(shown(), QStringList("2200001203"));
    code->clear();
    person->clear();
    code->setText("0000000001");
    QCOMPARE(shown(), QStringList("1"));
    code->clear();
    person->setText("%");
    QTest::keyClicks(code, "1a2 3");
    QCOMPARE(code->text(), QString("123"));
    QCOMPARE(shown(), QStringList());
    QCOMPARE(label("labelCount"), QString("Кількість записів 0"));
    click("pbLoad");
    QCOMPARE(shown().size(), 3);
    QCOMPARE(code->text() + person->text(), QString());
    QCOMPARE(m_base->heard.texts(), QStringList());
}

void TstQTabClients::pagesDoNotOverlap()
{
    m_base->exec("DELETE FROM clients");
    insertCards(5000, 250);
    openTab();
    QCOMPARE(shown().size(), 100);
    QCOMPARE(label("labelCount"), QString("Кількість записів 250"));
    QVERIFY(!child<QPushButton>(m_tab.get(), "pbPrevious")->isEnabled());
    QStringList all = shown();
    // By something else the page's last card is not its last row.
    m_tab->view()->sortByColumn(0, Qt::DescendingOrder);
    // Pressed twice in a hurry, it is one page.
    click("pbNext");
    click("pbNext");
    QCOMPARE(shown().size(), 100);
    QCOMPARE(label("labelPage"), QString("сторінка 2"));
    all += shown();
    // Somebody else creates cards meanwhile.
    insertCards(4000, 10);
    click("pbNext");
    all += shown();
    QCOMPARE(shown().size(), 50);
    QVERIFY(!child<QPushButton>(m_tab.get(), "pbNext")->isEnabled());
    all.sort();
    QCOMPARE(all.size(), 250);
    QCOMPARE(all.removeDuplicates(), 0);
    QCOMPARE(all.first() + all.last(), QString("50005249"));
    click("pbPrevious");
    QCOMPARE(shown().first(), QString("5199"));
    // A search begins on its first page, and another size counts from the next load on.
    enter(m_tab.get(), "lePage", "30");
    child<QLineEdit>(m_tab.get(), "leSearch")->setText("51");
    QCOMPARE(shown().size(), 30);
    QCOMPARE(label("labelPage") + label("labelCount"), QString("сторінка 1Кількість записів 101"));
}

void TstQTabClients::allRowsAreShownWhenAsked()
{
    insertCards(5000, 300);
    openTab();
    QCOMPARE(shown().size(), 100);
    // Ticked while a page is on its way: that page stays one.
    click("pbLoad");
    child<QCheckBox>(m_tab.get(), "chAll")->setChecked(true);
    QVERIFY(m_base->heard.has("QTabClients::CheckState=2"));
    QCOMPARE(shown().size(), 100);
    QCOMPARE(label("labelCount"), QString("Кількість записів 303"));
    click("pbLoad");
    QCOMPARE(shown().size(), 303);
    QCOMPARE(label("labelCount"), QString("Кількість записів 303"));
    QVERIFY(!child<QPushButton>(m_tab.get(), "pbNext")->isEnabled());
}

void TstQTabClients::countThatFailsIsUnknown()
{
    openTab();
    m_base->exec("RENAME TABLE discbonus TO discbonus2");
    click("pbLoad");
    shown();
    m_base->exec("RENAME TABLE discbonus2 TO discbonus");
    QVERIFY(m_base->heard.has("Помилка запиту:"));
    QCOMPARE(label("labelCount"), QString("Кількість записів невідома"));
}

void TstQTabClients::pageSizeIsNeverEmpty()
{
    openTab();
    m_tab->activateWindow();
    auto *size = child<QLineEdit>(m_tab.get(), "lePage");
    size->setFocus();
    QTRY_VERIFY(size->hasFocus());
    size->selectAll();
    pressKeys({Qt::Key_Delete, Qt::Key_0, Qt::Key_Tab});
    QCOMPARE(size->text(), QString("1"));
    QVERIFY(m_base->heard.has("QTabClients::eventFilter"));
    size->setFocus();
    pressKeys({Qt::Key_Return});
    QCOMPARE(shown(), QStringList("1"));
    QCOMPARE(label("labelCount"), QString("Кількість записів 3"));
}

void TstQTabClients::typingIsOneQuestion()
{
    openTab();
    m_tab->activateWindow();
    auto *code = child<QLineEdit>(m_tab.get(), "leSearch");
    code->setFocus();
    QTRY_VERIFY(code->hasFocus());
    typeText("0012");
    pressKeys({Qt::Key_Return});
    QCOMPARE(shown(), QStringList({"2200000012", "2200001203"}));
    int searches = 0;
    for (const auto &message : m_base->heard.all())
        searches += message.text.startsWith("QTabClients::seerch(QString)=") ? 1 : 0;
    QCOMPARE(searches, 1);
    QVERIFY(m_tab->view()->hasFocus());
}

void TstQTabClients::cardsAreScannedOneAfterTheOther()
{
    openTab();
    m_tab->activateWindow();
    child<QLineEdit>(m_tab.get(), "leSearch")->setFocus();
    QTRY_VERIFY(child<QLineEdit>(m_tab.get(), "leSearch")->hasFocus());
    for (const char *code : {"2200000012", "2200001203", "2200000012"}) {
        scan(code);
        QCOMPARE(shown(), QStringList(code));
        QVERIFY(m_tab->view()->hasFocus());
    }
    const QString before = stored("2200000012");
    QVERIFY(edit(2200000012, [](QAddEdtCln *editor) {
        editor->activateWindow();
        for (const char *name : {"leName", "leTelephone", "leInfo", "cbProcent", "deBirthday", "pbOk"}) {
            child<QWidget>(editor, name)->setFocus();
            QTRY_VERIFY(child<QWidget>(editor, name)->hasFocus());
            scan("2200001203");
            QVERIFY2(editor->isVisible(), name);
        }
    }));
    QCOMPARE(stored("2200000012"), before);
}

void TstQTabClients::editedCardIsStored()
{
    openTab();
    QVERIFY(edit(2200000012, [](QAddEdtCln *editor) {
        QCOMPARE(editor->windowTitle(), QString("Редагування картки клієнта"));
        QCOMPARE(child<QLabel>(editor, "label_leId")->text(), QString("Номер картки яка редагується"));
        QCOMPARE(child<QLineEdit>(editor, "leId")->text(), QString("2200000012"));
        QVERIFY(child<QLineEdit>(editor, "leId")->isReadOnly());
        QVERIFY(!child<QLineEdit>(editor, "leCount")->isEnabled());
        QCOMPARE(child<OptionalDateEdit>(editor, "deBirthday")->text(), QString("15.03.1990"));
        QCOMPARE(child<QLineEdit>(editor, "leName")->maxLength(), 150);
        enter(editor, "cbProcent", "Без знижки");
        enter(editor, "cbDiscBonus", "Знижка");
        enter(editor, "cbFiksed", "Так");
        enter(editor, "cbGroup", "Схід");
        enter(editor, "leName", "Марія О'Коннор");
        enter(editor, "cbBlock", "Так");
        QCOMPARE(saveMeets(editor), QString());
    }));
    QCOMPARE(stored("2200000012"),
             QString("1|1250|123456|0|1|3|Марія О'Коннор|+380671234567|m@v.ua|19900315|1|нова|1"));
    QCOMPARE(m_tab->model()->stored(1, 7), QString("Марія О'Коннор"));
}

void TstQTabClients::birthdayStaysEmpty()
{
    openTab();
    for (const qint64 id : {1LL, 2200001203LL}) {
        QVERIFY(edit(id, [](QAddEdtCln *editor) {
            QCOMPARE(child<OptionalDateEdit>(editor, "deBirthday")->text(), QString());
            enter(editor, "leInfo", "знайомі");
            QCOMPARE(saveMeets(editor), QString());
        }));
    }
    QCOMPARE(m_base->value("SELECT COUNT(*) FROM clients WHERE info='знайомі' AND (birthday IS NULL OR "
                           "birthday=0)"),
             QString("2"));
}

void TstQTabClients::datesAsTheyAreTyped_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("expected");
    QTest::newRow("points") << "05.11.1987"
                            << "19871105";
    QTest::newRow("digits only") << "05111987"
                                 << "19871105";
    QTest::newRow("short") << "5.1.2001"
                           << "20010105";
    QTest::newRow("emptied") << ""
                             << "NULL";
    QTest::newRow("half") << "05.11"
                          << "";
    QTest::newRow("no such day") << "31.02.1990"
                                 << "";
}

void TstQTabClients::datesAsTheyAreTyped()
{
    QFETCH(QString, typed);
    QFETCH(QString, expected);
    openTab();
    QVERIFY(edit(2200000012, [&](QAddEdtCln *editor) {
        editor->activateWindow();
        auto *date = child<OptionalDateEdit>(editor, "deBirthday");
        date->setFocus();
        QTRY_VERIFY(date->hasFocus());
        pressKeys({Qt::CTRL + Qt::Key_A, Qt::Key_Delete});
        typeText(typed);
        const QString why = saveMeets(editor);
        if (expected.isEmpty()) {
            QVERIFY2(why.contains("«" + typed + "» не є датою"), qPrintable(why));
            QCOMPARE(date->text(), typed);
        } else {
            QCOMPARE(why, QString());
        }
    }));
    QCOMPARE(m_base->value("SELECT IFNULL(birthday+0,'NULL') FROM clients WHERE id=2200000012"),
             expected.isEmpty() ? QString("19900315") : expected);
}

/// It opens where birthdays are, and choosing nothing chooses none.
void TstQTabClients::calendarOfNoDate()
{
    openTab();
    QVERIFY(edit(1, [](QAddEdtCln *editor) {
        auto *date = child<OptionalDateEdit>(editor, "deBirthday");
        const QPoint arrow(date->width() - 6, date->height() / 2);
        auto *calendar = date->calendarWidget();
        for (const bool isChosen : {false, true}) {
            QTest::mouseClick(date, Qt::LeftButton, Qt::NoModifier, arrow);
            QTRY_VERIFY(calendar->isVisible());
            QCOMPARE(calendar->yearShown(), QDate::currentDate().year() - 30);
            if (isChosen)
                emit calendar->clicked(QDate(1995, 2, 3));
            else
                QTest::keyClick(calendar, Qt::Key_Escape);
            QTRY_VERIFY(!calendar->isVisible());
            QCOMPARE(date->text(), isChosen ? QString("03.02.1995") : QString());
        }
        QCOMPARE(saveMeets(editor), QString());
    }));
    QCOMPARE(m_base->value("SELECT birthday+0 FROM clients WHERE id=1"), QString("19950203"));
}

namespace {
/// What the open list of a box shows.
QStringList offered(const QComboBox *box)
{
    const auto *list = qobject_cast<const QListView *>(box->view());
    QStringList texts;
    for (int row = 0; row < box->count(); ++row) {
        if (!list->isRowHidden(row))
            texts.append(box->itemText(row));
    }
    return texts;
}
} // namespace

void TstQTabClients::blockedLevelStays()
{
    openTab();
    QVERIFY(edit(2200000012, [](QAddEdtCln *editor) {
        QCOMPARE(offered(child<QComboBox>(editor, "cbProcent")),
                 QStringList({"Без знижки", "Дрібна", "Срібна"}));
        QVERIFY(!child<QLabel>(editor, "labelProcent")->isVisible());
    }));
    QVERIFY(edit(2200001203, [](QAddEdtCln *editor) {
        auto *levels = child<QComboBox>(editor, "cbProcent");
        QCOMPARE(levels->currentText(), QString("Стара"));
        QCOMPARE(offered(levels), QStringList({"Без знижки", "Дрібна", "Срібна"}));
        // Looked through and left: that chooses nothing.
        editor->activateWindow();
        levels->setFocus();
        QTRY_VERIFY(levels->hasFocus());
        for (const int leaving : {Qt::Key_Return, Qt::Key_Escape}) {
            pressKeys({Qt::Key_Space});
            QTRY_VERIFY(levels->view()->isVisible());
            // Nor does it lie where the click that opened it may be repeated.
            const QRect list = levels->view()->window()->geometry();
            QVERIFY(!list.contains(levels->mapToGlobal(levels->rect().center())));
            pressKeys({leaving});
            QTRY_VERIFY(!levels->view()->isVisible());
        }
        QCOMPARE(levels->currentText(), QString("Стара"));
    }));
    QVERIFY(edit(2200001203, [](QAddEdtCln *editor) {
        QCOMPARE(child<QComboBox>(editor, "cbProcent")->currentText(), QString("Стара"));
        QVERIFY(child<QLabel>(editor, "labelProcent")->text().contains("заблоковано"));
        enter(editor, "leTelephone", "050 222");
        QCOMPARE(saveMeets(editor), QString());
    }));
    QCOMPARE(stored("2200001203"), QString("3|0|500000|0|1|3|100% Їжак|050 222||NULL|1||0"));
}

/// The exchange raises a card while its editor is open.
void TstQTabClients::lostLevelIsNamed()
{
    openTab();
    const QString before = stored("2200000012");
    // One level that is chosen is removed by others, the next one gets another name.
    QVERIFY(edit(2200000012, [this](QAddEdtCln *editor) {
        enter(editor, "cbProcent", "Дрібна");
        m_base->exec("DELETE FROM procent WHERE id=4");
        const QString gone = saveMeets(editor);
        QVERIFY2(gone.contains("вибране в полі \"Знижка\" вилучила інша програма"), qPrintable(gone));
        enter(editor, "cbProcent", "Без знижки");
        m_base->exec("UPDATE procent SET name='Нуль' WHERE id=1");
        const QString renamed = saveMeets(editor);
        QVERIFY2(renamed.contains("вибране в полі \"Знижка\" перейменувала"), qPrintable(renamed));
    }));
    QCOMPARE(stored("2200000012"), before);
}

void TstQTabClients::otherProgramsSumsStay()
{
    openTab();
    QVERIFY(edit(2200000012, [this](QAddEdtCln *editor) {
        m_base->exec("UPDATE clients SET summ=summ+100000,bonus_summ=7 WHERE id=2200000012");
        enter(editor, "leEmail", "new@v.ua");
        QCOMPARE(saveMeets(editor), QString());
    }));
    QCOMPARE(stored("2200000012"),
             QString("2|7|223456|1|0|2|Марія В'юн|+380671234567|new@v.ua|19900315|0|нова|1"));
}

void TstQTabClients::missingCardIsTold()
{
    openTab();
    m_base->exec("DELETE FROM clients WHERE id=2200000012");
    m_tab->Edit(m_tab->model()->index(1, 1));
    QVERIFY(m_base->heard.has("Запис не знайдено id=2200000012"));
    m_tab->Edit(QModelIndex());
    QVERIFY(m_base->heard.has("QTabClients::Edit !index.isValid()"));
}

void TstQTabClients::viewerMayOnlyLook()
{
    m_place->logIn(Permission::Clients, 2);
    openTab();
    QVERIFY(!m_tab->isOffered(Command::Add));
    QVERIFY(edit(2200000012, [](QAddEdtCln *editor) {
        auto *date = child<OptionalDateEdit>(editor, "deBirthday");
        QCOMPARE(date->text(), QString("15.03.1990"));
        QTest::keyClicks(date, "1");
        QTest::keyClick(date, Qt::Key_Up);
        QTest::mouseClick(date, Qt::LeftButton, Qt::NoModifier,
                          QPoint(date->width() - 6, date->height() / 2));
        QVERIFY(!date->calendarWidget()->isVisible());
        QCOMPARE(date->text(), QString("15.03.1990"));
        QVERIFY(!child<QPushButton>(editor, "pbOk")->isEnabled());
        child<QPushButton>(editor, "pbCancel")->click();
        QVERIFY(!editor->isVisible());
    }));
    QCOMPARE(m_base->heard.texts(), QStringList());
}

void TstQTabClients::rangeIsCreatedInPieces()
{
    QStringList sent;
    QMutex guard;
    Db::setStatementHook([&](const QString &sql) {
        const QMutexLocker lock(&guard);
        sent.append(sql);
    });
    const JobResult result = create({4000000000, 1234, "Срібна", "Бонус", "Так", "Схід", "Ні", "Так"});
    Db::setStatementHook(nullptr);
    QCOMPARE(result.outcome, JobResult::Done);
    QCOMPARE(result.words, QString("Створено карток: 1\u00a0234, коди 4000000000 – 4000001233."));
    QList<int> rows;
    for (const QString &sql : qAsConst(sent)) {
        if (sql.startsWith(
                "INSERT INTO clients(id,id_procent,bonus_discount,fiksed,group_shop,block,send) VALUES("))
            rows.append(sql.count('(') - 1);
    }
    QCOMPARE(rows, QList<int>({500, 500, 234}));
    QCOMPARE(m_base->rows("SELECT COUNT(*),MIN(id),MAX(id) FROM clients WHERE id_procent=2 AND "
                          "bonus_discount=1 AND fiksed=1 AND group_shop=3 AND block=0 AND send=1 AND name IS "
                          "NULL"),
             QStringList("1234|4000000000|4000001233"));
}

void TstQTabClients::rangeIsCreatedInTheDialog()
{
    openTab();
    QVERIFY(add([this](QAddEdtCln *editor) {
        QCOMPARE(editor->windowTitle(), QString("Створення карток клієнтів"));
        QCOMPARE(child<QPushButton>(editor, "pbOk")->text(), QString("Створити"));
        QCOMPARE(child<QLineEdit>(editor, "leId")->text(), QString("2200001204"));
        QCOMPARE(saveRange(editor, "3000000000", ""),
                 QString("Поле \"кількість карток для створення\" не може бути пустим і дорівнювати 0"));
        QCOMPARE(saveRange(editor, "3000000000", "0"),
                 QString("Поле \"кількість карток для створення\" не може бути пустим і дорівнювати 0"));
        QVERIFY(editor->isVisible());
        QCOMPARE(saveRange(editor, "3000000000", "2"), QString());
        QVERIFY(!editor->isVisible());
    }));
    QCOMPARE(
        m_base->rows("SELECT id,id_procent,bonus_discount,fiksed,group_shop,block,send FROM clients WHERE "
                     "id>=3000000000"),
        QStringList({"3000000000|1|0|0|1|0|0", "3000000001|1|0|0|1|0|0"}));
    QCOMPARE(shown().size(), 5);
    QCOMPARE(label("labelCount"), QString("Кількість записів 5"));
    QVERIFY(m_base->heard.has("Створено карток: 2"));
    QVERIFY(add([](QAddEdtCln *editor) { child<QPushButton>(editor, "pbCancel")->click(); }));
    QVERIFY(m_base->heard.has("Запис не додано, відмінено користувачем!"));
}

void TstQTabClients::scannedNumberCreatesNothing()
{
    m_base->exec("DELETE FROM clients WHERE id>1");
    openTab();
    QVERIFY(add([this](QAddEdtCln *editor) {
        editor->activateWindow();
        auto *count = child<QLineEdit>(editor, "leCount");
        QTRY_VERIFY(count->hasFocus());
        // Its Enter decides nothing; whoever presses the button with that number is asked.
        scan("2200000001234");
        QVERIFY(editor->isVisible() && !editor->isBusy());
        const QString asked = answerConfirm([&] { child<QPushButton>(editor, "pbOk")->click(); }, false);
        QVERIFY2(asked.contains("2\u00a0200\u00a0000\u00a0001"), qPrintable(asked));
        waitOutJobs();
        QVERIFY(editor->isVisible());
    }));
    QCOMPARE(m_base->value("SELECT COUNT(*) FROM clients"), QString("1"));
}

void TstQTabClients::takenRangeIsRefused()
{
    openTab();
    QVERIFY(add([this](QAddEdtCln *editor) {
        QCOMPARE(saveRange(editor, "2200000000", "5000"),
                 QString("Діапазон карток не вільний, в заданому діапазоні знадено карток:2"));
        QVERIFY(editor->isVisible());
        QCOMPARE(child<QLineEdit>(editor, "leCount")->text(), QString("5000"));
    }));
    QCOMPARE(m_base->value("SELECT COUNT(*) FROM clients"), QString("3"));
    QCOMPARE(m_base->heard.texts(2), QStringList());
}

void TstQTabClients::codesFillTheColumn()
{
    openTab();
    QVERIFY(add([this](QAddEdtCln *editor) {
        const QString why = saveRange(editor, "4294967290", "7");
        QVERIFY2(why.startsWith("Діапазон карток не вільний, в заданому діапазоні знадено карток:0\n"),
                 qPrintable(why));
        QVERIFY(why.contains("4294967295"));
        QCOMPARE(saveRange(editor, "4294967290", "6"), QString());
    }));
    QCOMPARE(m_base->value("SELECT MAX(id) FROM clients"), QString("4294967295"));
}

void TstQTabClients::noLevelNoCards()
{
    m_base->exec("UPDATE procent SET block=1");
    openTab();
    const QString told = answerQuestion([this] {
        m_tab->Add();
        waitOutTasks();
    });
    QVERIFY2(told.contains("Спершу додайте знижку"), qPrintable(told));
    // A card that has one can still be edited.
    QVERIFY(edit(2200000012, [](QAddEdtCln *editor) {
        enter(editor, "leInfo", "далі");
        QCOMPARE(saveMeets(editor), QString());
    }));
    QCOMPARE(m_base->value("SELECT info FROM clients WHERE id_procent=2"), QString("далі"));
}

void TstQTabClients::failedPieceLeavesTheOnesBefore()
{
    int inserts = 0;
    Db::setStatementRefusal([&](const QString &sql) {
        return sql.startsWith("INSERT INTO clients(") && ++inserts == 2 ? 1205 : 0;
    });
    const JobResult result = create({3000000000, 1100, "Срібна", "Бонус", "Так", "Схід", "Ні", "Так"});
    QCOMPARE(result.outcome, JobResult::Failed);
    QCOMPARE(result.words,
             QString("Створено карток: 500 з 1\u00a0100, коди 3000000000 – 3000000499. Решту не створено."));
    QCOMPARE(result.value.value<CardsCreated>().count, 500);
    QCOMPARE(m_base->value("SELECT COUNT(*) FROM clients WHERE id>=3000000000"), QString("500"));
    QVERIFY(m_base->heard.has("Помилка запиту:"));
    m_base->heard.forget();
    create({3000001000, 1, "Срібна", "Бонус", "Так", "Нема", "Ні", "Так"});
    QVERIFY(m_base->heard.has("Немає даних після запиту"));
}

/// The connection breaks right behind the second statement: the server has it, its answer is gone.
void TstQTabClients::lostAnswerIsAskedFor()
{
    int inserts = 0;
    Db::setStatementHook([&](const QString &sql) {
        if (sql.startsWith("INSERT INTO clients(") && ++inserts == 2) {
            m_base->execElsewhere(sql);
            m_base->killConnection();
        }
    });
    const JobResult result = create({3000000000, 1200, "Срібна", "Бонус", "Так", "Схід", "Ні", "Так"});
    QCOMPARE(result.outcome, JobResult::Failed);
    QCOMPARE(result.value.value<CardsCreated>().count, 1000);
    QCOMPARE(m_base->value("SELECT COUNT(*) FROM clients WHERE id>=3000000000"), QString("1000"));
    QVERIFY2(result.words.contains("3000000000 – 3000000999"), qPrintable(result.words));
}

void TstQTabClients::creationIsCancelled()
{
    openTab();
    const qint64 before = 3;
    QVERIFY(add([&](QAddEdtCln *editor) {
        enter(editor, "leId", "3000000000");
        enter(editor, "leCount", "1000000");
        const QString asked = answerConfirm([&] { child<QPushButton>(editor, "pbOk")->click(); }, true);
        QVERIFY2(asked.contains("1\u00a0000\u00a0000, коди 3000000000 – 3000999999"), qPrintable(asked));
        QTRY_VERIFY(m_base->value("SELECT COUNT(*) FROM clients").toLongLong() > before);
        QElapsedTimer clock;
        clock.start();
        QTest::mouseClick(child<QPushButton>(editor, "pbCancel"), Qt::LeftButton);
        waitOutJobs();
        QVERIFY2(clock.elapsed() < 2500, qPrintable(QString::number(clock.elapsed())));
        // What was not created stands in the fields.
        const qint64 created = m_base->value("SELECT COUNT(*) FROM clients").toLongLong() - before;
        QVERIFY(editor->isVisible());
        QCOMPARE(child<QLineEdit>(editor, "leId")->text(), QString::number(3000000000 + created));
        QCOMPARE(child<QLineEdit>(editor, "leCount")->text(), QString::number(1000000 - created));
        QVERIFY(child<QLabel>(editor, "labelResult")->text().contains("з 1\u00a0000\u00a0000"));
        answerConfirm([&] { child<QPushButton>(editor, "pbCancel")->click(); }, true);
    }));
    QCOMPARE(shown().size(), 100);
    QVERIFY(!m_base->heard.has("Запис не додано"));
}

void TstQTabClients::creationOutlivesItsTab()
{
    openTab();
    withModal<QAddEdtCln>([this] { m_tab->Add(); },
                          [this](QAddEdtCln *editor) {
                              waitOutTasks();
                              enter(editor, "leId", "3000000000");
                              enter(editor, "leCount", "20000");
                              child<QPushButton>(editor, "pbOk")->click();
                              QTRY_VERIFY(m_base->value("SELECT COUNT(*) FROM clients").toInt() > 3);
                              m_tab.reset();
                          });
    waitOutJobs();
    QCOMPARE(m_base->value("SELECT COUNT(*) FROM clients"), QString("20003"));
    QVERIFY(m_base->heard.has("Створено карток: 20\u00a0000"));
}

/// Two shops with a register of the same name; receipts with and without a card, one too old, one of a shop
/// that the user does not see.
void TstQTabClients::insertReceipts()
{
    m_base->exec(
        {"INSERT INTO shops(id,address,group_shop,block) VALUES(10,'Львів',2,0),(11,'Київ',3,0),"
         "(14,'Чужий',4,0)",
         "INSERT INTO kassa(id,id_shop,advertising_str,block) VALUES(20,10,'Каса 1',0),(21,11,'Каса 1',0),"
         "(22,14,'Каса 1',0)",
         "INSERT INTO cheks(id_shop,id_kass,id_zvit,id_chek,id_user,data_time,id_type,id_position,"
         "id_good_cln_slujb,price,summa,tax) VALUES"
         "(10,20,1,501,1,NOW(),1,0,2200001203,10000,10000,1),(10,20,1,501,1,NOW(),2,2,2200000012,350,350,0),"
         "(10,20,1,501,1,NOW(),3,3,1,9650,9650,0),"
         "(11,21,1,501,1,NOW(),2,2,2200000012,350,700,0),(11,21,1,501,1,NOW(),3,3,1,0,19300,19300),"
         "(10,20,1,502,1,NOW(),2,2,1,0,5,0),(10,20,1,502,1,NOW(),3,3,1,95,95,0),"
         "(10,20,1,9,1,NOW()-INTERVAL 40 DAY,2,2,2200000012,200,1,0),"
         "(10,20,1,9,1,NOW()-INTERVAL 40 DAY,3,3,1,49,49,0),"
         "(14,22,1,77,1,NOW(),2,2,2200000012,350,1,0),(14,22,1,77,1,NOW(),3,3,1,49,49,0)"});
}

/// Shop, number, rate, discount and what was paid.
QStringList TstQTabClients::receipts()
{
    shown();
    const auto *rows = child<CardReceipts>(m_tab.get(), "CardReceipts")->list()->model();
    QStringList texts;
    for (int row = 0; row < rows->rowCount(); ++row) {
        QStringList cells;
        for (const int column : {1, 3, 4, 5, 6})
            cells.append(rows->stored(row, column));
        texts.append(cells.join('|'));
    }
    texts.sort();
    return texts;
}

void TstQTabClients::receiptsFollowTheCard()
{
    insertReceipts();
    openTab();
    QVERIFY(m_tab->findChild<CardReceipts *>() == nullptr);
    m_tab->view()->setCurrentIndex(m_tab->model()->index(1, 0));
    auto *button = child<QPushButton>(m_tab.get(), "pbReceipts");
    QTest::mouseClick(button, Qt::LeftButton);
    QCOMPARE(receipts(), QStringList({"Київ|501|350|700|19300", "Львів|501|350|350|9650"}));
    QVERIFY(label("labelCard").contains("2200000012"));
    QCOMPARE(label("labelSums"), QString("Сума покупок 1\u00a0234.56, сума бонусів 12.50"));
    const auto *panel = child<CardReceipts>(m_tab.get(), "CardReceipts");
    QCOMPARE(child<QLabel>(panel->list(), "labelState")->text(),
             QString("Записів: 2, сплачено 289.50, знижка 10.50"));
    enter(m_tab.get(), "cbDays", "92 дні");
    QCOMPARE(receipts().size(), 3);
    enter(m_tab.get(), "cbShop", "Київ");
    QCOMPARE(receipts(), QStringList("Київ|501|350|700|19300"));
    // The hand goes over the cards: the one that it rests on counts.
    m_tab->view()->setCurrentIndex(m_tab->model()->index(0, 0));
    m_tab->view()->setCurrentIndex(m_tab->model()->index(2, 0));
    QCOMPARE(receipts(), QStringList());
    QVERIFY(label("labelCard").contains("2200001203"));
    child<QLineEdit>(m_tab.get(), "leSearch")->setText("12");
    QCOMPARE(receipts(), QStringList());
    QCOMPARE(label("labelCard"), QString("Виберіть картку у списку."));
    QTest::mouseClick(button, Qt::LeftButton);
    QVERIFY(m_tab->findChild<CardReceipts *>() == nullptr);
    m_place->logIn(Permission::Cheks, Permission::Denied);
    openTab();
    QVERIFY(!child<QPushButton>(m_tab.get(), "pbReceipts")->isVisible());
    m_place->logIn(Permission::Cheks);
}

void TstQTabClients::manyReceiptsNeedAShop()
{
    insertReceipts();
    m_base->exec("INSERT INTO cheks(id_shop,id_kass,id_zvit,id_chek,id_position,id_type,data_time) SELECT "
                 "11,21,1,1000+seq,0,1,NOW() FROM seq_1_to_130000");
    m_base->exec("ANALYZE TABLE cheks");
    openTab();
    m_tab->view()->setCurrentIndex(m_tab->model()->index(1, 0));
    child<QPushButton>(m_tab.get(), "pbReceipts")->click();
    QCOMPARE(receipts(), QStringList());
    QVERIFY(label("labelRange").startsWith("Виберіть магазин"));
    enter(m_tab.get(), "cbShop", "Львів");
    QCOMPARE(receipts(), QStringList("Львів|501|350|350|9650"));
    QVERIFY(label("labelRange").startsWith("Чеки зі знижкою за карткою від "));
    // With the indexes all shops can be asked.
    m_base->exec("ALTER TABLE cheks ADD INDEX tune_kass_chek(id_kass,id_chek), ADD INDEX "
                 "tune_data_time(data_time,id_type,id_kass,id_chek,id_zvit,summa,count)");
    child<QPushButton>(m_tab.get(), "pbReceipts")->click();
    child<QPushButton>(m_tab.get(), "pbReceipts")->click();
    QCOMPARE(receipts(), QStringList({"Київ|501|350|700|19300", "Львів|501|350|350|9650"}));
    m_tab.reset();
    m_base->exec("ALTER TABLE cheks DROP INDEX tune_kass_chek, DROP INDEX tune_data_time");
}

void TstQTabClients::filterIsACondition()
{
    ClnFilter filter;
    filter.show();
    const auto cards = [&] {
        const QString condition = filter.condition();
        return m_base->rows("SELECT id FROM clients" + (condition.isEmpty() ? "" : " WHERE " + condition) +
                            " ORDER BY id");
    };
    const auto tick = [&](const char *box) { child<QCheckBox>(&filter, box)->click(); };
    QCOMPARE(cards(), QStringList({"1", "2200000012", "2200001203"}));
    tick("chDiscount");
    QCOMPARE(cards(), QStringList({"1", "2200001203"}));
    tick("chNotBlocked");
    tick("chBlocked");
    QCOMPARE(cards(), QStringList("1"));
    tick("chBonus");
    QCOMPARE(cards(), QStringList({"1", "2200000012"}));
    tick("chNotBlocked");
    tick("chBlocked");
    QCOMPARE(cards(), QStringList("2200001203"));
}

QTEST_MAIN(TstQTabClients)
#include "tst_qtabclients.moc"
