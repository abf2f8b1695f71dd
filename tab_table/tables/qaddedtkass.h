#pragma once

#include "combos.h"
#include "editdialog.h"
#include "storedrecord.h"

#include <memory>

namespace Ui {
class QAddEdtKass;
}
class QTabKass;

/// The editor of a cash register or another device of a shop.
class QAddEdtKass : public EditDialog
{
    Q_OBJECT

public:
    /// id: the register to edit; empty or null for a new one, whose id it holds after the save.
    /// group: the name of the shop group that is preset for a new register; empty for none.
    /// id_shop: the shop that is preset for a new register, with its group; 0 for none.
    QAddEdtKass(QTabKass *tab, QSqlDatabase *db, QString *id, const QString &group, QObject *receiver,
                QWidget *parent, unsigned int id_shop);
    ~QAddEdtKass() override;

    /// False after a reported failure, or when the user sees no shop group: there is nothing to edit.
    bool isLoaded() const { return m_isLoaded; }

public slots:
    /// Offers the group's shops that may hold registers.
    void selgroup(const QString &name);
    /// Looks at the address while it is typed.
    void ip_change(const QString &text);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    QString refusal() const override;
    bool save() override;
    std::optional<bool> hasArrived() override;
    void takeOver() override;

private:
    void limitLengths(const QTabKass *tab);
    void connectFields();
    bool fillLists(const QTabKass *tab);
    bool preset(const QString &group, unsigned int id_shop);
    bool load();
    void showOwnShop(const NamedId &shop);
    void showGateway();
    void showWarning();
    bool isUnique();
    Db::Values values() const;
    MeantColumns meant() const;
    bool NewRecord(QString *id);
    bool UpdateRecord(QString *id);

    std::unique_ptr<Ui::QAddEdtKass> ui;
    Db m_db;
    QString *m_id;
    QString m_newId;
    /// As it was read; empty for a new register.
    MeantColumns m_loaded;
    /// What was sent last, and the id that it got, in case the answer was lost.
    MeantColumns m_sent;
    QString m_sentId;
    bool m_isLoaded = false;
    bool m_isIpSound = true;
};
