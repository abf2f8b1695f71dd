#pragma once

#include <QString>

class QPrinter;

/// Prints a slip as a narrow column, as a register does, on as many pages as it needs.
void printSlip(const QString &html, QPrinter *printer);
/// Writes a slip as a PDF file of one page, as long as the slip. False when the file cannot be written.
bool saveSlipPdf(const QString &html, const QString &path);
