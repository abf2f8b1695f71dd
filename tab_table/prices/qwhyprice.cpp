#include "qwhyprice.h"
#include "ui_qwhyprice.h"

#include "money.h"
#include "permittedlists.h"
#include "qloadeduser.h"
#include "userstate.h"
#include "waitnote.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QScreen>
#include <QShortcut>

namespace {
enum Column { Source, Priority, Price, Why, ColumnCount };

const char *const shopKey = "whyprice/shop";

QTableWidgetItem *cell(const QString &text, bool isNumber, bool isBold)
{
    auto *made = new QTableWidgetItem(text);
    made->setToolTip(text);
    if (isNumber)
        made->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    QFont font = made->font();
    font.setBold(isBold);
    made->setFont(font);
    return made;
}
} // namespace

QWhyPrice::QWhyPrice(QSqlDatabase *db, const QLoadedUser *user, QObject *receiver,
                     const PriceQuestion &question, QWidget *parent)
    : QDialog(parent)
    , ui(std::make_unique<Ui::QWhyPrice>())
    , m_idUser(user->idUser())
    , m_shopsSql(permittedShopsSql(*user))
    , m_homeShop(user->idShop().toUInt())
    , m_isShopAsked(question.idShop == 0)
    , m_question(question)
    , m_lists(db->connectionName(), receiver, nullptr)
    , m_tasks(db->connectionName(), receiver, nullptr)
{
    ui->setupUi(this);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    m_note = new WaitNote(ui->lbState, this);
    setUpTable();
    // The digits of the moment are those of the wall clock.
    ui->dtMoment->setTimeSpec(Qt::UTC);
    ui->dtMoment->setDateTime(question.time);
    ui->sbPriority->setValue(question.priority);
    keepNarrow(ui->cbShop);
    connectInputs();
    fit();
    readShops();
    if (!m_isShopAsked)
        read();
}

QWhyPrice::~QWhyPrice() = default;

QWhyPrice *QWhyPrice::show(QSqlDatabase *db, const QLoadedUser *user, QObject *receiver,
                           const PriceQuestion &question, QWidget *page)
{
    auto *window = new QWhyPrice(db, user, receiver, question, page);
    window->setAttribute(Qt::WA_DeleteOnClose);
    // Some window managers are left without an active window.
    connect(window, &QDialog::finished, page, [page] { page->window()->activateWindow(); });
    window->open();
    return window;
}

void QWhyPrice::setUpTable()
{
    ui->twPrices->setColumnCount(ColumnCount);
    ui->twPrices->setHorizontalHeaderLabels({tr("Звідки ціна"), tr("Пріоритет"), tr("Ціна"), tr("Чому")});
    QHeaderView *header = ui->twPrices->horizontalHeader();
    header->setHighlightSections(false);
    header->setSectionResizeMode(QHeaderView::ResizeToContents);
    header->setSectionResizeMode(Source, QHeaderView::Stretch);
    header->setSectionResizeMode(Why, QHeaderView::Stretch);
    ui->twPrices->verticalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
}

void QWhyPrice::connectInputs()
{
    connect(ui->cbShop, QOverload<int>::of(&QComboBox::activated), this, &QWhyPrice::shopChosen);
    connect(ui->dtMoment, &QDateTimeEdit::dateTimeChanged, this, &QWhyPrice::askOtherwise);
    connect(ui->sbPriority, QOverload<int>::of(&QSpinBox::valueChanged), this, &QWhyPrice::askOtherwise);
    connect(ui->pbRead, &QPushButton::clicked, this, &QWhyPrice::readAgain);
    connect(new QShortcut(Qt::Key_F5, this), &QShortcut::activated, this, &QWhyPrice::readAgain);
    connect(ui->pbCopy, &QPushButton::clicked, this, &QWhyPrice::copy);
    connect(ui->pbClose, &QPushButton::clicked, this, &QWhyPrice::reject);
    connect(new QShortcut(QKeySequence::Copy, ui->twPrices, nullptr, nullptr, Qt::WidgetShortcut),
            &QShortcut::activated, this, &QWhyPrice::copy);
    ui->twPrices->setFocus();
}

void QWhyPrice::fit()
{
    const QSize greatest = screen()->availableGeometry().size() * 9 / 10;
    const int letter = fontMetrics().averageCharWidth();
    resize(QSize(letter * 130, fontMetrics().height() * 30).boundedTo(greatest));
}

void QWhyPrice::readShops()
{
    m_lists.drop();
    m_lists.read([sql = m_shopsSql](const Db &db) { return readPermittedShops(db, sql); },
                 [this](const std::optional<ListEntries> &shops) {
                     if (shops)
                         showShops(*shops);
                     else if (m_isShopAsked)
                         clear(tr("Магазини не прочитано: сервер не відповів. Натисніть «Оновити» (F5)."));
                 });
}

/// A shop that the question names is offered whatever the user may see elsewhere.
void QWhyPrice::showShops(const ListEntries &offered)
{
    showEntries(ui->cbShop, offered);
    const DbId shop = shopToBegin();
    if (ui->cbShop->findData(shop) < 0 && m_question.idShop != 0)
        ui->cbShop->addItem(m_shown.shop.isEmpty() ? tr("Магазин № %1").arg(shop) : m_shown.shop, shop);
    ui->cbShop->setCurrentIndex(qMax(ui->cbShop->findData(shop), 0));
    if (m_question.idShop != 0)
        return;
    if (ui->cbShop->count() == 0)
        return clear(noGroupsHint());
    m_question.idShop = ui->cbShop->currentData().toUInt();
    read();
}

DbId QWhyPrice::shopToBegin() const
{
    if (m_question.idShop != 0)
        return m_question.idShop;
    const DbId last = rememberedState(m_idUser, QLatin1String(shopKey)).toUInt();
    return ui->cbShop->findData(last) < 0 ? m_homeShop : last;
}

void QWhyPrice::shopChosen()
{
    m_question.idShop = ui->cbShop->currentData().toUInt();
    if (m_isShopAsked)
        rememberState(m_idUser, QLatin1String(shopKey), m_question.idShop);
    askOtherwise();
}

/// What stands in a receipt is to be compared with nothing but its own shop, time and priority.
void QWhyPrice::askOtherwise()
{
    m_question.taken.reset();
    read();
}

/// The newest question counts.
void QWhyPrice::read()
{
    if (m_question.idShop == 0)
        return;
    m_question.time = ui->dtMoment->dateTime();
    m_question.priority = ui->sbPriority->value();
    m_tasks.drop();
    m_note->begin(tr("Читається…"));
    m_tasks.read([question = m_question](const Db &db) { return readWhyPrice(db, question); },
                 [this](const std::optional<WhyPrice> &answer) { showAnswer(answer); });
}

void QWhyPrice::readAgain()
{
    if (ui->cbShop->count() == 0)
        readShops();
    read();
}

void QWhyPrice::showAnswer(const std::optional<WhyPrice> &answer)
{
    m_note->end();
    if (!answer)
        return clear(tr("Не прочитано: сервер не відповів. Натисніть «Оновити» (F5)."));
    if (!answer->isKnown)
        return clear(tr("Товару № %1 вже немає.").arg(m_question.idGoods));
    m_shown = *answer;
    m_answered = m_question;
    ui->lbGoods->setText(tr("%1 (код %2)").arg(answer->goods).arg(m_question.idGoods));
    ui->lbPrice->setText(priceWords(*answer));
    ui->lbAction->setText(actionWords(*answer));
    ui->lbNotes->setText(answer->notes.join(QLatin1Char('\n')));
    ui->lbNotes->setVisible(!answer->notes.isEmpty());
    showPrices(answer->prices);
    ui->pbCopy->setEnabled(true);
}

void QWhyPrice::showPrices(const QVector<JudgedPrice> &prices)
{
    ui->twPrices->setRowCount(prices.size());
    for (int row = 0; row < prices.size(); ++row) {
        const JudgedPrice &price = prices.at(row);
        const bool isInForce = price.verdict == JudgedPrice::InForce;
        const QString priority = price.priority ? QString::number(*price.priority) : QString();
        const QString amount = price.price ? moneyShown(*price.price) : QString();
        ui->twPrices->setItem(row, Source, cell(price.source, false, isInForce));
        ui->twPrices->setItem(row, Priority, cell(priority, true, isInForce));
        ui->twPrices->setItem(row, Price, cell(amount, true, isInForce));
        ui->twPrices->setItem(row, Why, cell(price.why, false, isInForce));
    }
    ui->twPrices->setCurrentCell(0, Source);
}

/// What was shown answered another question.
void QWhyPrice::clear(const QString &words)
{
    for (QLabel *label : {ui->lbPrice, ui->lbAction, ui->lbNotes})
        label->clear();
    ui->twPrices->setRowCount(0);
    ui->pbCopy->setEnabled(false);
    m_note->say(words);
}

void QWhyPrice::copy() const
{
    if (ui->pbCopy->isEnabled())
        QApplication::clipboard()->setText(asPlainText(m_shown, m_answered));
}
