#pragma once

#include "stockmode.h"

#include <QPointer>

class DbTasks;
class PlaceBar;
class StockPane;

/// Takes a document of goods to its end, a step after the other: what the user has to agree to, the writing,
/// and what became of a document of which the server has not told. Reading and writing run away from the
/// window.
class StockWriting : public QObject
{
    Q_OBJECT

public:
    StockWriting(SaleWork *work, PlaceBar *place);

    /// Checks the document as far as nobody has to be asked, asks what there is to ask and writes it.
    void write(StockPane *pane);

    /// The server has not told whether a document of that pane was written.
    bool isUnclear() const { return m_unclear.has_value(); }
    QString unclearWords() const;
    /// Asks the server whether that one is written; then() gets nothing, with words told, when it does not
    /// tell.
    void askUnclear(const std::function<void(std::optional<bool> isWritten)> &then);
    /// The user does not want to know.
    void forgetUnclear() { m_unclear.reset(); }

signals:
    void written(StockPane *pane, const StockOrder &order, const StockWriter::Result &result);
    /// There is less in the shop than the pane shows.
    void lacking(StockPane *pane, const StockLacks &lacks);

private:
    QString refusal(StockPane *pane) const;
    void send(StockPane *pane, const StockOrder &order, const StockMode::Writing &writing);
    void ended(StockPane *pane, const StockOrder &order, const StockMode::Writing &writing,
               const StockWriter::Result &result);
    bool agreeLacks(const StockPane &pane, const StockLacks &lacks);
    void tell(const StockWriter::Result &result);

    SaleWork *m_work;
    PlaceBar *m_place;
    DbTasks *m_tasks;
    struct Unclear
    {
        QPointer<StockPane> pane;
        StockOrder order;
        StockMode::Writing writing;
        StockWriter::Result result;
    };
    std::optional<Unclear> m_unclear;
};
