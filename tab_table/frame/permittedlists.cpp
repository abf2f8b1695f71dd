#include "qtab.h"

#include "combos.h"
#include "db.h"
#include "qloadeduser.h"
#include "qmessevent.h"

#include <QComboBox>

namespace {
QStringList listOrBox(const Db &db, const QString &sql, QComboBox *box)
{
    if (box == nullptr)
        return db.firstColumn(sql).value_or(QStringList());
    fillCombo(box, db, sql);
    return {};
}
} // namespace

QString QTab::GetStrLstGroupFromPermis(const QLoadedUser *user, const QString &field, bool withDefault)
{
    const QStringList &groups = user->groups();
    if (groups.isEmpty())
        return QLatin1Char(' ') + field + QStringLiteral("=''");
    QString condition = QStringLiteral(" (");
    for (int i = groups.size() - 1; i >= 0; --i)
        condition += QLatin1Char(' ') + field + QLatin1Char('=') + groups.at(i) + QStringLiteral(" OR");
    condition.chop(2);
    condition += QLatin1Char(')');
    if (!withDefault)
        condition += QStringLiteral(" AND ") + field + QStringLiteral("<>1");
    return condition;
}

QStringList QTab::GetLstGroupShopFromPermis(QSqlDatabase *db, QLoadedUser *user, QObject *receiver,
                                            bool withDefault, QComboBox *box)
{
    return listOrBox(Db(db, receiver),
                     QStringLiteral("SELECT name,id FROM group_shop WHERE") +
                         GetStrLstGroupFromPermis(user, QStringLiteral("id"), withDefault),
                     box);
}

QStringList QTab::GetLstShopFromPermis(QSqlDatabase *db, QLoadedUser *user, QObject *receiver,
                                       const QString &extra, QComboBox *box)
{
    QString sql = QStringLiteral(
        "SELECT shops.address,shops.id FROM shops LEFT JOIN group_shop ON shops.group_shop=group_shop.id "
        "LEFT JOIN kassa ON kassa.id_shop=shops.id WHERE (group_shop.id=0");
    for (const QString &group : user->groups())
        sql += QStringLiteral(" OR group_shop.id=") + group;
    if (!user->idShop().isEmpty())
        sql += QStringLiteral(" OR shops.id=") + user->idShop();
    sql += QLatin1Char(')') + extra;
    // The join with the registers repeats a shop for each of them, unless `extra` groups the rows.
    QStringList list = listOrBox(Db(db, receiver), sql, box);
    list.removeDuplicates();
    for (int i = box == nullptr ? 0 : box->count() - 1; i > 0; --i) {
        if (box->findData(box->itemData(i)) < i)
            box->removeItem(i);
    }
    return list;
}

int QTab::GetMaxChar(const QString &tableName, const QString &column) const
{
    return GetMaxChar(m_db, m_receiver, tableName, column);
}

int QTab::GetMaxChar(QSqlDatabase *db, QObject *receiver, const QString &tableName, const QString &column)
{
    // Other databases of the server may hold a table of that name too.
    const auto length =
        Db(db, receiver)
            .firstText(
                QStringLiteral("select CHARACTER_MAXIMUM_LENGTH from INFORMATION_SCHEMA.COLUMNS "
                               "WHERE TABLE_NAME = %1 AND COLUMN_NAME = %2 AND TABLE_SCHEMA=DATABASE()")
                    .arg(lit(tableName), lit(column)),
                {},
                tr("Помилка при запиті отримання максимального розміру поля") + QLatin1Char(' ') + column +
                    QLatin1Char(' ') + tr("в таблиці") + QLatin1Char(' ') + tableName);
    if (length && length->isEmpty())
        postTrace(receiver, QStringLiteral("QTab::GetMaxChar not found data"));
    return length ? length->toInt() : 0;
}
