#pragma once

#include <QString>
#include <QVector>
#include <string_view>

/// What a cell is for programs that tell numbers and dates from texts.
struct CellValue
{
    enum Kind {
        Text,     ///< no number: its plain text is all there is
        Whole,    ///< units
        Money,    ///< kopecks
        Quantity, ///< thousandths
        Rate,     ///< hundredths of a per cent
        Date,     ///< seconds from 1970-01-01, as in UTC
        DateTime, ///< the same
        KindCount
    };
    Kind kind = Text;
    qint64 number = 0;
};

/// How the stored text of a cell (UTF-8, as the server sends it) is shown, exported, sorted and aligned.
struct CellFormat
{
    /// What a copy, an export and an editor get: "1234.50".
    QString (*plain)(std::string_view stored);
    /// What the list shows: "1 234.50".
    QString (*shown)(std::string_view stored);
    /// Numbers sort by their value and stand right; everything else sorts by the locale.
    bool isNumber;
    /// The bytes of the plain text: the stored ones, or what is written into room (of plainRoom bytes).
    /// Null where there is only the plain text itself.
    std::string_view (*plainBytes)(std::string_view stored, char *room) = nullptr;
    /// Null where all cells are texts.
    CellValue (*value)(std::string_view stored) = nullptr;
    /// A sum below its column makes sense.
    bool addsUp = false;

    CellValue valueOf(std::string_view stored) const { return value ? value(stored) : CellValue(); }

    static constexpr size_t plainRoom = 32;
};

/// As it is.
extern const CellFormat asText;
/// A whole number: an id, a count.
extern const CellFormat asNumber;
/// Kopecks as hryvnias with two decimals.
extern const CellFormat asMoney;
/// The same for amounts that add up, as prices do not.
extern const CellFormat asSum;
/// Thousandths with three decimals.
extern const CellFormat asQuantity;
/// Hundredths of a per cent with two decimals.
extern const CellFormat asRate;
/// A date-time as "dd-MM-yy hh:mm:ss"; a zero date is empty. Sorts by time.
extern const CellFormat asDateTime;
/// A date as "dd-MM-yyyy"; a zero date is empty. Sorts by time.
extern const CellFormat asDate;

/// What a whole number of that kind is; a text for anything else.
CellValue wholeValue(std::string_view stored, CellValue::Kind kind);
/// The day of a date or of a date-time; a text for zero and odd dates.
CellValue dayValue(std::string_view stored);

/// One column of a list: columns stand in the order of the SELECT that fills them.
struct Column
{
    QString caption;
    /// How many digits it has room for; never narrower than its caption.
    int digits = 0;
    const CellFormat *format = &asText;
    bool hidden = false;
};

/// For a literal table with a line for each column: whether line i is that of the column numbered i, up to
/// the last one before count.
template<typename Line, size_t lines, typename Number>
constexpr bool standInOrder(const Line (&table)[lines], Number count)
{
    for (size_t i = 0; i < lines; ++i) {
        if (static_cast<size_t>(table[i].column) != i)
            return false;
    }
    return lines == static_cast<size_t>(count);
}
