#pragma once

#include "roworder.h"
#include "rowstore.h"

#include <QObject>
#include <QThread>
#include <functional>
#include <memory>

/// Sorts the rows of a long list in a thread of its own.
class RowSorting : public QObject
{
    Q_OBJECT

public:
    /// So many rows are sorted without anybody noticing; more of them here.
    static constexpr int mostAtOnce = 30000;

    using Then = std::function<void(RowOrder &&sorted)>;

    using QObject::QObject;
    /// As stop().
    ~RowSorting() override;

    /// rows: nobody writes into them meanwhile; a copy shares the texts. order: as they stand, empty for as
    /// they came. then comes from the event loop, unless this was stopped or started anew before.
    void start(const std::shared_ptr<const RowStore> &rows, RowOrder &&order, const RowSort &by,
               const Then &then);
    /// Takes no longer than a moment.
    void stop();
    bool isRunning() const { return m_work != nullptr; }

private:
    struct Work;
    void finish(const std::shared_ptr<Work> &work);

    std::shared_ptr<Work> m_work;
    std::unique_ptr<QThread> m_thread;
};

/// The rows as they came.
RowOrder orderOfRows(int count);
