#pragma once

#include "columns.h"
#include "stockwriter.h"

#include <QAbstractTableModel>

/// A document of goods as its grid shows it. Only the quantity can be typed, and typing only asks for the
/// change.
class StockModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum StockColumn { Id, Barcode, Name, Showroom, Syllable, Quantity, Remark, Count };

    using QAbstractTableModel::QAbstractTableModel;

    /// For the grid: captions and widths.
    static QVector<Column> columns();

    const StockDocument &document() const { return m_document; }
    /// What would happen to the goods: the remarks are about that.
    void setMove(const StockMove &move);
    /// Returns the row.
    int add(const GoodsItem &item);
    void add(const QVector<StockRow> &rows);
    void remove(int row);
    void setQuantity(int row, qint64 thousandths);
    void clear();
    /// The counts as the server has them.
    void takeCounts(const StockLacks &lacks);
    void follow(const StockOrder &written);
    /// What is to be looked at before the document is written; empty when nothing is.
    QString remark(int row) const;

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

signals:
    /// Rows or quantities are other ones than before.
    void documentChanged();
    /// Somebody typed a quantity; it is not changed yet.
    void quantityTyped(int row, const QString &text);

private:
    void changed();
    QString text(const StockRow &row, int column) const;

    StockDocument m_document;
    StockMove m_move;
};
