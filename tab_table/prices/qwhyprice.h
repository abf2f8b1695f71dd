#pragma once

#include "combos.h"
#include "dbtasks.h"
#include "whyprice.h"

#include <QDialog>
#include <memory>

namespace Ui {
class QWhyPrice;
}
class QLoadedUser;
class QSqlDatabase;
class WaitNote;

/// "Чому така ціна": which price of an item is in force in a shop at a moment, which promotion, and why the
/// others are not. Shop, moment and priority can be changed; nothing is written.
class QWhyPrice : public QDialog
{
    Q_OBJECT

public:
    /// Without a shop in the question the one is taken that the user has chosen here last, else his own, else
    /// the first one offered.
    QWhyPrice(QSqlDatabase *db, const QLoadedUser *user, QObject *receiver, const PriceQuestion &question,
              QWidget *parent);
    ~QWhyPrice() override;

    /// Opens the window over a page; it is deleted when it is closed.
    static QWhyPrice *show(QSqlDatabase *db, const QLoadedUser *user, QObject *receiver,
                           const PriceQuestion &question, QWidget *page);

    /// Puts all that is shown on the clipboard.
    void copy() const;

private:
    void setUpTable();
    void connectInputs();
    void fit();
    void readShops();
    void showShops(const ListEntries &offered);
    DbId shopToBegin() const;
    void shopChosen();
    void askOtherwise();
    void read();
    void readAgain();
    void showAnswer(const std::optional<WhyPrice> &answer);
    void showPrices(const QVector<JudgedPrice> &prices);
    void clear(const QString &words);

    std::unique_ptr<Ui::QWhyPrice> ui;
    QString m_idUser;
    /// Of the shops that the user may see.
    QString m_shopsSql;
    DbId m_homeShop;
    /// The shop was the user's to choose: it is remembered.
    bool m_isShopAsked;
    PriceQuestion m_question;
    /// What is shown, and what it answers.
    WhyPrice m_shown;
    PriceQuestion m_answered;
    DbTasks m_lists;
    DbTasks m_tasks;
    WaitNote *m_note;
};
