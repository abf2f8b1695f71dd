#pragma once

#include "db.h"
#include "editdialog.h"
#include "goodsrecord.h"

#include <memory>

namespace Ui {
class QAddEdtGoods;
}
class QLineEdit;
class QTab;

/// The editor of one item with all its barcodes and prices.
class QAddEdtGoods : public EditDialog
{
    Q_OBJECT

public:
    /// id: the item, empty to add one; after a save it holds the id that the item has. shops: those that
    /// the user may give prices to and offer the item in.
    QAddEdtGoods(QTab *tab, QSqlDatabase *db, QString *id, const QVector<NamedId> &shops, QObject *receiver,
                 QWidget *parent);
    ~QAddEdtGoods() override;

    /// False when the item could not be read (reported): there is nothing to show then.
    bool isLoaded() const { return m_isLoaded; }

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
    bool save() override;
    std::optional<bool> hasArrived() override;
    void takeOver() override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void buildFields();
    void connectFields();
    void fillLists();
    void fillPriceLists(const QVector<NamedId> &shops);
    void fillShops(const QVector<NamedId> &shops);
    QStringList newShops() const;
    QString priceRefusalHere() const;
    QString shortName() const;
    void chooseUsual();
    void showRecord(const GoodsRecord &found);
    GoodsRecord record() const;
    bool isNew() const { return !m_loaded; }
    QStringList barcodes() const;
    QString idRefusal() const;
    QString barcodesRefusal() const;
    QString ruleRefusal() const;

    std::unique_ptr<Ui::QAddEdtGoods> ui;
    const Db m_db;
    QString *m_id;
    /// As it was read; nothing for a new item.
    std::optional<GoodsRecord> m_loaded;
    bool m_isLoaded = true;
    QString m_defaultGroup;
    /// What was sent last, and the id that it got, in case the answer was lost.
    GoodsRecord m_sent;
    QString m_sentId;
};
