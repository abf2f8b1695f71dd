#pragma once

#include "receipt.h"
#include "saleclock.h"
#include "testing.h"

/// A small chain to sell in: shop 1 (group 2, period of three days) with registers 1 and 2, shop 2
/// with register 4 of the same name as register 1, an office and a warehouse, goods 10 to 15 and, beside the
/// administrator, the user 2, whose home is shop 2.
///
/// goods | type   | tax  | price  | barcode       |
/// 10    | piece  | 1    | 50.00  | 4820000000109 |
/// 11    | weighed| 2    | 80.00  | 0000000000116 |
/// 12    | piece  | none | 12.30  | none          |
/// 13    | piece  | 3    | 30.00  | 4820000000130 |
/// 14    | weighed| 5    | 7.00   | 48200014      |
/// 15    | none   | 1    | none   | 4820000000154 |
void fillSaleShop(FreshDatabase *base);

/// Takes back what was sold and priced since.
void resetSaleShop(FreshDatabase *base);

/// As a statement hook: the server commits, its answer is lost, and it cannot be asked either, since `cheks`
/// is called `away` then.
void loseAnswerToCommit(FreshDatabase *base);

/// Sets the clock of receipts and shifts as long as this lives.
class ClockAt
{
public:
    explicit ClockAt(const QDateTime &time);
    ~ClockAt();
    Q_DISABLE_COPY(ClockAt)

private:
    SaleClock::Source m_before;
};

/// What stands in the list for a goods item of shop 1, as one piece or kilogram.
ReceiptRow goodsRow(FreshDatabase *base, int id);
