#pragma once

#include "listsnapshot.h"

class QIODevice;
class QObject;

/// Writes what a file is to hold. False when the device takes no more, or when mayGoOn() says so. It is
/// called in another thread: everything it needs are values of its own.
using FileWork = std::function<bool(QIODevice *file, const ListProgress &mayGoOn)>;
/// The same for work that may fail elsewhere than in the file: it tells why.
using FileWorkElsewhere = std::function<bool(QIODevice *file, const ListProgress &mayGoOn, QString *why)>;

/// Writes a file as a job: whole, or it stays as it was. Its end is posted to the receiver ("Файл збережено:
/// …", or the reason why not), with which the job ends. False, with the reason posted, when it cannot begin.
bool saveInBackground(QObject *receiver, const QString &path, const FileWork &work);
bool saveInBackground(QObject *receiver, const QString &path, const FileWorkElsewhere &work);
