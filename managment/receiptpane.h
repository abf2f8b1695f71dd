#pragma once

#include "listcolumns.h"
#include "receipt.h"

#include <QWidget>
#include <functional>
#include <memory>
#include <optional>

namespace Ui {
class ReceiptPane;
}
class QKeyEvent;
class QLoadedUser;
class QNTableView;
class QuantityDelegate;
class ReceiptModel;

/// The receipt that is being filled: its grid, in which quantities are typed, its discount and its sums.
class ReceiptPane : public QWidget
{
    Q_OBJECT

public:
    explicit ReceiptPane(QWidget *parent = nullptr);
    ~ReceiptPane() override;

    using Act = std::function<void()>;
    /// Asked before the receipt changes; after false, again() comes when it may be changed later.
    using MayChange = std::function<bool(const Act &again)>;
    /// Does it, now or later, when the item that is on its way has come into the receipt.
    using WhenThere = std::function<void(const Act &act)>;

    /// user: for whom the columns are remembered.
    void setUp(const QLoadedUser *user, const MayChange &mayChange, const WhenThere &whenThere);
    /// why: what the fields tell when nothing may be changed.
    void setMayChange(bool mayChange, const QString &why);
    void setMaySell(bool maySell);

    ReceiptModel *model() const { return m_model; }
    const Receipt &receipt() const;
    /// False when there is not enough of it and the user does not want to sell it.
    bool add(const ReceiptRow &row);
    void clear();

    /// Ends a quantity and a discount that are being typed. False, with the reason told, when one of them did
    /// not come into the receipt.
    bool settle();
    /// Whether a discount stands in its field that is not the receipt's; showDiscount() forgets it.
    bool isDiscountBegun() const;
    void showDiscount();

    /// Plus, minus, asterisk, F2 and Delete, for the current row; false for any other key.
    bool rowKey(const QKeyEvent *key);
    /// Inputs but the grid.
    QWidgetList fields() const;

signals:
    void told(const QString &text);
    void sellPressed();
    void clearPressed();
    /// Letters were typed that no row wants.
    void typed(const QString &text);
    /// Somebody is through with a row, a field or a box.
    void left();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void connectGrid();
    void connectFields();
    void showSums();
    bool settleQuantity();
    bool settleDiscount();
    void discountTyped();
    void setDiscount(qint64 kopecks);
    bool confirmStock();
    bool changeQuantity(int row, const QString &text);
    bool setQuantity(int row, qint64 thousandths);
    void stepQuantity(qint64 thousandths);
    void editQuantity(const QString &text = QString());
    void removeRow(const std::function<int()> &which);
    void removeRow(int row);
    int currentRow() const;
    void goToRow(int row);
    bool gridKey(const QKeyEvent *key);

    std::unique_ptr<Ui::ReceiptPane> ui;
    ReceiptModel *m_model;
    QuantityDelegate *m_quantity;
    ListColumns m_columns;
    MayChange m_mayChange;
    WhenThere m_whenThere;
    /// A quantity that left its editor and is not in the receipt yet.
    struct TypedQuantity
    {
        int row;
        QString text;
    };
    std::optional<TypedQuantity> m_typed;
    qint64 m_shownDiscount = 0;
};
