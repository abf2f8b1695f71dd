#include "pricelist.h"
#include "pricelistimport.h"
#include "testing.h"

/// What the records of a price list would do, without a database.
class TstPriceList : public QObject
{
    Q_OBJECT

private slots:
    void recordsAreJudged_data();
    void recordsAreJudged();
    void emptyLinesAreNoRecords();
    void lastPriceWins();
    void everyBarcodeOfAnItemSetsItsPrice();
    void leapsAreCounted();
    void badGroundRefusesNewGoodsOnly();
    void longFilesStayBounded();
    void statementsAreCutToSize();

private:
    PriceListPlan planned(const QString &text) const
    {
        return planPriceList(text.toUtf8(), CsvForm(), m_ground, [](qint64, qint64) { return true; });
    }

    PriceListGround m_ground{true,
                             {{"4820000000017", {7, 1000}},
                              {"4820000000024", {8, 2000}},
                              {"0000000012348", {8, 2000}},
                              {"00012348", {9, 0}}},
                             20,
                             QString()};
};

namespace {
QString plainBlanks(QString text)
{
    return text.replace(QChar(0xA0), ' ');
}
} // namespace

void TstPriceList::recordsAreJudged_data()
{
    QTest::addColumn<QString>("record");
    QTest::addColumn<PriceVerdict>("verdict");
    QTest::addColumn<QString>("words");
    const auto row = [](const char *record, PriceVerdict verdict, const char *words) {
        QTest::newRow(record) << QString::fromUtf8(record) << verdict << QString::fromUtf8(words);
    };
    const QByteArray milk = "Молоко;4820000000017;";
    const auto price = [&](const char *text, PriceVerdict verdict, const char *words) {
        row((milk + text).constData(), verdict, words);
    };
    row("Сир;4820000000031;12.5", PriceVerdict::New, "новий товар, ціна 12.50");
    row(" Сир 'Її' ; 96385074 ; 0,01 ", PriceVerdict::New, "новий товар, ціна 0.01");
    price("12.5", PriceVerdict::Changed, "ціна 10.00 → 12.50");
    price("12,50", PriceVerdict::Changed, "ціна 10.00 → 12.50");
    price("10", PriceVerdict::Same, "ціна та сама");
    price("1 234,50", PriceVerdict::Changed, "ціна 10.00 → 1 234.50");
    price("1\u00a0234.5", PriceVerdict::Changed, "ціна 10.00 → 1 234.50");
    price("21474836,47", PriceVerdict::Changed, "ціна 10.00 → 21 474 836.47");
    price("0", PriceVerdict::ZeroPrice, "нульова ціна не записується");
    price("0,00", PriceVerdict::ZeroPrice, "нульова ціна не записується");
    price("21474836.48", PriceVerdict::BadPrice, "ціна більша за 21 474 836.47");
    price("-5", PriceVerdict::BadPrice, "ціна від'ємна");
    price("", PriceVerdict::BadPrice, "ціни немає");
    price("12.505", PriceVerdict::BadPrice, "у ціні більше двох знаків після коми: 12.505");
    price("12.5 грн", PriceVerdict::BadPrice, "ціна – не число: 12.5 грн");
    price("1,234.50", PriceVerdict::BadPrice, "ціна – не число: 1,234.50");
    price("12 50", PriceVerdict::BadPrice, "ціна – не число: 12 50");
    price("1e3", PriceVerdict::BadPrice, "ціна – не число: 1e3");
    row("Хліб;0000000012348;20", PriceVerdict::Same, "ціна та сама");
    row("Без ціни;00012348;3", PriceVerdict::Changed, "ціна 0.00 → 3.00");
    row("Хліб;000000012348;20", PriceVerdict::BadBarcode, "Штрихкод <> 13 та <> 8: знаків у ньому 12");
    row("Хліб;;20", PriceVerdict::BadBarcode, "Штрихкод <> 13 та <> 8: його немає");
    row("Хліб;4820000000018;20", PriceVerdict::BadBarcode, "Помилка контрольної суми в штрихкоді");
    row("Хліб;4,82E+12;20", PriceVerdict::BadBarcode,
        "Помилка контрольної суми в штрихкоді: у ньому не лише цифри");
    row("Назва;Штрихкод;Ціна", PriceVerdict::BadBarcode,
        "Помилка контрольної суми в штрихкоді: у ньому не лише цифри");
    row("Хліб;48200000000٢٤;20", PriceVerdict::BadBarcode,
        "Помилка контрольної суми в штрихкоді: у ньому не лише цифри");
    row("Молоко;4820000000017", PriceVerdict::BadColumns, "Невірна кількість колонок: 2");
    row(";4820000000017", PriceVerdict::BadColumns,
        "Товар (невідомий) не знайдено. Невірна кількість колонок: 2");
    row("Молоко;1 л;4820000000017;12", PriceVerdict::BadColumns, "Невірна кількість колонок: 4");
    row("12345678901234567890;4820000000031;1", PriceVerdict::New, "новий товар, ціна 1.00");
    row("123456789012345678901;4820000000031;1", PriceVerdict::BadName, "назва довша за 20 знаків");
    row("Дуже довга назва відомого товару;4820000000017;11", PriceVerdict::Changed, "ціна 10.00 → 11.00");
    row("  ;4820000000031;1", PriceVerdict::BadName, "новий товар без назви");
    row("С\xEF\xBF\xBDр;4820000000031;1", PriceVerdict::BadName,
        "у назві літери, яких немає у вибраному кодуванні");
}

void TstPriceList::recordsAreJudged()
{
    QFETCH(QString, record);
    QFETCH(QString, words);
    const PriceListPlan plan = planned(record);
    QCOMPARE(plan.first.size(), 1);
    QCOMPARE(plainBlanks(plan.first.first().words), words);
    QTEST(plan.first.first().verdict, "verdict");
    const bool isRefused = plan.first.first().verdict >= PriceVerdict::ZeroPrice;
    QCOMPARE(plan.refused.size(), isRefused ? 1 : 0);
    QCOMPARE(plan.isEmpty(), isRefused || plan.first.first().verdict == PriceVerdict::Same);
}

void TstPriceList::emptyLinesAreNoRecords()
{
    const PriceListPlan plan = planned("\xEF\xBB\xBF"
                                       "Сир;4820000000031;1\r\n\r\n;;\r\n  \nХліб;1;2\r\n\r\n");
    QCOMPARE(plan.recordCount, 2);
    QCOMPARE(plan.first.first().name, QStringLiteral("Сир"));
    QCOMPARE(plan.refused.size(), 1);
    QCOMPARE(plan.refused.first().number, 5);
    QVERIFY(planned("\n;;\n").error.contains("немає записів"));
}

void TstPriceList::lastPriceWins()
{
    const PriceListPlan plan = planned("Молоко;4820000000017;11\nСир;4820000000031;5\n"
                                       "Молоко;4820000000017;12\nІнший сир;4820000000031;6\n"
                                       "Сир;4820000000031;0\nМолоко;4820000000017;-1\nСир;4820000000031;6");
    QCOMPARE(plan.changes.size(), size_t(1));
    QCOMPARE(plan.changes.front().to, qint64(1200));
    QCOMPARE(plan.changes.front().from, qint64(1000));
    QCOMPARE(plan.added.size(), size_t(1));
    QCOMPARE(plan.added.front().name, QStringLiteral("Сир"));
    QCOMPARE(plan.added.front().price, qint64(600));
    QStringList words;
    for (const PriceLine &line : plan.first)
        words.append(line.words);
    QCOMPARE(words, QStringList({"ціна 10.00 → 11.00", "новий товар, ціна 5.00", "ціна 11.00 → 12.00",
                                 "ціна 5.00 → 6.00", "нульова ціна не записується", "ціна від'ємна",
                                 "ціна та сама"}));
    QVERIFY2(planned("а;4820000000017;11\nа;4820000000017;10").isEmpty(), "there and back again");
}

void TstPriceList::everyBarcodeOfAnItemSetsItsPrice()
{
    const PriceListPlan plan = planned("Хліб;0000000012348;21\nХліб;4820000000024;22");
    QCOMPARE(plan.changes.size(), size_t(1));
    QCOMPARE(plan.changes.front().to, qint64(2200));
    QCOMPARE(plan.first.at(1).words, QStringLiteral("ціна 21.00 → 22.00"));
}

void TstPriceList::leapsAreCounted()
{
    QCOMPARE(planned("а;4820000000017;1000\nб;4820000000024;2.01\nв;00012348;999\nг;4820000000031;9").leaps,
             1);
    QCOMPARE(planned("а;4820000000017;99,99\nб;4820000000024;2").leaps, 1);
}

void TstPriceList::badGroundRefusesNewGoodsOnly()
{
    m_ground.newRefusal = QStringLiteral("немає групи");
    const PriceListPlan plan = planned("Сир;4820000000031;1\nМолоко;4820000000017;11");
    m_ground.newRefusal.clear();
    QCOMPARE(plan.first.at(0).words, QStringLiteral("немає групи"));
    QCOMPARE(plan.changes.size(), size_t(1));
}

void TstPriceList::longFilesStayBounded()
{
    const PriceListPlan many = planned(QStringLiteral("а\n").repeated(PriceList::mostRecords + 1));
    QVERIFY2(many.error.contains("більше записів"), qPrintable(many.error));
    const PriceListPlan wide = planned(QString(100000, 'a') + ";b");
    QVERIFY(wide.refused.first().code.size() < 200);
    // A long name does not hide what identifies the record, and nothing splits a column of a saved file.
    const CsvForm commas{CsvEncoding::Utf8, QLatin1Char(',')};
    const QByteArray record = QByteArray(150, 'a') + ",482;0,1;2\n";
    const PriceListPlan odd = planPriceList(record + "b,4820000000017,1;2", commas, m_ground, nullptr);
    QCOMPARE(odd.refused.first().code, QString(60, 'a') + " | 482,0 | 1,2");
    QCOMPARE(odd.refused.last().reason, QStringLiteral("ціна – не число: 1,2"));
    int asked = 0;
    planPriceList(QByteArray("a;b\n").repeated(20000), CsvForm(), m_ground,
                  [&](qint64 done, qint64 of) { return done <= of && ++asked < 2; });
    QCOMPARE(asked, 2);
}

void TstPriceList::statementsAreCutToSize()
{
    QCOMPARE(priceStatements({}), QStringList());
    QCOMPARE(priceStatements({{8, 2100}, {7, 5}}),
             QStringList("UPDATE goods SET price=CASE WHEN id=7 THEN 5 WHEN id=8 THEN 2100 ELSE price END "
                         "WHERE id IN (7,8)"));
    QMap<quint32, qint64> prices;
    for (quint32 id = 1; id <= 25000; ++id)
        prices.insert(4294960000U - id, 2147483647);
    const QStringList statements = priceStatements(prices);
    int whens = 0;
    for (const QString &sql : statements) {
        whens += sql.count(" WHEN ");
        QVERIFY2(sql.size() < 1000000, qPrintable(QString::number(sql.size())));
    }
    QCOMPARE(whens, 25000);
    QCOMPARE(statements.size(), 3);
}

Q_DECLARE_METATYPE(PriceVerdict)
QTEST_APPLESS_MAIN(TstPriceList)
#include "tst_pricelist.moc"
