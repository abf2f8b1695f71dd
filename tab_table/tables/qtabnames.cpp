#include "qtabnames.h"

#include "listpane.h"
#include "qrowmodel.h"
#include "qtabdelegate.h"

#include <QVBoxLayout>

QTabNames::QTabNames(const NameList &names, QSqlDatabase *db, QLoadedUser *user, QObject *receiver,
                     setting *set, QWidget *parent)
    : QTab(db, user, receiver, set, parent, new QTabDelegate(QLatin1String(names.table), db, receiver),
           new QVBoxLayout)
{
    table = QLatin1String(names.table);
    query = QStringLiteral("SELECT id, name FROM ") + table;
    list()->setColumns({{QString(), 5, &asNumber}, {tr(names.caption), 40}}, table);
    model()->setHeaderData(QTabDelegate::Id, Qt::Horizontal, tr("Код"), Qt::ToolTipRole);
    addSearch(table + QStringLiteral(".name LIKE %1"), tr(names.caption));
    ShowData();
}
