#pragma once

#include <QString>
#include <QVector>

class QObject;
class QPagedPaintDevice;
class QWidget;

/// What stands on the card of a user, and how it comes to paper.
struct UserCard
{
    QString surname;
    /// Name and patronymic.
    QString names;
    /// Thirteen digits with a sound check digit.
    QString code;
};

/// Makes the pages as large as a bank card; before a painter begins on the device.
void setCardPage(QPagedPaintDevice *paper);
/// A card a page.
void printCards(const QVector<UserCard> &cards, QPagedPaintDevice *paper);
/// Shows them on the screen, with the way to the printer.
void previewCards(QWidget *parent, const QVector<UserCard> &cards);
/// Writes them into a PDF file in the background; see saveInBackground().
bool saveCardsPdf(QObject *receiver, const QVector<UserCard> &cards, const QString &path);

/// A bar of a barcode, in modules from its left end.
struct Bar
{
    double left;
    double width;
};
/// The bars of an EAN-13 code, which is 95 modules wide; empty when it is none.
QVector<Bar> eanBars(const QString &code);
