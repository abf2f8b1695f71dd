#include "qtabusers.h"
#include "ui_qtabusersfilter.h"

#include "cardkeys.h"
#include "combos.h"
#include "listpane.h"
#include "listprinter.h"
#include "qaddedtusers.h"
#include "qloadeduser.h"
#include "qntableview.h"
#include "qqestion.h"
#include "qrowmodel.h"
#include "setting.h"
#include "signs.h"

#include <QItemSelectionModel>
#include <QMenu>
#include <QVBoxLayout>
#include <algorithm>

namespace {
enum ColumnOf { Id, Login, Surname, Name, Surname2, Premission, Entry, Telephone, Group, Address, Key };
/// As of everything that is refused; what is written on it stays readable.
const QRgb shutOutColour = 0xffffcdcd;

enum EntryFilter { Everybody, WithEntry, WithoutEntry };

bool mayEnter(std::string_view permission)
{
    return !permission.empty() && permission != "0";
}

QString entryWord(std::string_view permission)
{
    return mayEnter(permission) ? QTabUsers::tr("дозволено") : QTabUsers::tr("закрито");
}

const CellFormat asEntry = {entryWord, entryWord, false};

/// A group without the first right, and no group at all, shut people out.
QString listQuery(bool withKeys)
{
    return QStringLiteral("SELECT users.id,users.login,users.surname,users.name,users.surname2,"
                          "group_premission.name,entry.permission,users.telephone,group_shop.name,"
                          "shops.address,%1 FROM users LEFT JOIN group_premission ON "
                          "group_premission.id=users.id_g_prem LEFT JOIN lst_permis AS entry ON "
                          "entry.id_g_prem=users.id_g_prem AND entry.id_prem=%2 LEFT JOIN group_shop ON "
                          "group_shop.id=users.id_group LEFT JOIN shops ON shops.id=users.id_shop")
        .arg(withKeys ? QStringLiteral("users.key_prem") : QStringLiteral("NULL"))
        .arg(Permission::BackOffice);
}
} // namespace

QTabUsers::QTabUsers(QSqlDatabase *db, QLoadedUser *user, QObject *receiver, setting *set, QWidget *parent)
    : QTab(db, user, receiver, set, parent, nullptr, new QVBoxLayout)
    , chooseFile([this](const QString &suggested) { return askPdfPath(this, suggested); })
    , ui(std::make_unique<Ui::QTabUsersFilter>())
{
    table = QStringLiteral("users");
    setColumns({{tr("Код"), 5, &asNumber},
                {tr("Логін"), 14},
                {tr("Прізвище"), 18},
                {tr("Ім'я"), 14},
                {tr("По батькові"), 16},
                {tr("Група прав"), 20},
                {tr("Вхід"), 10, &asEntry},
                {tr("Телефон"), 11},
                {tr("Група магазинів"), 14},
                {tr("Магазин"), 30},
                {tr("Ключ картки"), 11}});
    buildFilter();
    showByRights();
    seerch(QString());
}

QTabUsers::~QTabUsers() = default;

void QTabUsers::buildFilter()
{
    ui->setupUi(addFilterBar());
    ui->cbEntry->addItems({tr("Усі"), tr("Вхід дозволено"), tr("Вхід закрито")});
    keepNarrow(ui->cbPremission);
    setSearchField(ui->leSearch, [this](const QString &text) { seerch(text); });
    fillGroups();
    buildCardMenu();
    for (const QComboBox *box : {ui->cbPremission, ui->cbEntry})
        connect(box, qOverload<int>(&QComboBox::currentIndexChanged), this, [this] { searchAgain(); });
}

void QTabUsers::buildCardMenu()
{
    auto *menu = new QMenu(ui->pbCard);
    connect(menu->addAction(tr("&Друкувати…")), &QAction::triggered, this, &QTabUsers::printCards);
    connect(menu->addAction(tr("Зберегти в &PDF…")), &QAction::triggered, this, &QTabUsers::saveCards);
    ui->pbCard->setMenu(menu);
}

void QTabUsers::fillGroups()
{
    fillFilter(ui->cbPremission, QStringLiteral("SELECT name,id FROM group_premission ORDER BY name"),
               tr("Усі"), [this](bool isKept) {
                   if (!isKept)
                       searchAgain();
               });
}

void QTabUsers::showByRights()
{
    const bool withKeys = user()->mayEdit(Permission::Users);
    query = listQuery(withKeys);
    ui->pbCard->setEnabled(withKeys);
}

void QTabUsers::followRights()
{
    showByRights();
    fillGroups();
    searchAgain();
}

/// A scanned card finds its user, where keys are shown.
QString QTabUsers::wordsCondition() const
{
    QStringList places = {"users.login", "users.surname", "users.name", "users.surname2", "users.telephone"};
    if (user()->mayEdit(Permission::Users))
        places.append(QStringLiteral("CONCAT(%1,users.key_prem)").arg(lit(settings()->prefIdentify())));
    return QLatin1Char('(') + places.join(QStringLiteral(" LIKE %1 OR ")) + QStringLiteral(" LIKE %1)");
}

void QTabUsers::searchAgain()
{
    seerch(ui->leSearch->text());
}

void QTabUsers::seerch(const QString &text)
{
    QStringList conditions;
    const QString group = ui->cbPremission->currentData().toString();
    if (group.toUInt() != 0)
        conditions.append(QStringLiteral("users.id_g_prem=") + group);
    if (ui->cbEntry->currentIndex() != Everybody)
        conditions.append(ui->cbEntry->currentIndex() == WithEntry
                              ? QStringLiteral("entry.permission<>0")
                              : QStringLiteral("IFNULL(entry.permission,0)=0"));
    conditions.append(likeWords(wordsCondition(), text));
    conditions.removeAll(QString());
    search(conditions.isEmpty() ? QString()
                                : QStringLiteral(" WHERE ") + conditions.join(QStringLiteral(" AND ")));
}

std::unique_ptr<RecordDialog> QTabUsers::makeEditor(QString *id)
{
    return std::make_unique<QAddEdtUsers>(user(), settings()->prefIdentify(), db().connection(), id,
                                          receiver(), this);
}

void QTabUsers::rowsShown()
{
    for (int row = 0; row < model()->rowCount(); ++row)
        rowShown(row);
}

void QTabUsers::rowShown(int row)
{
    const bool isShutOut = !mayEnter(model()->storedBytes(row, Entry));
    model()->setRowColour(row, isShutOut ? QColor(shutOutColour) : QColor());
    const QModelIndex entry = model()->index(row, Entry);
    if (isShutOut)
        showSign(model(), entry, Sign::Bad, tr("Група прав не дає входу до бекофісу."));
    else
        endSign(model(), entry);
}

QVector<int> QTabUsers::selectedRows() const
{
    QVector<int> rows;
    for (const QModelIndex &index : view()->selectionModel()->selectedRows())
        rows.append(index.row());
    std::sort(rows.begin(), rows.end());
    return rows;
}

UserCard QTabUsers::cardOf(int row) const
{
    const QString names = model()->stored(row, Name) + QLatin1Char(' ') + model()->stored(row, Surname2);
    return {model()->stored(row, Surname), names.trimmed(),
            cardCode(settings()->prefIdentify(), model()->stored(row, Key))};
}

/// Those without a sound key are told.
QVector<UserCard> QTabUsers::selectedCards()
{
    QVector<UserCard> cards;
    QStringList refused;
    for (const int row : selectedRows()) {
        const UserCard card = cardOf(row);
        if (card.code.isEmpty())
            refused.append(model()->stored(row, Login) + QStringLiteral(": ") +
                           cardKeyRefusal(settings()->prefIdentify(), model()->stored(row, Key)));
        else
            cards.append(card);
    }
    if (!refused.isEmpty())
        QQestion::question(window(), tr("Попередження."),
                           tr("Без картки лишаються:\n%1\nВідкрийте запис і дайте новий ключ кнопкою "
                              "«Запропонувати».")
                               .arg(refused.join(QLatin1Char('\n'))),
                           true);
    else if (cards.isEmpty())
        QQestion::question(window(), tr("Попередження."), tr("Виберіть у списку, чиї картки потрібні."),
                           true);
    return cards;
}

void QTabUsers::printCards()
{
    const QVector<UserCard> cards = selectedCards();
    if (!cards.isEmpty())
        previewCards(window(), cards);
}

void QTabUsers::saveCards()
{
    const QVector<UserCard> cards = selectedCards();
    const QString suggested =
        cards.size() == 1 ? tr("Картка") + QLatin1Char(' ') + cards.first().surname : tr("Картки");
    const QString path = cards.isEmpty() ? QString() : chooseFile(fileNameOf(suggested));
    if (!path.isEmpty())
        saveCardsPdf(receiver(), cards, path);
}
