#pragma once

#include "chekwriter.h"
#include "columns.h"
#include "goodssearch.h"
#include "page.h"
#include "salepayment.h"

#include <QTimer>
#include <QWidget>
#include <memory>

namespace Ui {
class QRegisterSale;
}
class QLoadedUser;
class QNTableView;
class QuantityDelegate;
class QRowModel;
class QSqlDatabase;
class ReceiptModel;
class setting;
class QueryOwner;
struct QueryAnswer;

/// The tab in which a sale is registered for a shop's cash register: the goods of the shop, the receipt, the
/// payment. It can be worked with a scanner and the keyboard alone; the search field has the focus.
class QRegisterSale : public QWidget, public Page
{
    Q_OBJECT

public:
    /// receiver gets the messages.
    QRegisterSale(QSqlDatabase *db, QLoadedUser *user, QObject *receiver, setting *set, QWidget *parent);
    ~QRegisterSale() override;

    /// An unclear receipt is told once more before it is out of sight; a receipt with goods is asked about.
    bool mayClose() override;

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
    /// The item that Enter waited for is there, or is known not to come.
    void answered();
    /// Somebody wants to see, or to print, the slip of a receipt of that register (its id).
    void slipWanted(const QString &kass, int chek, bool print);

protected:
    void closeEvent(QCloseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    static QVector<Column> goodsColumns();
    void setUpGoods();
    void setUpChek();
    void setUpGrid(QNTableView *view, const QVector<int> &digits);
    static QString widthsKey(const QNTableView *view);
    static void spreadNames(QNTableView *view);
    void connectPlace();
    void connectClosing();
    void connectReceipt();
    void connectKeys();
    void connectSearch();
    void connectFocus();
    void orderTabs();
    void showReceipt();
    void notify(const QString &text);
    bool confirm(const QString &title, const QString &text, const QString &actCaption);
    void tellLater(const QStringList &tables);
    void tellTracker();
    void showRights();

    Db db() const;
    ChekWriter writer(const char *file = __builtin_FILE(), int line = __builtin_LINE()) const;
    GoodsSearch goodsSearch(GoodsSearch::By by, const QString &text) const;

    /// Ends what the hand has begun: a quantity or a discount that is being typed, an item that Enter waits
    /// for. False, with the reason shown, when something of it did not come into the receipt.
    bool settle();
    bool settleQuantity();
    bool settleDiscount();
    bool settleSearch();
    bool isCodeLeft();
    void takeScans();
    void notAdded(const QString &why);

    /// False, with the reason shown, when the user may not sell or the last receipt is not settled yet.
    bool mayChange();
    void afterSale(const SalePayment::Sold &sold);
    /// True when the receipt is empty, or the user agreed to lose it.
    bool leaveReceipt();
    void clearReceipt();

    void loadList(const QString &text);
    void enter();
    void dropSearch();
    void showFound(const std::shared_ptr<QueryAnswer> &found);
    void answerEnter(int count);
    bool addScanned(const QString &barcode);
    void addListed(int row);
    void addGoods(const ReceiptRow &row);
    bool confirmStock();
    bool changeQuantity(int row, const QString &text);
    bool setQuantity(int row, qint64 thousandths);
    void stepQuantity(qint64 thousandths);
    void editQuantity(const QString &text = QString());
    void removeRow();
    void discountTyped();
    bool isDiscountBegun() const;
    void showDiscount();
    void escape();
    void focusSearch();

    bool searchKey(const QKeyEvent *key);
    bool goodsKey(const QKeyEvent *key);
    bool chekKey(const QKeyEvent *key);
    bool quantityKey(const QKeyEvent *key);
    bool fieldKey(const QKeyEvent *key, bool isChoice);
    void typeIntoSearch(const QKeyEvent *key);

    std::unique_ptr<Ui::QRegisterSale> ui;
    QSqlDatabase *m_db;
    QLoadedUser *m_user;
    QObject *m_receiver;
    ReceiptModel *m_chek;
    SalePayment *m_payment = nullptr;
    QuantityDelegate *m_quantity;
    QRowModel *m_goods;
    QueryOwner *m_queries;
    QTimer m_searchDelay;
    GoodsSearch::Mode m_mode = GoodsSearch::Sale;
    /// For this Enter was pressed before the list was there.
    std::optional<QString> m_waited;
    /// What Enter asked for last; empty once something else is typed.
    QString m_asked;
    /// A quantity that left its editor and is not in the receipt yet.
    struct TypedQuantity
    {
        int row;
        QString text;
    };
    std::optional<TypedQuantity> m_typed;
    /// Scanned while a question was open.
    QStringList m_scans;
    bool m_isTakingScans = false;
    qint64 m_shownDiscount = 0;
    /// Written to, and not told to other programs yet.
    QStringList m_changedTables;
};
