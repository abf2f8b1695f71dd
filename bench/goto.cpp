#include "bench.h"
#include "windows.h"

#include "gotobox.h"
#include "gotosearch.h"

#include <QApplication>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenuBar>

namespace {
/// From the end of the typing to the listed answer.
double found(GotoBox *box, const QString &text)
{
    auto *field = box->findChild<QLineEdit *>();
    field->setText(text);
    return milliseconds([&] {
        emit field->editingFinished();
        while (box->isSearching())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        box->grab();
    });
}

struct Asking
{
    const char *name;
    QString text;
    /// What a word is in is looked for in every item.
    bool readsAllGoods = false;
};

QVector<Figure> measure(const Bench &bench, Admin *admin, GotoBox *box, const Asking &asking)
{
    BareClient bare(bench.address);
    const QStringList statements = gotoQuestion(asking.text, *admin->user()).statements;
    QVector<double> slowest;
    QVector<double> answers;
    const auto theirs = [&] {
        double all = 0;
        double most = 0;
        for (const QString &sql : statements) {
            const double took = milliseconds([&] { bare.run(sql); });
            all += took;
            most = qMax(most, took);
        }
        slowest.append(most);
        return all;
    };
    const auto ours = [&] {
        // Another text before, else nothing is asked.
        box->findChild<QLineEdit *>()->clear();
        answers.append(found(box, asking.text));
        return answers.last();
    };
    const double times = ratio(bench.rounds, theirs, ours);
    const QString name = QStringLiteral("go to %1").arg(QLatin1String(asking.name));
    QVector<Figure> figures = {{name + QStringLiteral(", to the listed answer"), median(answers),
                                asking.readsAllGoods ? 150.0 : 30.0, QStringLiteral("ms")},
                               {QStringLiteral("  its slowest statement"), median(slowest),
                                asking.readsAllGoods ? 100.0 : 50.0, QStringLiteral("ms")}};
    // Beside less than a millisecond of the server only the painting would be measured.
    if (asking.readsAllGoods)
        figures.append({QStringLiteral("  against its statements"), times, 1.3, QStringLiteral("x bare")});
    return figures;
}
} // namespace

QVector<Figure> measureGoto(const Bench &bench)
{
    Admin admin(bench);
    QMainWindow window;
    showWindow(&window);
    auto *box = new GotoBox(bench.connection, admin.user(), nullptr, window.menuBar(), &window);
    box->show();
    QVector<Figure> figures;
    for (const Asking &asking : {Asking{"an item by a word", QStringLiteral("молоко"), true},
                                 {"a barcode", QStringLiteral("4820000000013")},
                                 {"the beginning of a card", QStringLiteral("картка 22")},
                                 {"a number", QStringLiteral("1205"), true}})
        figures += measure(bench, &admin, box, asking);
    return figures;
}
