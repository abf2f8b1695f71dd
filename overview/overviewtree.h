#pragma once

#include "scanpace.h"

#include <QTreeView>

/// A tree whose cells are gone through with the arrow keys and opened by Enter or a double click.
class OverviewTree : public QTreeView
{
    Q_OBJECT

public:
    explicit OverviewTree(QWidget *parent = nullptr);

signals:
    void opened(const QModelIndex &cell);

protected:
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    QModelIndex neighbour(const QModelIndex &cell, int step) const;

    ScanPace m_pace;
};
