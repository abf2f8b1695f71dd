#pragma once

#include "recorddialog.h"

#include <memory>

namespace Ui {
class QAddEdtKass;
}
class QTabKass;

/// The editor of a cash register or another device of a shop.
class QAddEdtKass : public RecordDialog
{
    Q_OBJECT

public:
    /// id: the register to edit; empty or null for a new one, whose id it holds after the save.
    /// group: the name of the shop group that is preset for a new register; empty for none.
    /// id_shop: the shop that is preset for a new register, with its group; 0 for none.
    QAddEdtKass(QTabKass *tab, QSqlDatabase *db, QString *id, const QString &group, QObject *receiver,
                QWidget *parent, unsigned int id_shop);
    ~QAddEdtKass() override;

public slots:
    /// Offers the group's shops that may hold registers.
    void selgroup(const QString &name);
    /// Looks at the address while it is typed.
    void ip_change(const QString &text);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    QString refusal() const override;
    QVector<UniqueValue> uniqueValues() const override;
    bool takeRows(const QVector<TextRows> &more) override;
    void showField(const QString &key, const std::optional<RecordField> &value) override;
    void loaded() override;

private:
    /// A shop of the chain, whether it may hold registers or not.
    struct Shop
    {
        QString address;
        QString id;
        QString group;
        QString gateway;
        bool mayHoldRegisters;
    };
    QVector<RecordInput> inputs() const;
    void connectFields();
    void showIp();
    void preset();
    Shop shop(const QString &id) const;
    void showGateway();

    std::unique_ptr<Ui::QAddEdtKass> ui;
    QVector<Shop> m_shops;
    /// Preset for a new register.
    const QString m_group;
    const QString m_shop;
    bool m_isIpSound = true;
};
