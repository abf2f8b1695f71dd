#pragma once

#include "listsnapshot.h"

/// Rows of a list under their captions, for other programs.
struct CopiedTable
{
    /// A line each, the cells separated by tabs. Numbers and days are written as the user's language does,
    /// without blanks, so that a spreadsheet knows them.
    QString text;
    /// The same with the kind of each cell, so that barcodes keep their zeros; empty for many rows.
    QString html;
};

Q_DECLARE_METATYPE(CopiedTable)

/// The cells of those rows as they are shown; a text with tabs or line breaks stays in one. Nothing when it
/// was told to stop.
CopiedTable copiedTable(const ListSnapshot &list, const QVector<int> &rows, const ListProgress &mayGoOn = {});
void putOnClipboard(const CopiedTable &table);
