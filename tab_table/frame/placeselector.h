#pragma once

#include "db.h"
#include "place.h"

#include <QWidget>
#include <memory>

namespace Ui {
class PlaceSelector;
}
class QComboBox;

/// Where: a shop group, a shop, a register, each with a first item that stands for all. It keeps the three
/// boxes in step; which rows a box offers is the owner's business, who refills it when told.
class PlaceSelector : public QWidget
{
    Q_OBJECT

public:
    /// The narrowest choice made.
    enum Narrowest { Everywhere, Group, Shop, Register };

    explicit PlaceSelector(QWidget *parent = nullptr);
    ~PlaceSelector() override;

    /// Refills a box with the rows of a statement (text, then the id if there is one) behind its first item,
    /// which it chooses. The boxes below it are emptied. False after a reported failure.
    bool refillGroups(const Db &db, const QString &sql, const Db::Values &values = {});
    bool refillShops(const Db &db, const QString &sql, const Db::Values &values = {});
    bool refillRegisters(const Db &db, const QString &sql, const Db::Values &values = {});

    /// For places without registers.
    void hideRegisters();
    /// The shop's first item where a shop has to be chosen: it asks for one instead of standing for all.
    void setShopPrompt(const QString &prompt);

    Narrowest narrowest() const;
    /// The ids of the choices; 0 for all.
    Place place() const;
    /// The texts of the choices; empty for all.
    QString groupName() const;
    QString shopName() const;
    QString registerName() const;
    /// Chooses by id and tells it; false when there is no such item.
    bool chooseGroup(DbId id);
    bool chooseShop(DbId id);
    bool chooseRegister(DbId id);

    /// Chooses by text and tells it; what the box does not offer (a blocked shop, a register that has moved)
    /// is added to it. An empty text chooses all.
    void showShop(const QString &name);
    void showRegister(const QString &name);

    /// The place in words, for headings: "Група, магазин, каса" or "усі магазини".
    QString description() const;

signals:
    /// Another group, shop or register was chosen; the text is empty for all.
    void groupChanged(const QString &name);
    void shopChanged(const QString &name);
    void registerChanged(const QString &name);

private:
    bool refill(QComboBox *box, const Db &db, const QString &sql, const Db::Values &values);
    void empty(QComboBox *box);
    QString firstItem(const QComboBox *box) const;

    std::unique_ptr<Ui::PlaceSelector> ui;
    QString m_shopPrompt;
};
