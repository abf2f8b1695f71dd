#pragma once

#include "qtab.h"
#include "usercard.h"

namespace Ui {
class QTabUsersFilter;
}

/// The people who work with the programs, found by name, login, telephone or a scanned card, by permission
/// group and by whether they get into the back office; their cards on paper. Keys are shown to those only who
/// may change them: whoever knows one can get in by it.
class QTabUsers : public QTab
{
    Q_OBJECT

public:
    QTabUsers(QSqlDatabase *db, QLoadedUser *user, QObject *receiver, setting *set, QWidget *parent);
    ~QTabUsers() override;

    /// Who tells the PDF file to write; see ListPane.
    std::function<QString(const QString &suggested)> chooseFile;

public slots:
    /// Lists those in whom every word is found, narrowed by the filter.
    void seerch(const QString &text);
    void searchAgain() override;
    /// Shows the cards of the selected users as they are printed.
    void printCards();
    void saveCards();

protected:
    void followRights() override;
    std::unique_ptr<RecordDialog> makeEditor(QString *id) override;
    void rowsShown() override;
    void rowShown(int row) override;

private:
    void buildFilter();
    void buildCardMenu();
    void fillGroups();
    void showByRights();
    QString wordsCondition() const;
    QVector<UserCard> selectedCards();
    UserCard cardOf(int row) const;
    QVector<int> selectedRows() const;

    std::unique_ptr<Ui::QTabUsersFilter> ui;
};
