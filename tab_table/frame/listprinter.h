#pragma once

#include "listsnapshot.h"

class QObject;
class QWidget;

/// A list as it goes to paper, as a value.
struct PrintedList
{
    /// Lines above the list: what it is, of which place and time, when it was made. The first one is the
    /// title.
    QStringList heading;
    ListSnapshot rows;
    /// Lines below the last row.
    QStringList totals;
};

/// Shows the pages on the screen, with the way to the printer. Long lists show how far they are meanwhile.
void previewList(QWidget *parent, const PrintedList &list);

/// Writes the pages into a PDF file in the background; see saveInBackground().
bool saveListPdf(QObject *receiver, const PrintedList &list, const QString &path);

/// Asks for the PDF file to write, from a suggested name without its ending; empty when none is wanted.
QString askPdfPath(QWidget *parent, const QString &suggested);
/// A text without what a file's name may not hold on any system.
QString fileNameOf(const QString &text);
