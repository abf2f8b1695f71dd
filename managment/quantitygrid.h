#pragma once

#include "keyteller.h"

#include <QObject>
#include <functional>
#include <optional>

class QKeyEvent;
class QNTableView;
class QuantityDelegate;

/// The keys and the mouse of a grid of goods whose quantities are typed: nothing typed stays behind in an
/// editor, a key means the row of the item on its way, and whatever changes the goods is asked for first.
class QuantityGrid : public QObject, public KeyTeller
{
    Q_OBJECT

public:
    using Act = std::function<void()>;
    /// Asked before the goods change; after false, again() comes when they may be changed later.
    using MayChange = std::function<bool(const Act &again)>;
    /// Does it, now or later, when the item that is on its way has come.
    using WhenThere = std::function<void(const Act &act)>;

    /// The rows behind the grid; quantities in thousandths.
    struct Rows
    {
        std::function<qint64(int row)> quantity;
        /// False, with the reason told, when it stays as it was. Nobody is asked any more whether it may
        /// change.
        std::function<bool(int row, qint64 thousandths)> setQuantity;
        std::function<void(int row)> remove;
        /// Ends all that is being typed around the grid, settle() included; false when something of it stays.
        std::function<bool()> settleAll;
    };

    /// quantityColumn: of the view's model. Belongs to the view.
    QuantityGrid(QNTableView *view, int quantityColumn, const Rows &rows);
    void setUp(const MayChange &mayChange, const WhenThere &whenThere);
    /// Quantities below zero can be typed.
    void allowNegative();

    /// A quantity left its editor and is not in the goods yet.
    void typed(int row, const QString &text);
    /// Ends a quantity that is being typed. False, with the reason told, when it did not come into the goods.
    bool settle();
    /// Forgets a quantity that left its editor; drop() the editor, too.
    void forget() { m_typed.reset(); }
    void drop();

    int currentRow() const;
    void goToRow(int row);
    /// Opens the editor of that row, at once.
    void edit(int row, const QString &text = QString());
    /// Removes the row that is meant when the item on its way has come.
    void remove(const std::function<int()> &which);

    /// Plus, minus, asterisk, F2 and Delete, for the current row; false for any other key.
    bool rowKey(const QKeyEvent *key);
    QVector<ToldKey> toldKeys() const override;

signals:
    void told(const QString &text);
    /// Letters were typed that no row wants.
    void lettersTyped(const QString &text);
    /// Somebody is through with a row.
    void left();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    struct RowKey
    {
        Qt::Key key;
        const char *words;
        void (*act)(QuantityGrid *grid);
    };
    static const QVector<RowKey> &rowKeys();
    bool change(int row, const QString &text);
    bool setQuantity(int row, qint64 thousandths);
    void step(qint64 thousandths);
    void editCurrent(const QString &text = QString());
    void removeRow(int row);
    bool gridKey(const QKeyEvent *key);

    QNTableView *m_view;
    int m_column;
    Rows m_rows;
    QuantityDelegate *m_delegate;
    MayChange m_mayChange;
    WhenThere m_whenThere;
    struct Typed
    {
        int row;
        QString text;
    };
    std::optional<Typed> m_typed;
};
