#include "cashendfields.h"

#include "combos.h"
#include "dbtasks.h"
#include "money.h"

#include <QComboBox>
#include <QLabel>
#include <algorithm>
#include <utility>

CashEndFields::CashEndFields(const Boxes &boxes, const Offer &offer, const QString &connection,
                             QObject *receiver, QObject *parent)
    : QObject(parent)
    , m_boxes(boxes)
    , m_offer(offer)
    , m_tasks(new DbTasks(connection, receiver, this))
    , m_looks(new DbTasks(connection, receiver, this))
{
    for (QComboBox *box : {boxes.kass, boxes.operation})
        keepNarrow(box, 24);
    connect(boxes.kass, qOverload<int>(&QComboBox::currentIndexChanged), this, &CashEndFields::followKass);
    connect(boxes.operation, qOverload<int>(&QComboBox::currentIndexChanged), this, &CashEndFields::changed);
    show({});
}

void CashEndFields::setShop(DbId shop)
{
    m_shop = shop;
    m_tasks->drop();
    m_tasks->read(
        [shop](const Db &db) {
            const auto registers =
                shop == 0 ? QVector<SalePlaces::Offered>() : SalePlaces::registers(db, {shop, {}, false});
            return Rows{registers, readCashOperations(db)};
        },
        [this](const Rows &rows) {
            show(rows);
            if (!std::exchange(m_isOpen, true))
                emit opened();
        });
}

void CashEndFields::show(const Rows &rows)
{
    ListEntries registers;
    if (!m_offer.safe.isEmpty())
        registers.append({m_offer.safe, 0});
    for (const SalePlaces::Offered &kass : rows.registers) {
        if (!kass.isClosingOnly && (m_only == 0 || kass.id == m_only))
            registers.append({kass.name, kass.id});
    }
    showEntriesAgain(m_boxes.kass, registers);
    m_boxes.kass->setEnabled(m_only == 0);
    m_operations.clear();
    ListEntries operations;
    for (const CashOperation &operation : rows.operations.value_or(QVector<CashOperation>())) {
        if (m_offer.isIn && *m_offer.isIn != operation.isIn)
            continue;
        m_operations.append(operation);
        operations.append({operationShown(operation), operation.id});
    }
    showEntriesAgain(m_boxes.operation, operations);
    followKass();
}

bool CashEndFields::isReading() const
{
    return m_tasks->isWaiting();
}

/// What lies there is read beside: nobody waits for it.
void CashEndFields::followKass()
{
    const DbId kass = m_boxes.kass->currentData().toUInt();
    m_boxes.operation->setEnabled(kass != 0);
    m_drawer.reset();
    m_looks->drop();
    showDrawer();
    emit changed();
    if (kass == 0)
        return;
    const ChekPlace place = {QString::number(m_shop), QString::number(kass), m_offer.user};
    m_looks->read([place](const Db &db) { return CashWriter(db, place).drawer(); },
                  [this](const std::optional<Drawer> &drawer) {
                      m_drawer = drawer;
                      showDrawer();
                      emit changed();
                  });
}

void CashEndFields::showDrawer()
{
    if (!m_drawer)
        return m_boxes.drawer->setText(QString());
    if (m_drawer->zNumber.isEmpty())
        return m_boxes.drawer->setText(tr("Зміна ще не відкрита: її відкриє ця операція."));
    const QString shift =
        tr("За зміною № %1 у касі має бути %2.").arg(m_drawer->zNumber, moneyShown(m_drawer->cash));
    const bool isOthers = m_drawer->user != m_offer.user;
    m_boxes.drawer->setText(isOthers ? shift + QLatin1Char(' ') +
                                           tr("Зміну відкрив інший користувач: записати може лише він.")
                                     : shift);
}

CashEnd CashEndFields::end() const
{
    CashEnd end;
    end.kass = m_boxes.kass->currentData().toUInt();
    const DbId wanted = m_boxes.operation->currentData().toUInt();
    const auto operation = std::find_if(m_operations.begin(), m_operations.end(),
                                        [wanted](const CashOperation &one) { return one.id == wanted; });
    if (end.kass != 0 && operation != m_operations.end())
        end.operation = *operation;
    return end;
}

QString CashEndFields::refusal() const
{
    if (isReading())
        return tr("Каси ще читаються. Повторіть.");
    const CashEnd chosen = end();
    if (chosen.kass == 0)
        return m_offer.safe.isEmpty() ? tr("Виберіть касу.") : QString();
    return chosen.operation.id == 0
               ? tr("Виберіть службову операцію. Їх список – у довіднику «Службові операції».")
               : QString();
}

void CashEndFields::setEnabled(bool enabled)
{
    m_boxes.kass->setEnabled(enabled && m_only == 0);
    m_boxes.operation->setEnabled(enabled && end().kass != 0);
}
