#include "bench.h"

#include "csvexport.h"
#include "qrowmodel.h"
#include "spreadsheet.h"
#include "xlsxexport.h"

#include <QBuffer>
#include <QTemporaryDir>
#include <QTextCodec>
#include <xlsxwriter.h>

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

/// A cell as the library takes it.
struct LibraryCell
{
    std::string text;
    bool isNumber = false;
    double number = 0;
};

using LibraryCells = std::vector<std::vector<LibraryCell>>;

/// Everything that has to be known of the cells, so that only the library is measured.
LibraryCells libraryCells(const QRowModel &model)
{
    LibraryCells cells(static_cast<size_t>(model.rowCount()));
    for (int row = 0; row < model.rowCount(); ++row) {
        for (int column = 0; column < model.columnCount(); ++column) {
            const std::string_view stored = model.storedBytes(row, column);
            const CellValue value = model.format(column).valueOf(stored);
            LibraryCell cell;
            cell.isNumber = isSpreadsheetNumber(value);
            if (cell.isNumber)
                cell.number = spreadsheetNumber(value);
            else
                cell.text = model.format(column).plain(stored).toStdString();
            cells[static_cast<size_t>(row)].push_back(cell);
        }
    }
    return cells;
}

void writeByLibrary(const LibraryCells &cells, const QString &folder)
{
    QByteArray place = folder.toUtf8();
    lxw_workbook_options options = {};
    options.constant_memory = LXW_TRUE;
    options.tmpdir = place.data();
    lxw_workbook *book = workbook_new_opt((place + "/library.xlsx").constData(), &options);
    lxw_worksheet *sheet = workbook_add_worksheet(book, nullptr);
    lxw_format *text = workbook_add_format(book);
    format_set_num_format(text, "@");
    lxw_format *number = workbook_add_format(book);
    format_set_num_format(number, "#,##0.00");
    for (size_t row = 0; row < cells.size(); ++row) {
        for (size_t column = 0; column < cells[row].size(); ++column) {
            const LibraryCell &cell = cells[row][column];
            const auto at = static_cast<lxw_row_t>(row);
            const auto across = static_cast<lxw_col_t>(column);
            if (cell.isNumber)
                worksheet_write_number(sheet, at, across, cell.number, number);
            else if (!cell.text.empty())
                worksheet_write_string(sheet, at, across, cell.text.c_str(), text);
        }
    }
    if (workbook_close(book) != LXW_NO_ERROR)
        qFatal("The library failed");
}
} // namespace

QVector<Figure> measureXlsx(const Bench &bench)
{
    QRowModel model;
    load(bench, &model);
    const QTemporaryDir folder;
    const LibraryCells cells = libraryCells(model);
    const auto library = [&] { return milliseconds([&] { writeByLibrary(cells, folder.path()); }); };
    const auto ours = [&] {
        QFile file(folder.filePath(QStringLiteral("ours.xlsx")));
        if (!file.open(QIODevice::WriteOnly))
            qFatal("No place for the file");
        QString why;
        const PrintedList list{{}, ListSnapshot(model, nullptr, ListSnapshot::AsShown), {}};
        return milliseconds([&] {
            if (!writeXlsx(
                    list, &file, [](qint64, qint64) { return true; }, &why))
                qFatal("%s", qPrintable(why));
        });
    };
    return {{QStringLiteral("XLSX of 100,000 cards"), ratio(bench.rounds, library, ours), 2,
             QStringLiteral("x library")}};
}

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
