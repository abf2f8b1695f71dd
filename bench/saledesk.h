#pragma once

#include "act.h"

#include "place.h"
#include "windows.h"

#include <QStringList>
#include <memory>

class QRegisterSale;

/// The sale tab at a register, driven by scanner and buttons.
class SaleDesk
{
public:
    /// Opens the tab and chooses the register there.
    SaleDesk(const Bench &bench, const Place &place);
    ~SaleDesk();
    Q_DISABLE_COPY(SaleDesk)

    /// The longest time that it stood still while it opened and went to the register.
    double openingGapMs() const { return m_openingGapMs; }
    /// Scans so many different goods, each as soon as the one before stands in the receipt.
    Cost scan(int rows);
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
    void choosePlace(const Place &place);
    int rowCount() const;
    QString notice() const;

    Admin m_admin;
    std::unique_ptr<QRegisterSale> m_tab;
    QStringList m_barcodes;
    double m_openingGapMs = 0;
};
