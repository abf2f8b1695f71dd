#include "qdbfmodel.h"

#include <QTextCodec>

QDbfModel::QDbfModel(QObject *parent)
    : QAbstractTableModel(parent), m_codec(QTextCodec::codecForName("Windows-1251"))
{
}

void QDbfModel::setTable(const std::shared_ptr<const DbfTable> &table)
{
    beginResetModel();
    m_table = table;
    endResetModel();
}

void QDbfModel::setCodePage(const QByteArray &name)
{
    const QTextCodec *codec = QTextCodec::codecForName(name);
    if (codec == nullptr || codec == m_codec)
        return;
    m_codec = codec;
    if (rowCount() > 0)
        emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1), {Qt::DisplayRole});
    if (columnCount() > 0)
        emit headerDataChanged(Qt::Horizontal, 0, columnCount() - 1);
}

int QDbfModel::rowCount(const QModelIndex &parent) const
{
    return m_table && !parent.isValid() ? qMin(m_table->recordCount(), mostRows) : 0;
}

int QDbfModel::columnCount(const QModelIndex &parent) const
{
    return m_table && !parent.isValid() ? m_table->fieldCount() : 0;
}

QVariant QDbfModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section < 0 || section >= columnCount())
        return QAbstractTableModel::headerData(section, orientation, role);
    const DbfField &field = m_table->field(section);
    return QStringLiteral("%1 %2(%3)")
        .arg(m_codec->toUnicode(field.name), m_codec->toUnicode(&field.type, 1),
             QString::number(field.length));
}

QVariant QDbfModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || role != Qt::DisplayRole)
        return {};
    return m_codec->toUnicode(m_table->borrowedData(index.row(), index.column()));
}
