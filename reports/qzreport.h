#pragma once

#include "reportwindow.h"
#include "zstatements.h"

#include <QModelIndex>

namespace Ui {
class QZReport;
}
struct PlaceNames;

/// The closed shifts of a register, a shop, a group or all of them, one line a Z-report or all in one line of
/// sums, with a picture of their turnover; and, as another list, what goes on in the open ones.
class QZReport : public ReportWindow
{
    Q_OBJECT

public:
    QZReport(QSqlDatabase *db, QLoadedUser *user, QObject *mainWindow, QWidget *parent);
    ~QZReport() override;

    /// The list in front.
    ListPane *list() const override;
    QStringList totals() const override;
    /// Loads the shifts of a place: those of the numbers, else those closed in the days, else the open ones.
    void goTo(const Destination &destination) override;

public slots:
    void GroupChanged();
    void ShopChanged();
    void showid(bool byNumber);
    void load() override;
    /// Opens the receipts behind a Z-report.
    void dclicktable(const QModelIndex &index);
    /// What is shown: the open shifts, read at once, or the closed ones.
    void showOpen(bool isOpen);

protected:
    void placeChosen() override;
    bool isExported() const override { return true; }
    void rowsShown() override;

private:
    void buildList();
    void buildChart();
    void buildOpen();
    void switchView(bool isOpen);
    bool isOpenShown() const;
    void loadOpen();
    void loadClosed();
    void showOrigin(const ChekOrigin &origin, const PlaceNames &names);
    bool isSummed() const;
    bool hasSeveralShops() const;
    void showChart();
    void drawChart();

    std::unique_ptr<Ui::QZReport> ui;
    DbTasks *m_origins;
    /// The place that another page leads to.
    DbTasks *m_places;
};
