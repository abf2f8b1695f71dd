#pragma once

#include "listprinter.h"

class QIODevice;

/// How many rows a workbook has room for, beside a heading and totals.
constexpr int mostXlsxRows = 1048000;

/// Writes a list as a workbook that knows numbers, dates and texts apart: the heading, the captions (frozen,
/// with a filter), the rows, below them the sums of columns that add up and the totals. Numbers that a
/// spreadsheet would round stay texts, and no text becomes a formula. False, with the reason unless the
/// device has it, when it could not be written, or the work is to stop.
bool writeXlsx(const PrintedList &list, QIODevice *out, const ListProgress &mayGoOn, QString *why);

/// The same into a file, in the background. False, with the reason posted, when it cannot begin.
bool saveXlsx(QObject *receiver, const PrintedList &list, const QString &path);
