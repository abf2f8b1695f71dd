#pragma once

#include "invoicedialog.h"
#include "invoicepane.h"

#include <memory>

namespace Ui {
class QCloseCash;
}
class CashEndFields;
class QLoadedUser;

/// Closes an invoice of cash: the receiver accepts what he has counted, the field of which begins empty, or
/// the sender takes it back and tells why. The cash comes into the shop's safe or into a register.
class QCloseCash : public InvoiceDialog
{
    Q_OBJECT

public:
    enum Act { Accepting, Cancelling };

    QCloseCash(Act act, const QString &connection, const QLoadedUser *user, QObject *receiver,
               const ShownInvoice &invoice, QWidget *parent);
    ~QCloseCash() override;

protected:
    QString refusal() const override;
    void save() override;
    void notWritten() override;
    void changeEvent(QEvent *event) override;

private:
    void showAct();
    void showDifference();
    bool agreesToDifference();
    qint64 difference() const;
    QWidget *firstField() const;
    Work work() const;

    std::unique_ptr<Ui::QCloseCash> ui;
    Act m_act;
    const QLoadedUser *m_user;
    ShownInvoice m_invoice;
    CashEndFields *m_end;
};
