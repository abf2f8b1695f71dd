#include "qclosecash.h"
#include "ui_qclosecash.h"

#include "cashendfields.h"
#include "invoicelist.h"
#include "money.h"
#include "qloadeduser.h"
#include "qmessdlg.h"

#include <QShortcut>

QCloseCash::QCloseCash(Act act, const QString &connection, const QLoadedUser *user, QObject *receiver,
                       const ShownInvoice &invoice, QWidget *parent)
    : InvoiceDialog(connection, receiver, parent)
    , ui(std::make_unique<Ui::QCloseCash>())
    , m_act(act)
    , m_user(user)
    , m_invoice(invoice)
{
    ui->setupUi(this);
    m_end = new CashEndFields({ui->cbKass, ui->cbOperation, ui->labelDrawer},
                              {tr("у сейф, без каси"), true, user->idUser()}, connection, receiver, this);
    beginReading();
    connect(m_end, &CashEndFields::opened, this, [this] {
        endReading();
        firstField()->setFocus();
        takeKeys();
    });
    m_end->setShop(act == Accepting ? invoice.shopTo : invoice.shopFrom);
    showAct();
    showDifference();
    connect(ui->dsbCounted, qOverload<double>(&QDoubleSpinBox::valueChanged), this,
            &QCloseCash::showDifference);
    connect(ui->pbOk, &QPushButton::clicked, this, &EditDialog::btok);
    connect(ui->pbCancel, &QPushButton::clicked, this, &EditDialog::btcancel);
    connect(new QShortcut(Qt::Key_F9, this), &QShortcut::activated, this, &EditDialog::btok);
}

QCloseCash::~QCloseCash() = default;

void QCloseCash::showAct()
{
    QStringList words = {tr("З магазину: %1").arg(m_invoice.from), tr("До магазину: %1").arg(m_invoice.to),
                         tr("Відправлено: %1").arg(m_invoice.sent),
                         tr("Надіслано готівки: %1").arg(moneyShown(m_invoice.cash))};
    if (!m_invoice.messageFrom.isEmpty())
        words.append(tr("Повідомлення відправника: %1").arg(m_invoice.messageFrom));
    if (m_act == Accepting) {
        setWindowTitle(tr("Приймання готівки за накладною № %1").arg(m_invoice.id));
    } else {
        setWindowTitle(tr("Скасування накладної № %1").arg(m_invoice.id));
        words.append(
            tr("Після скасування готівка повертається відправнику, і прийняти накладну вже не можна."));
        for (QWidget *field :
             {static_cast<QWidget *>(ui->label_dsbCounted), static_cast<QWidget *>(ui->dsbCounted),
              static_cast<QWidget *>(ui->label_labelDifference), static_cast<QWidget *>(ui->labelDifference)})
            field->hide();
        ui->label_leMessage->setText(tr("При&чина:"));
        ui->pbOk->setText(tr("&Скасувати передачу"));
        ui->pbCancel->setDefault(true);
    }
    ui->labelWords->setText(words.join(QLatin1Char('\n')));
}

QWidget *QCloseCash::firstField() const
{
    return m_act == Accepting ? static_cast<QWidget *>(ui->dsbCounted) : ui->leMessage;
}

qint64 QCloseCash::difference() const
{
    return ui->dsbCounted->kopecks() - m_invoice.cash;
}

/// With a sign and in words, so that the colour is not all that tells it.
void QCloseCash::showDifference()
{
    const qint64 kopecks = difference();
    const QString sum = (kopecks > 0 ? QStringLiteral("+") : QString()) + moneyShown(kopecks);
    QPalette palette;
    if (kopecks == 0) {
        ui->labelDifference->setText(tr("немає"));
    } else {
        ui->labelDifference->setText((kopecks < 0 ? tr("%1, не вистачає") : tr("%1, зайві")).arg(sum));
        palette.setColor(QPalette::Window, invoiceStateColour(InvoiceState::Different));
        palette.setColor(QPalette::WindowText, Qt::black);
    }
    ui->labelDifference->setAutoFillBackground(kopecks != 0);
    ui->labelDifference->setPalette(palette);
}

void QCloseCash::changeEvent(QEvent *event)
{
    InvoiceDialog::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && m_act == Accepting)
        showDifference();
}

QString QCloseCash::refusal() const
{
    // Whoever waits for the cash learns it by this.
    if (m_act == Cancelling && ui->leMessage->text().trimmed().isEmpty())
        return tr("Напишіть одержувачу, чому передачу скасовано.");
    if (m_act == Accepting && !ui->dsbCounted->isReadable())
        return ui->dsbCounted->refusal();
    return m_end->refusal();
}

bool QCloseCash::agreesToDifference()
{
    return m_act == Cancelling || difference() == 0 ||
           QMessDlg::confirm(this, windowTitle(),
                             tr("Надіслано %1, пораховано %2, різниця %3.\nПотім змінити пораховане вже не "
                                "можна.")
                                 .arg(moneyShown(m_invoice.cash), moneyShown(ui->dsbCounted->kopecks()),
                                      ui->labelDifference->text()),
                             tr("&Прийняти з різницею"), tr("&Рахувати далі"));
}

InvoiceDialog::Work QCloseCash::work() const
{
    CashAct act;
    act.user = m_user->idUser().toUInt();
    act.end = m_end->end();
    act.message = ui->leMessage->text();
    if (m_act == Cancelling)
        return [act, invoice = m_invoice](const Db &db, const std::optional<InvoiceMark> &unclear) {
            CashCancelling cancelling{act, invoice.id, invoice.cash};
            cancelling.unclear = unclear;
            return cancelCash(db, cancelling);
        };
    return [act, invoice = m_invoice,
            counted = ui->dsbCounted->kopecks()](const Db &db, const std::optional<InvoiceMark> &unclear) {
        CashAcceptance acceptance{act, invoice.id, invoice.cash, counted};
        acceptance.unclear = unclear;
        return acceptCash(db, acceptance);
    };
}

void QCloseCash::save()
{
    const QString why = isUnclear() ? QString() : firstRefusal();
    if (!why.isEmpty()) {
        warn(why);
        return firstField()->setFocus();
    }
    if (!isUnclear() && !agreesToDifference())
        return firstField()->setFocus();
    write(work());
}

/// What nobody knows to be written stays as it was sent.
void QCloseCash::notWritten()
{
    ui->dsbCounted->setReadOnly(isUnclear());
    ui->leMessage->setReadOnly(isUnclear());
    m_end->setEnabled(!isUnclear());
}
