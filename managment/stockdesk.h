#pragma once

#include "quantitygrid.h"
#include "stockmode.h"
#include "stockwriting.h"

#include <QVector>
#include <QWidgetList>

class ModeBar;
class QStackedWidget;
class TransferFields;

/// The modes of the sale tab beside the sale: each has a document of its own, which stays while another mode
/// is looked at.
class StockDesk : public QObject
{
    Q_OBJECT

public:
    /// whenThere: see QuantityGrid. stack: its first page is the sale's receipt.
    StockDesk(SaleWork *work, PlaceBar *place, ModeBar *bar, QStackedWidget *stack,
              const QuantityGrid::WhenThere &whenThere);

    const QVector<StockPane *> &panes() const { return m_panes; }
    /// What the mode in front fills; null for the sale.
    StockPane *pane() const;
    /// The shop whose goods the mode in front means where that is not the place's; else 0.
    DbId ownShop() const;
    /// Brings a mode to the front.
    void show(GoodsSearch::Mode mode);

    /// Ends what is being typed in front; false, with the reason told, when it did not come into the
    /// document.
    bool settle();
    /// False, with the reason shown, when the user may not write, something is under way, or the last
    /// document is not settled yet: of that the server is asked, and the act comes when the document still
    /// stands.
    bool mayChange(const QuantityGrid::Act &again);
    /// Into the document in front.
    bool add(const GoodsItem &item);
    void add(const QVector<StockRow> &rows);
    /// Writes the document in front.
    void write();
    bool isUnclear() const { return m_writing->isUnclear(); }
    void askUnclear();

    /// True when the document in front, or all of them, are empty or the user agreed to lose them.
    bool mayLose();
    bool mayLoseAll();
    void setMayChange(bool mayChange, bool mayWrite, const QString &why);

signals:
    /// ownShop() is another one.
    void ownShopChanged();
    void written(StockPane *pane, const StockOrder &order, const StockWriter::Result &result);

private:
    void addMode(const StockMode &mode);
    bool mayLose(StockPane *pane);
    bool mayForgetUnclear();

    SaleWork *m_work;
    ModeBar *m_bar;
    QStackedWidget *m_stack;
    StockWriting *m_writing;
    TransferFields *m_transfer;
    QuantityGrid::WhenThere m_whenThere;
    QVector<StockPane *> m_panes;
};
