#pragma once

#include "countmodel.h"
#include "periodcount.h"

/// The goods that are counted when a period is closed. Expected is what the shop floor has by the program;
/// behind the difference stands what explains it.
class PeriodModel : public CountModel
{
    Q_OBJECT

public:
    enum FurtherColumn { Sold = Count, Syllable, PeriodCount };

    explicit PeriodModel(QObject *parent);

    QVector<Column> columns() const override;
    void setGoods(const QVector<PeriodGoods> &goods);
    /// As they are shown.
    const QVector<PeriodGoods> &goods() const { return m_goods; }
    /// The program knows other counts by now; what was counted stays.
    void takeChanged(const QHash<DbId, qint64> &changed);

protected:
    QString furtherText(int row, int column) const override;

private:
    QVector<PeriodGoods> m_goods;
};
