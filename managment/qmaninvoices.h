#pragma once

#include "destination.h"
#include "invoicelist.h"
#include "invoicepane.h"
#include "qtab.h"

namespace Ui {
class QManInvoicesFilter;
}
class TypingPause;
class InvoiceDialog;
class QSplitter;

/// The page of the transfers between shops: the invoices of the shops that the user sees, those on the
/// way first, then the newest, a page at a time, and below them the one that is chosen, to be accepted,
/// cancelled and printed.
class QManInvoices : public QTab
{
    Q_OBJECT

public:
    QManInvoices(QSqlDatabase *db, QLoadedUser *user, QObject *receiver, setting *set, QWidget *parent);
    ~QManInvoices() override;

    bool isLoading() const override;
    /// Shows the invoice.
    void goTo(const Destination &destination) override { showInvoice(destination.id); }
    Commands commands() const override;
    /// Shows all invoices, with that one as the current one if it is among the newest. print: and its paper.
    void showInvoice(DbId invoice, bool print = false);

    /// So many rows are shown when all are asked for.
    static constexpr int mostRows = 200000;

public slots:
    /// Accepts the invoice of the row; of one that is closed or not for this user the goods get the focus.
    void Edit(const QModelIndex &index) override;
    /// A new transfer: sendWanted().
    void Add() override;
    /// The invoice of that number; all for an empty text.
    void seerch(const QString &text);
    void searchAgain() override;
    void previousPage();
    void nextPage();

signals:
    /// Goods are to be sent; whoever has the window for that opens it.
    void sendWanted();

protected:
    void rowsShown() override;
    void followRights() override;
    /// The page from where it begins; the first one with all that is newer by now.
    void loadAgain() override;

private:
    void buildFilter();
    void connectFilter();
    void buildPane();
    void refillShops();
    void followPlace();
    QString shopsCondition() const;
    InvoicesAsked asked() const;
    QStringList askedWords() const;
    void showPage();
    RowStore takePage(RowStore &&found);
    void followRow();
    ShownInvoice invoiceOf(int row) const;
    InvoiceRefusals refusalsOf(int row) const;
    QString closingRefusal(int row, InvoiceColumn shop, InvoiceColumn group, const QString &notOwn) const;
    QString cell(int row, InvoiceColumn column) const;
    bool isRefused(const QString &why);
    void acceptCurrent();
    void cancelCurrent();
    void runDialog(InvoiceDialog *dialog);

    std::unique_ptr<Ui::QManInvoicesFilter> ui;
    QSplitter *m_splitter;
    InvoicePane *m_pane = nullptr;
    /// The days are typed section by section.
    TypingPause *m_daysPause;
    /// Whoever goes through the list by key stops at the one that is wanted.
    TypingPause *m_rowPause;
    /// Of the load that is shown or on its way.
    InvoicesAsked m_asked;
    QStringList m_askedHeading;
    int m_pageRows = 0;
    /// Of the rows in the list.
    bool m_hasNext = false;
    InvoiceKey m_last;
    /// To be the current one when the rows have come.
    DbId m_wanted = 0;
    /// To be printed when its goods have come.
    DbId m_printed = 0;
};
