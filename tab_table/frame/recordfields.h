#pragma once

#include <QString>
#include <QVariant>
#include <QVector>
#include <optional>

/// A record as a value: what the database holds, or is to hold, without widgets and statements.

/// One value of a record.
struct RecordField
{
    /// The column; for a row beside the record's own (a price, a barcode) its table and place.
    QString key;
    /// What people call it.
    QString caption;
    /// As the database holds it: an id, kopecks, a text. NULL is a null text.
    QString stored;
    /// As people read it.
    QString shown;
    /// For a row beside the record's own: what its editor makes it from.
    QVariant row;
};
/// In the order in which they are shown.
using RecordFields = QVector<RecordField>;

/// What somebody else has done to one value since the record was read. Nothing stands for a row that is not
/// there.
struct RecordChange
{
    std::optional<RecordField> before;
    std::optional<RecordField> mine;
    std::optional<RecordField> theirs;
    /// Here it was changed too, into something else.
    bool isConflict = false;

    const RecordField &any() const { return theirs ? *theirs : *before; }
};

/// What others have changed since the record was read, unless it was changed here into the same.
QVector<RecordChange> changesByOthers(const RecordFields &read, const RecordFields &mine,
                                      const RecordFields &theirs);

/// The first value in which two records differ, as the second one holds it; without the row, as the first.
/// Nothing when they are the same. Empty is the same as NULL; blanks at the end do not count: the server
/// cuts them off.
std::optional<RecordField> firstDifference(const RecordFields &one, const RecordFields &other);
