#pragma once

#include "chekorigin.h"
#include "page.h"

#include <QWidget>

class QCashReport;
class QLoadedUser;
class QManCash;
class QSqlDatabase;
class QTab;
class QTabWidget;
class setting;

/// The page of the chain's cash: the transfers between shops and, in a tab beside them, how all cash moved.
/// The commands are those of the part in front.
class QManFinance : public QWidget, public Page
{
    Q_OBJECT

public:
    QManFinance(QSqlDatabase *db, QLoadedUser *user, QObject *receiver, setting *set, QWidget *parent);

    QManCash *transfers() const { return m_transfers; }
    QCashReport *report() const { return m_report; }
    /// An invoice of cash, in front.
    void showInvoice(uint invoice);

    Commands commands() const override;
    void run(Command command) override;
    bool isLoading() const override;
    bool mayClose() override;
    /// Shows the invoice.
    void goTo(const Destination &destination) override;
    /// That of the part in front; of the report the one that has the keyboard.
    ListPane *list() const override;

signals:
    void cheksWanted(const ChekOrigin &origin);
    void slipWanted(const QString &kass, int chek, bool print);

private:
    QTab *front() const;

    QTabWidget *m_parts;
    QManCash *m_transfers;
    QCashReport *m_report;
};
