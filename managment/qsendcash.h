#pragma once

#include "cashinvoice.h"
#include "combos.h"
#include "invoicedialog.h"

#include <memory>

namespace Ui {
class QSendCash;
}
class CashEndFields;
class QLoadedUser;

/// Cash is sent to another shop: from which shop, out of its safe or of a register, to which one, how much.
/// More than a register has is asked about.
class QSendCash : public InvoiceDialog
{
    Q_OBJECT

public:
    QSendCash(const QString &connection, const QLoadedUser *user, QObject *receiver, QWidget *parent);
    ~QSendCash() override;

protected:
    QString refusal() const override;
    void save() override;
    void notWritten() override;
    void fellShort(const InvoiceResult &result) override;

private:
    /// What the boxes offer.
    struct Offer
    {
        std::optional<ListEntries> from;
        std::optional<ListEntries> to;
    };

    void show(const Offer &offer);
    void showTargets();
    CashSending sending() const;

    std::unique_ptr<Ui::QSendCash> ui;
    const QLoadedUser *m_user;
    CashEndFields *m_end;
    ListEntries m_targets;
    /// So far below zero the register's cash may fall.
    qint64 m_agreed = 0;
};
