#pragma once

#include "cashinvoice.h"
#include "saleplaces.h"

#include <QObject>
#include <optional>

class DbTasks;
class QComboBox;
class QLabel;

/// Which register cash leaves or comes to, and by which service operation: two boxes of a window in step, and
/// a line that tells what lies in the register.
class CashEndFields : public QObject
{
    Q_OBJECT

public:
    struct Boxes
    {
        QComboBox *kass;
        QComboBox *operation;
        QLabel *drawer;
    };
    struct Offer
    {
        /// The first item instead of a register: the shop's safe; empty for none.
        QString safe;
        /// Only operations that bring cash in, or take it out; both for nothing.
        std::optional<bool> isIn;
        /// Of the user: another one's shift is told.
        QString user;
    };

    CashEndFields(const Boxes &boxes, const Offer &offer, const QString &connection, QObject *receiver,
                  QObject *parent);

    /// Offers the registers of that shop; 0 for none yet.
    void setShop(DbId shop);
    /// Only that register, when it is offered.
    void keepTo(DbId kass) { m_only = kass; }
    bool isReading() const;
    CashEnd end() const;
    /// What lies in the chosen register, when that is known.
    const std::optional<Drawer> &drawer() const { return m_drawer; }
    /// Why cash cannot go that way; empty when it can.
    QString refusal() const;
    void setEnabled(bool enabled);

signals:
    void changed();
    /// For the first time the boxes hold what a shop has.
    void opened();

private:
    struct Rows
    {
        QVector<SalePlaces::Offered> registers;
        std::optional<QVector<CashOperation>> operations;
    };

    void show(const Rows &rows);
    void followKass();
    void showDrawer();

    Boxes m_boxes;
    Offer m_offer;
    DbTasks *m_tasks;
    DbTasks *m_looks;
    bool m_isOpen = false;
    DbId m_shop = 0;
    /// 0 for all.
    DbId m_only = 0;
    QVector<CashOperation> m_operations;
    std::optional<Drawer> m_drawer;
};
