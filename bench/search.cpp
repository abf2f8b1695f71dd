#include "bench.h"

#include "goodsrules.h"
#include "qloadeduser.h"
#include "qtabgoods.h"

#include <QApplication>
#include <QEventLoop>
#include <QTimer>

namespace {
/// The goods list of a user who may see all, in a window of the usual size.
class SearchWindow
{
public:
    explicit SearchWindow(const Bench &bench)
        : m_user(nullptr, nullptr), m_tab(bench.connection, &m_user, nullptr, nullptr, nullptr)
    {
        m_tab.resize(1400, 900);
        m_tab.show();
        await();
        m_tab.grab();
    }

    /// From the key press to the painted rows.
    double search(const QString &text)
    {
        return milliseconds([&] {
            m_tab.seerch(text);
            await();
            m_tab.grab();
        });
    }

    /// How long a key press holds up the window while an older search is at work.
    double typing(const QString &older, const QString &text)
    {
        m_tab.seerch(older);
        QEventLoop loop;
        QTimer::singleShot(20, &loop, &QEventLoop::quit);
        loop.exec();
        const double held = milliseconds([&] { m_tab.seerch(text); });
        await();
        return held;
    }

private:
    void await()
    {
        QEventLoop loop;
        QObject::connect(&m_tab, &QTab::loaded, &loop, &QEventLoop::quit);
        loop.exec();
    }

    QLoadedUser m_user;
    QTabGoods m_tab;
};

void runBare(BareClient *bare, const QString &text)
{
    const QString condition = goodsCondition(0, text);
    bare->run(QStringLiteral("SELECT COUNT(DISTINCT id) FROM goods LEFT JOIN dk_shc ON "
                             "goods.id=dk_shc.id_goods") +
              condition);
    bare->run(goodsStatement() + condition);
}

double searchRatio(const Bench &bench, SearchWindow *window, const QString &text)
{
    BareClient bare(bench.address);
    return ratio(
        bench.rounds, [&] { return milliseconds([&] { runBare(&bare, text); }); },
        [&] { return window->search(text); });
}
} // namespace

QVector<Figure> measureSearch(const Bench &bench)
{
    SearchWindow window(bench);
    const QString times = QStringLiteral("x bare");
    const QString broad = QStringLiteral("о");
    QVector<double> held;
    for (int i = 0; i < bench.rounds; ++i)
        held.append(window.typing(broad, QStringLiteral("ор")));
    return {{QStringLiteral("goods search that finds most of them"), searchRatio(bench, &window, broad), 1.2,
             times},
            {QStringLiteral("goods search by a word"), searchRatio(bench, &window, QStringLiteral("молоко")),
             1.2, times},
            {QStringLiteral("goods search by a barcode"),
             searchRatio(bench, &window, QStringLiteral("4820000000013")), 1.2, times},
            {QStringLiteral("key press while an older search runs"), median(held), 10, QStringLiteral("ms")}};
}
