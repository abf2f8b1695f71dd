#pragma once

#include "listcolumns.h"
#include "quantitygrid.h"
#include "stockmode.h"

#include <QWidget>
#include <memory>

namespace Ui {
class StockPane;
}
class QLoadedUser;
class StockModel;

/// The document of goods that is being filled in one mode: its places, and its grid, in which quantities are
/// typed.
class StockPane : public QWidget
{
    Q_OBJECT

public:
    /// user: for whom the columns are remembered.
    StockPane(const StockMode &mode, const QLoadedUser *user, QWidget *parent);
    ~StockPane() override;

    void setUp(const QuantityGrid::MayChange &mayChange, const QuantityGrid::WhenThere &whenThere);
    /// why: what the fields tell when nothing may be changed.
    void setMayChange(bool mayChange, const QString &why);
    void setMayWrite(bool mayWrite);

    const StockMode &mode() const { return m_mode; }
    const StockDocument &document() const;
    StockMove move() const;

    /// One piece more; of what is weighed the editor opens for its kilograms.
    void add(const GoodsItem &item);
    void add(const QVector<StockRow> &rows);
    /// Also what was typed beside the goods; what was chosen stays.
    void clear();
    /// The counts as the server has them; the first of them becomes the current row. Not empty.
    void takeCounts(const StockLacks &lacks);
    /// The same after another document has been written in this shop.
    void follow(const StockOrder &written);
    /// Opens the editor of the first row whose quantity is not told yet; false when there is none.
    bool askUntold();

    /// Ends a quantity that is being typed. False, with the reason told, when it did not come into the
    /// document.
    bool settle();
    /// Plus, minus, asterisk, F2 and Delete, for the current row; false for any other key.
    bool rowKey(const QKeyEvent *key) { return m_grid->rowKey(key); }
    /// Inputs but the grid.
    QWidgetList fields() const;
    /// Everything that Tab leads to, in its order.
    QWidgetList tabOrder() const;
    /// A box of the mode's own, behind the one of places; label: its caption.
    void addField(const QString &label, QWidget *field);

signals:
    void told(const QString &text);
    void writePressed();
    void clearPressed();
    void pastePressed();
    void documentChanged();
    /// Letters were typed that no row wants.
    void typed(const QString &text);
    /// Somebody is through with a row, a field or a box.
    void left();

private:
    void setUpGrid(const QLoadedUser *user);
    void setUpFields();
    bool setQuantity(int row, qint64 thousandths);
    void showTotal();

    std::unique_ptr<Ui::StockPane> ui;
    const StockMode m_mode;
    StockModel *m_model;
    QuantityGrid *m_grid = nullptr;
    ListColumns m_columns;
    QWidgetList m_ownFields;
};
