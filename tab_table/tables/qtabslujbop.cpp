#include "qtabslujbop.h"

#include "qaddedtslujbop.h"

#include <QVBoxLayout>

namespace {
/// 1: into the register, 0: out of it.
QString direction(std::string_view stored)
{
    if (stored == "1")
        return QTabSlujbOp::tr("Внесення");
    if (stored == "0")
        return QTabSlujbOp::tr("Вилучення");
    return QString::fromUtf8(stored.data(), static_cast<int>(stored.size()));
}

const CellFormat asDirection = {direction, direction, false};
} // namespace

QTabSlujbOp::QTabSlujbOp(QSqlDatabase *db, QLoadedUser *user, QObject *receiver, setting *set,
                         QWidget *parent)
    : QTab(db, user, receiver, set, parent, nullptr, new QVBoxLayout)
{
    table = QStringLiteral("slujb_op");
    query = QStringLiteral("SELECT id,name,plus_minus FROM slujb_op");
    setColumns({{QString(), 0, &asNumber, true},
                {tr("Назва операції"), 50},
                {tr("вилучення / внесення"), 14, &asDirection}});
    addSearch(QStringLiteral("slujb_op.name LIKE %1"), tr("Назва операції"));
    ShowData();
}

std::unique_ptr<RecordDialog> QTabSlujbOp::makeEditor(QString *id)
{
    return std::make_unique<QAddEdtSlujbOp>(db().connection(), id, receiver(), this);
}
