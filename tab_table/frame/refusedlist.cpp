#include "refusedlist.h"

#include "listpane.h"

#include <QCoreApplication>

namespace {
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(RefusedList)
};
} // namespace

void openRefused(ListPane *list, QSqlDatabase *db, const QLoadedUser *user, QObject *receiver,
                 const QString &codeCaption, const QString &key)
{
    list->open(db, user, receiver);
    list->setColumns(
        {{Texts::tr("Номер запису"), 13, &asNumber}, {codeCaption, 24}, {Texts::tr("Причина"), 40}}, key);
    list->setEmptyText(Texts::tr("Пропущених записів немає."));
    list->setHeading({Texts::tr("Пропущені записи")});
}

void showRefused(ListPane *list, const RefusedLines &lines)
{
    RowStore rows;
    for (const RefusedLine &line : lines) {
        const QByteArray number = QByteArray::number(line.number);
        const QByteArray code = line.code.toUtf8();
        // A line of the file is a line of the list.
        const QByteArray reason = line.reason.simplified().toUtf8();
        rows.append({{number.constData(), static_cast<size_t>(number.size())},
                     {code.constData(), static_cast<size_t>(code.size())},
                     {reason.constData(), static_cast<size_t>(reason.size())}});
    }
    list->showRows(std::move(rows));
}
