#include "placebar.h"
#include "ui_placebar.h"

#include "qloadeduser.h"
#include "saleclock.h"
#include "saleplaces.h"

PlaceBar::PlaceBar(QWidget *parent) : QWidget(parent), ui(std::make_unique<Ui::PlaceBar>())
{
    ui->setupUi(this);
    backToToday();
    connectBoxes();
}

PlaceBar::~PlaceBar() = default;

void PlaceBar::setUp(QSqlDatabase *db, QLoadedUser *user, QObject *receiver)
{
    m_db = db;
    m_user = user;
    m_receiver = receiver;
    connect(user, &QLoadedUser::rightsChanged, this, &PlaceBar::refill);
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

void PlaceBar::fillShops()
{
    const QSignalBlocker hold(ui->cbShop);
    SalePlaces::fillShops(ui->cbShop, m_db, m_user, m_receiver);
    const int home = ui->cbShop->findData(m_user->idShop().toUInt());
    if (home >= 0)
        ui->cbShop->setCurrentIndex(home);
    m_shop = ui->cbShop->currentIndex();
    fillKass();
}

void PlaceBar::fillKass()
{
    SalePlaces::fillRegisters(ui->cbKass, ui->cbShop, m_db, m_receiver);
    m_kass = ui->cbKass->currentIndex();
    emit kassChanged();
}

/// What a lost connection has left empty.
void PlaceBar::refill()
{
    if (!m_user->isLoaded())
        return;
    if (ui->cbShop->count() == 0)
        fillShops();
    else if (ui->cbKass->count() == 0)
        fillKass();
}

ChekPlace PlaceBar::place() const
{
    return {QString::number(ui->cbShop->currentData().toUInt()),
            QString::number(ui->cbKass->currentData().toUInt()), m_user->idUser()};
}

bool PlaceBar::isClosingOnly() const
{
    return SalePlaces::isClosingOnly(ui->cbKass);
}

int PlaceBar::priority() const
{
    return ui->sbPriority->value();
}

QWidgetList PlaceBar::fields() const
{
    return {ui->cbShop, ui->cbKass, ui->dateEdit, ui->sbPriority};
}

/// The box shows the old choice while the user is asked.
bool PlaceBar::mayChange(QComboBox *box, int *chosen, int index)
{
    const auto show = [box](int shown) {
        const QSignalBlocker hold(box);
        box->setCurrentIndex(shown);
    };
    show(*chosen);
    if (index != *chosen && m_mayLeave && !m_mayLeave())
        return false;
    show(index);
    *chosen = index;
    return true;
}

void PlaceBar::shopChosen(int index)
{
    if (!mayChange(ui->cbShop, &m_shop, index))
        return;
    fillKass();
    emit goodsChanged();
}

void PlaceBar::kassChosen(int index)
{
    if (mayChange(ui->cbKass, &m_kass, index))
        emit kassChanged();
}

/// The box shows the old date while the user is asked.
void PlaceBar::dateChosen(const QDate &date)
{
    const auto show = [this](const QDate &shown) {
        const QSignalBlocker hold(ui->dateEdit);
        ui->dateEdit->setDate(shown);
    };
    show(m_date);
    if (m_mayLeave && !m_mayLeave())
        return;
    show(date);
    m_date = date;
    m_isToday = date == SaleClock::now().date();
    showDate();
    emit dateChanged();
    emit goodsChanged();
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
    ui->dateEdit->setToolTip(m_isToday ? QString() : tr("Дата чека не сьогоднішня."));
}
