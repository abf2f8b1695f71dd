#pragma once

#include <QComboBox>
#include <QPersistentModelIndex>

class QStandardItem;
class QStandardItemModel;

/// A combo box whose items carry check boxes; item 0 stands for all the others. A click and Space check and
/// uncheck; the list stays open until Esc, Enter or a click beside it.
class QChekedComboBox : public QComboBox
{
    Q_OBJECT

public:
    explicit QChekedComboBox(QWidget *parent = nullptr);

    void setChekedItem(int row, Qt::CheckState state);
    /// True when item 0 is not unchecked.
    bool isAllSelect() const;
    /// Texts or data of the checked items, item 0 included.
    QStringList listTexts() const;
    QVariantList listData(int role) const;
    /// Joins the checked texts with ", " for the closed box, cut at its width.
    void updateDisplayText();
    QString displayText() const { return m_displayText; }

    void showPopup() override;

signals:
    /// A check was changed by the user or the program.
    void checkedChanged();

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private slots:
    void slotModelRowsInserted(const QModelIndex &parent, int first, int last);
    void slotModelItemChanged(QStandardItem *item);

private:
    void toggle(const QModelIndex &index);
    void checkAll(Qt::CheckState state);
    /// The checked texts with ", " between them, as far as so many letters are full.
    QString joinedTexts(int atLeast) const;

    QStandardItemModel *m_items;
    /// Where the mouse went down in the open list: the release of the click that opened it means nothing.
    QPersistentModelIndex m_pressed;
    QString m_displayText;
    /// Its own changes of checks do not call it again.
    bool m_isFollowing = false;
};
