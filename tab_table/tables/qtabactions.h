#pragma once

#include "actionusage.h"
#include "qtab.h"

class ActionPanel;

/// The promotions: what they do, when, how they stand now and how many goods have them. Which goods those are
/// is decided in the management of promotions. The first one, "Без акції", belongs to the programs.
class QTabActions : public QTab
{
    Q_OBJECT

public:
    QTabActions(QSqlDatabase *db, QLoadedUser *user, QObject *receiver, setting *set, QWidget *parent);
    using QTab::Edit;

    void run(Command command) override;

public slots:
    void Edit(const QModelIndex &index) override;
    /// Asks and deletes the current promotion; one that goods have is refused with where they are.
    void Del();

protected:
    std::unique_ptr<RecordDialog> makeEditor(QString *id) override;
    void rowsShown() override;
    void rowShown(int row) override;
    /// In a low window the list needs the room.
    void resizeEvent(QResizeEvent *event) override;

private:
    bool isOfPrograms(int row) const;
    void askAboutRemoval(const QString &id, const ActionUse &use);
    void remove(const QString &id, const QStringList &asked);
    void tellRemoval(const QString &name, const ActionRemoved &removed);
    void tell(const QString &words);

    void followRow();

    DbTasks m_removal;
    ActionPanel *m_panel;
};
