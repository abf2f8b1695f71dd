#pragma once

#include "qtab.h"
#include "qtabdelegate.h"
#include "taxrates.h"

/// The inline editor of the tax groups: of names and rates.
class QTabTaxDelegate : public QTabDelegate
{
    Q_OBJECT

public:
    /// The parent receives the messages.
    QTabTaxDelegate(QSqlDatabase *db, QObject *parent);

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const override;
    /// Every cell but the id, which leads to the rate.
    QModelIndex cellFor(const QModelIndex &index) const override;

signals:
    /// A cell was written.
    void update(bool isWritten);

protected:
    /// The rows are selected whole: a frame tells which cell Enter opens.
    void drawFocus(QPainter *painter, const QStyleOptionViewItem &option, const QRect &rect) const override;
    QString beginningText(const QModelIndex &index) const override;
    QString typedText(const QLineEdit &edit, int column) const override;
    QString refusal(int column, const QString &text, QString *value) const override;
    /// A rate holds for every sale of its goods.
    bool isConfirmed(QWidget *window, const QModelIndex &cell, const QString &value) const override;
    CellWriter writer() const override { return &writeTax; }
};

/// The five tax groups: their names and rates are edited in place.
class QTabTax : public QTab
{
    Q_OBJECT

public:
    QTabTax(QSqlDatabase *db, QLoadedUser *user, QObject *receiver, setting *set, QWidget *parent);
    ~QTabTax() override;

    using QTab::ShowData;
    Commands commands() const override;

public slots:
    /// Reads the groups again. isWritten: because one was written; the rows stay where they are then, and the
    /// one that is edited as it is.
    void ShowData(bool isWritten);
    void searchAgain() override;
    void Add() override;

protected:
    void loadAgain() override;

private:
    void refresh(const RowStore &taxes);

    DbTasks m_tasks;
};
