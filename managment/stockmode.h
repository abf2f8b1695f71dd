#pragma once

#include "goodssearch.h"
#include "stockwriter.h"

#include <QKeySequence>

/// What one mode of the sale tab, beside the sale itself, does with goods: its words and its rules. A mode is
/// a function that returns one of these, and a line in StockDesk's constructor.
struct StockMode
{
    GoodsSearch::Mode mode = GoodsSearch::Receive;
    /// As in ChekType.
    int type = 0;
    QKeySequence key;
    /// Of the button that chooses it, with its access key: "При&йом".
    QString caption;
    /// Of its document: "Прийом", for what is told about it.
    QString name;
    /// Before the box of places: "Куди:".
    QString placeCaption;
    struct Place
    {
        StockPlace place;
        QString caption;
    };
    /// The first one is chosen at first.
    QVector<Place> places;
    /// Of the button that writes: "Прийняти F9".
    QString writeCaption;
    /// What the empty grid says.
    QString emptyText;
    /// Quantities below zero are a return to the supplier or a write-off.
    bool mayBeNegative = false;
    /// Why the document cannot be written yet, in the user's words; empty when it can. Null for none.
    std::function<QString(const StockDocument &document)> refusal;
    /// What the document says besides, taken in the window's thread when it is to be written: for
    /// StockOrder::also. Null for none.
    std::function<StockOrder::Also(const StockDocument &document)> also;
    /// Tables that are written besides, for the change tracker.
    QStringList alsoTables;
};

StockMode receiveMode();
StockMode moveMode();
