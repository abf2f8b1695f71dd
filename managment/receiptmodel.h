#pragma once

#include "columns.h"
#include "receipt.h"

#include <QAbstractTableModel>

/// The receipt as the grid shows it. Only the quantity can be typed, and typing only asks for the change.
class ReceiptModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum ReceiptColumn {
        Id,
        Barcode,
        Name,
        Showroom,
        Syllable,
        Rules,
        Type,
        IsDisk,
        Tax,
        Quantity,
        ActType,
        ActVal,
        ActVal1,
        ActVal2,
        ActName,
        Price,
        Sum,
        Discount,
        Count
    };

    using QAbstractTableModel::QAbstractTableModel;

    /// For the grid: captions and widths; those that a sale does not show are hidden.
    static QVector<Column> columns();

    const Receipt &receipt() const { return m_receipt; }
    void add(const ReceiptRow &row);
    void remove(int row);
    void setQuantity(int row, qint64 thousandths);
    void setDiscount(qint64 kopecks);
    /// As many rows as there are, as they would be put in now; quantities stay.
    void takeOver(const QVector<ReceiptRow> &rows);
    void clear();

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

signals:
    /// Rows or sums are other ones than before.
    void receiptChanged();
    /// Somebody typed a quantity; it is not changed yet.
    void quantityTyped(int row, const QString &text);

private:
    void changed();

    Receipt m_receipt;
};
