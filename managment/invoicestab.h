#pragma once

#include "destination.h"
#include "invoicelist.h"
#include "invoicepane.h"
#include "qtab.h"

namespace Ui {
class InvoicesTabFilter;
}
class InvoiceDialog;
class TypingPause;
class QSplitter;

/// The transfers between shops, of goods or of cash: the invoices of the shops that the user sees, those on
/// the way first, then the newest, a page at a time, and below them the one that is chosen, to be accepted,
/// cancelled and printed. A concrete list calls begin() at the end of its constructor and has the windows in
/// which an invoice is closed.
class InvoicesTab : public QTab
{
    Q_OBJECT

public:
    InvoicesTab(InvoiceKind kind, QSqlDatabase *db, QLoadedUser *user, QObject *receiver, setting *set,
                QWidget *parent);
    ~InvoicesTab() override;

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
    /// A new transfer, for those who may: send().
    void Add() override;
    /// The invoice of that number; all for an empty text.
    void seerch(const QString &text);
    void searchAgain() override;
    void previousPage();
    void nextPage();

protected:
    void begin();
    /// Something is to be sent.
    virtual void send() = 0;
    /// The windows in which the invoice is closed.
    virtual InvoiceDialog *makeAccepting(const ShownInvoice &invoice) = 0;
    virtual InvoiceDialog *makeCancelling(const ShownInvoice &invoice) = 0;
    /// Shows the window until it closes, then the list anew if it is old; true when something was written.
    bool runDialog(InvoiceDialog *dialog);
    QSqlDatabase *connection() const { return db().connection(); }
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
    void colour(int row, InvoiceColumn column, InvoiceState state);
    void acceptCurrent();
    void cancelCurrent();

    InvoiceKind m_kind;
    std::unique_ptr<Ui::InvoicesTabFilter> ui;
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
