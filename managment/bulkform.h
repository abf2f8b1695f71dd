#pragma once

#include "bulkplan.h"
#include "combos.h"
#include "dbtasks.h"
#include "pastedbarcodes.h"

#include <QWidget>
#include <memory>

class NumberField;
class QLoadedUser;
class QSqlDatabase;
class ScanCatcher;

namespace Ui {
class BulkForm;
}

/// What is to become of which goods, as somebody chooses it: a filter, the field or the step of the price,
/// and where the prices stand. Scanned goods come to the list of barcodes, wherever in the page the focus is.
class BulkForm : public QWidget
{
    Q_OBJECT

public:
    explicit BulkForm(QWidget *parent = nullptr);
    ~BulkForm() override;

    /// Before anything else.
    void open(QSqlDatabase *db, const QLoadedUser *user, QObject *receiver);
    /// Reads what the boxes offer; what is chosen in them stays.
    void readBoxes();
    bool isReading() const;

    BulkChoice choice() const;
    /// Why that is no choice, in the user's words; empty when it is one.
    QString refusal() const;
    bool isPrice() const { return field() == BulkField::Price; }
    bool showsOnlyChanges() const;

    /// While something is written nothing takes what would change it.
    void followWork(bool isWorking, bool isWriting);
    void tellStopping();
    void enterSearch();

public slots:
    /// previewWanted(), once the boxes are read.
    void askForPreview();

signals:
    void changed();
    void previewWanted();
    void stopWanted();
    void onlyChangesToggled();

private:
    /// What the boxes offer behind their first items.
    struct Offered
    {
        ListEntries groups;
        ListEntries taxes;
        ListEntries rules;
        ListEntries shopGroups;
    };

    void fillFixedBoxes();
    void connectInputs();
    static std::optional<Offered> readOffered(const Db &db, const QString &shopGroupsSql);
    void showOffered(const Offered &offered);
    void showShopGroups(const ListEntries &groups);
    void showValues();
    void followWhat();
    void showInputs();
    void resetFilter();
    void askForBarcodes();
    void takeBarcodes(const PastedBarcodes &barcodes);
    void takeScan(const QString &code);
    BulkField field() const;
    bool isPercent() const;
    NumberField *byField() const;
    GoodsFilter filter() const;
    QVector<BulkPlace> places() const;

    std::unique_ptr<Ui::BulkForm> ui;
    const QLoadedUser *m_user = nullptr;
    std::unique_ptr<DbTasks> m_boxes;
    NumberField *m_percent;
    NumberField *m_amount;
    ScanCatcher *m_scans = nullptr;
    Offered m_offered;
    /// It was asked for before the boxes were read.
    bool m_previewsWhenRead = false;
    bool m_isWriting = false;
    PastedBarcodes m_barcodes;
};
