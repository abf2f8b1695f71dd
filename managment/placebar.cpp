#include "placebar.h"
#include "ui_placebar.h"

#include "dbtasks.h"
#include "qloadeduser.h"
#include "saleclock.h"
#include "salework.h"
#include "signs.h"

PlaceBar::PlaceBar(QWidget *parent) : QWidget(parent), ui(std::make_unique<Ui::PlaceBar>())
{
    ui->setupUi(this);
    backToToday();
    connectBoxes();
}

PlaceBar::~PlaceBar() = default;

void PlaceBar::setUp(SaleWork *work)
{
    m_work = work;
    m_tasks = work->makeTasks(this);
    connect(work->user(), &QLoadedUser::rightsChanged, this, &PlaceBar::refill);
    fillShops();
}

void PlaceBar::connectBoxes()
{
    connect(ui->cbShop, qOverload<int>(&QComboBox::currentIndexChanged), this, &PlaceBar::shopChosen);
    connect(ui->cbKass, qOverload<int>(&QComboBox::currentIndexChanged), this, &PlaceBar::kassChosen);
    connect(ui->dateEdit, &QDateEdit::dateChanged, this, &PlaceBar::dateChosen);
    connect(ui->sbPriority, qOverload<int>(&QSpinBox::valueChanged), this, &PlaceBar::goodsChanged);
    for (const QComboBox *box : {ui->cbShop, ui->cbKass})
        connect(box, qOverload<int>(&QComboBox::activated), this, &PlaceBar::left);
}

bool PlaceBar::isReading() const
{
    return m_tasks != nullptr && m_tasks->isWaiting();
}

void PlaceBar::fillShops()
{
    m_tasks->drop();
    const QLoadedUser *user = m_work->user();
    m_tasks->read([sql = SalePlaces::shopsSql(*user),
                   home = user->idShop().toUInt()](const Db &db) { return SalePlaces::read(db, sql, home); },
                  [this](const SalePlaces::Offer &offer) { show(offer); });
}

void PlaceBar::show(const SalePlaces::Offer &offer)
{
    SalePlaces::show(ui->cbShop, offer.shops, offer.chosen);
    m_shop = offer.chosen;
    showRegisters(offer.registers);
    emit goodsChanged();
}

/// Until they are there no register is chosen.
void PlaceBar::readRegisters()
{
    m_tasks->drop();
    SalePlaces::show(ui->cbKass, {}, -1);
    m_kass = -1;
    m_tasks->read(
        [shop = SalePlaces::chosen(ui->cbShop)](const Db &db) { return SalePlaces::registers(db, shop); },
        [this](const QVector<SalePlaces::Offered> &registers) { showRegisters(registers); });
}

void PlaceBar::showRegisters(const QVector<SalePlaces::Offered> &registers)
{
    m_kass = registers.isEmpty() ? -1 : 0;
    SalePlaces::show(ui->cbKass, registers, m_kass);
    emit kassChanged();
}

/// What a lost connection has left empty.
void PlaceBar::refill()
{
    if (!m_work->user()->isLoaded() || isReading())
        return;
    if (ui->cbShop->count() == 0)
        fillShops();
    else if (ui->cbKass->count() == 0)
        readRegisters();
}

ChekPlace PlaceBar::place() const
{
    return {QString::number(SalePlaces::chosen(ui->cbShop).id),
            QString::number(SalePlaces::chosen(ui->cbKass).id), m_work->user()->idUser()};
}

bool PlaceBar::isClosingOnly() const
{
    return SalePlaces::chosen(ui->cbKass).isClosingOnly;
}

int PlaceBar::priority() const
{
    return ui->sbPriority->value();
}

QWidgetList PlaceBar::fields() const
{
    return {ui->cbShop, ui->cbKass, ui->dateEdit, ui->sbPriority};
}

void PlaceBar::leaveFor(Choice choice, const Leave &leave)
{
    if (m_guard)
        m_guard(choice, leave);
    else
        leave();
}

/// The box shows the old choice until it may be left.
void PlaceBar::choose(Choice choice, int *chosen, int index, const Leave &then)
{
    QComboBox *box = choice == Shop ? ui->cbShop : ui->cbKass;
    const auto show = [box](int shown) {
        const QSignalBlocker hold(box);
        box->setCurrentIndex(shown);
    };
    const QVariant wanted = box->itemData(index);
    show(*chosen);
    const auto take = [=] {
        // Other places may be offered by then.
        if (box->itemData(index) != wanted)
            return;
        show(index);
        *chosen = index;
        then();
    };
    if (index == *chosen)
        take();
    else
        leaveFor(choice, take);
}

void PlaceBar::shopChosen(int index)
{
    choose(Shop, &m_shop, index, [this] {
        readRegisters();
        emit goodsChanged();
    });
}

void PlaceBar::kassChosen(int index)
{
    choose(Register, &m_kass, index, [this] { emit kassChanged(); });
}

/// The box shows the old date until it may be left.
void PlaceBar::dateChosen(const QDate &date)
{
    const auto show = [this](const QDate &shown) {
        const QSignalBlocker hold(ui->dateEdit);
        ui->dateEdit->setDate(shown);
    };
    show(m_date);
    leaveFor(Date, [=] {
        show(date);
        m_date = date;
        m_isToday = date == SaleClock::now().date();
        showDate();
        emit dateChanged();
        emit goodsChanged();
    });
}

void PlaceBar::followToday()
{
    if (m_isToday)
        backToToday();
}

void PlaceBar::backToToday()
{
    m_isToday = true;
    if (m_date != SaleClock::now().date()) {
        m_date = SaleClock::now().date();
        const QSignalBlocker hold(ui->dateEdit);
        ui->dateEdit->setDate(m_date);
    }
    showDate();
}

void PlaceBar::showDate()
{
    QPalette colours;
    if (!m_isToday) {
        // Dark on light in every theme.
        colours.setColor(QPalette::Base, QColor(255, 183, 77));
        colours.setColor(QPalette::Text, Qt::black);
    }
    ui->dateEdit->setPalette(m_isToday ? QPalette() : colours);
    const QString why = m_isToday ? QString() : tr("Дата чека не сьогоднішня.");
    ui->dateEdit->setToolTip(why);
    ui->dateEdit->setAccessibleDescription(why);
    ui->label_dateEdit->setText(m_isToday ? tr("Дата:") : withSign(Sign::Partly, tr("Дата:")));
}
