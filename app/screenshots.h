#pragma once

#include <QDir>
#include <QObject>
#include <functional>

class QWidget;
class Veltab;

/// Takes a picture of every window that the logged-in user can open: for the documents, and to look over
/// all windows after a change. Ends the program when done.
class Screenshots : public QObject
{
    Q_OBJECT

public:
    /// folder: where the PNG files go; made when missing.
    Screenshots(Veltab *window, const QString &folder);
    /// From now on all windows are light on dark, as on a desktop with such colours.
    static void darken();

private:
    void takeAll();
    void takeLogin();
    void takeEverywhere();
    void takePage(const QString &name);
    /// A list or a report, with its editors where the user may edit.
    void takeList(QWidget *page, const QString &name);
    void fillReport(QWidget *report, const QString &name);
    void load(QWidget *report, const QString &name);
    void takeEditors(QWidget *page, const QString &name);
    /// With the registers of some shops.
    void takeOverview(QWidget *overview, const QString &name);
    void takePermissionGroups(QWidget *page, const QString &name);
    /// Pictures the goods, and the look at a price list.
    void takeGoods(QWidget *goods, const QString &name);
    void takeUsers(QWidget *users, const QString &name);
    /// Pictures the checks of the data when they have come to their end.
    void takeCheck(QWidget *check, const QString &name);
    void takeActions(QWidget *actions, const QString &name);
    void takeBulkChanges(QWidget *page, const QString &name);
    void takeAssignment(QWidget *assignment, const QString &name);
    /// Pictures the receipt viewer with a document, and that document.
    void takeCheks(QWidget *viewer, const QString &name);
    /// Pictures a receipt with three goods, and its payment.
    void takeImport(QWidget *import, const QString &name);
    void takeSale(QWidget *sale, const QString &name);
    /// The same goods received and moved, and a table that is pasted.
    void takeInvoices(QWidget *invoices, const QString &name);
    void takePeriod(QWidget *sale, const QString &name);
    void takeFinance(QWidget *finance, const QString &name);
    void takeStock(QWidget *sale, const QString &name);
    void pickGoods(QWidget *sale);
    /// Pictures the modal window that act opens, and closes it.
    void takeModal(const QString &name, const std::function<void()> &act);
    /// Pictures a slip as it is printed: black on white, as narrow as the paper.
    void takeZReports(QWidget *report, const QString &name);
    void takeSlip(const QString &html);
    QString fileFor(const QString &name);
    void save(QWidget *widget, const QString &name);

    Veltab *m_window;
    QDir m_folder;
    int m_number = 0;
    bool m_failed = false;
};
