#pragma once

#include <QString>

class QObject;
class QPagedPaintDevice;
class QWidget;

/// Prints a slip as a narrow column, as a register does, on as many pages as it needs.
void printSlip(const QString &html, QPagedPaintDevice *paper);
/// Shows the slip as it would be printed, with the way to the printer.
void previewSlip(QWidget *parent, const QString &html);
/// Writes a slip as a PDF file of one page, as long as the slip, in the background; see saveInBackground().
bool saveSlipPdf(QObject *receiver, const QString &html, const QString &path);
