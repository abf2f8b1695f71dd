#pragma once

#include "qtabonline.h"

namespace Ui {
class QTabShopsFilter;
}

/// The shops that the user may see, with their state on the line, found by group, block and text.
class QTabShops : public QTabOnLine
{
    Q_OBJECT

public:
    QTabShops(QSqlDatabase *db, QLoadedUser *user, QObject *receiver, setting *set, QWidget *parent);
    ~QTabShops() override;

    /// The shop group chosen in the filter; 0 for all groups.
    uint chosenGroup() const;

public slots:
    /// Lists the shops of the chosen group and state whose address or name holds the text.
    void seerch(const QString &text);

signals:
    /// The registers of the shop are wanted.
    void MoveMouseSignal(uint id_shop);

protected:
    /// Asks for the registers of the shop.
    void dragged(int row) override;
    /// The settings' program for shops.
    NamedCommand ownCommand(int row) const override;
    /// The gateway of the shop.
    QString launchAddress(int row) const override;
    LineState lineState(int row) const override;
    void followRights() override;
    std::unique_ptr<RecordDialog> makeEditor(QString *id) override;

private:
    void buildFilter();
    void fillGroupFilter(bool searches);
    void searchAgain() final;
    QString condition(const QString &text) const;

    std::unique_ptr<Ui::QTabShopsFilter> ui;
};
