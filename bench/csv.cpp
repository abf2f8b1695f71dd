#include "bench.h"

#include "csvexport.h"
#include "qrowmodel.h"

#include <QBuffer>
#include <QTextCodec>

namespace {
constexpr int exportedRows = 100000;

void load(const Bench &bench, QRowModel *model)
{
    QVector<Column> columns(14);
    columns[0].format = &asNumber;
    columns[2].format = &asMoney;
    columns[3].format = &asMoney;
    columns[10].format = &asDate;
    model->setColumns(columns);
    if (auto query = bench.db().run(cardsStatement() + QStringLiteral(" LIMIT %1").arg(exportedRows)))
        model->replaceRows(RowStore::read(*query));
    if (model->rowCount() == 0)
        qFatal("No rows");
}

/// The ordinary way: each cell's text, converted.
QByteArray cellByCell(const QRowModel &model, const QTextCodec *codec)
{
    QByteArray file;
    for (int row = -1; row < model.rowCount(); ++row) {
        for (int column = 0; column < model.columnCount(); ++column) {
            const QVariant cell = row < 0 ? model.headerData(column, Qt::Horizontal)
                                          : model.index(row, column).data(Qt::EditRole);
            const QString text = cell.toString();
            file += codec == nullptr ? text.toUtf8() : codec->fromUnicode(text);
            file += column + 1 < model.columnCount() ? ';' : '\n';
        }
    }
    return file;
}

double exportRatio(const Bench &bench, const QRowModel &model, CsvEncoding encoding)
{
    const QTextCodec *codec =
        encoding == CsvEncoding::Utf8 ? nullptr : QTextCodec::codecForName("Windows-1251");
    QByteArray expected;
    QBuffer file;
    const auto theirs = [&] { return milliseconds([&] { expected = cellByCell(model, codec); }); };
    const auto ours = [&] {
        file.close();
        file.setData(QByteArray());
        file.open(QIODevice::WriteOnly);
        return milliseconds(
            [&] { writeCsv(ListSnapshot(model, nullptr, ListSnapshot::AsStored), encoding, &file); });
    };
    const double value = ratio(bench.rounds, theirs, ours);
    if (file.data() != expected)
        qFatal("The exported file differs");
    return value;
}
} // namespace

QVector<Figure> measureCsv(const Bench &bench)
{
    QRowModel model;
    load(bench, &model);
    const QString times = QStringLiteral("x cells");
    return {{QStringLiteral("CSV of 100,000 cards, UTF-8"), exportRatio(bench, model, CsvEncoding::Utf8),
             1.0 / 4, times},
            {QStringLiteral("CSV of 100,000 cards, Windows-1251"),
             exportRatio(bench, model, CsvEncoding::Windows1251), 1.0 / 6, times}};
}
