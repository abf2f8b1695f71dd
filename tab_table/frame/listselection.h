#pragma once

#include <QObject>
#include <QTimer>
#include <QVector>
#include <unordered_set>

class QNTableView;
class QRowModel;

/// How many rows of a list are selected, and what they come to: the sum of the column of money or quantities
/// under the current cell, else of the list's own choice, of the last column of amounts or of the last one of
/// prices. Many rows are
/// added up a slice at a time, so that the window goes on.
class ListSelection : public QObject
{
    Q_OBJECT

public:
    ListSelection(QNTableView *view, const QRowModel *model, QObject *parent);

    /// Rows with the same number in the first column are one record, and count once.
    void setCountsRecords(bool countsRecords);
    /// The column that is added up as long as the current cell says nothing else; -1: as told above.
    void setUsualColumn(int column);
    /// "Вибрано: 3   Сума: 1 234.50"; empty while nothing is selected.
    QString words() const;

signals:
    void changed();

private:
    void begin();
    void addSlice();
    int summedColumn() const;

    QNTableView *m_view;
    const QRowModel *m_model;
    QTimer m_next;
    bool m_countsRecords = false;
    int m_usualColumn = -1;
    QVector<int> m_rows;
    /// How many of them are added up already.
    int m_done = 0;
    /// -1: none.
    int m_column = -1;
    qint64 m_count = 0;
    qint64 m_sum = 0;
    std::unordered_set<qint64> m_records;
};
