#pragma once

#include "recorddialog.h"

#include <memory>

namespace Ui {
class QAddEdtShop;
}
class QLoadedUser;
class QTabShops;

/// The editor of a shop.
class QAddEdtShop : public RecordDialog
{
    Q_OBJECT

public:
    /// id: the shop to edit; empty or null for a new one, whose id it holds after the save.
    QAddEdtShop(QTabShops *tab, QLoadedUser *user, QSqlDatabase *db, QString *id, QObject *receiver,
                QWidget *parent);
    ~QAddEdtShop() override;

public slots:
    /// Chooses the type of shop that has this day cycle.
    void change_day_cycle(int value);
    /// Sets the day cycle that the chosen type of shop has.
    void chang_type(int index);

protected:
    QString refusal() const override;
    QVector<UniqueValue> uniqueValues() const override;
    void showField(const QString &key, const std::optional<RecordField> &value) override;
    void loaded() override;

private:
    QVector<RecordInput> inputs(const QLoadedUser &user) const;
    void connectFields();
    void presetNew();
    void checkNetwork();
    void widenCycle(const QString &stored);

    std::unique_ptr<Ui::QAddEdtShop> ui;
    /// Preset for a new shop; empty for none.
    const QString m_group;
    bool m_mayLackCycle = false;
    /// What an ordinary shop gets back after a look at the other types.
    int m_lastCycle = 1;
};
