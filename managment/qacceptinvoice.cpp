#include "qacceptinvoice.h"
#include "ui_qacceptinvoice.h"

#include "invoicewriter.h"
#include "qloadeduser.h"
#include "qmessdlg.h"
#include "typedinput.h"

#include <QApplication>
#include <QShortcut>
#include <QSqlDatabase>

QAcceptInvoice::QAcceptInvoice(QSqlDatabase *db, const QLoadedUser *user, QObject *receiver, DbId invoice,
                               QWidget *parent)
    : InvoiceDialog(db->connectionName(), receiver, parent)
    , ui(std::make_unique<Ui::QAcceptInvoice>())
    , m_model(new CountModel(this))
    , m_columns((ui->setupUi(this), ui->viewLines))
    , m_user(user->idUser().toUInt())
{
    m_invoice.id = invoice;
    setWindowTitle(tr("Приймання накладної № %1").arg(invoice));
    offerPlaces(ui->cbPlace);
    m_desk = new CountDesk(
        this, m_model, {ui->viewLines, ui->leGoods, ui->labelSums, ui->labelTold, ui->pbRest},
        {tr("Не пораховано позицій: %1. Записати їх кількість як надіслану, не рахуючи?"),
         tr("&Записати як надіслано"), tr("Прийняти з різницею? Потім змінити пораховане вже не можна."),
         tr("&Прийняти з різницею")});
    m_columns.set(m_model->columns(), user->idUser(), QStringLiteral("QAcceptInvoice_viewLines"));
    connectParts();
    beginReading();
    tasks()->read([invoice](const Db &on) { return readInvoice(on, invoice); },
                  [this](const std::optional<ReadInvoice> &read) { show(read); });
}

QAcceptInvoice::~QAcceptInvoice()
{
    m_desk->leave();
}

void QAcceptInvoice::connectParts()
{
    m_desk->setIsAsking([this] { return isAsking(); });
    connect(m_desk, &CountDesk::unknown, this, &QAcceptInvoice::lookUp);
    connect(ui->pbOk, &QPushButton::clicked, this, &EditDialog::btok);
    connect(ui->pbCancel, &QPushButton::clicked, this, &EditDialog::btcancel);
    connect(new QShortcut(Qt::Key_F9, this), &QShortcut::activated, this, &EditDialog::btok);
}

void QAcceptInvoice::showEvent(QShowEvent *event)
{
    InvoiceDialog::showEvent(event);
    m_desk->listen();
}

void QAcceptInvoice::show(const std::optional<ReadInvoice> &invoice)
{
    endReading();
    if (!invoice) {
        noteListOld();
        return QDialog::reject(); // NOLINT(bugprone-parent-virtual-call)
    }
    m_invoice = *invoice;
    QStringList words = {tr("З магазину: %1").arg(invoice->from), tr("До магазину: %1").arg(invoice->to),
                         tr("Відправлено: %1").arg(invoice->sent)};
    if (!invoice->message.isEmpty())
        words.append(tr("Повідомлення відправника: %1").arg(invoice->message));
    ui->labelWords->setText(words.join(QLatin1Char('\n')));
    m_desk->setBarcodes(invoice->barcodes);
    m_model->setLines(invoice->lines);
    m_desk->setChanged(false);
    m_desk->focusField();
    takeKeys();
}

void QAcceptInvoice::lookUp(const QString &text, CountDesk::Source source)
{
    tasks()->read([text](const Db &db) { return findInvoiceGoods(db, text); },
                  [=](const std::optional<QVector<InvoiceLine>> &found) { showFound(text, source, found); });
}

void QAcceptInvoice::showFound(const QString &text, CountDesk::Source source,
                               const std::optional<QVector<InvoiceLine>> &found)
{
    if (!found)
        return m_desk->tell(tr("Товар «%1» не додано: сервер не відповів.").arg(text));
    if (found->size() != 1) {
        QApplication::beep();
        return m_desk->tell(found->isEmpty()
                                ? tr("Товар «%1» не знайдено.").arg(text)
                                : tr("За «%1» знайдено кілька товарів: введіть штрихкод або код.").arg(text));
    }
    const InvoiceLine &line = found->first();
    int row = m_model->rowOf(line.goods);
    if (row < 0) {
        row = m_model->add(line);
        m_desk->setChanged(true);
        m_desk->tell(tr("«%1» у накладній немає: додано як надлишок.").arg(line.name));
    }
    // Another of its barcodes is scanned next, perhaps; it is known now.
    m_desk->addBarcode(source == CountDesk::Scanned ? text : line.barcode, line.goods);
    m_desk->count(row, line.barcode == text ? CountDesk::Scanned : source);
}

QString QAcceptInvoice::refusal() const
{
    if (isAsking())
        return tr("Товар ще шукається. Прийміть накладну ще раз.");
    return m_desk->refusal();
}

AcceptDraft QAcceptInvoice::draft() const
{
    AcceptDraft draft;
    draft.invoice = m_invoice.id;
    draft.user = m_user;
    draft.place = chosenPlace(ui->cbPlace);
    draft.message = ui->leMessage->text();
    for (const InvoiceLine &line : m_model->lines()) {
        if (line.sent != 0 || line.counted != 0)
            draft.lines.append(line);
    }
    return draft;
}

void QAcceptInvoice::save()
{
    if (!isUnclear()) {
        const QString why = m_desk->settle() ? firstRefusal() : m_desk->told();
        if (!why.isEmpty()) {
            warn(why);
            m_desk->goToUncounted();
            return m_desk->focusField();
        }
        const bool isAgreed = m_desk->agreesToDifferences();
        if (m_desk->hasScans()) {
            m_desk->takeScans();
            return m_desk->tell(tr("Поки ви відповідали, щось іще скановано: перевірте і прийміть ще раз."));
        }
        if (!isAgreed)
            return m_desk->focusField();
    }
    write([draft = draft()](const Db &db, const std::optional<InvoiceMark> &unclear) {
        AcceptDraft again = draft;
        again.unclear = unclear;
        return acceptInvoice(db, again);
    });
}

/// What nobody knows to be written stays as it was sent.
void QAcceptInvoice::notWritten()
{
    if (isUnclear()) {
        m_desk->freeze();
        ui->cbPlace->setDisabled(true);
        ui->leMessage->setReadOnly(true);
    }
    m_desk->showSums();
    m_desk->focusField();
}

void QAcceptInvoice::reject()
{
    if (!isBusy()) {
        commitTyping(this);
        m_desk->settle();
    }
    if (isBusy() || !m_desk->isChanged())
        return InvoiceDialog::reject();
    const QString text = isUnclear() ? tr("Невідомо, чи накладну прийнято: зв'язок обірвався.")
                                     : tr("Пораховане ще не записано.");
    if (QMessDlg::confirm(this, windowTitle(), text, tr("&Закрити без збереження"), tr("&Рахувати далі")))
        return QDialog::reject(); // NOLINT(bugprone-parent-virtual-call)
    m_desk->focusField();
    m_desk->takeScans();
}
