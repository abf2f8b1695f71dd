#include "money.h"
#include "moneyspinbox.h"
#include "qpayment.h"
#include "scanguard.h"
#include "testing.h"

#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>

namespace {
QString text(const char *words)
{
    return QString::fromUtf8(words);
}

template<typename T>
T *in(const QWidget *parent, const char *name)
{
    return child<T>(parent, QString::fromLatin1(name));
}
} // namespace

/// Paying 625.15: 650.00 less 24.85.
class TstQPayment : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void noteAndChange_data();
    void noteAndChange();
    void typedCashStays();
    void overpaidCash();
    void unreadable();
    void scans();
    void restOfAScan();
    void paymentDialog_data();
    void paymentDialog();
    void closingForm();

private:
    QString fields() const;
    void type(const char *field, const char *words) const;

    std::unique_ptr<QPayment> m_form;
};

void TstQPayment::init()
{
    m_form = std::make_unique<QPayment>(text("650.00"), text("24.85"), false, nullptr);
    QVERIFY(showActive(m_form.get()));
    if (qstrcmp(QTest::currentTestFunction(), "restOfAScan") != 0)
        QTest::qWait(ScanTail::appearedMs + 20);
}

/// Given, cash, certificate, card.
QString TstQPayment::fields() const
{
    QStringList texts;
    for (const char *name : {"dsbGiven", "dsbCash", "dsbCertificate", "dsbCard"})
        texts.append(QString::number(in<MoneySpinBox>(m_form.get(), name)->kopecks()));
    return texts.join(QLatin1Char(' '));
}

void TstQPayment::type(const char *field, const char *words) const
{
    auto *box = in<MoneySpinBox>(m_form.get(), field);
    box->setFocus(Qt::TabFocusReason);
    box->selectAll();
    typeText(text(words));
    // A hand moves on more slowly than a scanner.
    QTest::qWait(ScanPace::gapMs + 20);
}

void TstQPayment::noteAndChange_data()
{
    QTest::addColumn<QVector<int>>("keys");
    QTest::addColumn<QString>("given");
    QTest::addColumn<QString>("card");
    QTest::addColumn<QString>("fields");
    QTest::addColumn<qint64>("handedOver");
    QTest::addColumn<qint64>("change");
    using Keys = QVector<int>;
    QTest::newRow("a note") << Keys() << "1000"
                            << ""
                            << "100000 62515 0 0" << qint64(100000) << qint64(37485);
    QTest::newRow("exactly") << Keys() << "625,15"
                             << ""
                             << "62515 62515 0 0" << qint64(62515) << qint64(0);
    QTest::newRow("F5") << Keys{Qt::Key_F5} << ""
                        << ""
                        << "0 62515 0 0" << qint64(62515) << qint64(0);
    QTest::newRow("all by card") << Keys{Qt::Key_F6} << ""
                                 << ""
                                 << "0 0 0 62515" << qint64(0) << qint64(0);
    QTest::newRow("the rest by card") << Keys{Qt::Key_F6} << "500"
                                      << ""
                                      << "50000 50000 0 12515" << qint64(50000) << qint64(0);
    QTest::newRow("a note and a card") << Keys() << "200"
                                       << "500"
                                       << "20000 12515 0 50000" << qint64(20000) << qint64(7485);
}

void TstQPayment::noteAndChange()
{
    QFETCH(QVector<int>, keys);
    QFETCH(QString, given);
    QFETCH(QString, card);
    QVERIFY(in<QWidget>(m_form.get(), "dsbGiven")->hasFocus());
    typeText(given);
    if (!card.isEmpty())
        type("dsbCard", qPrintable(card));
    for (int key : keys)
        pressKeys({key});
    QTEST(fields(), "fields");
    pressKeys({Qt::Key_Return});
    QCOMPARE(m_form->result(), int(QDialog::Accepted));
    QTEST(m_form->given(), "handedOver");
    QTEST(m_form->change(), "change");
    const ChekPayment paid = m_form->payment();
    QCOMPARE(paid.cash + paid.card + paid.certificate, paid.toPay);
    QCOMPARE(paid.toPay, qint64(62515));
    QCOMPARE(paid.discount, qint64(2485));
}

/// An amount of cash that somebody typed is not overwritten by the note.
void TstQPayment::typedCashStays()
{
    type("dsbCash", "600");
    type("dsbCard", "25,15");
    type("dsbGiven", "700");
    QCOMPARE(fields(), text("70000 60000 0 2515"));
    type("dsbGiven", "500");
    QCOMPARE(answerQuestion([] { pressKeys({Qt::Key_Return}); }),
             text("Отримано менше, ніж треба сплатити готівкою!"));
    QCOMPARE(fields(), text("50000 60000 0 2515"));
}

/// In the cash field itself only what is owed is accepted.
void TstQPayment::overpaidCash()
{
    type("dsbCash", "1000");
    QCOMPARE(in<QGroupBox>(m_form.get(), "gbPaid")->styleSheet(), text("font: bold; color: #DD1010;"));
    QCOMPARE(answerQuestion([] { pressKeys({Qt::Key_Return}); }),
             text("Сума до оплати повинна дорівнювати оплачено!"));
    QVERIFY(m_form->isVisible());
    QCOMPARE(fields(), text("0 100000 0 0"));
}

/// What cannot be read is never another number: neither the rest nor the payment goes past it.
void TstQPayment::unreadable()
{
    type("dsbCard", "12 50");
    QVERIFY(answerQuestion([] { pressKeys({Qt::Key_F5}); }).contains(text("«12 50» не є сумою")));
    QCOMPARE(in<MoneySpinBox>(m_form.get(), "dsbCard")->text(), text("12 50"));
    QCOMPARE(in<MoneySpinBox>(m_form.get(), "dsbCash")->kopecks(), qint64(0));
    QVERIFY(
        answerQuestion([this] { in<QPushButton>(m_form.get(), "pbOk")->click(); }).contains(text("12 50")));
    QVERIFY(m_form->isVisible());
}

/// A scan in any field, at any moment, pays nothing: neither with the code nor with what was typed before.
void TstQPayment::scans()
{
    type("dsbGiven", "1000");
    for (const char *name :
         {"dsbGiven", "dsbCash", "dsbCertificate", "dsbCard", "pbRestCash", "pbOk", "pbCancel"}) {
        in<QWidget>(m_form.get(), name)->setFocus(Qt::TabFocusReason);
        scan(m_form.get(), text("0000000000116"));
        QVERIFY2(m_form->isVisible(), name);
        QCOMPARE(fields(), text("100000 62515 0 0"));
        QVERIFY(in<QLabel>(m_form.get(), "lbNotice")->text().contains(text("0000000000116")));
    }
    in<QWidget>(m_form.get(), "dsbCard")->setFocus();
    pressKeys({Qt::Key_Return});
    QCOMPARE(m_form->change(), qint64(37485));
}

/// F9 in the middle of a scan: its last digits and its Enter arrive here.
void TstQPayment::restOfAScan()
{
    scan(text("99109"));
    QVERIFY(m_form->isVisible());
    QCOMPARE(fields(), text("0 0 0 0"));
    pressKeys({Qt::Key_F5});
    pressKeys({Qt::Key_Return});
    QCOMPARE(m_form->result(), int(QDialog::Accepted));
}

void TstQPayment::paymentDialog_data()
{
    QTest::addColumn<double>("cash");
    QTest::addColumn<double>("certificate");
    QTest::addColumn<double>("card");
    QTest::addColumn<double>("given");
    QTest::addColumn<QString>("warning");
    QTest::newRow("no double sums") << 0.1 << 0.2 << 0.0 << 0.0 << QString();
    QTest::newRow("too little") << 0.1 << 0.1 << 0.0 << 0.0 << "Сума до оплати повинна дорівнювати оплачено!";
    QTest::newRow("too much") << 0.1 << 0.1 << 0.11 << 0.0 << "Сума до оплати повинна дорівнювати оплачено!";
    QTest::newRow("with change") << 0.3 << 0.0 << 0.0 << 5.0 << QString();
    QTest::newRow("given too little") << 0.3 << 0.0 << 0.0 << 0.29 << "Отримано менше, ніж треба";
}

void TstQPayment::paymentDialog()
{
    QFETCH(double, cash);
    QFETCH(double, certificate);
    QFETCH(double, card);
    QFETCH(double, given);
    QFETCH(QString, warning);
    QPayment payment(text("10.30"), text("10.00"), false, nullptr);
    in<MoneySpinBox>(&payment, "dsbCash")->setValue(cash);
    in<MoneySpinBox>(&payment, "dsbCertificate")->setValue(certificate);
    in<MoneySpinBox>(&payment, "dsbCard")->setValue(card);
    in<MoneySpinBox>(&payment, "dsbGiven")->setValue(given);
    const auto *group = in<QGroupBox>(&payment, "gbPaid");
    const qint64 paid = wholeUnits(cash, 2) + wholeUnits(certificate, 2) + wholeUnits(card, 2);
    QCOMPARE(group->title(), text("оплачено: ") + moneyText(paid));
    QCOMPARE(group->styleSheet(), paid > 30 ? text("font: bold; color: #DD1010;") : QString());
    QString said;
    said = answerQuestion([&] { payment.ok(); });
    QVERIFY2(warning.isEmpty() ? said.isEmpty() : said.contains(warning), qPrintable(said));
    QCOMPARE(payment.result(), int(warning.isEmpty() ? QDialog::Accepted : QDialog::Rejected));
    if (!warning.isEmpty())
        return;
    QCOMPARE(payment.toPay(), text("30"));
    QCOMPARE(payment.cash() + payment.certificate() + payment.card(),
             given > 0 ? text("3000") : text("10200"));
    QCOMPARE(in<QLabel>(&payment, "lbChange")->text(), given > 0 ? text("4.70") : text("0.00"));
}

void TstQPayment::closingForm()
{
    QPayment form(text("0.00"), text("0.00"), true, nullptr, 1998);
    QVERIFY(in<QWidget>(&form, "gbPaid")->isHidden() && in<QWidget>(&form, "receiptFields")->isHidden());
    in<QSpinBox>(&form, "sbCheks")->setValue(1234);
    form.ok();
    QCOMPARE(form.result(), int(QDialog::Accepted));
    QCOMPARE(form.viluchenia() + form.vnesenia() + form.countCheks(), text("199801234"));
}

QTEST_MAIN(TstQPayment)
#include "tst_qpayment.moc"
