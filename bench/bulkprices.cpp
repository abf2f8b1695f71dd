#include "act.h"
#include "bench.h"
#include "windows.h"

#include "dbtasks.h"
#include "listpane.h"
#include "qmangoods.h"
#include "qmessdlg.h"
#include "qrowmodel.h"
#include "testing.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace {
constexpr int bulkGoods = 10000;
/// No other goods are in it.
const QLatin1String bulkGroup("Для заміни цін");

/// Goods of a group of their own, none of them blocked or without a price; each third has a price of all
/// shops, too.
void fillGroup(const Bench &bench)
{
    exec(bench, QStringLiteral("INSERT INTO group_goods(id,name) VALUES(900,'%1')").arg(bulkGroup));
    exec(bench,
         QStringLiteral("UPDATE goods SET group_g=900,block=0,price=1000+id WHERE id<=%1").arg(bulkGoods));
    exec(bench,
         QStringLiteral("INSERT INTO prices(id_goods,id_shop,id_group,priority,price) SELECT id,0,1,1,500 "
                        "FROM goods WHERE id<=%1 AND id%3=0")
             .arg(bulkGoods));
}

void emptyGroup(const Bench &bench)
{
    exec(bench, QStringLiteral("DELETE FROM prices"));
    exec(bench, QStringLiteral(
                    "UPDATE goods SET group_g=1+id%20,block=id%50=0,price=id*7919%100000 WHERE group_g=900"));
    exec(bench, QStringLiteral("DELETE FROM group_goods WHERE id=900"));
}

/// A kopeck more for each of them.
class BulkWindow
{
public:
    explicit BulkWindow(const Bench &bench)
        : m_bench(bench), m_admin(bench), m_page(bench.connection, m_admin.user(), &m_heard, nullptr, nullptr)
    {
        showWindow(&m_page);
        waitOutTasks();
        choose("cbGroup", bulkGroup);
        choose("cbWhat", QStringLiteral("Ціна на суму"));
        child<QLineEdit>(&m_page, QStringLiteral("leAmount"))->setText(QStringLiteral("0.01"));
    }

    /// Milliseconds from the button to the list.
    double preview()
    {
        const double ms = costOf([this] { press("pbPreview"); },
                                 [this] { return words().startsWith(QStringLiteral("Зміниться")); })
                              .ms;
        m_page.list()->grab();
        if (m_page.list()->model()->rowCount() != bulkGoods)
            qFatal("Not all goods were found");
        return ms;
    }

    /// From the answer to the question to the end. sent: what was written meanwhile.
    double write(QStringList *sent = nullptr)
    {
        preview();
        QElapsedTimer clock;
        std::optional<Sent> heard;
        withModal<QMessDlg>([this] { press("pbWrite"); },
                            [&](QMessDlg *question) {
                                if (sent != nullptr)
                                    heard.emplace();
                                clock.start();
                                child<QPushButton>(question, QStringLiteral("pb0"))->click();
                            });
        waitFor([this] { return words().startsWith(QStringLiteral("Записано")); });
        const double ms = clock.nsecsElapsed() / 1e6;
        if (sent != nullptr)
            *sent = heard->containing(QString());
        return ms;
    }

    /// As before the last write, so that the next one changes as much.
    void takeBack() { exec(m_bench, QStringLiteral("UPDATE goods SET price=price-1 WHERE group_g=900")); }

private:
    void choose(const char *box, const QString &text)
    {
        child<QComboBox>(&m_page, QLatin1String(box))->setCurrentText(text);
    }
    void press(const char *button) { child<QPushButton>(&m_page, QLatin1String(button))->click(); }
    QString words() const { return child<QLabel>(&m_page, QStringLiteral("labelCounts"))->text(); }

    const Bench &m_bench;
    Admin m_admin;
    Heard m_heard;
    QManGoods m_page;
};

double previewSeconds(const Bench &bench, BulkWindow *window)
{
    QVector<double> seconds;
    for (int round = 0; round < bench.rounds; ++round)
        seconds.append(window->preview() / 1000);
    return median(seconds);
}

double writingRatio(const Bench &bench, BulkWindow *window)
{
    QStringList statements;
    window->write(&statements);
    window->takeBack();
    BareClient bare(bench.address);
    return ratio(
        bench.rounds,
        [&] {
            const double ms = milliseconds([&] {
                for (const QString &sql : qAsConst(statements))
                    bare.run(sql);
            });
            window->takeBack();
            return ms;
        },
        [&] {
            const double ms = window->write();
            window->takeBack();
            return ms;
        });
}
} // namespace

QVector<Figure> measureBulk(const Bench &bench)
{
    fillGroup(bench);
    QVector<Figure> figures;
    {
        BulkWindow window(bench);
        window.preview();
        figures = {{QStringLiteral("10,000 prices shown, old and new"), previewSeconds(bench, &window), 1,
                    QStringLiteral("s")},
                   {QStringLiteral("10,000 prices written, from the answer to the list"),
                    writingRatio(bench, &window), 1.3, QStringLiteral("x bare")}};
        waitOutTasks();
    }
    emptyGroup(bench);
    return figures;
}
