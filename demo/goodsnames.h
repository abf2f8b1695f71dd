#pragma once

#include <QString>
#include <QVector>

namespace demo {
/// A goods group of the demo chain: what is sold in it, and how its names are put together.
struct GoodsKind
{
    const char *group;
    int tax;
    bool weighed;
    int cheapest; ///< kopecks
    int dearest;
    const char *products; ///< separated by "|", as the next two
    const char *variants;
    const char *sizes;
};

struct GoodsName
{
    QString full;
    /// At most 32 characters.
    QString brief;
};

const QVector<GoodsKind> &goodsKinds();

/// The number-th name of a group; every number gives another one.
GoodsName goodsName(const GoodsKind &kind, int number);
} // namespace demo
