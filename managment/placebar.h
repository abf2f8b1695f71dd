#pragma once

#include "chek.h"
#include "saleplaces.h"

#include <QDate>
#include <QWidget>
#include <functional>
#include <memory>

namespace Ui {
class PlaceBar;
}
class DbTasks;
class SaleWork;

/// The boxes in which a shop, its register, a date and a priority of prices are chosen: where and when
/// something is done with goods. The date is today's, also after midnight, until somebody chooses another
/// one.
class PlaceBar : public QWidget
{
    Q_OBJECT

public:
    explicit PlaceBar(QWidget *parent = nullptr);
    ~PlaceBar() override;

    /// Fills the boxes with the user's shops, beginning with the own one; what a lost connection leaves empty
    /// is read when the rights are read again.
    void setUp(SaleWork *work);
    using Leave = std::function<void()>;
    enum Choice { Shop, Register, Date };
    /// Asked before that choice becomes another one, which leave() does, now or later; until then the old one
    /// is shown, and holds.
    using Guard = std::function<void(Choice choice, const Leave &leave)>;
    void setGuard(const Guard &guard) { m_guard = guard; }

    /// Shops or registers are on their way.
    bool isReading() const;
    bool hasShop() const { return m_shop >= 0; }
    bool isChosen() const { return m_shop >= 0 && m_kass >= 0; }
    /// What is chosen, "0" for nothing; and the user.
    ChekPlace place() const;
    /// The chosen register is there only for closing its shift (SalePlaces).
    bool isClosingOnly() const;
    int priority() const;

    /// None while the date follows today.
    QDate chosenDate() const { return m_isToday ? QDate() : m_date; }
    /// Takes over a new day if the date follows today.
    void followToday();
    void backToToday();

    /// Reads all again, beginning with the own shop.
    void fillShops();

    /// Everything that can be typed or chosen in.
    QWidgetList fields() const;

signals:
    /// Other goods and prices hold now: another shop, date or priority was chosen.
    void goodsChanged();
    /// Another register is chosen, or none any more; also when the boxes were read again.
    void kassChanged();
    /// Somebody has chosen another date.
    void dateChanged();
    /// Somebody is through with a box.
    void left();

private:
    void connectBoxes();
    void show(const SalePlaces::Offer &offer);
    void readRegisters();
    void showRegisters(const QVector<SalePlaces::Offered> &registers);
    void refill();
    void shopChosen(int index);
    void kassChosen(int index);
    void dateChosen(const QDate &date);
    void choose(Choice choice, int *chosen, int index, const Leave &then);
    void leaveFor(Choice choice, const Leave &leave);
    void showDate();

    std::unique_ptr<Ui::PlaceBar> ui;
    SaleWork *m_work = nullptr;
    DbTasks *m_tasks = nullptr;
    Guard m_guard;
    /// What is chosen in the boxes; they go back there until somebody may leave it.
    int m_shop = -1;
    int m_kass = -1;
    QDate m_date;
    bool m_isToday = true;
};
