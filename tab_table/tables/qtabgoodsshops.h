#pragma once

#include "qtab.h"

namespace Ui {
class QTabGoodsShopsFilter;
}

/// How much of each item lies in the showroom and in the store of the shops that the user may see; nothing
/// is edited here.
class QTabGoodsShops : public QTab
{
    Q_OBJECT

public:
    QTabGoodsShops(QSqlDatabase *db, QLoadedUser *user, QObject *receiver, setting *set, QWidget *parent);
    ~QTabGoodsShops() override;

public slots:
    /// Lists the stock of the chosen shop in whose goods or shop name the text stands.
    void seerch(const QString &text);
    void searchAgain() override;

protected:
    void followRights() override;

private:
    void buildFilter();
    void fillShops();
    void whyPrice(int row);
    QString condition(const QString &text) const;

    std::unique_ptr<Ui::QTabGoodsShopsFilter> ui;
};
