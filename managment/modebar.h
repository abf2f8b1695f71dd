#pragma once

#include "goodssearch.h"

#include <QWidget>

class QButtonGroup;
class QHBoxLayout;

/// The buttons that choose what the sale tab does with goods. Pressing one only asks for the mode: show()
/// tells which one holds.
class ModeBar : public QWidget
{
    Q_OBJECT

public:
    explicit ModeBar(QWidget *parent = nullptr);

    /// caption: with its access key.
    void addMode(GoodsSearch::Mode mode, const QString &caption);
    void show(GoodsSearch::Mode mode);
    using QWidget::show;
    /// Behind the caption stands how many rows wait in that mode; 0 for none.
    void setCount(GoodsSearch::Mode mode, int rows);
    QWidgetList buttons() const;

signals:
    void chosen(GoodsSearch::Mode mode);

private:
    QHBoxLayout *m_row;
    QButtonGroup *m_buttons;
    GoodsSearch::Mode m_mode = GoodsSearch::Sale;
};
