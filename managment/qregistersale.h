#pragma once

#include "chekwriter.h"
#include "goodssearch.h"
#include "page.h"
#include "salepayment.h"

#include <QWidget>
#include <memory>

namespace Ui {
class QRegisterSale;
}
class QLoadedUser;
class QSqlDatabase;
class setting;

/// The tab in which a sale is registered for a shop's cash register. It joins its parts: the place
/// (PlaceBar), the goods (GoodsPicker), the receipt (ReceiptPane), the payment (SalePayment), the shift
/// (ShiftBar) and what is told (NoticeBar). It can be worked with a scanner and the keyboard alone; the
/// search field has the focus.
class QRegisterSale : public QWidget, public Page
{
    Q_OBJECT

public:
    /// receiver gets the messages.
    QRegisterSale(QSqlDatabase *db, QLoadedUser *user, QObject *receiver, setting *set, QWidget *parent);
    ~QRegisterSale() override;

    /// Sells, instead of receiving or moving goods.
    void salemode();

    /// Writes the receipt that stands in the grid; amounts in kopecks, only the fourth is a number as SQL
    /// has it. Returns the receipt's number, or -1 when nothing was written (reported).
    int writeChek(const QString &discount, const QString &toPay, const QString &cash, const QString &card,
                  const QString &certificate, const QString &fourth);
    /// The number of the register's next receipt; empty after a failure.
    QString getIdNewCheck() const;
    /// The number of the register's open shift, or empty. ok: false after a failure, and when the shift is
    /// another user's, which is shown.
    QString isOpenZ(bool *ok);
    /// The same; without an open shift it opens one. Empty after a failure.
    QString getIdZ();

    /// Asks about a receipt that would be lost or is not known to be written; not while one is paid.
    bool mayClose() override;

public slots:
    /// Checks the receipt, takes the payment and writes it.
    void sale();
    /// Shows the goods that the text fits to.
    void seerch(const QString &text);
    /// Closes the register's shift: on the last day of the period asks about the period, then takes what the
    /// operator has counted and writes.
    void CloseZ_zvit();
    /// The button of the period: tells when it could not be closed.
    void pbClosePeriod();
    /// Closes the shop's trading period; false, with the reason shown, when it cannot be closed.
    bool ClosePeriod();

signals:
    /// Somebody wants to see, or to print, the slip of a receipt of that register (its id).
    void slipWanted(const QString &kass, int chek, bool print);

protected:
    void closeEvent(QCloseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void setUpParts(QSqlDatabase *db, QObject *receiver);
    void connectPlace();
    void connectGoods();
    void connectReceipt();
    void connectPayment();
    void connectClosing();
    void connectKeys();
    void orderTabs();
    void showRights();
    void notify(const QString &text);
    bool confirm(const QString &title, const QString &text, const QString &actCaption);

    ChekWriter writer(const char *file = __builtin_FILE(), int line = __builtin_LINE()) const;
    GoodsSearch goodsScope() const;
    bool addGoods(const GoodsItem &item);
    void focusSearch();
    bool fieldKey(const QKeyEvent *key, bool isChoice);

    /// Ends what the hand has begun: a quantity or a discount that is being typed, an item that Enter waits
    /// for. False, with the reason shown, when something of it did not come into the receipt.
    bool settle();
    bool isCodeLeft();
    /// False, with the reason shown, when the user may not sell or the last receipt is not settled yet.
    bool mayChange();
    /// True when the receipt is empty, or the user agreed to lose it.
    bool leaveReceipt();
    void clearReceipt();
    void escape();

    void afterSale(const SalePayment::Sold &sold);
    void tellLater(const QStringList &tables);
    void tellTracker();

    std::unique_ptr<Ui::QRegisterSale> ui;
    QSqlDatabase *m_db;
    QLoadedUser *m_user;
    QObject *m_receiver;
    SalePayment *m_payment = nullptr;
    GoodsSearch::Mode m_mode = GoodsSearch::Sale;
    /// Written to, and not told to other programs yet.
    QStringList m_changedTables;
};
