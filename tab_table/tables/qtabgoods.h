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

    using QTab::Edit;

public slots:
    /// Lists the goods of the chosen group whose barcode, name or id holds the text.
    void seerch(const QString &text);
    void Edit(const QModelIndex &index) override;
    void Add() override;

private:
    void buildFilter();
    void searchAgain();
    /// Opens the editor, for a new item with an empty id; gives the id that it has then. As runEditor().
    std::optional<bool> openEditor(QString *id);
    QVector<int> rowsOf(const QString &id) const;
    /// True when the item takes one row, by the grouping or because it has one barcode.
    bool takesOneRow(const QString &id) const;
    /// Writes the rows of an item again, which had those given; none for a new one.
    void refresh(const QString &id, const QVector<int> &rows);
    void writeRows(QSqlQuery &records, const QVector<int> &rows);

    std::unique_ptr<Ui::QTabGoodsFilter> ui;
};
