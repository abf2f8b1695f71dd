#pragma once

#include "dbtasks.h"
#include "editdialog.h"
#include "invoice.h"

#include <functional>

class QComboBox;

/// The base of the windows that close an invoice. What was entered is written away from the window; when
/// nobody knows whether it has arrived, the same is tried again, which asks the server first.
class InvoiceDialog : public EditDialog
{
    Q_OBJECT

public:
    InvoiceDialog(const QString &connection, QObject *receiver, QWidget *parent);

    bool wasWritten() const { return m_result.outcome == InvoiceResult::Written; }
    /// The one that was written.
    DbId invoice() const { return m_result.mark.invoice; }
    /// The list beside it shows something that is not true any more.
    bool isListOld() const;
    bool isUnclear() const { return m_result.outcome == InvoiceResult::Unclear; }
    /// The user's rights have changed meanwhile; without the right a writing is refused in words.
    void setMayWrite(bool mayWrite) { m_mayWrite = mayWrite; }

protected:
    /// What the list shows of the invoice is not true any more.
    void noteListOld() { m_isListOld = true; }
    /// unclear: the writing before, if nobody knows what became of it.
    using Work = std::function<InvoiceResult(const Db &db, const std::optional<InvoiceMark> &unclear)>;
    /// Writes it; accept() follows. While it is unclear the work of before is done again, whatever was
    /// entered since.
    void write(const Work &work);
    /// Nothing was written because there is less than is to be sent: asks whether it is to be all the same.
    virtual void fellShort(const InvoiceResult &result) { Q_UNUSED(result) }
    /// Called after a writing that has not closed the window.
    virtual void notWritten() {}
    DbTasks *tasks() { return &m_tasks; }
    /// Something that was asked for has not answered yet.
    bool isAsking() const { return m_tasks.isWaiting(); }
    /// The two places in a shop; the store room first.
    static void offerPlaces(QComboBox *box);
    static StockPlace chosenPlace(const QComboBox *box);

private:
    void take(const InvoiceResult &result);

    DbTasks m_tasks;
    Work m_work;
    InvoiceResult m_result;
    bool m_isListOld = false;
    bool m_mayWrite = true;
};
