#pragma once

#include "countdesk.h"
#include "invoicedialog.h"
#include "invoicereader.h"
#include "listcolumns.h"

#include <memory>

namespace Ui {
class QAcceptInvoice;
}
class QLoadedUser;

/// The receiver counts what has come. A scanned piece counts one more wherever the focus is, of weighed goods
/// the quantity is asked; what was not sent is added. All has to be counted before it is accepted; what
/// differs is shown as it is typed, and once more as a question.
class QAcceptInvoice : public InvoiceDialog
{
    Q_OBJECT

public:
    QAcceptInvoice(QSqlDatabase *db, const QLoadedUser *user, QObject *receiver, DbId invoice,
                   QWidget *parent);
    ~QAcceptInvoice() override;

    const CountModel *model() const { return m_model; }

public slots:
    /// Asks when something was counted.
    void reject() override;

protected:
    QString refusal() const override;
    void save() override;
    void notWritten() override;
    void showEvent(QShowEvent *event) override;

private:
    void connectParts();
    void show(const std::optional<ReadInvoice> &invoice);
    void lookUp(const QString &text, CountDesk::Source source);
    void showFound(const QString &text, CountDesk::Source source,
                   const std::optional<QVector<InvoiceLine>> &found);
    AcceptDraft draft() const;

    std::unique_ptr<Ui::QAcceptInvoice> ui;
    CountModel *m_model;
    ListColumns m_columns;
    CountDesk *m_desk;
    ReadInvoice m_invoice;
    DbId m_user;
};
