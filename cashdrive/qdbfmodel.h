#pragma once

#include "dbftable.h"

#include <QAbstractTableModel>

class QTextCodec;

/// Shows the records of a DBF table with the fields as columns.
class QDbfModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    /// A list of more rows would take more memory than the file.
    static constexpr int mostRows = 10000000;

    explicit QDbfModel(QObject *parent = nullptr);

    /// Null for nothing.
    void setTable(const std::shared_ptr<const DbfTable> &table);
    /// What the bytes mean: "Windows-1251" at first, "IBM866", "UTF-8". Unknown names change nothing.
    void setCodePage(const QByteArray &name);

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;

private:
    std::shared_ptr<const DbfTable> m_table;
    const QTextCodec *m_codec;
};
