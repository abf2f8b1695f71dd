#include "goodslists.h"

QStringList BarcodeList::codes() const
{
    QStringList list;
    for (int i = 0; i < count(); ++i)
        list.append(item(i)->text());
    return list;
}

void BarcodeList::add(const QString &code)
{
    addItem(code);
    setCurrentRow(count() - 1);
}

void BarcodeList::removeCode(const QString &code)
{
    qDeleteAll(findItems(code, Qt::MatchExactly));
}

void GoodsShopList::fill(const QVector<NamedId> &shops, const QStringList &sold)
{
    // First those that can be chosen.
    for (const bool isOffered : {false, true}) {
        for (const NamedId &shop : shops) {
            if (isOffered != sold.contains(shop.id))
                continue;
            auto *item = new QListWidgetItem(shop.name, this);
            item->setData(Qt::UserRole, shop.id);
            item->setCheckState(isOffered ? Qt::Checked : Qt::Unchecked);
            item->setFlags(isOffered ? Qt::ItemIsSelectable
                                     : Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemIsUserCheckable);
            item->setToolTip(isOffered ? tr("%1: товар уже продається тут.").arg(shop.name) : shop.name);
        }
    }
}

QStringList GoodsShopList::added() const
{
    QStringList ids;
    for (int i = 0; i < count(); ++i) {
        if (item(i)->checkState() == Qt::Checked && (item(i)->flags() & Qt::ItemIsEnabled) != 0)
            ids.append(item(i)->data(Qt::UserRole).toString());
    }
    return ids;
}
