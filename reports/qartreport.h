#pragma once

#include "artstatements.h"
#include "boxreader.h"
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
    bool isChoosing() const override;

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
    void placeChosen() override;

private slots:
    /// The numbers of both days anew, for the place that is chosen now.
    void refillNumbers();
    /// Tells when the numbers are those of another place than the one that is chosen.
    void showNumbersPlace();
    /// Limiting to the days of sale is the rule as soon as the place has more than one register.
    void offerDatesOnly();

private:
    /// The numbers of the shifts that were closed on a day, for the range's one end.
    struct Numbers
    {
        BoxReader *reader = nullptr;
        QComboBox *box = nullptr;
        bool isGreatestChosen = false;
        QDate day;
        QString place;
        /// By hand; empty when it was not.
        QString picked;
    };
    void setUpList();
    void setUpChoice();
    void setUpPlace();
    void setUpNumbers(Numbers *numbers, QComboBox *box, bool isGreatestChosen);
    void fillGoodsGroups();
    bool takesPlace(const QVector<Numbers *> &ends);
    BoxReader::Read numbersOf(const QDate &day) const;
    void readNumbers(Numbers *numbers, const QDate &day, const BoxReader::Read &work, BoxReader::When when);
    static void chooseNumber(Numbers *numbers);
    void showReceipts(const QModelIndex &line);
    ChekOrigin originOf(int row) const;
    QStringList asked() const;
    ArtPlace place() const;
    ArtChoice choice() const;
    QString refusal() const;
    QString missingNumbers(const QDate &day) const;
    void drawTop();

    std::unique_ptr<Ui::QArtReport> ui;
    /// What the list was asked for last, and what the rows in it were asked for.
    ArtChoice m_asked;
    ArtChoice m_shown;
    Numbers m_start;
    Numbers m_end;
    /// The numbers of both days are wanted for the place on its way.
    bool m_refillsNumbers = false;
    QString m_numbersPlace;
    BoxReader *m_goodsGroups;
    DbTasks *m_registers;
    bool m_hasSeveralRegisters = false;
};
