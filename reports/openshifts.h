#pragma once

#include "chekorigin.h"
#include "openshiftsql.h"

#include <QWidget>
#include <memory>

namespace Ui {
class OpenShifts;
}
class DbTasks;
class ListPane;
class QLoadedUser;
class QModelIndex;
class QSqlDatabase;

/// What goes on at the registers: of each the open shift with the cash that has to be in its drawer now, and
/// beside it the shift before. Only read, and as fresh as the last load.
class OpenShifts : public QWidget
{
    Q_OBJECT

public:
    explicit OpenShifts(QWidget *parent = nullptr);
    ~OpenShifts() override;

    /// Before anything else. mainWindow receives the messages.
    void open(QSqlDatabase *db, QLoadedUser *user, QObject *mainWindow);
    /// placeWords: the place, for people.
    void load(const OpenShiftsAsked &asked, const QString &placeWords);
    /// Ends a load on its way; the rows stay.
    void stop();
    /// Forgets the rows, and a load on its way.
    void clear();

    ListPane *list() const;
    QStringList totals() const;

signals:
    void cheksWanted(const ChekOrigin &origin);

private:
    void setColumns();
    void explainColumns();
    void rowsShown();
    void explain(int row);
    void openReceipts(const QModelIndex &index);
    qint64 sum(OpenShiftColumn column) const;

    std::unique_ptr<Ui::OpenShifts> ui;
    DbTasks *m_shifts = nullptr;
    /// Of the rows on their way.
    QStringList m_heading;
};
