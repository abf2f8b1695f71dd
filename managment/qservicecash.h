#pragma once

#include "cashwriter.h"
#include "combos.h"
#include "dbtasks.h"
#include "editdialog.h"

#include <memory>

namespace Ui {
class QServiceCash;
}
class CashEndFields;
class QLoadedUser;

/// Service cash is brought into a register or taken out of it. More than the register has by its shift is
/// asked about. What nobody knows to be written is asked for before it is written again.
class QServiceCash : public EditDialog
{
    Q_OBJECT

public:
    struct Where
    {
        /// The register, where it is known; else both are chosen here. Its date, none for today's.
        std::optional<ChekPlace> place = {};
        QDate date = {};
        /// The permission that is needed.
        int right = 0;
    };

    QServiceCash(const QString &connection, const QLoadedUser *user, QObject *receiver, const Where &where,
                 QWidget *parent);
    ~QServiceCash() override;

    /// What was asked for, and what became of it.
    const CashOrder &order() const { return m_order; }
    const CashWriter::Result &result() const { return m_result; }
    bool wasWritten() const { return m_result.outcome == DocumentWriter::Written; }
    bool isUnclear() const { return m_result.outcome == DocumentWriter::Unclear; }
    /// "Внесено 500.00, чек № 12": of what was written.
    QString writtenWords() const;

    /// Whoever leaves what nobody knows to be written is told.
    void done(int result) override;

protected:
    QString refusal() const override;
    void save() override;

private:
    void connectFields();
    void show(const std::optional<ListEntries> &shops);
    void showRest();
    ChekPlace place() const;
    void write();
    void take(const CashWriter::Result &result);

    std::unique_ptr<Ui::QServiceCash> ui;
    const QLoadedUser *m_user;
    Where m_where;
    QObject *m_receiver;
    DbTasks m_tasks;
    CashEndFields *m_end;
    CashOrder m_order;
    CashWriter::Result m_result;
};
