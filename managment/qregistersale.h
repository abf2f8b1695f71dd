#pragma once

#include "keyteller.h"
#include "page.h"
#include "quantitygrid.h"
#include "saleguard.h"
#include "salepayment.h"
#include "stockwriter.h"

#include <QWidget>
#include <memory>

namespace Ui {
class QRegisterSale;
}
class HeldActs;
class setting;
class StockDesk;
class StockPane;

/// The tab in which a sale is registered for a shop's cash register, and goods are received and moved. It
/// joins its parts: the place (PlaceBar), the goods (GoodsPicker), the receipt (ReceiptPane), the payment
/// (SalePayment), the documents of the other modes (StockDesk), the shift (ShiftBar) and what is told
/// (NoticeBar). It can be worked with a scanner and the keyboard alone; the search field has the focus.
///
/// It never waits for the server: what is on its way or under way (HeldActs, SaleWork) holds up decisions and
/// keeps scans, and nothing else.
class QRegisterSale : public QWidget, public Page, public KeyTeller
{
    Q_OBJECT

public:
    /// receiver gets the messages.
    QRegisterSale(QSqlDatabase *db, QLoadedUser *user, QObject *receiver, setting *set, QWidget *parent);
    ~QRegisterSale() override;

    // The next four, and ClosePeriod(), wait for the server: for those who need the answer at once. The tab
    // itself reads and writes by tasks.

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

    /// Asks about a receipt that would be lost or is not known to be written. Not while something is under
    /// way, which is told; what the server has to be asked before is asked, then closeWanted() comes.
    bool mayClose() override;
    QVector<ToldKey> toldKeys() const override;

public slots:
    // What is done with goods. Each mode keeps what was filled in it; a switch waits for an item on its way.

    void admissionmode();
    void salemode();
    void movingmode();
    /// Hands goods over to another shop.
    void transfermode();
    /// Checks the receipt, takes the payment and writes it.
    void sale();
    /// Writes the document of goods in front, or sells where that is the receipt.
    void write();
    /// Shows the table on the clipboard, line by line, before it comes into the document of goods in front.
    void pasteTable();
    /// Shows the goods that the text fits to.
    void seerch(const QString &text);
    /// Closes the register's shift: on the last day of the period asks about the period, then takes what the
    /// operator has counted and writes.
    void CloseZ_zvit();
    /// Cash that is brought into the register or taken out of it without a sale.
    void moveCash();
    /// The button of the period: tells when it could not be closed.
    void pbClosePeriod();
    /// Closes the shop's trading period; false, with the reason shown, when it cannot be closed.
    bool ClosePeriod();

signals:
    /// Somebody wants to see, or to print, the slip of a receipt of that register (its id).
    void slipWanted(const QString &kass, int chek, bool print);
    /// The same of the paper of an invoice.
    void invoiceWanted(uint invoice, bool print);
    /// Somebody wanted to close the tab when it could not be told whether it may be; now it can.
    void closeWanted();

protected:
    void closeEvent(QCloseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void setUpParts(const QuantityGrid::WhenThere &whenThere);
    void connectPlace();
    void connectGoods();
    void connectReceipt();
    void connectPayment();
    void connectStock();
    void connectClosing();
    void connectKeys();
    void orderTabs();
    void showRights();
    void notify(const QString &text);

    void chooseMode(GoodsSearch::Mode mode);
    ChekWriter writer() const;
    GoodsSearch goodsScope() const;
    bool addGoods(const GoodsItem &item);
    void focusSearch();
    bool fieldKey(const QKeyEvent *key, bool isChoice);

    bool isCodeLeft();
    bool mayTakeScans() const;
    void clearReceipt();
    void clearInFront();
    bool documentKey(const QKeyEvent *key);
    bool pastes(const QKeyEvent *key) const;
    void escape();
    void findGoods();
    void closeAgain();

    void afterSale(const SalePayment::Sold &sold);
    void afterStock(const StockPane &pane, const StockOrder &order, const StockWriter::Result &result);
    void tellWritten(const QString &words, const QString &kass, int number);
    void refreshGoods();
    void keepScans();
    void tellTracker(const QStringList &tables);

    std::unique_ptr<Ui::QRegisterSale> ui;
    SaleWork *m_work;
    HeldActs *m_acts;
    DbTasks *m_tracking;
    SalePayment *m_payment = nullptr;
    StockDesk *m_stock = nullptr;
    SaleGuard *m_guard = nullptr;
    GoodsSearch::Mode m_mode = GoodsSearch::Sale;
    /// What stood in the search field when the document was paid or written.
    QString m_searchBefore;
    /// Scanned behind a receipt that was paid but not written: it belongs to the next one.
    bool m_keepsScans = false;
};
