#include "testing.h"

#include "cardkeys.h"
#include "usercard.h"

#include <QPdfWriter>
#include <QProcess>
#include <QTemporaryDir>

namespace {
/// Width and height of the pages in millimetres.
QSizeF pageSizeOf(const QString &pdf)
{
    QProcess process;
    process.start("pdfinfo", {pdf});
    process.waitForFinished();
    const QString text = QString::fromUtf8(process.readAllStandardOutput());
    const QStringList words = text.section("Page size:", 1).section('\n', 0, 0).simplified().split(' ');
    const double mmPerPoint = 25.4 / 72;
    return {words.value(0).toDouble() * mmPerPoint, words.value(2).toDouble() * mmPerPoint};
}
} // namespace

/// The keys of user cards, and the cards as a scanner sees them.
class TstUserCard : public QObject
{
    Q_OBJECT

private slots:
    void keysOfCards_data();
    void keysOfCards();
    void nextKeyIsFree_data();
    void nextKeyIsFree();
    void printedCardsAreRead();
    void onlySoundCodesHaveBars();
};

/// The check digits are reckoned by hand: 220 100000002 has 2 and 3 × (2 + 1 + 2), that is 17, so 3.
void TstUserCard::keysOfCards_data()
{
    QTest::addColumn<QString>("prefix");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("why");
    QTest::newRow("sound") << "220"
                           << "1000000023"
                           << "";
    QTest::newRow("check digit 0") << "229"
                                   << "0000000010"
                                   << "";
    QTest::newRow("wrong check digit") << "220"
                                       << "1000000001"
                                       << "остання цифра ключа має бути 9";
    QTest::newRow("other prefix") << "221"
                                  << "1000000023"
                                  << "остання цифра ключа має бути 2";
    QTest::newRow("short") << "220"
                           << "100000002"
                           << "з десяти цифр";
    QTest::newRow("letters") << "220"
                             << "10000000а3"
                             << "з десяти цифр";
    QTest::newRow("long prefix") << "2200"
                                 << "1000000023"
                                 << "з трьох цифр";
    QTest::newRow("no prefix") << ""
                               << "1000000023"
                               << "з трьох цифр";
}

void TstUserCard::keysOfCards()
{
    QFETCH(QString, prefix);
    QFETCH(QString, key);
    QFETCH(QString, why);
    const QString told = cardKeyRefusal(prefix, key);
    QVERIFY2(told.contains(why) && told.isEmpty() == why.isEmpty(), qPrintable(told));
    QCOMPARE(cardCode(prefix, key), why.isEmpty() ? prefix + key : QString());
    QCOMPARE(keyOfCard(prefix, prefix + key), why.isEmpty() ? key : QString());
}

void TstUserCard::nextKeyIsFree_data()
{
    QTest::addColumn<QStringList>("taken");
    QTest::addColumn<QString>("next");
    QTest::newRow("first") << QStringList() << "1000000009";
    QTest::newRow("behind the highest") << QStringList{"1000000016", "1000000009"} << "1000000023";
    QTest::newRow("unsound and odd ones") << QStringList{"1000000001", "", "abc", "12"} << "1000000016";
    QTest::newRow("below the last") << QStringList{"9999999990", "1000000009"} << "1000000016";
}

void TstUserCard::nextKeyIsFree()
{
    QFETCH(QStringList, taken);
    QTEST(nextFreeKey("220", taken), "next");
    QCOMPARE(nextFreeKey("22", taken), QString());
}

void TstUserCard::printedCardsAreRead()
{
    if (!canReadBarcodes())
        QSKIP("zbarimg (zbar-tools) or pdftoppm (poppler-utils) is missing");
    const QTemporaryDir folder;
    const QString path = folder.filePath("cards.pdf");
    Heard heard;
    const QString longName = QString("Дуже довге ім'я ").repeated(12);
    QVERIFY(saveCardsPdf(
        &heard, {{"Їжакевич", "Ганна Юріївна", "2201000000023"}, {longName, longName, "2290000000010"}},
        path));
    waitOutJobs();
    QVERIFY2(heard.has("Файл збережено"), "the job has told its end");
    QCOMPARE(barcodeOfPdf(path, 1), QString("2201000000023"));
    QCOMPARE(barcodeOfPdf(path, 2), QString("2290000000010"));
    const QString text = textOfPdf(path);
    QVERIFY2(text.contains("Їжакевич") && text.contains("ГаннаЮріївна") && text.contains("2201000000023"),
             qPrintable(text));
    QVERIFY2(text.contains("…"), "what does not fit is cut");
    const QSizeF size = pageSizeOf(path);
    QVERIFY2(qAbs(size.width() - 85.6) < 0.5 && qAbs(size.height() - 54) < 0.5,
             qPrintable(QString("%1 x %2").arg(size.width()).arg(size.height())));
}

void TstUserCard::onlySoundCodesHaveBars()
{
    const QVector<Bar> bars = eanBars("2201000000023");
    // Two guards of two bars, one of two in the middle, and two bars a digit.
    QCOMPARE(bars.size(), 30);
    QCOMPARE(bars.last().left + bars.last().width, 95.0);
    for (const Bar &bar : bars)
        QVERIFY(qAbs(bar.width - qRound(bar.width)) < 0.01);
    for (const char *code : {"2201000000024", "220100000002", "", "22010000000ab"})
        QVERIFY2(eanBars(code).isEmpty(), code);
}

QTEST_MAIN(TstUserCard)
#include "tst_usercard.moc"
