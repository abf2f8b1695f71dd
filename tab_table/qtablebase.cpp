#include "qtablebase.h"

#include "db.h"
#include "permissions.h"
#include "qloadeduser.h"
#include "qmessevent.h"
#include "qntableview.h"
#include "qqestion.h"
#include "qrowmodel.h"
#include "qtab.h"
#include "qtabgoods.h"
#include "qtabgoodsshops.h"
#include "qtabkass.h"
#include "qtabshops.h"
#include "schema.h"

#include <QTabWidget>

namespace {
using Factory = QTab *(*)(QSqlDatabase *, QLoadedUser *, QObject *, setting *);

template<typename Tab>
QTab *make(QSqlDatabase *db, QLoadedUser *user, QObject *receiver, setting *set)
{
    return new Tab(db, user, receiver, set, nullptr);
}

/// One line a kind, in the order of QTableBase::Kind. A kind without a factory has no tab yet.
struct TabKind
{
    const char *title;
    int permission;
    Factory factory;
};

const TabKind kinds[] = {
    {QT_TRANSLATE_NOOP("QTableBase", "Магазини"), Permission::Shops, make<QTabShops>},
    {QT_TRANSLATE_NOOP("QTableBase", "Обладнання"), Permission::Kassa, make<QTabKass>},
    {QT_TRANSLATE_NOOP("QTableBase", "Групи магазинів"), Permission::GroupShops, nullptr},
    {QT_TRANSLATE_NOOP("QTableBase", "Товари"), Permission::Goods, make<QTabGoods>},
    {QT_TRANSLATE_NOOP("QTableBase", "Групи товарів"), Permission::GroupGoods, nullptr},
    {QT_TRANSLATE_NOOP("QTableBase", "Товари магазинів"), Permission::GoodsShops, make<QTabGoodsShops>},
    {QT_TRANSLATE_NOOP("QTableBase", "Клієнти"), Permission::Clients, nullptr},
    {QT_TRANSLATE_NOOP("QTableBase", "Знижки"), Permission::Discount, nullptr},
    {QT_TRANSLATE_NOOP("QTableBase", "Акції"), Permission::Actions, nullptr},
    {QT_TRANSLATE_NOOP("QTableBase", "Транзакції"), Permission::Transactions, nullptr},
    {QT_TRANSLATE_NOOP("QTableBase", "Типи транзакцій"), Permission::TypeTransactions, nullptr},
    {QT_TRANSLATE_NOOP("QTableBase", "Зміни"), Permission::ZZvit, nullptr},
    {QT_TRANSLATE_NOOP("QTableBase", "Службові операції"), Permission::SlujbOp, nullptr},
    {QT_TRANSLATE_NOOP("QTableBase", "Дні оновлення"), Permission::DayUpdate, nullptr},
    {QT_TRANSLATE_NOOP("QTableBase", "Податкові групи"), Permission::Tax, nullptr},
    {QT_TRANSLATE_NOOP("QTableBase", "Пристрої"), Permission::Devices, nullptr},
};
static_assert(sizeof(kinds) / sizeof(kinds[0]) == QTableBase::KindCount, "one line a kind");
} // namespace

QTableBase::QTableBase(QTabWidget *tabs, QSqlDatabase *db, setting *set, QLoadedUser *user, QObject *parent)
    : QObject(parent), m_tabs(tabs), m_db(db), m_setting(set), m_user(user)
{
}

Db QTableBase::db() const
{
    return Db(m_db, parent());
}

bool QTableBase::canOpen(Kind kind)
{
    return kinds[kind].factory != nullptr;
}

int QTableBase::permissionOf(Kind kind)
{
    return kinds[kind].permission;
}

QTab *QTableBase::open(Kind kind)
{
    if (!canOpen(kind))
        return nullptr;
    if (!m_user->maySee(permissionOf(kind))) {
        QQestion::question(m_tabs->window(), tr("Попередження."),
                           tr("У вас немає доступу до вкладки \"%1\".").arg(tr(kinds[kind].title)), true);
        return nullptr;
    }
    if (m_open[kind] == nullptr) {
        QTab *tab = kinds[kind].factory(m_db, m_user, parent(), m_setting);
        tab->setPermission(permissionOf(kind));
        m_open[kind] = tab;
        m_tabs->addTab(tab, tr(kinds[kind].title));
    }
    m_tabs->setCurrentWidget(m_open[kind]);
    m_open[kind]->setFocus();
    return m_open[kind];
}

void QTableBase::shops()
{
    if (auto *tab = qobject_cast<QTabShops *>(open(KindShops)))
        connect(tab, &QTabShops::MoveMouseSignal, this, qOverload<uint>(&QTableBase::kass),
                Qt::UniqueConnection);
}

void QTableBase::kass()
{
    kass(0);
}

void QTableBase::kass(uint i)
{
    if (auto *tab = qobject_cast<QTabKass *>(open(KindKass)))
        tab->LoadData(i);
}

void QTableBase::devices()
{
    open(KindDevices);
}

void QTableBase::Group_Shops()
{
    open(KindGroupShops);
}

void QTableBase::Goods()
{
    open(KindGoods);
}

void QTableBase::GroupGoods()
{
    open(KindGroupGoods);
}

void QTableBase::GoodsShops()
{
    open(KindGoodsShops);
}

void QTableBase::Clients()
{
    open(KindClients);
}

void QTableBase::Discount()
{
    open(KindDiscount);
}

void QTableBase::Action()
{
    open(KindAction);
}

void QTableBase::Trancaction()
{
    open(KindTrancaction);
}

void QTableBase::TypeTransaction()
{
    open(KindTypeTransaction);
}

void QTableBase::Zzvit()
{
    open(KindZzvit);
}

void QTableBase::SlujbOp()
{
    open(KindSlujbOp);
}

void QTableBase::Day_Update()
{
    open(KindDayUpdate);
}

void QTableBase::Tax()
{
    open(KindTax);
}

bool QTableBase::CreateTables(QSqlDatabase *db, QObject *receiver)
{
    return createSchema(Db(db, receiver));
}

bool QTableBase::CreateTables()
{
    return CreateTables(m_db, parent());
}

void QTableBase::statShop(uint id_shop)
{
    emit statOnLine(id_shop, 0);
}

void QTableBase::statKass(uint id_kass)
{
    emit statOnLine(0, id_kass);
}

int QTableBase::kindAt(int index) const
{
    const QWidget *widget = m_tabs->widget(index);
    for (int kind = 0; widget != nullptr && kind < KindCount; ++kind) {
        if (m_open[static_cast<size_t>(kind)] == widget)
            return kind;
    }
    return -1;
}

QTab *QTableBase::currentTab() const
{
    const int kind = kindAt(m_tabs->currentIndex());
    return kind < 0 ? nullptr : m_open[static_cast<size_t>(kind)].data();
}

bool QTableBase::closetab(int index)
{
    const int kind = kindAt(index);
    if (kind < 0)
        return false;
    QTab *tab = m_open[static_cast<size_t>(kind)];
    m_open[static_cast<size_t>(kind)] = nullptr;
    m_tabs->removeTab(index);
    delete tab;
    return true;
}

bool QTableBase::EditRecord()
{
    QTab *tab = currentTab();
    if (tab != nullptr)
        tab->Edit();
    return tab != nullptr;
}

bool QTableBase::AddRecord()
{
    QTab *tab = currentTab();
    if (tab != nullptr)
        tab->Add();
    return tab != nullptr;
}

bool QTableBase::DelRecord()
{
    if (currentTab() != nullptr)
        QQestion::question(m_tabs->window(), tr("Попередження."), tr("Видалення заборонене!!!"), true);
    return false;
}

QString QTableBase::recordRefusal() const
{
    switch (kindAt(m_tabs->currentIndex())) {
    case KindGoodsShops:
        return tr("Залишки змінюють продаж, прийом і переміщення. Новий товар магазину додайте у вкладці "
                  "\"Товари\": список \"Продається в магазинах\".");
    case KindTrancaction:
    case KindTypeTransaction:
    case KindZzvit:
        return tr("Ці записи робить сама програма.");
    default:
        return QString();
    }
}

bool QTableBase::ChangeTab(int index)
{
    const int kind = kindAt(index);
    if (kind < 0)
        return false;
    const bool full = m_user->mayEdit(kinds[kind].permission);
    const bool exportsAnyway = kind == KindShops || kind == KindKass;
    emit visible(full, !full && exportsAnyway);
    return true;
}

bool QTableBase::export_to_csv(const QString &code, const QString &path_file_name)
{
    const int kind = kindAt(m_tabs->currentIndex());
    if (kind < 0 || kind == KindAction || kind == KindDevices)
        return false;
    const QTab *tab = m_open[static_cast<size_t>(kind)];
    QTab::export_to_csv(parent(), tab->model(), tab->view(), code, path_file_name);
    return true;
}

unsigned int QTableBase::rowcount(const QString &database, const QString &table, const QString &where)
{
    const QString source = database.isEmpty() ? table : database + QLatin1Char('.') + table;
    const auto count =
        db().firstText(QStringLiteral("SELECT COUNT(*) FROM ") + source +
                           (where.isEmpty() ? where : QLatin1Char(' ') + where),
                       {}, tr("Помилка отримання кількості записів у таблиц") + QLatin1Char(' ') + source);
    return count ? count->toUInt() : 0;
}

void QTableBase::afectrowMesResult(unsigned int expected, const QString &table, bool quiet)
{
    // As text and at once: a prepared statement or another one in between would answer 0.
    const auto rows = db().firstText(QStringLiteral("SELECT ROW_COUNT()"), {},
                                     tr("Помилка отримання кількості змінених / оновлених записів"));
    if (!rows || rows->startsWith(QLatin1Char('-')))
        return;
    const bool none = *rows == QLatin1String("0");
    if (none && quiet)
        return;
    postMessage(parent(),
                tr("В таблиці") + QLatin1Char(' ') + table + tr(" виконано:") + QLatin1Char(' ') + *rows +
                    tr(" записів:") + QLatin1Char(' ') + QString::number(expected),
                none ? 2 : 1);
}
