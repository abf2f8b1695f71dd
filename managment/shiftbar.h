#pragma once

#include "shiftcheck.h"

#include <QWidget>
#include <functional>
#include <memory>

namespace Ui {
class ShiftBar;
}
class DbTasks;
class PlaceBar;
class WaitNote;

/// The shift of the chosen register: what is known of it, and how it and the shop's trading period are
/// closed, a step after the other: the server is asked, then the user, then the closing is written.
class ShiftBar : public QWidget
{
    Q_OBJECT

public:
    explicit ShiftBar(QWidget *parent = nullptr);
    ~ShiftBar() override;

    /// place: where.
    void setUp(SaleWork *work, PlaceBar *place);
    using Act = std::function<void()>;
    /// Asked before anything is closed: does it, now or later, or tells why not.
    void setGuard(const std::function<void(const Act &close)> &guard) { m_guard = guard; }
    /// Asked besides before a shift is closed: what has to be done first, in the user's words; else empty.
    void setRefusal(const std::function<QString()> &refusal) { m_refusal = refusal; }
    /// why: what the buttons tell when nothing may be closed.
    void setMayClose(bool mayClose, const QString &why);
    /// Cash is brought into the register or taken out of it, and its slip offered.
    void moveCash();

    /// Reads the shift and shows it; of several readings the newest.
    void refresh();
    /// On the last day of the period asks about that, then takes what the operator has counted and writes.
    void closeShift();
    /// The button of the period: tells when it could not be closed.
    void closePeriodAlone();
    /// Has the goods counted that belong to the period's end. False, with the reason shown, when the period
    /// cannot be closed or was not.
    bool closePeriod(const ChekPlace &place, const ClosingCheck &check);

signals:
    /// Service cash was written; its words, and its receipt.
    void cashMoved(const QString &words, const QString &kass, int chek);
    /// These tables were written to.
    void written(const QStringList &tables);

private:
    void guarded(const Act &close);
    void check(void (ShiftBar::*then)(const ChekPlace &place, const ClosingCheck &check));
    QString whyNoPlace() const;
    void show(const ShiftState &state);
    QString cashRefusal() const;
    /// Why no closing can begin; empty when it can.
    QString closingRefusal() const;
    void shiftChecked(const ChekPlace &place, const ClosingCheck &check);
    void periodChecked(const ChekPlace &place, const ClosingCheck &check);
    bool isOpen(const ShiftState &state);
    bool takeOver(const ShiftState &state, const QString &question, const QString &act);
    QString periodRefusal(const ChekPlace &place, const ClosingCheck &check) const;
    bool isPeriodClosed(const ClosingCheck &check) const;
    enum class LastDay { Stop, GoOn, ReadAgain };
    bool countPeriod(const ChekPlace &place, const ClosingCheck &check);
    LastDay offerPeriod(const ChekPlace &place, const ClosingCheck &check);
    void count(const ChekPlace &place, const ShiftFigures &figures);
    void close(const ChekPlace &place, const ShiftFigures &figures, const ShiftCount &count);
    void closed(const QString &zNumber, ShiftCloser::Outcome outcome);

    std::unique_ptr<Ui::ShiftBar> ui;
    SaleWork *m_work = nullptr;
    PlaceBar *m_place = nullptr;
    DbTasks *m_looks = nullptr;
    DbTasks *m_tasks = nullptr;
    WaitNote *m_reading;
    std::function<void(const Act &close)> m_guard;
    std::function<QString()> m_refusal;
    /// The shift during which the period was closed without anything to count: its closing does not ask for
    /// that again.
    QString m_closedPeriod;
    /// The shift of another user that was agreed to be closed.
    QString m_takenOver;
};
