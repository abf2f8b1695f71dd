#include "qsendcash.h"
#include "ui_qsendcash.h"

#include "cashendfields.h"
#include "qloadeduser.h"
#include "qmessdlg.h"
#include "transferplaces.h"

#include <QShortcut>
#include <utility>

QSendCash::QSendCash(const QString &connection, const QLoadedUser *user, QObject *receiver, QWidget *parent)
    : InvoiceDialog(connection, receiver, parent), ui(std::make_unique<Ui::QSendCash>()), m_user(user)
{
    ui->setupUi(this);
    m_end = new CashEndFields({ui->cbKass, ui->cbOperation, ui->labelDrawer},
                              {tr("із сейфа, без каси"), false, user->idUser()}, connection, receiver, this);
    for (QComboBox *box : {ui->cbFrom, ui->cbTo})
        keepNarrow(box, 24);
    connect(ui->cbFrom, qOverload<int>(&QComboBox::currentIndexChanged), this, &QSendCash::showTargets);
    connect(ui->pbOk, &QPushButton::clicked, this, &EditDialog::btok);
    connect(ui->pbCancel, &QPushButton::clicked, this, &EditDialog::btcancel);
    connect(new QShortcut(Qt::Key_F9, this), &QShortcut::activated, this, &EditDialog::btok);
    beginReading();
    connect(m_end, &CashEndFields::opened, this, [this] {
        endReading();
        (ui->cbFrom->count() > 1 ? ui->cbFrom : ui->cbTo)->setFocus();
        takeKeys();
    });
    tasks()->read(
        [own = TransferPlaces::ownSql(*user), targets = TransferPlaces::targetsSql(*user)](const Db &db) {
            return Offer{readEntries(db, own), readEntries(db, targets)};
        },
        [this](const Offer &offer) { show(offer); });
}

QSendCash::~QSendCash() = default;

/// At first the user's own shop.
void QSendCash::show(const Offer &offer)
{
    m_targets = offer.to.value_or(ListEntries());
    {
        const QSignalBlocker hold(ui->cbFrom);
        showEntries(ui->cbFrom, offer.from.value_or(ListEntries()));
        const int own = ui->cbFrom->findData(m_user->idShop().toUInt());
        ui->cbFrom->setCurrentIndex(qMax(own, 0));
    }
    showTargets();
}

/// Nobody sends to himself.
void QSendCash::showTargets()
{
    const DbId from = ui->cbFrom->currentData().toUInt();
    ListEntries others = {{tr("— виберіть —"), 0}};
    for (const auto &target : std::as_const(m_targets)) {
        if (target.second.toUInt() != from)
            others.append(target);
    }
    showEntriesAgain(ui->cbTo, others);
    m_end->setShop(from);
}

QString QSendCash::refusal() const
{
    if (ui->cbFrom->count() == 0)
        return tr("Немає магазину, з якого ви можете передавати готівку.");
    if (m_targets.isEmpty())
        return tr("Немає магазинів, до яких ви можете передавати готівку. Їх призначають у групах прав.");
    if (ui->cbTo->currentData().toUInt() == 0)
        return tr("Виберіть магазин, до якого передається готівка.");
    if (!ui->dsbSum->isReadable())
        return ui->dsbSum->refusal();
    if (ui->dsbSum->kopecks() <= 0)
        return tr("Введіть суму, більшу за нуль.");
    return m_end->refusal();
}

CashSending QSendCash::sending() const
{
    CashSending sending;
    sending.user = m_user->idUser().toUInt();
    sending.end = m_end->end();
    sending.end.agreed = m_agreed;
    sending.message = ui->leMessage->text();
    sending.from = ui->cbFrom->currentData().toUInt();
    sending.to = ui->cbTo->currentData().toUInt();
    sending.sum = ui->dsbSum->kopecks();
    return sending;
}

void QSendCash::save()
{
    const QString why = isUnclear() ? QString() : firstRefusal();
    if (!why.isEmpty()) {
        warn(why);
        return ui->cbTo->currentData().toUInt() == 0 ? ui->cbTo->setFocus() : ui->dsbSum->setFocus();
    }
    write([sending = sending()](const Db &db, const std::optional<InvoiceMark> &unclear) {
        CashSending again = sending;
        again.unclear = unclear;
        return sendCash(db, again);
    });
    m_agreed = 0;
}

void QSendCash::fellShort(const InvoiceResult &result)
{
    const qint64 sum = ui->dsbSum->kopecks();
    if (!QMessDlg::confirm(this, windowTitle(), shortDrawerWords(result.drawer, sum),
                           tr("&Передати все одно"), tr("&Змінити суму")))
        return ui->dsbSum->setFocus();
    m_agreed = result.drawer - sum;
    save();
}

/// What nobody knows to be written stays as it was sent.
void QSendCash::notWritten()
{
    for (QComboBox *box : {ui->cbFrom, ui->cbTo})
        box->setDisabled(isUnclear());
    m_end->setEnabled(!isUnclear());
    ui->dsbSum->setReadOnly(isUnclear());
    ui->leMessage->setReadOnly(isUnclear());
}
