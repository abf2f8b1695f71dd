#pragma once

#include "cashmoves.h"
#include "chekorigin.h"
#include "qtab.h"

#include <memory>

namespace Ui {
class QCashReport;
}
class TypingPause;
class QSplitter;

/// How cash moved in the shops that the user sees: service cash of the registers and transfers between shops
/// over a range of days, added up by shop, register, operation, person or day; below it the moves of the
/// chosen line, each of which leads to its receipt or invoice. One statement is read; both lists are made of
/// its rows.
class QCashReport : public QTab
{
    Q_OBJECT

public:
    QCashReport(QSqlDatabase *db, QLoadedUser *user, QObject *receiver, setting *set, QWidget *parent);
    ~QCashReport() override;

    /// The moves of the chosen line.
    ListPane *moves() const { return m_moves; }
    bool isLoading() const override;
    Commands commands() const override;

public slots:
    /// Into the moves of that line.
    void Edit(const QModelIndex &index) override;
    /// Service cash: QServiceCash.
    void Add() override;
    void searchAgain() override;

signals:
    /// The receipt of a move is to be shown.
    void cheksWanted(const ChekOrigin &origin);
    /// The invoice of a move is.
    void invoiceWanted(uint invoice);
    /// The slip of a receipt that was just written is to be shown, or printed.
    void slipWanted(const QString &kass, int chek, bool print);

protected:
    void rowsShown() override;
    void followRights() override;
    void loadAgain() override;
    void showEvent(QShowEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void buildFilter();
    void connectFilter();
    void buildMoves();
    void showRights();
    void refillShops();
    CashMovesAsked asked() const;
    CashGrouping grouping() const;
    QStringList askedWords() const;
    RowStore takeMoves(RowStore &&found);
    void regroup();
    void followRow();
    void movesShown();
    QStringList totals() const;
    void openMove(const QModelIndex &index);

    std::unique_ptr<Ui::QCashReport> ui;
    QSplitter *m_splitter;
    ListPane *m_moves;
    /// The days are typed section by section.
    TypingPause *m_pause;
    /// Of all moves that are in the list of sums.
    RowStore m_found;
    CashGrouping m_grouping = CashGrouping::Shop;
    QStringList m_askedHeading;
    QString m_askedShops;
    bool m_isAsked = false;
};
