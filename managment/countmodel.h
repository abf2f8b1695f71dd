#pragma once

#include "columns.h"
#include "invoice.h"

#include <QAbstractTableModel>

/// The goods of an invoice while they are counted: what was sent, what is there, and the difference.
class CountModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum CountColumn { Goods, Barcode, Name, Sent, Counted, Difference, Count };

    using QAbstractTableModel::QAbstractTableModel;

    static QVector<Column> columns();

    const QVector<InvoiceLine> &lines() const { return m_lines; }
    void setLines(const QVector<InvoiceLine> &lines);
    /// An item that was not sent; its row.
    int add(const InvoiceLine &line);
    /// The row of an item; -1 when it is not there.
    int rowOf(DbId goods) const;
    /// Why the row cannot hold that count; empty when it does now. Nothing: not counted.
    QString setCounted(int row, const std::optional<qint64> &thousandths);
    /// What nobody has counted yet counts as it was sent.
    void takeRestAsSent();
    /// No count can be typed any more.
    void freeze() { m_isFrozen = true; }

    int uncounted() const;
    int firstUncounted() const;
    /// "Пораховано позицій: 3 з 5. Нестача: 1 (−2.000). Надлишок: 0."
    QString sums() const;
    /// The lines that differ, "«Хліб»: надіслано 3.000, є 2.000", twenty at most.
    QStringList differences() const;

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

signals:
    void countsChanged();
    /// Somebody typed a count; it is not changed yet.
    void countTyped(int row, const QString &text);

private:
    QString text(const InvoiceLine &line, int column) const;

    QVector<InvoiceLine> m_lines;
    bool m_isFrozen = false;
};
