#pragma once

#include "combos.h"
#include "destination.h"
#include "onlineintervals.h"
#include "reportwindow.h"
#include "typingpause.h"

#include <QHash>

namespace Ui {
class QStatOnLine;
}
class OnLineGrid;
class setting;

/// When each register of a shop was on line, and when not, on a day.
class QStatOnLine : public ReportWindow
{
    Q_OBJECT

public:
    QStatOnLine(QSqlDatabase *db, QLoadedUser *user, QObject *mainWindow, setting *set, QWidget *parent);
    ~QStatOnLine() override;

    /// Chooses a shop and shows it; says so when the user cannot see that shop.
    void showShop(unsigned int shop);
    /// Shows the shop.
    void goTo(const Destination &destination) override { showShop(destination.origin.shop); }

public slots:
    /// The chosen shop and day anew, with the registers that it has now.
    void load() override;
    /// Other shops, another shop, another day was chosen; the numbers are the places in the boxes.
    void ChangeGroup(int index);
    void ChangeShop(int index);
    void DateChang(const QDate &day);
    void LoadData(unsigned int shop);

protected:
    void rowsShown() override;
    void placeChosen() override;

private:
    void setUpGrid();
    void setUpChoice();
    void showRegisters(const ListEntries &registers);
    void askSoon();
    QVector<OnLineInterval> readIntervals() const;
    /// As much of the page as the registers' bars need, half of it at most.
    void giveTimelineRoom();
    void showIntervals(const QVector<OnLineInterval> &intervals);

    std::unique_ptr<Ui::QStatOnLine> ui;
    OnLineGrid *m_grid;
    /// The registers' columns by their ids, and their names in the order of the columns.
    QHash<QString, int> m_columns;
    QStringList m_registers;
    QDate m_askedDay;
    DbTasks *m_registersAsked;
    /// Shops and days passed by with the keys are not asked for.
    TypingPause m_pause;
    bool m_isShopNew = false;
    /// What showShop() waits for; 0 for nothing.
    unsigned int m_wantedShop = 0;
};
