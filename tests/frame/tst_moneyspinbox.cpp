#include "testing.h"

#include "moneyspinbox.h"
#include "numberfield.h"
#include "typedinput.h"

#include <QClipboard>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QVBoxLayout>

namespace {
/// A dialog as people have it before them: an amount, another field, a default button.
struct Till
{
    Till()
    {
        auto *rows = new QVBoxLayout(&dialog);
        rows->addWidget(cash);
        rows->addWidget(quantity);
        rows->addWidget(ok);
        new NumberField(quantity, NumberKind::Quantity, 1, 2147483647);
        ok->setDefault(true);
        QObject::connect(ok, &QPushButton::clicked, &dialog, &QDialog::accept);
        dialog.show();
        cash->setKopecks(5000);
        cash->setFocus(Qt::TabFocusReason);
    }

    bool isReady() { return QTest::qWaitForWindowActive(&dialog); }
    QString text() const { return child<QLineEdit>(cash, QStringLiteral("qt_spinbox_lineedit"))->text(); }

    QDialog dialog;
    MoneySpinBox *cash = new MoneySpinBox;
    QLineEdit *quantity = new QLineEdit(QStringLiteral("2"));
    QPushButton *ok = new QPushButton(QStringLiteral("OK"));
};

const int paste = int(Qt::CTRL) + int(Qt::Key_V);
const QString code = QStringLiteral("4820000000109");
} // namespace

/// Amounts as hurried hands put them into a field: typed, pasted, scanned, wheeled over.
class TstMoneySpinBox : public QObject
{
    Q_OBJECT

private slots:
    void typedAndPastedAreReadAlike_data();
    void typedAndPastedAreReadAlike();
    void unreadableStaysUntilItIsMended();
    void anAmountPutInReplacesWhatIsTyped();
    void sevenDigitsAreEditedAnywhere();
    void scannedCodeIsKeptOut_data();
    void scannedCodeIsKeptOut();
    void pastedCodeIsNamed();
    void wheelChangesNothing();
};

void TstMoneySpinBox::typedAndPastedAreReadAlike_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("kopecks"); // -1: refused
    QTest::addColumn<QString>("shown");
    const auto row = [](const char *text, int kopecks, const char *shown) {
        QTest::newRow(text) << QString::fromUtf8(text) << kopecks << QString::fromUtf8(shown);
    };
    row("12,50", 1250, "12.50");
    row("49.9", 4990, "49.90");
    row("1 234,5", 123450, "1234.50");
    row("1\u00a0234", 123400, "1234.00");
    row("21474836,47", 2147483647, "21474836.47");
    row("21474836.48", -1, "21474836.48");
    row("12 50", -1, "12 50");
    row("1,234,567", -1, "1,234,567");
    row("12.", -1, "12.");
    row("-5", -1, "-5");
    row("5 грн", -1, "5 грн");
}

void TstMoneySpinBox::typedAndPastedAreReadAlike()
{
    QFETCH(QString, text);
    QFETCH(int, kopecks);
    QFETCH(QString, shown);
    for (const bool isPasted : {false, true}) {
        Till till;
        QVERIFY(till.isReady());
        QGuiApplication::clipboard()->setText(text);
        for (const QChar c : isPasted ? QString() : text) {
            typeText(c);
            QTest::qWait(text.size() > 8 ? ScanPace::gapMs + 10 : 0); // No scanner.
        }
        if (isPasted)
            pressKeys({paste});
        const QString why = till.cash->refusal();
        pressKeys({Qt::Key_Tab});
        QVERIFY(till.quantity->hasFocus());
        QCOMPARE(till.text(), shown);
        QCOMPARE(till.cash->isReadable(), kopecks >= 0);
        QCOMPARE(why.isEmpty(), kopecks >= 0);
        QCOMPARE(till.cash->refusal(), why);
        QCOMPARE(till.cash->accessibleDescription(), why);
        if (kopecks >= 0)
            QCOMPARE(till.cash->kopecks(), qint64(kopecks));
        else if (isPasted)
            QCOMPARE(till.cash->kopecks(), qint64(5000));
    }
}

/// Enter, another field, another tab, whoever reads all fields of a window: nothing puts a number there.
void TstMoneySpinBox::unreadableStaysUntilItIsMended()
{
    Till till;
    QVERIFY(till.isReady());
    QSignalSpy changed(till.cash, qOverload<double>(&QDoubleSpinBox::valueChanged));
    QSignalSpy refused(till.cash, &MoneySpinBox::refused);
    QGuiApplication::clipboard()->setText("1 2 3");
    pressKeys({paste, Qt::Key_Return});
    QVERIFY2(till.dialog.isVisible(), "Enter answers nothing");
    QCOMPARE(refused.size(), 1);
    QVERIFY(refused.first().first().toString().startsWith("«1 2 3» не є сумою."));
    commitTyping(&till.dialog);
    pressKeys({Qt::Key_Up});
    till.cash->hide();
    till.cash->show();
    QCOMPARE(till.text(), QString("1 2 3"));
    QCOMPARE(till.cash->kopecks(), qint64(5000));
    QCOMPARE(changed.size(), 0);
    till.cash->setFocus(Qt::TabFocusReason);
    typeText("7,5");
    pressKeys({Qt::Key_Return});
    QCOMPARE(till.cash->kopecks(), qint64(750));
    QVERIFY(till.cash->refusal().isEmpty() && till.cash->toolTip().isEmpty());
    QVERIFY2(!till.dialog.isVisible(), "Enter goes on to the dialog again");
}

void TstMoneySpinBox::anAmountPutInReplacesWhatIsTyped()
{
    Till till;
    QVERIFY(till.isReady());
    typeText("abc");
    QVERIFY(!till.cash->isReadable());
    till.cash->setKopecks(5000);
    QVERIFY(till.cash->isReadable());
    QCOMPARE(till.text(), QString("50.00"));
    pressKeys({Qt::Key_End, int(Qt::SHIFT) + int(Qt::Key_Home), Qt::Key_Delete, Qt::Key_Tab});
    QCOMPARE(till.text(), QString("0.00"));
    QCOMPARE(till.cash->kopecks(), qint64(0));
}

void TstMoneySpinBox::sevenDigitsAreEditedAnywhere()
{
    const QString before = QStringLiteral("1234567.89");
    for (int place = 1; place <= before.size(); ++place) {
        Till till;
        QVERIFY(till.isReady());
        till.cash->setKopecks(123456789);
        pressKeys({Qt::Key_Home});
        for (int i = 0; i < place; ++i)
            pressKeys({Qt::Key_Right});
        pressKeys({Qt::Key_Backspace});
        QCOMPARE(till.text(), QString(before).remove(place - 1, 1));
        typeText(before.mid(place - 1, 1));
        QCOMPARE(till.text(), before);
        QCOMPARE(till.cash->kopecks(), qint64(123456789));
    }
}

void TstMoneySpinBox::scannedCodeIsKeptOut_data()
{
    QTest::addColumn<QString>("scanned");
    QTest::addColumn<bool>("isMarked");
    QTest::newRow("over a marked amount") << code << true;
    QTest::newRow("behind the amount") << code << false;
    QTest::newRow("short code") << "96385074" << true;
}

void TstMoneySpinBox::scannedCodeIsKeptOut()
{
    QFETCH(QString, scanned);
    QFETCH(bool, isMarked);
    Till till;
    QVERIFY(till.isReady());
    QSignalSpy refused(till.cash, &MoneySpinBox::refused);
    for (QWidget *field : std::initializer_list<QWidget *>{till.cash, till.quantity}) {
        field->setFocus(Qt::TabFocusReason);
        if (!isMarked)
            pressKeys({Qt::Key_End});
        QTest::qWait(ScanPace::gapMs + 10);
        scan(scanned);
        QVERIFY2(till.dialog.isVisible(), "The scanner's Enter answers nothing");
        QVERIFY2(field->toolTip().startsWith(scanned + " схоже на штрихкод"), qPrintable(field->toolTip()));
    }
    QCOMPARE(till.text() + '|' + till.quantity->text(), QString("50.00|2"));
    QCOMPARE(till.cash->kopecks(), qint64(5000));
    QVERIFY(till.cash->isReadable());
    QVERIFY(refused.last().first().toString().contains(scanned));
    till.cash->setFocus(Qt::TabFocusReason);
    QVERIFY(till.cash->refusal().isEmpty());
    QTest::qWait(150);
    pressKeys({Qt::Key_Return});
    QVERIFY2(!till.dialog.isVisible(), "A later Enter is the person's");
}

void TstMoneySpinBox::pastedCodeIsNamed()
{
    Till till;
    QVERIFY(till.isReady());
    QGuiApplication::clipboard()->setText(code);
    pressKeys({paste, Qt::Key_Return});
    QVERIFY(till.dialog.isVisible());
    QCOMPARE(till.text(), code);
    QCOMPARE(till.cash->kopecks(), qint64(5000));
    QVERIFY(!till.cash->isReadable());
    QVERIFY(till.cash->refusal().startsWith(code + " схоже на штрихкод, а не на суму."));
}

void TstMoneySpinBox::wheelChangesNothing()
{
    Till till;
    QVERIFY(till.isReady());
    turnWheel(till.cash, 3);
    QCOMPARE(till.cash->kopecks(), qint64(5000));
}

QTEST_MAIN(TstMoneySpinBox)
#include "tst_moneyspinbox.moc"
