#pragma once

#include "combos.h"
#include "place.h"
#include "stockmode.h"

#include <QObject>

class DbTasks;
class QComboBox;
class QLineEdit;
class StockPane;

/// What a transfer says besides its goods: from which shop, to which, and a message. Any shop of the user's
/// sends, also one without registers; it may send to those that its permission group may transmit to.
class TransferFields : public QObject
{
    Q_OBJECT

public:
    explicit TransferFields(SaleWork *work);

    /// The mode in which the goods are put together.
    StockMode mode() const;
    /// Puts the boxes into the pane of that mode; the sender stays as long as the pane holds its goods.
    void addTo(StockPane *pane);
    /// Another shop is worked in: its goods are sent, unless others are put together already.
    void follow(DbId shop);
    /// The shop whose goods are sent; 0 while it is not known.
    DbId from() const;

signals:
    /// The goods of another shop are meant.
    void fromChanged();

private:
    /// What both boxes offer.
    struct Offer
    {
        std::optional<ListEntries> from;
        std::optional<ListEntries> to;
    };

    void read();
    void show(const Offer &offer);
    void showTargets();
    DbId to() const;
    QString refusal() const;
    StockMode::Writing writing() const;

    SaleWork *m_work;
    DbTasks *m_tasks;
    QComboBox *m_from;
    QComboBox *m_to;
    QLineEdit *m_message;
    ListEntries m_targets;
    DbId m_shownFrom = 0;
};
