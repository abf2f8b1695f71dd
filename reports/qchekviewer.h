#pragma once

#include "chekquery.h"
#include "reportwindow.h"

#include <QSet>

namespace Ui {
class QChekViewer;
}
class QModelIndex;

/// The receipts, Z-reports and documents of goods of a place and a range, and one of them as a slip.
class QChekViewer : public ReportWindow
{
    Q_OBJECT

public:
    QChekViewer(QSqlDatabase *db, QLoadedUser *user, QObject *mainWindow, QWidget *parent);
    ~QChekViewer() override;

    /// Sets the place (0: all) and a range of Z numbers, and loads.
    void showRange(uint id_shop, uint id_kass, const QString &zFrom, const QString &zTo);
    /// Sales minus returns of the listed receipts, in kopecks.
    qint64 sum() const { return m_sum; }
    /// The document shown; empty before the first one.
    const QString &slip() const { return m_slip; }

    QStringList heading() const override { return m_heading; }
    QStringList totals() const override;

public slots:
    void GroupChanged(const QString &group);
    void ShopChanged(const QString &shop);
    /// A range of Z numbers, or of days.
    void showid(bool byNumber);
    void load() override;
    void dclicktable(const QModelIndex &index);
    /// Shows a document of a register; type as in ChekType. After a failure (reported) the page stays.
    void showChekOrZvit(const QString &type, const QString &chek, const QString &kass);

signals:
    /// The sums of the listed receipts are checked, or that failed (reported).
    void checked();

protected:
    RowStore arranged(RowStore &&found) override;
    void rowsShown() override;

private:
    void InsertColumnsListCheks();
    void connectWidgets();
    void fillGroups();
    void showPlace(uint id_shop, uint id_kass);
    ChekFilter filter() const;
    void checkSums(bool check);
    void showChecked(const std::shared_ptr<FoundRows> &found);
    void colourMismatches(const QColor &colour);
    void printSlip();
    void savePdf();

    std::unique_ptr<Ui::QChekViewer> ui;
    /// Checks the sums of the list; made when it is first needed.
    ListLoader *m_checker = nullptr;
    /// The request on its way, and what was asked for the rows in the list.
    ChekFilter m_asked;
    ChekFilter m_listed;
    QStringList m_askedHeading;
    QStringList m_heading;
    /// Register and number of the receipts whose sums do not agree.
    QSet<quint64> m_mismatches;
    qint64 m_sum = 0;
    QString m_slip;
};
