#pragma once

#include <QTableView>
#include <functional>

/// The grid of every tab: tells of right clicks and of horizontal drags, says why it is empty, copies the
/// selected rows as a table.
class QNTableView : public QTableView
{
    Q_OBJECT

public:
    explicit QNTableView(QWidget *parent = nullptr);

    /// What stands in the middle while there is no row.
    void setEmptyText(const QString &text);
    QString emptyText() const { return m_emptyText; }
    /// Puts the selected rows on the clipboard, as a table.
    void copySelected() const;
    QVector<int> selectedRows() const;
    int selectedCount() const;

    /// The column that takes the width the others leave free; -1 for none. It is never narrower than it is
    /// now, except that it gives way as far as leastWidth where the list fits without a scroll bar then.
    void setMainColumn(int column, int leastWidth = 0);
    /// Asked before a press of the mouse means anything; false keeps the press away: something in the list
    /// has to be ended first. again() makes up for it.
    using PressGuard = std::function<bool(const std::function<void()> &again)>;
    void setPressGuard(const PressGuard &mayPress) { m_mayPress = mayPress; }
    /// Gives it that width again, after columns were shown or hidden.
    void fillWidth();

    void setSelectionModel(QItemSelectionModel *selection) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;

signals:
    /// The index is invalid on empty space.
    void RClicked(const QModelIndex &index);
    /// A drag with the left button that began and ended in one row; to the left it is negative.
    void LMoveMouseInRow(int countpx, const QModelIndex &index);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void closeEditor(QWidget *editor, QAbstractItemDelegate::EndEditHint hint) override;

private:
    bool mayPress(const QMouseEvent &event);
    void pressAgain(const QMouseEvent &event);

    QItemSelectionModel *m_headerSelection = nullptr;
    PressGuard m_mayPress;
    int m_mainColumn = -1;
    int m_leastMainWidth = 0;
    int m_wantedMainWidth = 0;
    QString m_emptyText;
    int m_pressedRow = -1;
    int m_pressedX = 0;
    bool m_isPressed = false;
};
