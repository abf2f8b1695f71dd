#pragma once

#include <QStringList>

class QAbstractItemModel;
class QPagedPaintDevice;
class QPrinter;
class QTableView;
class QWidget;

/// A list as it goes to paper: the texts that it shows, without the columns that the view hides.
struct PrintedList
{
    /// Lines above the list: what it is, of which place and time, when it was made. The first one is the
    /// title.
    QStringList heading;
    const QAbstractItemModel *model = nullptr;
    /// Tells which columns are hidden; without one all are shown.
    const QTableView *view = nullptr;
    /// Lines below the last row.
    QStringList totals;
};

/// Turns the page to landscape when the list is wider than a portrait page, else to portrait.
void turnPage(QPagedPaintDevice *device, const PrintedList &list);

/// Prints the pages that the printer was told to, or all, on its page as it is set. Long lists show their
/// progress; false when that was cancelled, or when the printer does not work.
bool printList(QPrinter *printer, const PrintedList &list);

/// Shows the pages on the screen, with the way to the printer.
void previewList(QWidget *parent, const PrintedList &list);

/// Writes the pages into a file, whole or not at all. False when it was cancelled (then error is empty) or
/// could not be written.
bool saveListPdf(const PrintedList &list, const QString &path, QString *error = nullptr);

/// Asks for the PDF file to write, from a suggested name without its ending; empty when none is wanted.
QString askPdfPath(QWidget *parent, const QString &suggested);
/// A text without what a file's name may not hold on any system.
QString fileNameOf(const QString &text);
