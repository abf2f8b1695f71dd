#include "copiedtable.h"
#include "qrowmodel.h"
#include "testing.h"

#include <QRegularExpression>

/// What other programs get of copied rows, in the language of the tests.
class TstCopiedTable : public QObject
{
    Q_OBJECT

private slots:
    void numbersAreThoseOfTheLanguage();
    void listsWithoutKindsAreGuessed();
    void manyRowsAreTextAlone();
};

namespace {
ListSnapshot snapshot(const QAbstractItemModel &model)
{
    return ListSnapshot(model, nullptr, ListSnapshot::AsShown);
}

/// The cells of one row of HTML: what they are for programs that look, and their text.
QStringList htmlCells(const QString &html)
{
    static const QRegularExpression cell(
        QStringLiteral("<td[^>]*?(?: sdval=\"([^\"]*)\")? sdnum=\"1033;0;([^\"]*)\">([^<]*)</td>"));
    QStringList cells;
    auto found = cell.globalMatch(html);
    while (found.hasNext()) {
        const auto one = found.next();
        cells.append(one.captured(1) + '|' + one.captured(2) + '|' + one.captured(3));
    }
    return cells;
}
} // namespace

void TstCopiedTable::numbersAreThoseOfTheLanguage()
{
    QRowModel model;
    model.setColumns({{"Код", 0, &asNumber},
                      {"Штрих\nкод"},
                      {"Сума", 0, &asMoney},
                      {"К-сть", 0, &asQuantity},
                      {"%", 0, &asRate},
                      {"День", 0, &asDate},
                      {"Час", 0, &asDateTime}});
    RowStore store;
    store.append({"7", "0012", "-123450", "1500", "750", "2026-03-01", "2026-03-01 18:00:05"});
    store.append({"8", "=1+1", "так", "", "", "0000-00-00", ""});
    store.append({"9", "а\t<б>\r\n в", "5", "-1", "0", "2026-02-30", "x"});
    model.replaceRows(std::move(store));
    const CopiedTable table = copiedTable(snapshot(model), {0, 1, 2});
    QCOMPARE(table.text, QString("Код\tШтрих код\tСума\tК-сть\t%\tДень\tЧас\n"
                                 "7\t0012\t-1234,50\t1,500\t7,50\t01.03.2026\t01.03.2026 18:00:05\n"
                                 "8\t=1+1\tтак\t\t\t\t\n"
                                 "9\tа <б> в\t0,05\t-0,001\t0,00\t30-02-2026\tx\n"));
    // 18:00:05 is 64805 seconds of 86400.
    QCOMPARE(htmlCells(table.html.section('\n', 1, 1)),
             QStringList({"7|0|7", "|@|0012", "-1234.50|#,##0.00|-1234,50", "1.500|#,##0.000|1,500",
                          "7.50|0.00|7,50", "46082.000000000000|dd.mm.yyyy|01.03.2026",
                          "46082.750057870369|dd.mm.yyyy hh:mm:ss|01.03.2026 18:00:05"}));
    QCOMPARE(htmlCells(table.html.section('\n', 2, 2)).at(1), QString("|@|=1+1"));
    QVERIFY(table.html.contains(">а &lt;б&gt; в</td>"));
    QCOMPARE(table.html.count("<tr>"), 4);
}

/// What stands right is a number when it looks like one.
void TstCopiedTable::listsWithoutKindsAreGuessed()
{
    QStandardItemModel model(1, 4);
    model.setHorizontalHeaderLabels({"а", "б", "в", "г"});
    const QStringList texts = {"1\u202f234.50", "1 234.50", "-2.000", "акція"};
    for (int column = 0; column < 4; ++column) {
        auto *item = new QStandardItem(texts.at(column));
        if (column != 1)
            item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
        model.setItem(0, column, item);
    }
    const CopiedTable table = copiedTable(snapshot(model), {0});
    QCOMPARE(table.text, QString("а\tб\tв\tг\n1234,50\t1 234.50\t-2,000\tакція\n"));
    QCOMPARE(htmlCells(table.html),
             QStringList({"1234.50|General|1234,50", "|@|1 234.50", "-2.000|General|-2,000", "|@|акція"}));
}

void TstCopiedTable::manyRowsAreTextAlone()
{
    QRowModel model;
    model.setColumns({{"Код", 0, &asNumber}});
    model.insertRows(0, 5000);
    QVector<int> rows(5000);
    QCOMPARE(copiedTable(snapshot(model), rows).text.count('\n'), 5001);
    QCOMPARE(copiedTable(snapshot(model), rows).html, QString());
    const auto stop = [](qint64, qint64) { return false; };
    QCOMPARE(copiedTable(snapshot(model), rows, stop).text, QString());
    QCOMPARE(copiedTable(snapshot(model), {}).text, QString());
}

QTEST_MAIN(TstCopiedTable)
#include "tst_copiedtable.moc"
