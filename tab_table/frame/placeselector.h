#pragma once

#include "boxreader.h"
#include "place.h"

#include <QWidget>
#include <array>
#include <memory>

namespace Ui {
class PlaceSelector;
}
class QComboBox;

/// Where: a shop group, a shop, a register, each with a first item that stands for all. It keeps the three
/// boxes in step; which rows a box offers is the owner's business, who refills it when told. The rows are
/// read away from the window; what is chosen by the functions below before they have come is chosen then.
class PlaceSelector : public QWidget
{
    Q_OBJECT

public:
    /// The narrowest choice made.
    enum Narrowest { Everywhere, Group, Shop, Register };

    explicit PlaceSelector(QWidget *parent = nullptr);
    ~PlaceSelector() override;

    /// Before a box is refilled: the window's connection, and who hears what fails.
    void open(const QString &connection, QObject *receiver);
    /// Refills a box with the rows of a statement (text, then the id if there is one) behind its first item,
    /// which is chosen. The boxes below it are emptied.
    void refillGroups(const QString &sql, const Db::Values &values = {});
    void refillShops(const QString &sql, const Db::Values &values = {});
    void refillRegisters(const QString &sql, const Db::Values &values = {});
    /// Whether rows are on their way: the place is not what was asked for until chosen().
    bool isReading() const;
    /// What is chosen now will be so again after the boxes were refilled, as far as they still offer it.
    void keepChoice();

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
    /// Chooses by id and tells it; false when there is no such item. What is chosen below it is forgotten.
    bool chooseGroup(DbId id);
    bool chooseShop(DbId id);
    bool chooseRegister(DbId id);

    /// Chooses by text and tells it; what the box does not offer (a blocked shop, a register that has moved)
    /// is added to it. An empty text chooses all.
    void showShop(const QString &name);
    void showRegister(const QString &name);

    /// All three at once; a group that is not offered is that of all.
    void showPlace(DbId group, const QString &shop, const QString &kass);

    /// The place in words, for headings: "Група, магазин, каса" or "усі магазини".
    QString description() const;

signals:
    /// Another group, shop or register was chosen; the text is empty for all.
    void groupChanged(const QString &name);
    void shopChanged(const QString &name);
    void registerChanged(const QString &name);
    /// Behind one of those, when it was the user's hand.
    void touched();
    /// A place stands in the boxes, and nothing is being read any more.
    void chosen();

private:
    enum Level { Groups, Shops, Registers, LevelCount };
    struct Wanted
    {
        QVariant id;
        QString text;
        /// By its text, which is added to the box where it is missing.
        bool isAdded = false;
    };
    void buildBox(Level level, QComboBox *box);
    void refill(Level level, const QString &sql, const Db::Values &values);
    void tellChange(Level level);
    bool want(Level level, const Wanted &wanted);
    bool isPending(Level level) const;
    bool take(Level level);
    void takeWanted();
    QComboBox *box(Level level) const { return m_readers.at(level)->box(); }
    QString nameIn(Level level) const;

    std::unique_ptr<Ui::PlaceSelector> ui;
    std::array<BoxReader *, LevelCount> m_readers{};
    std::array<std::optional<Wanted>, LevelCount> m_wanted;
    /// It chooses by itself.
    bool m_isTaking = false;
};
