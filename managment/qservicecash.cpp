#include "qservicecash.h"
#include "ui_qservicecash.h"

#include "cashendfields.h"
#include "money.h"
#include "qloadeduser.h"
#include "qmessdlg.h"
#include "qmessevent.h"
#include "rightsguard.h"
#include "transferplaces.h"

#include <QShortcut>

namespace {
/// Behind a question the right may have gone.
bool mayWrite(const Db &db, const QString &user, int right, CashWriter::Result *result)
{
    const auto may = userMayEdit(db, user, right);
    if (may && !*may) {
        result->outcome = DocumentWriter::Refused;
        result->why = rightGoneWords();
    }
    return may.value_or(false);
}

/// unclear: a receipt of which the server has not told whether it was written.
CashWriter::Result writeOrder(const Db &db, const CashOrder &order, int right,
                              const std::optional<WrittenChek> &unclear)
{
    const CashWriter writer(db, order.place);
    CashWriter::Result result;
    if (unclear) {
        result.chek = *unclear;
        const auto written = writer.isWritten(order, *unclear);
        result.outcome = written ? DocumentWriter::Written : DocumentWriter::Unclear;
        if (!written || *written)
            return result;
        result = {};
    }
    return mayWrite(db, order.place.user, right, &result) ? writer.write(order) : result;
}
} // namespace

QServiceCash::QServiceCash(const QString &connection, const QLoadedUser *user, QObject *receiver,
                           const Where &where, QWidget *parent)
    : EditDialog(parent)
    , ui(std::make_unique<Ui::QServiceCash>())
    , m_user(user)
    , m_where(where)
    , m_receiver(receiver)
    , m_tasks(connection, receiver, nullptr)
{
    ui->setupUi(this);
    m_end = new CashEndFields({ui->cbKass, ui->cbOperation, ui->labelDrawer},
                              {QString(), std::nullopt, user->idUser()}, connection, receiver, this);
    keepNarrow(ui->cbShop, 24);
    connectFields();
    beginReading();
    const QString sql = where.place
                            ? QStringLiteral("SELECT address,id FROM shops WHERE id=") + where.place->shop
                            : TransferPlaces::ownSql(*user);
    m_tasks.read([sql](const Db &db) { return readEntries(db, sql); },
                 [this](const std::optional<ListEntries> &shops) { show(shops); });
}

QServiceCash::~QServiceCash() = default;

void QServiceCash::connectFields()
{
    connect(ui->cbShop, qOverload<int>(&QComboBox::currentIndexChanged), this,
            [this] { m_end->setShop(ui->cbShop->currentData().toUInt()); });
    connect(m_end, &CashEndFields::changed, this, &QServiceCash::showRest);
    connect(m_end, &CashEndFields::opened, this, [this] {
        endReading();
        (m_where.place ? ui->cbOperation : ui->cbShop)->setFocus();
        takeKeys();
    });
    connect(ui->dsbSum, qOverload<double>(&QDoubleSpinBox::valueChanged), this, &QServiceCash::showRest);
    connect(ui->pbOk, &QPushButton::clicked, this, &EditDialog::btok);
    connect(ui->pbCancel, &QPushButton::clicked, this, &EditDialog::btcancel);
    connect(new QShortcut(Qt::Key_F9, this), &QShortcut::activated, this, &EditDialog::btok);
}

/// At first the user's own shop; what is known already cannot be changed.
void QServiceCash::show(const std::optional<ListEntries> &shops)
{
    const QSignalBlocker hold(ui->cbShop);
    showEntries(ui->cbShop, shops.value_or(ListEntries()));
    const int own = ui->cbShop->findData(m_user->idShop().toUInt());
    ui->cbShop->setCurrentIndex(qMax(own, 0));
    ui->cbShop->setEnabled(!m_where.place);
    m_end->setShop(ui->cbShop->currentData().toUInt());
    if (m_where.place)
        m_end->keepTo(m_where.place->kass.toUInt());
}

void QServiceCash::showRest()
{
    const CashEnd end = m_end->end();
    const bool isKnown = m_end->drawer() && end.operation.id != 0 && ui->dsbSum->kopecks() != 0;
    if (!isKnown)
        return ui->labelRest->clear();
    const qint64 sum = end.operation.isIn ? ui->dsbSum->kopecks() : -ui->dsbSum->kopecks();
    const qint64 rest = m_end->drawer()->cash + sum;
    ui->labelRest->setText(rest < 0 ? tr("⚠ Після операції буде %1: менше, ніж нуль.").arg(moneyShown(rest))
                                    : tr("Після операції буде %1.").arg(moneyShown(rest)));
}

ChekPlace QServiceCash::place() const
{
    return {ui->cbShop->currentData().toString(), QString::number(m_end->end().kass), m_user->idUser()};
}

QString QServiceCash::refusal() const
{
    QString why = m_end->refusal();
    if (why.isEmpty() && !ui->dsbSum->isReadable())
        why = ui->dsbSum->refusal();
    if (why.isEmpty() && ui->dsbSum->kopecks() <= 0)
        why = tr("Введіть суму, більшу за нуль.");
    return why;
}

void QServiceCash::save()
{
    if (isUnclear())
        return write();
    const QString why = firstRefusal();
    if (!why.isEmpty()) {
        warn(why);
        return ui->dsbSum->setFocus();
    }
    m_order = {place(), m_end->end().operation, ui->dsbSum->kopecks(), ui->leRemark->text().trimmed(),
               m_where.date};
    write();
}

void QServiceCash::write()
{
    std::optional<WrittenChek> unclear;
    if (isUnclear())
        unclear = m_result.chek;
    beginWriting();
    m_tasks.write([order = m_order, right = m_where.right,
                   unclear](const Db &db) { return writeOrder(db, order, right, unclear); },
                  [this](const CashWriter::Result &result) {
                      endWriting();
                      take(result);
                  });
}

/// What has failed was reported already.
void QServiceCash::take(const CashWriter::Result &result)
{
    m_result = result;
    if (wasWritten())
        return accept();
    // What nobody knows to be written stays as it was sent.
    for (QWidget *field : {static_cast<QWidget *>(ui->dsbSum), static_cast<QWidget *>(ui->leRemark)})
        field->setDisabled(isUnclear());
    ui->cbShop->setDisabled(isUnclear() || m_where.place);
    m_end->setEnabled(!isUnclear());
    if (result.drawer && QMessDlg::confirm(this, windowTitle(), shortDrawerWords(*result.drawer, m_order.sum),
                                           tr("&Вилучити все одно"), tr("&Змінити суму"))) {
        m_order.agreed = *result.drawer - m_order.sum;
        return write();
    }
    if (!result.drawer && result.outcome != DocumentWriter::Failed)
        warn(CashWriter::explanation(result));
    ui->dsbSum->setFocus();
}

void QServiceCash::done(int result)
{
    if (isUnclear())
        postMessage(m_receiver,
                    tr("Вікно закрито, а чи записано чек № %1, невідомо: зв'язок обірвався під час запису. "
                       "Перевірте його у списку чеків.")
                        .arg(m_result.chek.number),
                    QMessEvent::Warning);
    EditDialog::done(result);
}

QString QServiceCash::writtenWords() const
{
    return (m_order.operation.isIn ? tr("Внесено в касу %1, чек № %2") : tr("Вилучено з каси %1, чек № %2"))
        .arg(moneyShown(m_order.sum))
        .arg(m_result.chek.number);
}
