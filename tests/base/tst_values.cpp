#include "testing.h"

#include "ean13.h"
#include "money.h"
#include "qlogger.h"
#include "qmessevent.h"
#include "sqldate.h"

#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>

/// Money, barcodes, dates and the log: what everything else counts on.
class TstValues : public QObject
{
    Q_OBJECT

private slots:
    void moneyBecomesTextAndBack_data();
    void moneyBecomesTextAndBack();
    void noMoneyIsRefused_data();
    void noMoneyIsRefused();
    void numbersAsPeopleWriteThem();
    void sumsAreRoundedToTheKopeck();
    void spinBoxesLoseNothing();
    void checkDigits();
    void datesForStatements();
    void logLines();
};

void TstValues::moneyBecomesTextAndBack_data()
{
    QTest::addColumn<qint64>("kopecks");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("shown");
    const QString blank(QChar(0x00a0));
    QTest::newRow("nothing") << qint64(0) << "0.00"
                             << "0.00";
    QTest::newRow("kopeck") << qint64(1) << "0.01"
                            << "0.01";
    QTest::newRow("negative") << qint64(-5) << "-0.05"
                              << "-0.05";
    QTest::newRow("thousand") << qint64(123450) << "1234.50"
                              << "1" + blank + "234.50";
    QTest::newRow("million") << qint64(-100000000) << "-1000000.00"
                             << "-1" + blank + "000" + blank + "000.00";
}

void TstValues::moneyBecomesTextAndBack()
{
    QFETCH(qint64, kopecks);
    QFETCH(QString, text);
    QFETCH(QString, shown);
    QCOMPARE(moneyText(kopecks), text);
    QCOMPARE(moneyShown(kopecks), shown);
    for (const QString &typed : {text, shown, QString(text).replace('.', ',')}) {
        qint64 back = 7;
        QVERIFY(kopecksFromText(typed, &back));
        QCOMPARE(back, kopecks);
    }
}

void TstValues::noMoneyIsRefused_data()
{
    QTest::addColumn<QString>("text");
    for (const char *text : {"",
                             " ",
                             "-",
                             ".",
                             ".5",
                             "5.",
                             "12,",
                             "1.234",
                             "1,2,3",
                             "1,234,567",
                             "1,234.50",
                             "1.234,50",
                             "12a",
                             "1e5",
                             "+1",
                             "--1",
                             "- 1",
                             "٣",
                             "1234567890123456",
                             "12 50",
                             "1 2 3",
                             "1 23",
                             "1  234",
                             "1234 567",
                             "1 234567",
                             "12. 50",
                             "12.5 0",
                             "12.50 00",
                             "49\u00a090",
                             "1\t234",
                             "1\n234",
                             "1\u2009234",
                             "0x10",
                             "1/2",
                             "12.50 грн"})
        QTest::newRow(text) << QString::fromUtf8(text);
}

void TstValues::noMoneyIsRefused()
{
    QFETCH(QString, text);
    qint64 kopecks = 7;
    QVERIFY(!kopecksFromText(text, &kopecks));
    QCOMPARE(kopecks, qint64(7));
}

void TstValues::numbersAsPeopleWriteThem()
{
    const struct
    {
        const char *text;
        bool (*read)(const QString &, qint64 *);
        qint64 number;
    } rows[] = {{"49,90", kopecksFromText, 4990},
                {"1 234,5", kopecksFromText, 123450},
                {" 12.50\n", kopecksFromText, 1250},
                {"1\u202f234\u202f567.05", kopecksFromText, 123456705},
                {"21\u00a0474\u00a0836,47", kopecksFromText, maximumKopecks},
                {"123456789012345", kopecksFromText, 12345678901234500},
                {"-0,05", kopecksFromText, -5},
                {"007.10", kopecksFromText, 710},
                {"1,234", thousandthsFromText, 1234},
                {"1 234", thousandthsFromText, 1234000},
                {"2 147 483,647", thousandthsFromText, maximumThousandths},
                {"17,5", rateFromText, 1750},
                {"100", rateFromText, 10000}};
    for (const auto &row : rows) {
        qint64 number = -7;
        QVERIFY2(row.read(QString::fromUtf8(row.text), &number), row.text);
        QCOMPARE(number, row.number);
    }
    qint64 number = -7;
    QVERIFY(!rateFromText("17.505", &number) && !thousandthsFromText("1.2345", &number));
    QCOMPARE(number, qint64(-7));
}

void TstValues::sumsAreRoundedToTheKopeck()
{
    QCOMPARE(sumOf(8000, 250), qint64(2000));
    QCOMPARE(sumOf(1, 500), qint64(1));
    QCOMPARE(sumOf(1, 499), qint64(0));
    QCOMPARE(sumOf(-1, 500), qint64(-1));
    QCOMPARE(shareOf(999, 1500), qint64(150));
    QCOMPARE(shareOf(2147483647, 10000), qint64(2147483647));
    // 17.5 %: half a kopeck is the buyer's, less than half is not.
    QCOMPARE(shareOf(43460, 1750), qint64(7606));
    QCOMPARE(shareOf(43471, 1750), qint64(7607));
    QCOMPARE(shareOf(-43460, 1750), qint64(-7606));
    QCOMPARE(quantityText(250), QString("0.250"));
    qint64 quantity = 0;
    QVERIFY(thousandthsFromText("0,25", &quantity));
    QCOMPARE(quantity, qint64(250));
}

void TstValues::spinBoxesLoseNothing()
{
    for (qint64 kopecks = 0; kopecks < 300000; ++kopecks)
        QVERIFY(wholeUnits(spinValue(kopecks, 2), 2) == kopecks);
    QCOMPARE(wholeUnits(19.99, 2), qint64(1999));
    QCOMPARE(wholeUnits(0.1 + 0.2, 2), qint64(30));
}

void TstValues::checkDigits()
{
    QCOMPARE(eanCheckDigit("400638133393", 12), QChar('1'));
    QCOMPARE(eanCheckDigit("220000000000", 12), QChar('2'));
    QCOMPARE(eanCheckDigit("0000000000000", 12), QChar('0'));
    QCOMPARE(eanCheckDigit("9638507", 7), QChar('4'));
    QVERIFY(isSoundEan("4006381333931") && isSoundEan("96385074"));
    for (const char *code : {"96385074", "482000000001", "4820000000017", "14820000000014"})
        QVERIFY2(looksScanned(code), code);
    for (const char *typed : {"", "1234567", "123456789", "12345678.00", "12 345 678", "482000000001a"})
        QVERIFY2(!looksScanned(typed), typed);
    QVERIFY(!isSoundEan("4006381333932") && !isSoundEan("400638133393") && !isSoundEan("40063813339a1"));
}

void TstValues::datesForStatements()
{
    const QDateTime time(QDate(2026, 3, 1), QTime(9, 5, 7));
    QCOMPARE(sqlDateTime(time), QString("20260301090507"));
    QCOMPARE(sqlDayStart(time.date()) + '-' + sqlDayEnd(time.date()),
             QString("20260301000000-20260301235959"));
    QCOMPARE(shownDateTime(time), QString("01-03-26 09:05:07"));
    QCOMPARE(weekDayToken(time.date()), QString("Sun,"));
    QCOMPARE(weekDayToken(QDate()), QString(" "));
}

void TstValues::logLines()
{
    QTemporaryDir folder;
    const QString name = folder.filePath("veltab.log");
    {
        QLogger log(name, true, 1, nullptr);
        log.wlog(1, "setting/setting", "114", "Помилка\tз табуляцією");
        log.wlog(2, "a/b", "1", "too verbose");
        log.wlog(0, "plain", "2", "no class");
        QLogger verbose(name, false, 9, nullptr);
        verbose.wlog(7, "a\\b", "3", "unknown kind");
    }
    QFile file(name);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QStringList lines = QString::fromLocal8Bit(file.readAll()).split('\n');
    for (QString &line : lines)
        line.replace(QRegularExpression("\\d\\d-\\d\\d-\\d\\d \\d\\d:\\d\\d:\\d\\d"), "TIME");
    QCOMPARE(lines, (QStringList{"CRITICAL  TIME  setting\t114\tПомилка\tз табуляцією",
                                 "   NO     TIME  plain\t2\tno class",
                                 "CRITICAL  TIME  a\\b\t3\tunknown kind", ""}));
}

QTEST_MAIN(TstValues)
#include "tst_values.moc"
