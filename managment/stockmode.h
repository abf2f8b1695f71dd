#pragma once

#include "goodssearch.h"
#include "salework.h"
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
    /// Before the box of places: "Прийняти:".
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
    /// Counts that would fall below zero are asked about, and written when the user agrees.
    bool mayGoBelow = false;
    /// Functions of values that write the document and tell whether it stands in the database, where that is
    /// not StockWriter's; taken in the window's thread when it is to be written. Null for StockWriter.
    struct Writing
    {
        std::function<StockWriter::Result(const Db &db, const SaleWork::Caller &caller,
                                          const StockOrder &order)>
            write;
        std::function<std::optional<bool>(const Db &db, const SaleWork::Caller &caller,
                                          const StockOrder &order, const WrittenChek &chek)>
            isWritten;
    };
    std::function<Writing()> writing;
    /// A register of the shop writes it, into its shift; else no register has to be chosen.
    bool needsRegister = true;
    /// What was written can be looked at as a slip.
    bool hasSlip = true;
    /// What is written to besides `cheks` and `goods_shop`, for the change tracker.
    QStringList alsoTables;
};

StockMode receiveMode();
StockMode moveMode();
