#pragma once

#include "filejob.h"
#include "listsnapshot.h"

enum class CsvEncoding {
    Utf8,       ///< without a byte-order mark
    Windows1251 ///< what it cannot hold becomes "?"
};

/// Writes the captions and the rows of a list, each as a line of its own: the plain texts ("1234.50") as they
/// are, without quotes, separated by ";", ended by "\n". False when the device could not be written, or the
/// work is to stop.
bool writeCsv(const ListSnapshot &list, CsvEncoding encoding, QIODevice *out,
              const ListProgress &mayGoOn = {});

/// The same into a file, in the background.
bool saveCsv(QObject *receiver, const ListSnapshot &list, CsvEncoding encoding, const QString &path);
