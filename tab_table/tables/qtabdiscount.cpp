#include "qtabdiscount.h"

#include "listpane.h"
#include "qaddedtdiscount.h"
#include "qmessevent.h"

#include <QVBoxLayout>

QTabDiscount::QTabDiscount(QSqlDatabase *db, QLoadedUser *user, QObject *receiver, setting *set,
                           QWidget *parent)
    : QTab(db, user, receiver, set, parent, nullptr, new QVBoxLayout)
{
    table = QStringLiteral("procent");
    query = QStringLiteral("SELECT procent.id, procent.name, procent.discount, procent.sum, yesno.name, "
                           "yn2.name FROM procent LEFT JOIN yesno ON procent.auto=yesno.id LEFT JOIN yesno "
                           "AS yn2 ON procent.block=yn2.id");
    setColumns({{QString(), 0, &asNumber, true},
                {tr("Назва"), 25},
                {tr("Знижка"), 8, &asRate},
                {tr("Сума після якої діє знижка"), 14, &asMoney},
                {tr("Авто"), 8},
                {tr("Блокування"), 8}});
    addSearch(QStringLiteral("procent.name LIKE %1"), tr("Назва"));
    ShowData();
}

void QTabDiscount::ShowData()
{
    postTrace(receiver(), QStringLiteral("In QTabDiscount::ShowData.\nName table: ") + table +
                              QStringLiteral("\nquery: ") + query);
    search(filter);
}

void QTabDiscount::Edit(const QModelIndex &index)
{
    if (!index.isValid())
        postTrace(receiver(), QStringLiteral("QTabDiscount::Edit !index.isValid()"));
    QTab::Edit(index);
}

std::unique_ptr<RecordDialog> QTabDiscount::makeEditor(QString *id)
{
    return std::make_unique<QAddEdtDiscount>(this, db().connection(), id, receiver(), this);
}
