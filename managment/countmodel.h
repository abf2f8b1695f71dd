#pragma once

#include "columns.h"
#include "invoice.h"

#include <QAbstractTableModel>

/// Goods while they are counted: what is expected (sent), what is there, and the difference. Columns of their
/// own may stand behind these.
class CountModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum CountColumn { Goods, Barcode, Name, Sent, Counted, Difference, Count };

    /// What is expected is what was sent.
    explicit CountModel(QObject *parent);

    virtual QVector<Column> columns() const;

    const QVector<InvoiceLine> &lines() const { return m_lines; }
    void setLines(const QVector<InvoiceLine> &lines);
    /// An item that was not sent; its row.
    int add(const InvoiceLine &line);
    /// The row of an item; -1 when it is not there.
    int rowOf(DbId goods) const;
    /// Why the row cannot hold that count; empty when it does now. Nothing: not counted.
    QString setCounted(int row, const std::optional<qint64> &thousandths);
    void setExpected(int row, qint64 thousandths);
    /// What nobody has counted yet counts as it is expected.
    void takeRestAsSent();
    /// No count can be typed any more.
    void freeze() { m_isFrozen = true; }

    int uncounted() const;
    int firstUncounted() const;
    /// "Пораховано позицій: 3 з 5. Нестача: 1 (−2.000). Надлишок: 0."
    QString sums() const;
    /// The lines that differ, "«Хліб»: надіслано 3, є 2", twenty at most.
    QStringList differences() const;

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

protected:
    struct Words
    {
        /// "«%1»: надіслано %2, є %3"
        QString difference;
        /// Instead of the quantity where nothing is expected.
        QString unexpected;
        int furtherColumns = 0;
    };
    CountModel(const Words &words, QObject *parent);
    /// Whole pieces without decimals, kilograms with three.
    static QString quantityOf(const InvoiceLine &line, qint64 quantity);
    /// What stands in a column behind Count.
    virtual QString furtherText(int row, int column) const;

signals:
    void countsChanged();
    /// Somebody typed a count; it is not changed yet.
    void countTyped(int row, const QString &text);

private:
    QString text(int row, int column) const;
    QString withSign(const InvoiceLine &line) const;

    Words m_words;
    QVector<InvoiceLine> m_lines;
    bool m_isFrozen = false;
};
