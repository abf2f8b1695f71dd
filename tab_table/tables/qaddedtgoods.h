#pragma once

#include "goodsrecord.h"
#include "recorddialog.h"

#include <memory>

namespace Ui {
class QAddEdtGoods;
}
class QLineEdit;
class QTab;

/// The editor of one item with all its barcodes and prices.
class QAddEdtGoods : public RecordDialog
{
    Q_OBJECT

public:
    /// id: the item, empty to add one; after a save it holds the id that the item has. shopsSql: the shops
    /// that the user may give prices to and offer the item in, address and id.
    QAddEdtGoods(QTab *tab, QSqlDatabase *db, QString *id, const QString &shopsSql, QObject *receiver,
                 QWidget *parent);
    ~QAddEdtGoods() override;

public slots:
    /// Puts the typed barcode into the list.
    void addshc();
    void delshc();
    void addprice();
    void delprice();
    /// Adds a row of prices; price in kopecks, an empty shop is none.
    void insertprice(int price, int priority, const QString &group, const QString &shop);
    /// Tells what the chosen rule means.
    void changRules(int index);
    /// Marks a field whose barcode is not sound.
    void ChangeShtrih(QLineEdit *field);
    /// Cuts a short name to its length and marks its field when it did.
    void ChangeShortName(const QString &text);

protected:
    QString refusal() const override;
    bool takeRows(const QVector<TextRows> &more) override;
    void loaded() override;
    RecordDraft draft() const override;
    void showField(const QString &key, const std::optional<RecordField> &value) override;
    void takeOver(const RecordDraft &written) override;
    void save() override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QVector<RecordInput> inputs() const;
    void buildFields();
    void connectFields();
    QStringList furtherStatements(const QString &shopsSql) const;
    QString priceRefusalHere() const;
    void completeShortName();
    void chooseUsual();
    bool hadNo(const char *column) const;
    QString idRefusal() const;
    QString barcodesRefusal() const;

    std::unique_ptr<Ui::QAddEdtGoods> ui;
    QObject *m_receiver;
    QString m_defaultGroup;
};
