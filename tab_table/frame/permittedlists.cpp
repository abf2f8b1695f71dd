#include "permittedlists.h"

#include "db.h"
#include "qloadeduser.h"
#include "qmessevent.h"
#include "qtab.h"

#include <QComboBox>

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

QString permittedGroupsSql(const QLoadedUser &user, bool withDefault)
{
    return QStringLiteral("SELECT name,id FROM group_shop WHERE") +
           QTab::GetStrLstGroupFromPermis(&user, QStringLiteral("id"), withDefault);
}

QString permittedShopsSql(const QLoadedUser &user, const QString &extra)
{
    QString sql = QStringLiteral(
        "SELECT shops.address,shops.id FROM shops LEFT JOIN group_shop ON shops.group_shop=group_shop.id "
        "LEFT JOIN kassa ON kassa.id_shop=shops.id WHERE (group_shop.id=0");
    for (const QString &group : user.groups())
        sql += QStringLiteral(" OR group_shop.id=") + group;
    if (!user.idShop().isEmpty())
        sql += QStringLiteral(" OR shops.id=") + user.idShop();
    return sql + QLatin1Char(')') + extra;
}

std::optional<ListEntries> readPermittedShops(const Db &db, const QString &sql)
{
    const auto entries = readEntries(db, sql);
    return entries ? std::optional(eachOnce(*entries)) : std::nullopt;
}

namespace {
/// Into the box or, without one, as a list of their texts.
QStringList listOrBox(const std::optional<ListEntries> &read, QComboBox *box)
{
    const ListEntries entries = read.value_or(ListEntries());
    if (box != nullptr)
        showEntries(box, entries);
    QStringList texts;
    for (int i = 0; i < entries.size() && box == nullptr; ++i)
        texts.append(entries.at(i).first);
    return texts;
}
} // namespace

QStringList QTab::GetLstGroupShopFromPermis(QSqlDatabase *db, QLoadedUser *user, QObject *receiver,
                                            bool withDefault, QComboBox *box)
{
    return listOrBox(readEntries(Db(db, receiver), permittedGroupsSql(*user, withDefault)), box);
}

QStringList QTab::GetLstShopFromPermis(QSqlDatabase *db, QLoadedUser *user, QObject *receiver,
                                       const QString &extra, QComboBox *box)
{
    return listOrBox(readPermittedShops(Db(db, receiver), permittedShopsSql(*user, extra)), box);
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
