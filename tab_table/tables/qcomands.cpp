#include "qcomands.h"

#include "qaddedtcomands.h"
#include "qmessevent.h"
#include "qqestion.h"

#include <QVBoxLayout>

QComands::QComands(QSqlDatabase *db, QLoadedUser *user, QObject *receiver, setting *set, QWidget *parent)
    : QTab(db, user, receiver, set, parent, nullptr, new QVBoxLayout)
{
    table = QStringLiteral("comands");
    query = QStringLiteral("SELECT comands.id,comands.name FROM comands");
    setColumns({{tr("Код"), 7, &asNumber}, {tr("назва"), 45}});
    addSearch(QStringLiteral("comands.name LIKE %1"), tr("назва"));
    ShowData();
}

void QComands::run(Command command)
{
    if (command == Command::Delete)
        DelRecord();
    else
        QTab::run(command);
}

void QComands::AddRecord()
{
    Add();
}

void QComands::EditRecord(const QModelIndex &index)
{
    if (!index.isValid())
        postTrace(receiver(), QStringLiteral("QComands::EditRecord !index.isValid()"));
    QTab::Edit(index);
}

void QComands::DelRecord()
{
    QQestion::question(window(), tr("Попередження."), tr("Видалення не реалізоване!"), true);
}

std::unique_ptr<RecordDialog> QComands::makeEditor(QString *id)
{
    return std::make_unique<QAddEdtComands>(this, db().connection(), id, receiver(), this);
}
