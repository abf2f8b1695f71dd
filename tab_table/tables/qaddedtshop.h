#pragma once

#include "editdialog.h"
#include "storedrecord.h"

#include <memory>

namespace Ui {
class QAddEdtShop;
}
class QLoadedUser;
class QTabShops;

/// The editor of a shop.
class QAddEdtShop : public EditDialog
{
    Q_OBJECT

public:
    /// id: the shop to edit; empty or null for a new one, whose id it holds after the save.
    QAddEdtShop(QTabShops *tab, QLoadedUser *user, QSqlDatabase *db, QString *id, QObject *receiver,
                QWidget *parent);
    ~QAddEdtShop() override;

    /// False after a reported failure: there is nothing to edit.
    bool isLoaded() const { return m_isLoaded; }

public slots:
    /// Chooses the type of shop that has this day cycle.
    void change_day_cycle(int value);
    /// Sets the day cycle that the chosen type of shop has.
    void chang_type(int index);

protected:
    QString refusal() const override;
    bool save() override;
    std::optional<bool> hasArrived() override;
    void takeOver() override;

private:
    void limitLengths(const QTabShops *tab);
    void connectFields();
    bool fillLists(QLoadedUser *user);
    bool load();
    void presetNew(uint group);
    void checkNetwork(const QString &typed);
    bool isUnique();
    Db::Values values() const;
    QVariant dayCycle() const;
    void showDayCycle(const QVariant &stored);
    MeantColumns meant() const;
    bool NewRecord(QString *id);
    bool UpdateRecord(QString *id);

    std::unique_ptr<Ui::QAddEdtShop> ui;
    Db m_db;
    QString *m_id;
    QString m_newId;
    /// As it was read; empty for a new shop.
    MeantColumns m_loaded;
    /// What was sent last, and the id that it got, in case the answer was lost.
    MeantColumns m_sent;
    QString m_sentId;
    bool m_mayLackCycle = false;
    bool m_isLoaded = false;
    /// What an ordinary shop gets back after a look at the other types.
    int m_lastCycle = 1;
};
