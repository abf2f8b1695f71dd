#pragma once

#include <QVariant>
#include <QVector>
#include <QWidget>
#include <memory>

namespace Ui {
class PageBar;
}

/// The bar of a list that shows a page at a time: how many rows a page has, the way to the next one and back.
/// It keeps where each page begins, as a key of the list's own, so that the server reads none but its rows.
class PageBar : public QWidget
{
    Q_OBJECT

public:
    explicit PageBar(QWidget *parent = nullptr);
    ~PageBar() override;

    /// How many rows a page has; 0 when all were asked for.
    int pageSize() const;

    /// Where the page begins; invalid for the first one.
    QVariant start() const { return m_starts.constLast().key; }
    /// How many rows stand before the page.
    qint64 rowsBefore() const { return m_starts.constLast().before; }
    /// Back to the first page.
    void restart();
    /// Behind the page, which has so many rows, the next one begins there.
    void goOn(const QVariant &start, int rows);
    /// One page back; false on the first one.
    bool goBack();
    /// The rows of the page stand in the list: whether more follow.
    void showPage(bool hasNext);
    /// The page that was gone to does not come: the one in the list stays. Behind a restart the rows in the
    /// list are of no page.
    void stayOnPage(bool hasNext);
    /// What is known of the number of all rows.
    void setCountText(const QString &text);

signals:
    void previousWanted();
    void nextWanted();
    /// Enter in the field of the page size.
    void sizeEntered();
    /// The field of the page size was left empty, and holds 1 now.
    void sizeFilled();
    void allToggled(int state);
    /// Everything anew, from the first page on.
    void loadWanted();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    struct Start
    {
        QVariant key;
        qint64 before = 0;
    };
    std::unique_ptr<Ui::PageBar> ui;
    /// Of the pages up to the one that is shown.
    QVector<Start> m_starts = {Start()};
    /// Of those up to the one in the list.
    QVector<Start> m_shownStarts = m_starts;
};
