#include "qtabnames.h"

#include "listpane.h"
#include "qntableview.h"
#include "qrowmodel.h"
#include "qtabdelegate.h"

#include <QHeaderView>
#include <QLabel>
#include <QVBoxLayout>

namespace {
QTabDelegate *makeDelegate(const NameList &names, QSqlDatabase *db, QObject *receiver)
{
    if (names.refusal != nullptr)
        return nullptr;
    auto *delegate = new QTabDelegate(QLatin1String(names.table), db, receiver);
    delegate->setLowestNewId(names.lowestNewId);
    return delegate;
}
} // namespace

QTabNames::QTabNames(const NameList &names, QSqlDatabase *db, QLoadedUser *user, QObject *receiver,
                     setting *set, QWidget *parent)
    : QTab(db, user, receiver, set, parent, makeDelegate(names, db, receiver), new QVBoxLayout)
{
    table = QLatin1String(names.table);
    query = QStringLiteral("SELECT id, name FROM ") + table;
    if (names.refusal != nullptr)
        recordRefusal = tr(names.refusal);
    list()->setColumns({{QString(), 5, &asNumber}, {tr(names.caption), 40}}, table);
    model()->setHeaderData(QTabDelegate::Id, Qt::Horizontal, tr("Код"), Qt::ToolTipRole);
    addSearch(table + QStringLiteral(".name LIKE %1"), tr(names.caption));
    if (names.isByCode && view()->horizontalHeader()->sortIndicatorSection() < 0)
        view()->horizontalHeader()->setSortIndicator(QTabDelegate::Id, Qt::AscendingOrder);
    if (names.hint != nullptr)
        addHint(tr(names.hint));
    ShowData();
}

void QTabNames::addHint(const QString &text)
{
    auto *label = new QLabel(text, this);
    label->setObjectName(QStringLiteral("labelHint"));
    label->setWordWrap(true);
    QPalette quiet = label->palette();
    quiet.setColor(QPalette::WindowText, quiet.color(QPalette::PlaceholderText));
    label->setPalette(quiet);
    layout()->addWidget(label);
}
