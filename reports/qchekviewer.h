#pragma once

#include "chekquery.h"
#include "destination.h"
#include "reportwindow.h"
#include "slipreader.h"
#include "typingpause.h"

#include <QSet>

namespace Ui {
class QChekViewer;
}
class QModelIndex;
struct PlaceNames;

/// The receipts, Z-reports and documents of goods of a place and a range, and one of them as a slip.
class QChekViewer : public ReportWindow
{
    Q_OBJECT

public:
    QChekViewer(QSqlDatabase *db, QLoadedUser *user, QObject *mainWindow, QWidget *parent);
    ~QChekViewer() override;

    /// Loads the receipts behind a line of another report; they are kept to until another place or range is
    /// chosen.
    void showOrigin(const ChekOrigin &origin);
    void goTo(const Destination &destination) override { showOrigin(destination.origin); }
    /// Shows a receipt that a register has just written, whatever the list holds.
    void showReceipt(uint kass, uint chek);
    /// Sales minus returns of the listed receipts, in kopecks.
    qint64 sum() const { return m_sum; }
    /// The document shown; empty for none.
    QString slip() const;

    QStringList totals() const override;
    bool isChoosing() const override;

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
    int rowOf(uint chek) const;
    void connectWidgets();
    void connectSlip();
    void showPlace(const ChekOrigin &origin, const PlaceNames &names);
    void setOrigin(const std::optional<ChekOrigin> &origin);
    void forgetOrigin();
    void leaveOrigin();
    QStringList asked() const;
    ChekFilter filter() const;
    void checkSums(bool check);
    void showChecked(const std::shared_ptr<QueryAnswer> &found);
    void colourMismatches(const QColor &colour);
    void markMismatch(int row, const QColor &colour);
    void showDocument(const std::function<std::optional<Slip>(const Db &)> &read);

    std::unique_ptr<Ui::QChekViewer> ui;
    /// Checks the sums of the list; made when it is first needed.
    QueryOwner *m_checker = nullptr;
    DbTasks *m_slips;
    DbTasks *m_origins;
    /// The request on its way, and what was asked for the rows in the list.
    ChekFilter m_asked;
    ChekFilter m_listed;
    /// Register and number of the receipts whose sums do not agree.
    QSet<quint64> m_mismatches;
    qint64 m_sum = 0;
    QHash<uint, uint> m_shops;
    /// The line of another report that the receipts are asked for.
    std::optional<ChekOrigin> m_origin;
    bool m_isShowingOrigin = false;
    /// The slip was asked for by itself while a list was on its way.
    bool m_keepsSlip = false;
    /// A line passed by with the arrow keys is not read.
    TypingPause m_selection;
};
