#pragma once

#include "goodssearch.h"
#include "refusedlist.h"
#include "salework.h"
#include "stockdocument.h"

/// A table of barcodes and quantities that was copied out of a spreadsheet, on its way into a document of
/// goods.

/// One record of it.
struct PastedLine
{
    /// Its place in the text, from 1.
    int number = 0;
    /// As they stand in the text.
    QString barcode;
    QString quantity;
    /// Empty while the goods item is not known.
    QString name;
    /// What becomes of it, in the user's words.
    QString words;
    bool isTaken = false;
};

/// What a whole table would do.
struct PastedTable
{
    QVector<PastedLine> lines;
    /// For StockDocument::add(), in the order of the lines.
    QVector<StockRow> rows;
    RefusedLines refused;
    /// Nothing can be said of the table at all; nothing else counts then.
    QString error;
};

namespace Pasted {
constexpr int mostLines = 20000;

/// Whether a text is more than a word to be searched for.
bool isTable(const QString &text);
/// A barcode as the database has it, or why it cannot be one: blanks, an apostrophe and what makes a
/// spreadsheet take it for a text go, "4820000000109.0" loses its end, "4.82E+12" is told.
QString barcodeOf(const QString &cell, QString *refusal);
/// The barcode, and what it was before a spreadsheet took it for a number and dropped its zeros.
QStringList candidates(const QString &barcode);
} // namespace Pasted

/// Holds every record against the goods of the chain, which are read with one statement. Columns are
/// separated by tabs or semicolons, the first one is the barcode and the second the quantity, unless a
/// heading names them elsewhere. Failed statements are reported under the place of the caller.
PastedTable checkPastedTable(const Db &db, const SaleWork::Caller &caller, const QString &text,
                             const QString &shop, GoodsSearch::Mode mode);
