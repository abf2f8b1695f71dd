#pragma once

#include "artstatements.h"
#include "reportwindow.h"

namespace Ui {
class QArtReport;
}
class QComboBox;
class QModelIndex;

/// What was sold, per article, in the shifts from one Z-report to another.
class QArtReport : public ReportWindow
{
    Q_OBJECT

public:
    QArtReport(QSqlDatabase *db, QLoadedUser *user, QObject *mainWindow, QWidget *parent);
    ~QArtReport() override;

    QStringList totals() const override;

public slots:
    void load() override;
    /// The totals of the rows in the list.
    void calcsum();
    /// Refill the boxes below with what belongs to the choice made.
    void GroupChanged(const QString &group);
    void ShopChanged(const QString &shop);
    /// Refill the numbers of the first and the last shift with those closed on the day.
    void changDateStart(const QDate &day);
    void changDateEnd(const QDate &day);

protected:
    bool isExported() const override { return true; }
    void rowsShown() override;

private slots:
    /// The numbers of both days anew, for the place that is chosen now.
    void refillNumbers();
    /// Tells when the numbers are those of another place than the one that is chosen.
    void showNumbersPlace();
    /// Limiting to the days of sale is the rule as soon as the place has more than one register.
    void offerDatesOnly();

private:
    void setUpList();
    void setUpChoice();
    void fillGoodsGroups();
    bool fillNumbers(QComboBox *box, const QDate &day);
    void showReceipts(const QModelIndex &line);
    ChekOrigin originOf(int row) const;
    QStringList asked() const;
    int registersInPlace() const;
    ArtPlace place() const;
    ArtChoice choice() const;
    QString refusal() const;
    QString missingNumbers(const QDate &day) const;
    void drawTop();

    std::unique_ptr<Ui::QArtReport> ui;
    /// What the list was asked for last, and what the rows in it were asked for.
    ArtChoice m_asked;
    ArtChoice m_shown;
    QString m_numbersPlace;
    bool m_hasSeveralRegisters = false;
};
