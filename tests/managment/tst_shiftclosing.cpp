#include "moneyspinbox.h"
#include "qloadeduser.h"
#include "qmessdlg.h"
#include "qpayment.h"
#include "qqestion.h"
#include "qregistersale.h"
#include "saleshop.h"
#include "scanguard.h"
#include "shiftcloser.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QSqlQuery>

namespace {
const QDateTime evening(QDate(2026, 11, 21), QTime(20, 15, 7));

QString text(const char *words)
{
    return QString::fromUtf8(words);
}

template<typename T>
T *in(const QWidget *parent, const char *name)
{
    return child<T>(parent, QString::fromLatin1(name));
}

ChekPlace place(int kass = 1, int user = 1)
{
    return {QLatin1String(kass == 4 ? "2" : "1"), QString::number(kass), QString::number(user)};
}

/// As the operator leaves the form who changes nothing.
ShiftCount unchanged(const ShiftFigures &figures)
{
    return {figures.countCheks,    figures.countDiskount, figures.countPositionCanc,
            figures.countChekCanc, figures.vnesenia,      figures.cash};
}

void acceptForm(QPayment *form)
{
    in<QPushButton>(form, "pbOk")->click();
}

/// Whoever sits before the tab and answers what comes up, as long as this lives.
class Operator
{
public:
    Operator()
    {
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { answer(); });
        m_timer.start(5);
    }

    /// The button of the question about the period; -1 closes it.
    int button = -1;
    bool agrees = true;
    std::function<void(QPayment *)> counts = &acceptForm;

    /// What was answered: texts of questions and warnings, captions.
    QStringList said;
    int forms = 0;

private:
    void answer()
    {
        QWidget *modal = QApplication::activeModalWidget();
        if (auto *box = qobject_cast<QQestion *>(modal)) {
            said.append(box->findChildren<QLabel *>().last()->text());
            box->done(agrees ? QDialog::Accepted : QDialog::Rejected);
        } else if (auto *question = qobject_cast<QMessDlg *>(modal)) {
            hear(question);
            if (button < 0)
                question->reject();
            else
                child<QPushButton>(question, QStringLiteral("pb%1").arg(button))->click();
        } else if (auto *form = qobject_cast<QPayment *>(modal)) {
            ++forms;
            counts(form);
            if (form->isVisible())
                form->reject();
        }
    }

    void hear(const QMessDlg *question)
    {
        said.append(question->windowTitle());
        said.append(in<QLabel>(question, "labelText")->text());
        for (int i = 0; i < 4; ++i) {
            const auto *shown = child<QPushButton>(question, QStringLiteral("pb%1").arg(i));
            if (shown->isVisible())
                said.append(shown->text());
        }
    }

    QTimer m_timer;
};
} // namespace

class TstShiftClosing : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void cleanupTestCase();

    void closesInTheTab();
    void formCompares();
    void formAsksOnceMore();
    void scansInTheForm();
    void typedAndLeft();
    void nothingToClose();
    void cancelledFormWritesNothing();
    void lastDay_data();
    void lastDay();
    void period();
    void periodOfTheShiftsShop();
    void figuresOfTheShift();
    void closingTime_data();
    void closingTime();
    void sumsWithoutValue();
    void tooMuchForAZReport();
    void commitThatIsRefused();
    void askedWhileTransactionIsOpen();
    void closedByAnotherProgram();
    void rightGoneWhileCounting();
    void soldWhileCounting();
    void twoProgramsAtOnce();
    void brokenConnection();
    void brokenAtTheEnd();
    void oddShifts_data();
    void oddShifts();
    void blockedPlaces();
    void movedRegister();
    void absentUser();
    void viewOnlyUser();

private:
    void sell(int kass = 1, qint64 discount = 0, const QDateTime &time = evening.addSecs(-3600));
    ShiftFigures figures(const QString &zNumber = QStringLiteral("1"));
    ShiftCloser::Outcome close();
    void openTab();
    void closeShift();
    void click(const char *button);
    void scanBread();
    void choose(const char *box, const char *name);
    bool closeByForm(const std::function<void(QPayment *)> &drive = &acceptForm);
    QString notice() const { return in<QLabel>(m_tab.get(), "lbNotice")->text(); }
    QStringList written();
    QStringList closings();

    const ClockAt m_clock{evening};
    std::unique_ptr<FreshDatabase> m_base;
    std::unique_ptr<QLoadedUser> m_user;
    std::unique_ptr<QRegisterSale> m_tab;
};

void TstShiftClosing::initTestCase()
{
    m_base = std::make_unique<FreshDatabase>();
    fillSaleShop(m_base.get());
    m_base->exec(text("UPDATE users SET id_shop=1 WHERE id=1"));
    m_base->exec(text("INSERT INTO kassa(id,id_shop,advertising_str,block) VALUES(5,5,'Каса 5',0)"));
    m_user = std::make_unique<QLoadedUser>(nullptr, &m_base->heard);
}

void TstShiftClosing::init()
{
    resetSaleShop(m_base.get());
    m_base->exec(text("UPDATE lst_permis SET permission=1 WHERE id_prem=101"));
    m_base->exec(text("UPDATE kassa SET id_shop=1 WHERE id=2"));
    QVERIFY(m_user->loadpermis(m_base->connection(), text("admin"), QString()));
    m_base->heard.forget();
}

void TstShiftClosing::cleanup()
{
    waitOutTasks();
    Db::setStatementHook({});
    m_tab.reset();
    waitOutTasks();
}

void TstShiftClosing::cleanupTestCase()
{
    m_user.reset();
    m_base.reset();
}

/// Bread for 50.00 and milk for 30.00.
void TstShiftClosing::sell(int kass, qint64 discount, const QDateTime &time)
{
    Receipt receipt;
    receipt.add(goodsRow(m_base.get(), 10));
    receipt.add(goodsRow(m_base.get(), 13));
    receipt.setDiscount(discount);
    ChekPayment payment;
    payment.discount = discount;
    payment.toPay = receipt.toPay();
    payment.card = 1000;
    payment.cash = payment.toPay - payment.card;
    const ClockAt then(time);
    QCOMPARE(ChekWriter(m_base->db(), place(kass)).write(receipt, payment).outcome, ChekWriter::Written);
}

ShiftFigures TstShiftClosing::figures(const QString &zNumber)
{
    const auto figures = ShiftCloser(m_base->db(), place()).figures(zNumber);
    if (!figures)
        qFatal("No shift %s", qPrintable(zNumber));
    return *figures;
}

ShiftCloser::Outcome TstShiftClosing::close()
{
    const ShiftFigures shown = figures();
    return ShiftCloser(m_base->db(), place()).close(shown, unchanged(shown), evening.date());
}

void TstShiftClosing::openTab()
{
    m_tab =
        std::make_unique<QRegisterSale>(m_base->connection(), m_user.get(), &m_base->heard, nullptr, nullptr);
    m_tab->resize(1200, 800);
    m_tab->show();
    waitOutTasks();
}

void TstShiftClosing::closeShift()
{
    m_tab->CloseZ_zvit();
    waitOutTasks();
}

/// And waits for what it begins.
void TstShiftClosing::click(const char *button)
{
    in<QPushButton>(m_tab.get(), button)->click();
    waitOutTasks();
}

void TstShiftClosing::scanBread()
{
    auto *search = in<QLineEdit>(m_tab.get(), "leSearch");
    QTest::keyClicks(search, text("4820000000109"));
    QTest::keyClick(search, Qt::Key_Return);
    waitOutTasks();
}

void TstShiftClosing::choose(const char *box, const char *name)
{
    auto *combo = in<QComboBox>(m_tab.get(), box);
    combo->setCurrentIndex(combo->findText(QString::fromUtf8(name), Qt::MatchStartsWith));
    waitOutTasks();
    QVERIFY2(combo->currentIndex() >= 0, name);
}

/// False when the form did not appear.
bool TstShiftClosing::closeByForm(const std::function<void(QPayment *)> &drive)
{
    Operator person;
    person.counts = drive;
    closeShift();
    return person.forms == 1;
}

QStringList TstShiftClosing::written()
{
    return closings() + m_base->rows(text("SELECT id_kass,id_chek,id_position,summa FROM cheks WHERE "
                                          "id_type<>10 ORDER BY 1,2,3"));
}

/// The shifts, and the Z receipts.
QStringList TstShiftClosing::closings()
{
    return m_base->rows(text("SELECT id_kass,id_zzvit,id_shop,data_time<>0,day,cash,count_cheks,"
                             "count_chek_diskount,count_position_canc,count_chek_canc,vnesenia,viluchenia "
                             "FROM z_zvit ORDER BY 1,2")) +
           m_base->rows(text("SELECT 'Z',id_shop,id_kass,id_zvit,id_chek,id_position,id_user,summa FROM "
                             "cheks WHERE id_type=10 ORDER BY id_kass,id_chek"));
}

void TstShiftClosing::closesInTheTab()
{
    sell();
    sell(1, 500);
    m_base->exec(text("UPDATE z_zvit SET count_position_canc=4,count_chek_canc=3"));
    m_base->exec(text("UPDATE updat SET updat='2020-01-01'"));
    openTab();
    QStringList statements;
    Db::setStatementHook([&](const QString &sql) { statements.append(sql); });
    QVERIFY(closeByForm([](QPayment *form) {
        QCOMPARE(in<QSpinBox>(form, "sbCheks")->value() * 1000 +
                     in<QSpinBox>(form, "sbDiskount")->value() * 100 +
                     in<QSpinBox>(form, "sbPositionCanc")->value() * 10 +
                     in<QSpinBox>(form, "sbChekCanc")->value(),
                 2143);
        in<QSpinBox>(form, "sbCheks")->setValue(1);
        in<QSpinBox>(form, "sbPositionCanc")->setValue(0);
        acceptForm(form);
    }));
    Db::setStatementHook({});
    QCOMPARE(closings(), (QStringList{text("1|1|1|1|1|13500|1|1|0|3|0|13500"), text("Z|1|1|1|3|0|1|15500")}));
    QVERIFY(statements.contains(text("SELECT cash FROM z_zvit WHERE id_kass=1 AND id_zzvit=1")));
    const QString time = m_base->value(text("SELECT data_time+0 FROM z_zvit")).left(14);
    QVERIFY(statements.contains(
        text(
            "INSERT INTO cheks(id_shop,id_kass,id_zvit,id_chek,id_position,id_user,id_type,summa,data_time) "
            "SELECT 1,1,1,3,0,1,10,Oborot_A+Oborot_B+Oborot_V+Oborot_G+Oborot_D-summ_diskount,%1 FROM z_zvit "
            "WHERE id_zzvit=1 AND id_kass=1")
            .arg(time)));
    QVERIFY(statements.contains(
        text("UPDATE z_zvit SET count_cheks=1,count_chek_diskount=1,count_position_canc=0,count_chek_canc=3,"
             "vnesenia=0,viluchenia=13500,data_time=%1 WHERE id_kass=1 AND id_zzvit=1")
            .arg(time)));
    QCOMPARE(m_base->value(text("SELECT COUNT(*) FROM cheks,z_zvit WHERE id_type=10 AND name IS NULL AND "
                                "cheks.data_time=z_zvit.data_time AND cheks.data_time=20261121201507")),
             text("1"));
    QTRY_COMPARE(m_base->rows(text("SELECT name FROM updat WHERE updat>'2020-01-01' ORDER BY name")),
                 (QStringList{text("cheks"), text("z_zvit")}));
    QCOMPARE(notice(), text("Зміну № 1 закрито."));
    QCOMPARE(in<QLabel>(m_tab.get(), "lbShift")->text(), text("Зміна буде відкрита першим чеком."));
    QCOMPARE(m_base->heard.texts(3), QStringList());
    sell();
    QCOMPARE(m_base->value(text("SELECT CONCAT(id_zzvit,'|',day) FROM z_zvit WHERE data_time=0")),
             text("2|2"));
}

namespace {
/// 1000.00 were sold for in cash, 50.00 paid back, 200.00 brought in, 100.00 issued: 1050.00 lie in the
/// drawer.
ShiftFigures busyShift()
{
    ShiftFigures figures;
    figures.zNumber = text("30");
    figures.cash = 100000;
    figures.cashRet = 5000;
    figures.vnesenia = 20000;
    figures.issued = 10000;
    figures.countCheks = 12;
    return figures;
}

/// Shown and active, as the operator sees it.
std::unique_ptr<QPayment> closingForm(const ShiftFigures &figures)
{
    auto form = std::make_unique<QPayment>(figures, nullptr);
    if (!showActive(form.get()))
        qFatal("The form does not become active");
    QTest::qWait(ScanTail::appearedMs + 20);
    return form;
}

/// What stands in the fields, in the order of the form.
QString fieldsOf(const QPayment *form)
{
    QStringList texts;
    for (const char *name : {"dsbCounted", "dsbVnesenia", "dsbViluchenia", "sbCheks", "sbDiskount",
                             "sbChekCanc", "sbPositionCanc"})
        texts.append(in<QAbstractSpinBox>(form, name)->text());
    return texts.join(QLatin1Char(' '));
}

bool isRed(const QLabel *label)
{
    const QColor colour = label->palette().color(QPalette::WindowText);
    return colour.red() > colour.green() + 60 && colour.red() > colour.blue() + 60;
}
} // namespace

void TstShiftClosing::formCompares()
{
    const auto form = closingForm(busyShift());
    QCOMPARE(form->windowTitle(), text("Закрити зміну № 30"));
    const auto shown = [&] {
        QStringList texts;
        for (const char *name :
             {"lbExpectedCounted", "lbDifferenceCounted", "lbExpectedVnesenia", "lbDifferenceVnesenia",
              "lbExpectedViluchenia", "lbDifferenceViluchenia", "lbIssued", "lbRest"})
            texts.append(in<QLabel>(form.get(), name)->text().replace(QChar::Nbsp, QString()));
        return texts.join(QLatin1Char(' '));
    };
    const auto *difference = in<QLabel>(form.get(), "lbDifferenceCounted");
    const auto *rest = in<QLabel>(form.get(), "lbRest");
    // The 100.00 of before and all of the 1050.00 are proposed; without service cash what was sold for.
    QCOMPARE(shown(), text("1050.00 0.00 200.00 0.00 1150.00 0.00 100.00 0.00"));
    const auto proposed = [](qint64 vnesenia, qint64 issued) {
        ShiftFigures figures = busyShift();
        figures.vnesenia = vnesenia;
        figures.issued = issued;
        return in<MoneySpinBox>(std::make_unique<QPayment>(figures, nullptr).get(), "dsbViluchenia")
            ->kopecks();
    };
    QCOMPARE(proposed(0, 0), qint64(100000));
    // More than the shift knows of was issued: not less leaves it.
    QCOMPARE(proposed(0, 200000), qint64(200000));
    QVERIFY(!isRed(difference) && !isRed(rest));
    in<MoneySpinBox>(form.get(), "dsbCounted")->setKopecks(104990);
    in<MoneySpinBox>(form.get(), "dsbViluchenia")->setKopecks(114991);
    QCOMPARE(shown(), text("1050.00 -0.10 200.00 0.00 1150.00 -0.09 100.00 -0.01"));
    QVERIFY(isRed(difference) && isRed(rest));
    in<MoneySpinBox>(form.get(), "dsbVnesenia")->setKopecks(20001);
    QCOMPARE(shown(), text("1050.01 -0.11 200.00 +0.01 1150.01 -0.10 100.00 -0.01"));
    QPalette dark;
    dark.setColor(QPalette::Window, Qt::black);
    dark.setColor(QPalette::WindowText, Qt::white);
    const QPalette before = QApplication::palette();
    QApplication::setPalette(dark);
    QVERIFY(isRed(rest) && rest->palette().color(QPalette::WindowText).lightness() > 150);
    QApplication::setPalette(before);
}

/// Once more when the cash differs or is overdrawn; the safe answer keeps the form and what is typed.
void TstShiftClosing::formAsksOnceMore()
{
    const auto form = closingForm(busyShift());
    in<MoneySpinBox>(form.get(), "dsbCounted")->setKopecks(104990);
    in<MoneySpinBox>(form.get(), "dsbViluchenia")->setKopecks(115000);
    const QString typed = fieldsOf(form.get());
    const QString said = answerConfirm([&] { acceptForm(form.get()); }, false);
    QVERIFY2(said.startsWith(text("Закрити зміну № 30\n")), qPrintable(said));
    QVERIFY(said.contains(text("різниця -0.10")));
    QVERIFY(said.contains(text("залишиться -0.10")));
    QVERIFY(form->isVisible());
    QCOMPARE(fieldsOf(form.get()), typed);
    answerConfirm([&] { acceptForm(form.get()); }, true);
    QCOMPARE(form->result(), int(QDialog::Accepted));
    QCOMPARE(form->vnesenia() + QLatin1Char(' ') + form->viluchenia(), text("20000 115000"));
}

/// Whatever has the focus, a scan changes nothing and closes nothing.
void TstShiftClosing::scansInTheForm()
{
    const auto form = closingForm(busyShift());
    const QString before = fieldsOf(form.get());
    for (const char *name : {"dsbCounted", "dsbVnesenia", "dsbViluchenia", "sbCheks", "sbDiskount",
                             "sbChekCanc", "sbPositionCanc", "pbOk", "pbCancel"}) {
        auto *focused = in<QWidget>(form.get(), name);
        focused->setFocus(Qt::TabFocusReason);
        scan(form.get(), text("4820000000109"));
        scan(form.get(), text("48200014"));
        QVERIFY2(form->isVisible(), name);
        QCOMPARE(fieldsOf(form.get()), before);
        QVERIFY(focused->hasFocus());
        QVERIFY(in<QLabel>(form.get(), "lbNotice")->isVisible());
    }
    // A scanner that sends no Enter.
    in<QWidget>(form.get(), "dsbCounted")->setFocus();
    typeText(text("4820000000109"));
    QTest::qWait(ScanPace::gapMs + 20);
    QCOMPARE(fieldsOf(form.get()), before);
    // Enter leads through the fields to the button.
    in<QWidget>(form.get(), "dsbCounted")->setFocus();
    typeText(text("1050"));
    // Held down it leads nowhere.
    for (int i = 0; i < 9; ++i) {
        QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QString(QLatin1Char('\r')), true);
        QApplication::sendEvent(form->focusWidget(), &held);
    }
    QVERIFY(form->isVisible() && in<QWidget>(form.get(), "dsbCounted")->hasFocus());
    for (int i = 0; i < 7; ++i)
        pressKeys({Qt::Key_Return});
    QVERIFY(form->isVisible());
    QVERIFY(in<QWidget>(form.get(), "pbOk")->hasFocus());
    pressKeys({Qt::Key_Return});
    QCOMPARE(form->result(), int(QDialog::Accepted));
    QCOMPARE(form->viluchenia(), text("115000"));
}

/// What is still being typed counts, however the form is left; what cannot be read is told.
void TstShiftClosing::typedAndLeft()
{
    const auto form = closingForm(busyShift());
    in<QWidget>(form.get(), "dsbViluchenia")->setFocus(Qt::TabFocusReason);
    typeText(text("1150"));
    in<QWidget>(form.get(), "sbCheks")->setFocus(Qt::TabFocusReason);
    pressKeys({Qt::Key_Delete});
    QVERIFY(answerQuestion([&] { form->ok(); }).contains(text("не є числом")));
    QVERIFY(form->isVisible() && form->focusWidget() == in<QWidget>(form.get(), "sbCheks"));
    form->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(form.get()));
    typeText(text("11"));
    form->ok();
    QCOMPARE(form->viluchenia() + QLatin1Char(' ') + form->countCheks(), text("115000 11"));
}

void TstShiftClosing::nothingToClose()
{
    openTab();
    QVERIFY(!closeByForm([](QPayment *) {}));
    QVERIFY(notice().contains(text("немає відкритої зміни")));
    // Goods that wait for their payment belong into this shift.
    sell();
    scanBread();
    const QStringList before = written();
    closeShift();
    QVERIFY(notice().contains(text("У чеку є товари")));
    QCOMPARE(written(), before);
    answerConfirm([&] { click("pbClear"); }, true);
}

void TstShiftClosing::cancelledFormWritesNothing()
{
    sell();
    openTab();
    const QStringList before = written();
    QVERIFY(withModal<QPayment>([this] { click("pbCloseZ"); },
                                [](QPayment *form) { QTest::keyClick(form, Qt::Key_Escape); }));
    QCOMPARE(written(), before);
    QVERIFY(closeByForm());
    QCOMPARE(m_base->value(text("SELECT COUNT(*) FROM cheks WHERE id_type=10")), text("1"));
}

void TstShiftClosing::lastDay_data()
{
    QTest::addColumn<int>("button");
    QTest::addColumn<bool>("closes");
    QTest::newRow("cancel") << 0 << false;
    QTest::newRow("shift alone") << 1 << true;
    QTest::newRow("period too") << 2 << true;
    QTest::newRow("Escape") << -1 << false;
}

void TstShiftClosing::lastDay()
{
    QFETCH(int, button);
    QFETCH(bool, closes);
    sell();
    m_base->exec(text("UPDATE z_zvit SET day=3"));
    openTab();
    const QStringList before = written();
    Operator person;
    person.button = button;
    closeShift();
    QCOMPARE(person.said.join(QLatin1Char('|')),
             text("закрити?|Ви збираєтесь закрити зміну\nв останні день періоду.\nЗакрити період перед "
                  "закриттям зміни?|Відмінити закриття|Закрити тільки зміну|Закрити період та зміну"));
    QCOMPARE(person.forms, int(closes));
    if (!closes)
        QCOMPARE(written(), before);
    else
        QCOMPARE(m_base->value(text("SELECT data_time<>0 FROM z_zvit")), text("1"));
    if (closes) {
        sell();
        QCOMPARE(m_base->value(text("SELECT day FROM z_zvit WHERE data_time=0")), text("1"));
    }
}

void TstShiftClosing::period()
{
    sell();
    sell(4);
    openTab();
    const auto press = [this] {
        const Operator person;
        click("pbPeriod");
        return person.said.join(QLatin1Char('|'));
    };
    QCOMPARE(press(), text("Період не може бути закритий\nне в останній день!|Період не закрито!"));
    choose("cbShop", "вул. Друга");
    QCOMPARE(press(), text("В даному магазині періодичність один день.\nПеріод не може бути закритий|"
                           "Період не закрито!"));
    choose("cbShop", "вул. Перша");
    m_base->exec(text("UPDATE z_zvit SET day=3 WHERE id_kass=1"));
    QCOMPARE(press(), QString());
    QVERIFY(notice().contains(text("Період закрито")));
    // A shop that trades day by day is asked every day, but cannot close a period.
    choose("cbShop", "вул. Друга");
    {
        Operator person;
        person.button = 2;
        closeShift();
        QVERIFY(person.said.last().startsWith(text("В даному магазині періодичність один день.")));
        QCOMPARE(person.forms, 0);
    }
    choose("cbShop", "вул. Перша");
    // It is not asked again when the shift follows.
    QVERIFY(closeByForm());
    QCOMPARE(m_base->value(text("SELECT data_time<>0 FROM z_zvit WHERE id_kass=1")), text("1"));
}

/// Whatever is chosen: the register was moved, its shift goes on in the shop that opened it.
void TstShiftClosing::periodOfTheShiftsShop()
{
    sell();
    m_base->exec(text("UPDATE z_zvit SET day=3"));
    const auto day = [&](const char *shop) {
        return ShiftCloser(m_base->db(), {QLatin1String(shop), text("1"), text("1")})
            .periodDay()
            .value_or(PeriodDay{-1, -1});
    };
    QCOMPARE(day("2").last, 3);
    QVERIFY(day("2").isLast());
    m_base->exec(text("UPDATE z_zvit SET day=2"));
    QVERIFY(!day("2").isLast());
    m_base->exec(text("UPDATE z_zvit SET data_time=20261121200000"));
    QCOMPARE(day("1").last, 3);
    QCOMPARE(day("2").last, 1);
}

namespace {
/// Rows that other programs write: of a document its shop, register, shift and number, then type and sum
/// each.
QStringList documentRows(const char *document, const QVector<QPair<int, int>> &rows)
{
    QStringList statements;
    for (int i = 0; i < rows.size(); ++i)
        statements.append(
            QStringLiteral("INSERT INTO cheks(id_shop,id_kass,id_zvit,id_chek,id_position,id_type,"
                           "summa,data_time) VALUES(%1,%2,%3,%4,20261121191600)")
                .arg(QLatin1String(document))
                .arg(i)
                .arg(rows.at(i).first)
                .arg(rows.at(i).second));
    return statements;
}
} // namespace

/// Bread and milk for 80.00, 10.00 of it by card; 25.00 of two goods came back; 100.00 and 50.00 were brought
/// in, 30.00 and 1.00 issued. The rows around belong to other shifts, registers and shops of the same
/// numbers.
void TstShiftClosing::figuresOfTheShift()
{
    sell();
    sell(2);
    sell(4);
    m_base->exec(text("UPDATE z_zvit SET cash_ret=2500,Oborot_A_ret=2000,Oborot_G_ret=500,count_cheks_ret=1 "
                      "WHERE id_kass=1"));
    m_base->exec(documentRows("1,1,1,2", {{6, 2000}, {6, 500}, {3, 2500}}) +
                 documentRows("1,1,1,3", {{4, 10000}}) + documentRows("1,1,1,4", {{5, 3000}}) +
                 documentRows("1,1,1,5", {{4, 5000}, {5, 100}}) + documentRows("1,1,9,6", {{4, 1}, {5, 2}}) +
                 documentRows("1,2,1,7", {{4, 3}, {5, 4}}) + documentRows("2,1,1,8", {{4, 5}, {5, 6}}) +
                 documentRows("2,4,1,9", {{4, 7}, {5, 8}}) + documentRows("1,4,1,9", {{4, 9}, {5, 10}}));
    const auto elsewhere = ShiftCloser(m_base->db(), place(4)).figures(text("1"));
    QVERIFY(elsewhere && elsewhere->vnesenia == 7 && elsewhere->issued == 8);
    const ShiftFigures shown = figures();
    QCOMPARE(shown.shop, text("1"));
    QCOMPARE(shown.cash, qint64(7000));
    QCOMPARE(shown.cashRet, qint64(2500));
    QCOMPARE(shown.vnesenia, qint64(15000));
    QCOMPARE(shown.issued, qint64(3100));
    QCOMPARE(shown.expectedCash(), qint64(7000 - 2500 + 15000 - 3100));
    QCOMPARE(shown.latest, text("20261121191600"));
    // What is issued while the operator counts is not in what he was shown.
    const ShiftCloser closer(m_base->db(), place());
    m_base->exec(documentRows("1,1,1,10", {{5, 700}}));
    const QStringList before = written();
    QCOMPARE(closer.close(shown, unchanged(shown)), ShiftCloser::Changed);
    QCOMPARE(written(), before);
    QCOMPARE(closer.close(figures(), unchanged(figures())), ShiftCloser::Closed);
    QCOMPARE(m_base->value(text("SELECT summa FROM cheks WHERE id_type=10")), text("8000"));
    QCOMPARE(m_base->value(text("SELECT CONCAT(vnesenia,'|',viluchenia) FROM z_zvit WHERE id_kass=1")),
             text("15000|7000"));
}

void TstShiftClosing::closingTime_data()
{
    QTest::addColumn<QDateTime>("receipt");
    QTest::addColumn<QDate>("chosen");
    QTest::addColumn<QString>("stamp");
    // The clock stands at 20:15:07 on the 21st.
    const QDate today = evening.date();
    QTest::newRow("now") << evening.addSecs(-1) << QDate() << "20261121201507";
    QTest::newRow("the day after") << evening << today.addDays(1) << "20261122201507";
    QTest::newRow("clock put back") << evening.addSecs(1800) << QDate() << "20261121204507";
    QTest::newRow("later on the chosen day")
        << evening.addDays(1).addSecs(60) << today.addDays(1) << "20261122201607";
    QTest::newRow("before its receipts") << evening << today.addDays(-1) << "";
    QTest::newRow("receipts of tomorrow") << evening.addDays(1).addSecs(-3600) << QDate() << "";
}

/// Never before the latest receipt.
void TstShiftClosing::closingTime()
{
    QFETCH(QDateTime, receipt);
    QFETCH(QDate, chosen);
    QFETCH(QString, stamp);
    sell(1, 0, receipt);
    // Dated back afterwards, as something forgotten is.
    sell(1, 0, receipt.addDays(-3));
    const ShiftFigures shown = figures();
    const QStringList before = written();
    const auto outcome = ShiftCloser(m_base->db(), place()).close(shown, unchanged(shown), chosen);
    const QString why = ShiftCloser::dateRefusal(shown, chosen);
    QCOMPARE(outcome, stamp.isEmpty() ? ShiftCloser::TooEarly : ShiftCloser::Closed);
    QCOMPARE(why.isEmpty(), !stamp.isEmpty());
    if (stamp.isEmpty()) {
        QVERIFY2(why.contains(receipt.toString(text("dd.MM.yyyy"))), qPrintable(why));
        QCOMPARE(written(), before);
    } else {
        QCOMPARE(
            m_base->rows(text("SELECT DATE_FORMAT(data_time,'%Y%m%d%H%i%s') FROM z_zvit UNION ALL SELECT "
                              "DATE_FORMAT(data_time,'%Y%m%d%H%i%s') FROM cheks WHERE id_type=10")),
            (QStringList{stamp, stamp}));
    }
}

void TstShiftClosing::sumsWithoutValue()
{
    sell();
    m_base->exec(text("UPDATE z_zvit SET Oborot_B=NULL,Oborot_D=NULL,summ_diskount=NULL"));
    QCOMPARE(close(), ShiftCloser::Closed);
    QCOMPARE(m_base->value(text("SELECT summa FROM cheks WHERE id_type=10")), text("8000"));
}

void TstShiftClosing::tooMuchForAZReport()
{
    sell();
    m_base->exec(text("UPDATE z_zvit SET Oborot_D=2147475648"));
    const QStringList before = written();
    QCOMPARE(close(), ShiftCloser::TooMuch);
    QVERIFY(
        ShiftCloser::explanation(ShiftCloser::TooMuch, text("1")).contains(text("Зверніться до підтримки")));
    QCOMPARE(written(), before);
    m_base->exec(text("UPDATE z_zvit SET Oborot_D=2147475647"));
    QCOMPARE(close(), ShiftCloser::Closed);
    QCOMPARE(m_base->value(text("SELECT summa FROM cheks WHERE id_type=10")), text("2147483647"));
}

void TstShiftClosing::commitThatIsRefused()
{
    sell();
    int commits = 0;
    Db::setStatementRefusal(
        [&](const QString &sql) { return sql == QLatin1String("COMMIT") && ++commits < 3 ? 1205 : 0; });
    QCOMPARE(close(), ShiftCloser::Closed);
    Db::setStatementRefusal({});
    QCOMPARE(commits, 3);
    QCOMPARE(m_base->heard.texts(3), QStringList());
    QCOMPARE(m_base->value(text("SELECT COUNT(*) FROM cheks WHERE id_type=10")), text("1"));
}

/// The client has lost its connection, but the server still holds the transaction: neither yes nor no.
void TstShiftClosing::askedWhileTransactionIsOpen()
{
    sell();
    WorkerConnection other(m_base->connection()->connectionName(), &m_base->heard);
    const Db otherDb(other.database(), &m_base->heard);
    QVERIFY(otherDb.run(QStringLiteral("SET SESSION innodb_lock_wait_timeout=1")));
    const ClosedShift asked = {place(), text("1"), text("2"), text("20261121201507")};
    std::optional<bool> answer = true;
    Db::setStatementHook([&](const QString &sql) {
        if (sql == QLatin1String("COMMIT"))
            answer = ShiftCloser(otherDb, place(2)).isClosed(asked);
    });
    QCOMPARE(close(), ShiftCloser::Closed);
    Db::setStatementHook({});
    QVERIFY(!answer.has_value());
    QCOMPARE(ShiftCloser(otherDb, place(2)).isClosed(asked), std::optional<bool>(true));
    QCOMPARE(ShiftCloser(otherDb, place(2)).isClosed({place(2), text("1"), text("2"), asked.time}),
             std::optional<bool>(false));
}

/// The form stands open in two programs; both are accepted.
void TstShiftClosing::closedByAnotherProgram()
{
    sell();
    openTab();
    QStringList before;
    Operator person;
    person.counts = [&](QPayment *form) {
        QCOMPARE(close(), ShiftCloser::Closed);
        before = written();
        acceptForm(form);
    };
    closeShift();
    QVERIFY2(person.said.value(0).contains(text("вже закрито в іншій програмі")), qPrintable(notice()));
    QCOMPARE(written(), before);
    QCOMPARE(m_base->value(text("SELECT COUNT(*) FROM cheks WHERE id_type=10")), text("1"));
    QCOMPARE(in<QLabel>(m_tab.get(), "lbShift")->text(), text("Зміна буде відкрита першим чеком."));
}

/// This program has not heard of it.
void TstShiftClosing::rightGoneWhileCounting()
{
    sell();
    openTab();
    const QStringList before = written();
    Operator person;
    person.counts = [&](QPayment *form) {
        m_base->exec(text("UPDATE lst_permis SET permission=2 WHERE id_prem=101"));
        acceptForm(form);
    };
    closeShift();
    m_base->exec(text("UPDATE lst_permis SET permission=1 WHERE id_prem=101"));
    QVERIFY2(person.said.value(0).contains(text("забрали право")), qPrintable(notice()));
    QCOMPARE(written(), before);
}

void TstShiftClosing::soldWhileCounting()
{
    sell();
    const ShiftFigures shown = figures();
    sell();
    const QStringList before = written();
    const ShiftCloser closer(m_base->db(), place());
    QCOMPARE(closer.close(shown, unchanged(shown), evening.date()), ShiftCloser::Changed);
    QCOMPARE(written(), before);
    QVERIFY(ShiftCloser::explanation(ShiftCloser::Changed, text("1")).contains(text("записано ще чеки")));
    QCOMPARE(close(), ShiftCloser::Closed);
    // The number of the Z receipt is taken between reading and writing it.
    sell();
    const ShiftFigures second = figures(text("2"));
    int rivals = 3;
    Db::setStatementHook([&](const QString &sql) {
        if (sql == QLatin1String("START TRANSACTION") && rivals-- > 0)
            m_base->exec(text("INSERT INTO cheks(id_shop,id_kass,id_zvit,id_chek,id_position,id_type) "
                              "SELECT 1,1,1,MAX(id_chek)+1,0,1 FROM cheks c WHERE id_kass=1"));
    });
    QCOMPARE(closer.close(second, unchanged(second), evening.date()), ShiftCloser::Collided);
    QCOMPARE(m_base->value(text("SELECT COUNT(*) FROM cheks WHERE id_type=10 AND id_zvit=2")), text("0"));
    m_base->heard.forget();
    rivals = 1;
    QCOMPARE(closer.close(second, unchanged(second), evening.date()), ShiftCloser::Closed);
    Db::setStatementHook({});
    QCOMPARE(m_base->heard.texts(), QStringList());
}

void TstShiftClosing::twoProgramsAtOnce()
{
    sell();
    WorkerConnection other(m_base->connection()->connectionName(), &m_base->heard);
    const Db otherDb(other.database(), &m_base->heard);
    QVERIFY(otherDb.run(text("SET SESSION innodb_lock_wait_timeout=1")));
    const ShiftFigures shown = figures();
    ShiftCloser::Outcome waiting = ShiftCloser::Failed;
    bool isNested = false;
    Db::setStatementHook([&](const QString &sql) {
        if (isNested || sql != QLatin1String("COMMIT"))
            return;
        isNested = true;
        waiting = ShiftCloser(otherDb, place()).close(shown, unchanged(shown), evening.date());
    });
    QCOMPARE(close(), ShiftCloser::Closed);
    Db::setStatementHook({});
    QCOMPARE(waiting, ShiftCloser::Locked);
    QCOMPARE(ShiftCloser(otherDb, place()).close(shown, unchanged(shown), evening.date()),
             ShiftCloser::AlreadyClosed);
    QCOMPARE(m_base->value(text("SELECT COUNT(*) FROM cheks WHERE id_type=10")), text("1"));
}

void TstShiftClosing::brokenConnection()
{
    sell();
    const ShiftFigures shown = figures();
    const ShiftCloser closer(m_base->db(), place());
    const QStringList before = written();
    // After the transaction has begun the client does not reconnect unnoticed; before, it just does.
    const QStringList order = {text("SELECT data_time=0,id_shop"), text("INSERT INTO cheks"),
                               text("UPDATE z_zvit"), text("COMMIT")};
    for (const QString &broken : order) {
        m_base->heard.forget();
        Db::setStatementHook([&](const QString &sql) {
            if (sql.startsWith(broken))
                m_base->killConnection();
        });
        QCOMPARE(closer.close(shown, unchanged(shown), evening.date()), ShiftCloser::Failed);
        Db::setStatementHook({});
        waitOutLoss(*m_base->connection());
        QCOMPARE(written(), before);
        QVERIFY(m_base->heard.has(text("Помилка запиту:"), 1));
        QVERIFY(m_base->heard.has(broken, 1));
    }
    m_base->exec(text("CREATE TRIGGER broken BEFORE UPDATE ON z_zvit FOR EACH ROW SIGNAL SQLSTATE '45000' "
                      "SET MESSAGE_TEXT='shift is broken'"));
    QCOMPARE(close(), ShiftCloser::Failed);
    m_base->exec(text("DROP TRIGGER broken"));
    QVERIFY(m_base->heard.has(text("shift is broken"), 1));
    QCOMPARE(written(), before);
    QCOMPARE(close(), ShiftCloser::Closed);
}

/// The server has committed but its answer is lost; or the server cannot be asked any more.
void TstShiftClosing::brokenAtTheEnd()
{
    sell();
    bool isCommitted = false;
    const auto commitAndBreak = [&](const QString &sql) {
        if (sql != QLatin1String("COMMIT") || isCommitted)
            return;
        isCommitted = true;
        QSqlQuery(*m_base->connection()).exec(text("COMMIT AND CHAIN"));
        m_base->killConnection();
    };
    Db::setStatementHook(commitAndBreak);
    QCOMPARE(close(), ShiftCloser::Closed);
    Db::setStatementHook({});
    waitOutLoss(*m_base->connection());
    QVERIFY(isCommitted);
    QCOMPARE(closings().size(), 2);

    sell();
    const ShiftFigures shown = figures(text("2"));
    isCommitted = false;
    Db::setStatementHook([&](const QString &sql) {
        commitAndBreak(sql);
        if (sql.startsWith(QLatin1String("SELECT COUNT(*) FROM cheks")))
            m_base->exec(text("RENAME TABLE cheks TO away"));
    });
    const ShiftCloser closer(m_base->db(), place());
    QCOMPARE(closer.close(shown, unchanged(shown), evening.date()), ShiftCloser::Unclear);
    Db::setStatementHook({});
    waitOutLoss(*m_base->connection());
    m_base->exec(text("RENAME TABLE away TO cheks"));
    QVERIFY(
        ShiftCloser::explanation(ShiftCloser::Unclear, text("2")).contains(text("невідомо, чи її закрито")));
    QCOMPARE(closer.close(shown, unchanged(shown), evening.date()), ShiftCloser::AlreadyClosed);
    QCOMPARE(m_base->value(text("SELECT COUNT(*) FROM cheks WHERE id_type=10")), text("2"));
}

void TstShiftClosing::oddShifts_data()
{
    QTest::addColumn<QString>("change");
    QTest::addColumn<QString>("summa");
    QTest::newRow("two tax groups") << "Oborot_A=1000,Oborot_B=500,Oborot_V=0,summ_diskount=100"
                                    << "1400";
    QTest::newRow("discount above turnover") << "Oborot_A=100,Oborot_V=0,summ_diskount=500"
                                             << "-400";
    QTest::newRow("five groups and returns")
        << "Oborot_A=1,Oborot_B=20,Oborot_V=300,Oborot_G=4000,Oborot_D=50000,summ_diskount=600000-549679,"
           "Oborot_A_ret=7,Oborot_D_ret=7,cash_ret=9,summ_diskount_ret=3"
        << "4000";
    QTest::newRow("nothing sold") << "Oborot_A=0,Oborot_V=0,cash=0,beznal_1=0,count_cheks=0"
                                  << "0";
    QTest::newRow("since last night") << "day=2"
                                      << "8000";
}

void TstShiftClosing::oddShifts()
{
    QFETCH(QString, change);
    QFETCH(QString, summa);
    sell(1, 0, QDateTime(evening.date().addDays(-1), QTime(23, 59, 59)));
    m_base->exec(text("UPDATE z_zvit SET ") + change);
    QCOMPARE(close(), ShiftCloser::Closed);
    QCOMPARE(m_base->value(text("SELECT summa FROM cheks WHERE id_type=10")), summa);
    QCOMPARE(m_base->value(text("SELECT CONCAT(data_time+0,viluchenia=cash) FROM z_zvit")).left(14),
             text("20261121201507"));
    QCOMPARE(m_base->heard.texts(), QStringList());
}

/// Offered because a shift is open there, and gone when it is closed.
void TstShiftClosing::blockedPlaces()
{
    m_base->exec(text("INSERT INTO z_zvit(id_zzvit,id_shop,id_kass,id_user,day,cash,Oborot_A,data_time) "
                      "VALUES(4,5,5,1,0,700,700,0),(9,1,3,1,0,300,300,0)"));
    openTab();
    const auto *shops = in<QComboBox>(m_tab.get(), "cbShop");
    QCOMPARE(shops->count(), 3);
    QCOMPARE(shops->itemText(2), text("Зачинений (заблоковано, лише закриття зміни)"));
    choose("cbKass", "Заблокована (заблоковано, лише закриття зміни)");
    QVERIFY(!in<QPushButton>(m_tab.get(), "pbSale")->isEnabled());
    m_tab->sale();
    QVERIFY(notice().contains(text("лише закрити зміну")));
    QVERIFY(closeByForm());
    QCOMPARE(in<QComboBox>(m_tab.get(), "cbKass")->count(), 2);
    QVERIFY(in<QPushButton>(m_tab.get(), "pbSale")->isEnabled());
    choose("cbShop", "Зачинений");
    QCOMPARE(in<QComboBox>(m_tab.get(), "cbKass")->currentText(), text("Каса 5"));
    QVERIFY(!in<QPushButton>(m_tab.get(), "pbSale")->isEnabled());
    m_base->exec(text("UPDATE shops SET count_day_cycle=3 WHERE id=5"));
    QVERIFY(closeByForm());
    QCOMPARE(shops->count(), 2);
    QCOMPARE(closings(),
             (QStringList{text("3|9|1|1|0|300|0|0|0|0|0|300"), text("5|4|5|1|0|700|0|0|0|0|0|700"),
                          text("Z|1|3|9|1|0|1|300"), text("Z|5|5|4|1|0|1|700")}));
}

/// Its shift is closed into the shop in which it was opened; until then nothing is sold in the new one.
void TstShiftClosing::movedRegister()
{
    sell(2);
    m_base->exec(text("UPDATE kassa SET id_shop=2 WHERE id=2"));
    m_base->exec(text("UPDATE shops SET count_day_cycle=3 WHERE id=2"));
    openTab();
    choose("cbShop", "вул. Друга");
    choose("cbKass", "Каса 2");
    scanBread();
    m_tab->sale();
    waitOutTasks();
    QVERIFY(notice().contains(text("відкрито в магазині «вул. Перша, 1»")));
    answerConfirm([&] { click("pbClear"); }, true);
    QVERIFY(closeByForm());
    QCOMPARE(closings(), (QStringList{text("2|1|1|1|1|7000|1|0|0|0|0|7000"), text("Z|1|2|1|2|0|1|8000")}));
    m_base->exec(text("UPDATE shops SET count_day_cycle=1 WHERE id=2"));
}

void TstShiftClosing::absentUser()
{
    m_base->exec(
        text("INSERT INTO z_zvit(id_zzvit,id_shop,id_kass,id_user,cash,data_time) VALUES(6,1,1,2,900,0)"));
    openTab();
    const QStringList before = written();
    Operator person;
    person.agrees = false;
    closeShift();
    const QString said = person.said.join(QLatin1Char('|'));
    QVERIFY(said.contains(
        text("З даним магазином працює інший користувач.\nЗачекайте або зв'яжіться з пітримкою.")));
    QVERIFY(said.contains(text("Друга Зміна")));
    QCOMPARE(person.forms, 0);
    QCOMPARE(written(), before);
    person.button = 0;
    closeShift();
    QCOMPARE(person.forms, 1);
    QCOMPARE(closings(), (QStringList{text("1|6|1|1|1|900|0|0|0|0|0|900"), text("Z|1|1|6|1|0|1|0")}));
    QCOMPARE(m_base->value(text("SELECT id_user FROM z_zvit")), text("2"));
}

void TstShiftClosing::viewOnlyUser()
{
    sell();
    m_base->exec(text("UPDATE lst_permis SET permission=2 WHERE id_prem=101"));
    QVERIFY(m_user->reload(m_base->connection()));
    openTab();
    const QStringList before = written();
    QVERIFY(!in<QPushButton>(m_tab.get(), "pbCloseZ")->isEnabled());
    QVERIFY(!in<QPushButton>(m_tab.get(), "pbPeriod")->isEnabled());
    QVERIFY(!closeByForm([](QPayment *) {}));
    m_tab->pbClosePeriod();
    waitOutTasks();
    QVERIFY(notice().contains(text("Лише перегляд")));
    QCOMPARE(written(), before);
}

QTEST_MAIN(TstShiftClosing)
#include "tst_shiftclosing.moc"
