#include "act.h"
#include "bench.h"
#include "windows.h"

#include "chekwriter.h"
#include "qpastetable.h"
#include "qregistersale.h"
#include "stockpane.h"
#include "testing.h"

#include <QLabel>
#include <QPushButton>
#include <QStackedWidget>

namespace {
constexpr int receivedRows = 500;
constexpr int pastedRows = 5000;

QString barcode(int goods)
{
    return QString::number(4820000000000 + qint64(13) * goods);
}

/// The sale tab in which goods are received: 500 rows stand in the document, then it is written.
class ReceivingWindow
{
public:
    explicit ReceivingWindow(const Bench &bench) : m_admin(bench)
    {
        m_tab = std::make_unique<QRegisterSale>(bench.connection, m_admin.user(), nullptr, nullptr, nullptr);
        showWindow(m_tab.get());
        waitOutTasks();
        m_tab->admissionmode();
        m_pane = qobject_cast<StockPane *>(
            child<QStackedWidget>(m_tab.get(), QStringLiteral("documents"))->currentWidget());
    }

    /// From the button to the document's number. sent: what was written meanwhile.
    double receive(QStringList *sent = nullptr)
    {
        m_pane->add(rows());
        // The list of goods and the change tracker of the document before are through by then.
        QTest::qWait(100);
        waitOutTasks();
        const QString before = notice();
        if (sent != nullptr)
            Db::setStatementHook([sent](const QString &sql) { sent->append(sql); });
        const Cost cost =
            costOf([this] { child<QPushButton>(m_pane, QStringLiteral("pbWrite"))->click(); },
                   [&] { return notice() != before && notice().startsWith(QStringLiteral("Прийом №")); });
        waitOutTasks();
        Db::setStatementHook({});
        if (sent != nullptr)
            *sent = sent->mid(0, sent->indexOf(QStringLiteral("COMMIT")) + 1);
        return cost.ms;
    }

private:
    QString notice() const { return child<QLabel>(m_tab.get(), QStringLiteral("lbNotice"))->text(); }

    static QVector<StockRow> rows()
    {
        QVector<StockRow> rows;
        for (int goods = 1; goods <= receivedRows; ++goods) {
            GoodsItem item;
            item.idGoods = static_cast<quint32>(goods);
            item.barcode = barcode(goods);
            item.type = GoodsItem::pieceGoods;
            item.tax = 1;
            rows.append(StockRow(item, 12000));
        }
        return rows;
    }

    Admin m_admin;
    std::unique_ptr<QRegisterSale> m_tab;
    StockPane *m_pane;
};

/// The statements of a document on register 1, sent again for register 2 under the next number.
class BareReceipt
{
public:
    BareReceipt(const Bench &bench, const QStringList &statements)
        : m_bare(bench.address), m_statements(statements)
    {
        m_statements.replaceInStrings(QStringLiteral("id_kass=1"), QStringLiteral("id_kass=2"));
    }

    double receive()
    {
        QStringList ready = m_statements;
        ready.replaceInStrings(QStringLiteral("(1,1,1,2,1,"), QStringLiteral("(1,2,1,%1,1,").arg(++m_number));
        return milliseconds([&] {
            for (const QString &sql : ready)
                m_bare.run(sql);
        });
    }

private:
    BareClient m_bare;
    QStringList m_statements;
    int m_number = 0;
};

Figure receivingFigure(const Bench &bench)
{
    ReceivingWindow window(bench);
    window.receive();
    QStringList statements;
    window.receive(&statements);
    // Register 2 has a shift of its own.
    bench.db().run(ChekSql::createZ({QStringLiteral("1"), QStringLiteral("2"), QStringLiteral("1")},
                                    QStringLiteral("1"), 1));
    BareReceipt bare(bench, statements);
    const double times = ratio(
        bench.rounds, [&] { return bare.receive(); }, [&] { return window.receive(); });
    return {QStringLiteral("500 goods received, from F9 to the number"), times, 1.3,
            QStringLiteral("x bare")};
}

/// Every tenth barcode has lost nothing but is unknown.
QString pastedText()
{
    QString text = QStringLiteral("Штрихкод\tКількість\n");
    for (int goods = 1; goods <= pastedRows; ++goods)
        text += QStringLiteral("%1\t%2\n")
                    .arg(barcode(goods % 10 == 0 ? goods + 1000000 : goods))
                    .arg(goods % 50 + 1);
    return text;
}

/// From the text to the verdict of every line.
double check(QPasteTable *form, const QString &text)
{
    auto *result = child<QLabel>(form, QStringLiteral("labelResult"));
    result->clear();
    return costOf([&] { form->setText(text); },
                  [&] { return result->text().startsWith(QStringLiteral("Рядків:")); })
        .ms;
}

Figure pastingFigure(const Bench &bench)
{
    Admin admin(bench);
    QWidget tab;
    SaleWork work(bench.connection, admin.user(), nullptr, &tab);
    QPasteTable form(&work, receiveMode(), QStringLiteral("1"), nullptr);
    showWindow(&form);
    const QString text = pastedText();
    QStringList sent;
    Db::setStatementHook([&](const QString &sql) { sent.append(sql); });
    check(&form, text);
    waitOutTasks();
    Db::setStatementHook({});
    if (sent.size() != 1)
        qFatal("The table was checked with %d statements", sent.size());
    BareClient bare(bench.address);
    const double times = ratio(
        bench.rounds, [&] { return milliseconds([&] { bare.run(sent.first()); }); },
        [&] { return check(&form, text); });
    return {QStringLiteral("Table of 5,000 rows pasted, to its verdicts"), times, 2,
            QStringLiteral("x bare")};
}
} // namespace

QVector<Figure> measureStockIn(const Bench &bench)
{
    if (!fillSaleShops(bench))
        qFatal("The shops could not be filled");
    return {receivingFigure(bench), pastingFigure(bench)};
}
