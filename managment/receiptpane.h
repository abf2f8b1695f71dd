#pragma once

#include "listcolumns.h"
#include "quantitygrid.h"
#include "receipt.h"

#include <QWidget>
#include <memory>

namespace Ui {
class ReceiptPane;
}
class QLoadedUser;
class ReceiptModel;

/// The receipt that is being filled: its grid, in which quantities are typed, its discount and its sums.
class ReceiptPane : public QWidget
{
    Q_OBJECT

public:
    explicit ReceiptPane(QWidget *parent = nullptr);
    ~ReceiptPane() override;

    /// user: for whom the columns are remembered.
    void setUp(const QLoadedUser *user, const QuantityGrid::MayChange &mayChange,
               const QuantityGrid::WhenThere &whenThere);
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
    bool rowKey(const QKeyEvent *key) { return m_grid->rowKey(key); }
    /// Inputs but the grid.
    QWidgetList fields() const;

signals:
    void told(const QString &text);
    void sellPressed();
    void clearPressed();
    /// Service cash of the register is to be moved.
    void cashPressed();
    /// Letters were typed that no row wants.
    void typed(const QString &text);
    /// Somebody is through with a row, a field or a box.
    void left();

private:
    void connectGrid();
    void connectFields();
    void showSums();
    bool settleDiscount();
    void discountTyped();
    void setDiscount(qint64 kopecks);
    bool confirmStock();
    bool setQuantity(int row, qint64 thousandths);

    std::unique_ptr<Ui::ReceiptPane> ui;
    ReceiptModel *m_model;
    QuantityGrid *m_grid;
    ListColumns m_columns;
    QuantityGrid::MayChange m_mayChange;
    qint64 m_shownDiscount = 0;
};
