#pragma once

#include <QVector>
#include <QWidget>

/// Horizontal bars, one below the other: a name, a bar as long as the value, the value in words.
class BarList : public QWidget
{
    Q_OBJECT

public:
    struct Bar
    {
        QString label;
        qint64 value;
        QString valueText;
    };

    explicit BarList(QWidget *parent = nullptr);

    /// The longest bar fills the room; values below 0 have none.
    void setBars(const QVector<Bar> &bars);
    const QVector<Bar> &bars() const { return m_bars; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    int lineHeight() const;

    QVector<Bar> m_bars;
};
