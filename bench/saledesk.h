#pragma once

#include "large.h"

#include <QStringList>
#include <memory>

class QRegisterSale;

/// The sale tab at a register of the large chain whose shift is open, driven by scanner and buttons.
class SaleDesk
{
public:
    /// which: the how many-th of the registers that can be taken.
    SaleDesk(const Bench &bench, int which);
    ~SaleDesk();
    Q_DISABLE_COPY(SaleDesk)

    /// Scans so many different goods.
    void scan(int rows);
    /// From the payment's OK to the receipt's number.
    Cost sell();
    struct Closing
    {
        /// From F12 to the form in which the operator counts.
        Cost opening;
        /// From its OK to the word that the shift is closed.
        Cost writing;
    };
    Closing closeShift();

private:
    void choosePlace(int which);
    int rowCount() const;
    QString notice() const;

    const Bench &m_bench;
    Large::Admin m_admin;
    std::unique_ptr<QRegisterSale> m_tab;
    QStringList m_barcodes;
};
