#pragma once

#include "qtabonline.h"

namespace Ui {
class QTabKassFilter;
}

/// The cash registers and other equipment of the shops that the user may see, with their state on the
/// line, found by group, shop and address.
class QTabKass : public QTabOnLine
{
    Q_OBJECT

public:
    QTabKass(QSqlDatabase *db, QLoadedUser *user, QObject *receiver, setting *set, QWidget *parent);
    ~QTabKass() override;

    using QTab::user;
    /// The shop group chosen in the filter by its name; empty for all groups.
    QString chosenGroup() const;
    /// The shop chosen in the filter; 0 for all shops.
    uint chosenShop() const;

public slots:
    /// Lists the registers of a shop; 0 for all shops. The other filters are taken back.
    void LoadData(unsigned int id_shop);
    /// Offers the shops of the chosen group; the text is not looked at, the item knows its group.
    void GroupChange(const QString &text);
    /// Lists the registers of the chosen shop or group whose shop's address holds the text.
    void seerch(const QString &text);
    void openedByMenu() override { LoadData(0); }

protected:
    /// Starts the settings' program for a drag.
    void dragged(int row) override;
    /// The command that is named like the type of the device, else the settings' program for registers.
    NamedCommand ownCommand(int row) const override;
    QString launchAddress(int row) const override;
    QString launchRefusal(int row) const override;
    LineState lineState(int row) const override;
    void clearFilter() override;
    void followRights() override;
    std::unique_ptr<RecordDialog> makeEditor(QString *id) override;

private:
    void buildFilter();
    void fillShops();
    void searchAgain() final;
    QString placeCondition() const;

    std::unique_ptr<Ui::QTabKassFilter> ui;
};
