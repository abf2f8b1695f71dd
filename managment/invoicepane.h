#pragma once

#include "invoice.h"

#include <QWidget>
#include <memory>

namespace Ui {
class InvoicePane;
}
class ListPane;
class QLoadedUser;
class QSqlDatabase;

/// An invoice of the list beside it, as it is shown there; an id of 0 for none.
struct ShownInvoice
{
    DbId id = 0;
    InvoiceState state = InvoiceState::OnTheWay;
    /// Kopecks that were sent, of an invoice of cash.
    qint64 cash = 0;
    DbId shopFrom = 0;
    DbId shopTo = 0;
    QString from;
    QString to;
    /// "23-11-26 12:30:05, Коваль Ірина" each; empty while it has not happened.
    QString sent;
    QString closed;
    QString messageFrom;
    QString messageTo;
};

/// Why something cannot be done with the invoice that is shown; empty when it can.
struct InvoiceRefusals
{
    QString send;
    QString accept;
    QString cancel;
};

/// One invoice: what can be done with it, its goods or its cash, and the paper that goes with them: the note
/// of the transfer while it is on the way, later that of the acceptance with what differs.
class InvoicePane : public QWidget
{
    Q_OBJECT

public:
    InvoicePane(InvoiceKind kind, QSqlDatabase *db, const QLoadedUser *user, QObject *receiver,
                QWidget *parent);
    ~InvoicePane() override;

    void showInvoice(const ShownInvoice &invoice, const InvoiceRefusals &refusals);
    const ShownInvoice &invoice() const { return m_invoice; }
    ListPane *lines() const;
    bool isLoading() const;
    /// The paper on the screen, with the way to the printer.
    void print();

signals:
    void sendPressed();
    void acceptPressed();
    void cancelPressed();

private:
    void connectButtons();
    void linesShown();
    QStringList heading() const;
    QString title() const;
    QStringList totals() const;
    QStringList goodsTotals() const;

    InvoiceKind m_kind;
    std::unique_ptr<Ui::InvoicePane> ui;
    ShownInvoice m_invoice;
};
