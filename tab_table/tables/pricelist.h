#pragma once

#include "csvtext.h"
#include "job.h"
#include "refusedlist.h"

#include <QHash>
#include <QMap>
#include <vector>

/// A price list of another program, records of name, barcode and price: what it would do to the goods, found
/// out before anything is written.

/// What a record of the file does.
enum class PriceVerdict { New, Changed, Same, ZeroPrice, BadColumns, BadBarcode, BadPrice, BadName };

/// One record, for people to look at.
struct PriceLine
{
    int number = 0;
    QString name;
    QString barcode;
    /// As it stands in the file.
    QString price;
    PriceVerdict verdict = PriceVerdict::BadColumns;
    /// "ціна 10.00 → 12.50", or why it is refused.
    QString words;
};

/// The price that an item is to have, whichever of its barcodes the file names. It may have it already:
/// somebody may change it before it is written.
struct PriceChange
{
    int record;
    QString barcode;
    quint32 id;
    qint64 from;
    qint64 to;
};

struct NewGoods
{
    int record;
    QString barcode;
    QString name;
    qint64 price;
};

struct KnownGoods
{
    quint32 id;
    qint64 price;
};

/// What a price list is held against.
struct PriceListGround
{
    bool isRead = false;
    QHash<QString, KnownGoods> byBarcode;
    /// 0 while it is not known.
    int longestName = 0;
    /// Why no item can be created in this database; empty when it can.
    QString newRefusal;
};

/// What the whole file would do.
struct PriceListPlan
{
    CsvForm form;
    int recordCount = 0;
    /// How many records have that verdict.
    QMap<PriceVerdict, int> counts;
    QVector<PriceLine> first;
    RefusedLines refused;
    /// One for each item and each new barcode, with the price that comes last in the file.
    std::vector<PriceChange> changes;
    std::vector<NewGoods> added;
    /// Prices that become ten times as high or as low: they may be in another unit.
    int leaps = 0;
    /// The file is no price list that can be imported; nothing else counts then.
    QString error;

    bool isEmpty() const;
};

namespace PriceList {
/// So large a file may be, and so many records it may have.
constexpr qint64 mostBytes = 32 << 20;
constexpr int mostRecords = 500000;
/// So many records are looked at first.
constexpr int firstRecords = 50;
constexpr int columns = 3;
} // namespace PriceList

/// What is found out about a file, before anything is written. It travels into a job and back; a new look at
/// the same file takes over its bytes and the ground.
struct PriceListLook
{
    QString path;
    /// As it is supposed to be written, or as was chosen by hand.
    CsvForm wanted;
    bool isFormChosen = false;
    /// Empty until it was read.
    QByteArray bytes;
    PriceListGround ground;
    PriceListPlan plan;
};

/// Reads what is not known yet of the file and the goods, then makes the plan. A job that has failed says in
/// words why there is none.
JobResult lookAtPriceList(JobContext &context, PriceListLook *look);

/// Holds every record of a file against the goods. mayGoOn is asked now and then; false ends it at once.
PriceListPlan planPriceList(const QByteArray &bytes, const CsvForm &form, const PriceListGround &ground,
                            const std::function<bool(qint64 done, qint64 of)> &mayGoOn);
