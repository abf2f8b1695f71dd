#include "invoicedialog.h"

#include "combos.h"
#include "invoicewriter.h"

#include <QComboBox>

InvoiceDialog::InvoiceDialog(const QString &connection, QObject *receiver, QWidget *parent)
    : EditDialog(parent), m_tasks(connection, receiver, nullptr)
{
}

bool InvoiceDialog::isListOld() const
{
    return m_isListOld || wasWritten() || isUnclear() || m_result.outcome == InvoiceResult::Closed;
}

void InvoiceDialog::offerPlaces(QComboBox *box)
{
    showEntries(box, {{tr("Склад"), static_cast<int>(StockPlace::Syllable)},
                      {tr("Зал"), static_cast<int>(StockPlace::Showroom)}});
}

StockPlace InvoiceDialog::chosenPlace(const QComboBox *box)
{
    return static_cast<StockPlace>(box->currentData().toInt());
}

void InvoiceDialog::write(const Work &work)
{
    if (!m_mayWrite)
        return warn(tr("Нічого не записано: у вас тепер є право лише переглядати."));
    std::optional<InvoiceMark> unclear;
    if (isUnclear())
        unclear = m_result.mark;
    else
        m_work = work;
    beginWriting();
    m_tasks.write([work = m_work, unclear](const Db &db) { return work(db, unclear); },
                  [this](const InvoiceResult &result) {
                      endWriting();
                      take(result);
                  });
}

/// What has failed was reported already; somebody else's closing leaves nothing to do here.
void InvoiceDialog::take(const InvoiceResult &result)
{
    m_result = result;
    if (wasWritten())
        return accept();
    if (result.outcome == InvoiceResult::Short)
        return fellShort(result);
    if (result.outcome != InvoiceResult::Failed)
        warn(explanation(result));
    if (result.outcome == InvoiceResult::Closed)
        return QDialog::reject(); // NOLINT(bugprone-parent-virtual-call)
    notWritten();
}
