#pragma once

#include <QString>

class QAbstractItemModel;
class QIODevice;
class QTableView;

enum class CsvEncoding {
    Utf8,       ///< without a byte-order mark
    Windows1251 ///< what it cannot hold becomes "?"
};

/// Writes the captions and the rows of a list, each as a line of its own: the plain texts ("1234.50") as they
/// are, without quotes, separated by ";", ended by "\n". Columns that the view hides are left out; the view
/// may be null. False when the device could not be written.
bool writeCsv(const QAbstractItemModel &model, const QTableView *view, CsvEncoding encoding, QIODevice *out);

/// The same into a file, which gets the whole list or stays as it was. Returns why not; empty when written.
QString saveCsv(const QAbstractItemModel &model, const QTableView *view, CsvEncoding encoding,
                const QString &path);
