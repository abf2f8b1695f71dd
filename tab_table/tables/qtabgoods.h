#pragma once

#include "qtab.h"

namespace Ui {
class QTabGoodsFilter;
}

/// The goods with their barcodes, found by goods group and text. An item takes one row for each of its
/// barcodes, or a single one when rows are grouped by id.
class QTabGoods : public QTab
{
    Q_OBJECT

public:
    QTabGoods(QSqlDatabase *db, QLoadedUser *user, QObject *receiver, setting *set, QWidget *parent);
    ~QTabGoods() override;

    /// Who may edit goods may be allowed to import a price list, too.
    Commands commands() const override;

public slots:
    /// Lists the goods of the chosen group whose barcode, name or id holds the text.
    void seerch(const QString &text);

protected:
    std::unique_ptr<RecordDialog> makeEditor(QString *id) override;
    /// A price list.
    void importFile(QSqlDatabase *db, QObject *receiver, QWidget *widget, const QString &path,
                    const CsvForm &wanted) override;
    /// An item may have several rows.
    void refreshRecord(const QString &id, bool isNew) override;

private:
    void buildFilter();
    void searchAgain() override;
    void whyPrice(int row);
    QVector<int> rowsOf(const QString &id) const;
    QString grouping() const;
    void writeRows(const RowStore &records, const QVector<int> &rows);

    std::unique_ptr<Ui::QTabGoodsFilter> ui;
};
