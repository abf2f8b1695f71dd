#pragma once

#include "dbtasks.h"

#include <QWidget>
#include <memory>

namespace Ui {
class CardReceipts;
}
class ListPane;
class QLoadedUser;
class QSqlDatabase;

/// A card of the list beside it.
struct ShownCard
{
    /// Empty for none.
    QString code;
    QString name;
    qint64 purchases = 0;
    qint64 bonus = 0;
};

/// The receipts with a discount by one card, and what the card has gathered. No key of the receipts knows
/// their cards: they are looked for in a range of days, and in the shops of the whole chain only where
/// that is no long way.
class CardReceipts : public QWidget
{
    Q_OBJECT

public:
    CardReceipts(QSqlDatabase *db, const QLoadedUser *user, QObject *receiver, QWidget *parent);
    ~CardReceipts() override;

    void showCard(const ShownCard &card);
    bool isLoading() const;
    ListPane *list() const;

private:
    /// Not at all, by a key over time, or through a table so small that no key is needed.
    enum class AllShops { No, ByTime, Few };
    struct Ways;

    static std::optional<Ways> findWays(const Db &db, const QString &shopsSql);
    void buildList();
    void buildChoices();
    void readWays();
    void search();
    bool isEveryShop() const;
    QString statement(const QDate &since) const;
    void tellSums();

    std::unique_ptr<Ui::CardReceipts> ui;
    QSqlDatabase *m_db;
    const QLoadedUser *m_user;
    QObject *m_receiver;
    DbTasks m_tasks;
    ShownCard m_card;
    /// How the receipts of all shops can be searched; nothing while that is not known.
    std::optional<AllShops> m_allShops;
};
