#pragma once

#include "combos.h"

#include <QListWidget>

/// The barcodes of an item.
class BarcodeList : public QListWidget
{
    Q_OBJECT

public:
    using QListWidget::QListWidget;

    QStringList codes() const;
    /// Adds a barcode, which becomes the current one.
    void add(const QString &code);
    void removeCode(const QString &code);
};

/// The shops that may offer an item, with a box each.
class GoodsShopList : public QListWidget
{
    Q_OBJECT

public:
    using QListWidget::QListWidget;

    /// sold: the ids of those that offer it already. There it stays: its stock lies there.
    void fill(const QVector<NamedId> &shops, const QStringList &sold);
    /// The ids of the shops that are to offer it now.
    QStringList added() const;
};
