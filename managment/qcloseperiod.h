#pragma once

#include "countdesk.h"
#include "editdialog.h"
#include "listcolumns.h"
#include "periodwriter.h"
#include "shiftcloser.h"

#include <memory>

namespace Ui {
class QClosePeriod;
}
class DbTasks;
class PeriodModel;
class SaleWork;

/// Closes a trading period: the shop's weighed goods are counted, and what was counted is written. Everything
/// has to be counted, or taken as the program knows it by a deliberate act. Without such goods there is
/// nothing to count, and it accepts by itself.
class QClosePeriod : public EditDialog
{
    Q_OBJECT

public:
    /// order: where, by whom and in which shift; its goods are read.
    QClosePeriod(SaleWork *work, const PeriodOrder &order, const PeriodDay &day, QWidget *parent);
    ~QClosePeriod() override;

    /// The document that was written; its number is 0 when there was nothing to count.
    const WrittenChek &document() const { return m_result.chek; }

public slots:
    /// Asks when something was counted.
    void reject() override;

protected:
    QString refusal() const override;
    void save() override;
    void showEvent(QShowEvent *event) override;

private:
    void connectParts();
    void show(const std::optional<PeriodSheet> &sheet);
    QString headWords(const PeriodSheet &sheet) const;
    bool isCounted();
    PeriodOrder counted() const;
    void write();
    void take(const PeriodWriter::Result &result);
    bool isUnclear() const { return m_result.outcome == PeriodWriter::Unclear; }

    std::unique_ptr<Ui::QClosePeriod> ui;
    SaleWork *m_work;
    DbTasks *m_tasks;
    PeriodModel *m_model;
    ListColumns m_columns;
    CountDesk *m_desk;
    PeriodOrder m_order;
    PeriodDay m_day;
    PeriodWriter::Result m_result;
};
