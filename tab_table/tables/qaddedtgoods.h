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
    /// id: the item, empty to add one; after a save it holds the id that the item has. shops: those that
    /// the user may give prices to and offer the item in.
    QAddEdtGoods(QTab *tab, QSqlDatabase *db, QString *id, const QVector<NamedId> &shops, QObject *receiver,
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
    std::optional<RecordFields> read(const QString &id) const override;
    RecordFields entered() const override;
    void showField(const QString &key, const std::optional<RecordField> &value) override;
    QStringList lockStatements(const QString &id) const override;
    bool insertRecord(QString *id) override;
    bool updateRecord(const QString &id) override;
    QStringList changedTables() const override;
    QString failureWords() override;
    bool save() override;
    void takeOver() override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QVector<RecordInput> inputs() const;
    void buildFields();
    void connectFields();
    void fillLists();
    void fillPriceLists(const QVector<NamedId> &shops);
    QString priceRefusalHere() const;
    void completeShortName();
    void chooseUsual();
    bool hadNo(const char *column) const;
    bool writeRows(const QString &id);
    QString idRefusal() const;
    QString barcodesRefusal() const;
    QString ruleRefusal() const;

    /// Where the writing of an item has failed, for the words about it.
    enum class Step { Item, Prices, Barcodes, Shops, All };

    std::unique_ptr<Ui::QAddEdtGoods> ui;
    QString m_defaultGroup;
    Step m_step = Step::Item;
};
