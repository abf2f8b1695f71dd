#include "cardstab.h"

#include "bench.h"

#include <QVBoxLayout>

QVector<Column> CardsTab::columns()
{
    QVector<Column> columns(14);
    columns[0].format = &asNumber;
    columns[2].format = &asMoney;
    columns[3].format = &asMoney;
    columns[10].format = &asDate;
    return columns;
}

CardsTab::CardsTab(QSqlDatabase *db, QLoadedUser *user, QObject *receiver, setting *set, QWidget *parent)
    : QTab(db, user, receiver, set, parent, nullptr, new QVBoxLayout)
{
    table = QStringLiteral("clients");
    query = cardsStatement();
    setColumns(columns());
    seerch(QString());
}

void CardsTab::seerch(const QString &text)
{
    search(text.isEmpty() ? QString() : QStringLiteral(" WHERE clients.name LIKE ") + likeContains(text));
}

QString CardsTab::first(int rows)
{
    return QStringLiteral(" LIMIT %1").arg(rows);
}
