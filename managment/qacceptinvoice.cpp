#include "qacceptinvoice.h"
#include "ui_qacceptinvoice.h"

#include "countmodel.h"
#include "invoicewriter.h"
#include "qloadeduser.h"
#include "qmessdlg.h"
#include "quantitygrid.h"
#include "salekeys.h"
#include "scancatcher.h"
#include "typedinput.h"

#include <QApplication>
#include <QShortcut>
#include <QSqlDatabase>
#include <QTimer>
#include <algorithm>
#include <utility>

namespace {
constexpr qint64 one = 1000;

bool holdsWords(const QString &name, const QStringList &words)
{
    return std::all_of(words.begin(), words.end(),
                       [&](const QString &word) { return name.contains(word, Qt::CaseInsensitive); });
}
} // namespace

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
    buildGrid(user);
    connectParts();
    showSums();
    beginReading();
    tasks()->read([invoice](const Db &on) { return readInvoice(on, invoice); },
                  [this](const std::optional<ReadInvoice> &read) { show(read); });
}

QAcceptInvoice::~QAcceptInvoice()
{
    // An editor that loses the focus on the way out would still tell of it.
    m_grid->drop();
    m_grid->disconnect(this);
}

void QAcceptInvoice::buildGrid(const QLoadedUser *user)
{
    ui->viewLines->setModel(m_model);
    m_columns.set(CountModel::columns(), user->idUser(), QStringLiteral("QAcceptInvoice_viewLines"));
    m_grid = new QuantityGrid(ui->viewLines, CountModel::Counted,
                              {[this](int row) { return m_model->lines().at(row).counted.value_or(0); },
                               [this](int row, qint64 quantity) { return setCounted(row, quantity); },
                               [this](int row) { setCounted(row, std::nullopt); },
                               [this] { return m_grid->settle(); }});
    m_grid->setUp([this](const QuantityGrid::Act &) { return !isBusy(); },
                  [](const QuantityGrid::Act &act) { act(); });
    connect(m_model, &CountModel::countTyped, m_grid, &QuantityGrid::typed);
    connect(m_model, &CountModel::countsChanged, this, &QAcceptInvoice::showSums);
    connect(m_grid, &QuantityGrid::told, this, &QAcceptInvoice::tell);
    connect(m_grid, &QuantityGrid::left, this, &QAcceptInvoice::focusField);
    connect(m_grid, &QuantityGrid::lettersTyped, this, [this](const QString &letters) {
        focusField();
        ui->leGoods->insert(letters);
    });
}

void QAcceptInvoice::connectParts()
{
    ui->leGoods->installEventFilter(this);
    connect(ui->pbRest, &QPushButton::clicked, this, &QAcceptInvoice::takeRest);
    connect(ui->pbOk, &QPushButton::clicked, this, &EditDialog::btok);
    connect(ui->pbCancel, &QPushButton::clicked, this, &EditDialog::btcancel);
    connect(new QShortcut(Qt::Key_F9, this), &QShortcut::activated, this, &EditDialog::btok);
}

/// Behind what the base listens by: of an Enter on a button that would see a scan first, and end it.
void QAcceptInvoice::showEvent(QShowEvent *event)
{
    InvoiceDialog::showEvent(event);
    if (m_scanner != nullptr)
        return;
    m_scanner = new ScanCatcher(this);
    connect(m_scanner, &ScanCatcher::scanned, this, &QAcceptInvoice::scan);
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
    m_model->setLines(invoice->lines);
    m_isChanged = false;
    focusField();
    takeKeys();
}

void QAcceptInvoice::showSums()
{
    ui->labelSums->setText(m_model->sums());
    ui->pbRest->setEnabled(m_model->uncounted() > 0 && !isUnclear());
}

void QAcceptInvoice::tell(const QString &text)
{
    ui->labelTold->setText(text);
    ui->labelTold->setAccessibleDescription(text);
}

/// Into the field; what is being typed there stays as it is.
void QAcceptInvoice::focusField()
{
    if (focusWidget() != ui->leGoods)
        ui->leGoods->setFocus();
    ui->leGoods->selectAll();
}

/// Behind a question a scan waits: what is asked about does not change meanwhile.
void QAcceptInvoice::scan(const QString &code)
{
    if (isBusy())
        return tell(tr("Код «%1» не враховано: накладна вже записується.").arg(code));
    m_scans.append(code);
    takeScans();
}

void QAcceptInvoice::takeScans()
{
    const QWidget *asking = QApplication::activeModalWidget();
    if (asking != nullptr && asking != this)
        return;
    for (const QString &code : std::exchange(m_scans, {})) {
        m_grid->settle();
        tell(QString());
        find(code, Scanned);
    }
}

void QAcceptInvoice::find(const QString &text, Source source)
{
    if (!findHere(text, source))
        lookUp(text, source);
}

/// Among the goods of the invoice: a barcode, a number, or the next name that holds all the words.
bool QAcceptInvoice::findHere(const QString &text, Source source)
{
    int row = m_model->rowOf(m_invoice.barcodes.value(text, 0));
    if (row >= 0) {
        count(row, Scanned);
        return true;
    }
    if (source == Scanned)
        return false;
    row = m_model->rowOf(text.toUInt());
    const QStringList words = text.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    const int rows = m_model->rowCount();
    for (int i = 1; i <= rows && row < 0; ++i) {
        const int next = (qMax(m_grid->currentRow(), -1) + i) % rows;
        if (holdsWords(m_model->lines().at(next).name, words))
            row = next;
    }
    if (row >= 0)
        count(row, Typed);
    return row >= 0;
}

void QAcceptInvoice::lookUp(const QString &text, Source source)
{
    tasks()->read([text](const Db &db) { return findInvoiceGoods(db, text); },
                  [=](const std::optional<QVector<InvoiceLine>> &found) { showFound(text, source, found); });
}

void QAcceptInvoice::showFound(const QString &text, Source source,
                               const std::optional<QVector<InvoiceLine>> &found)
{
    if (!found)
        return tell(tr("Товар «%1» не додано: сервер не відповів.").arg(text));
    if (found->size() != 1) {
        QApplication::beep();
        return tell(found->isEmpty()
                        ? tr("Товар «%1» не знайдено.").arg(text)
                        : tr("За «%1» знайдено кілька товарів: введіть штрихкод або код.").arg(text));
    }
    const InvoiceLine &line = found->first();
    int row = m_model->rowOf(line.goods);
    if (row < 0) {
        row = m_model->add(line);
        m_isChanged = true;
        tell(tr("«%1» у накладній немає: додано як надлишок.").arg(line.name));
    }
    // Another of its barcodes is scanned next, perhaps; it is known now.
    m_invoice.barcodes.insert(source == Scanned ? text : line.barcode, line.goods);
    count(row, line.barcode == text ? Scanned : source);
}

/// A piece that was scanned counts; of all else the quantity is asked. What was typed before counts first.
void QAcceptInvoice::count(int row, Source source)
{
    m_grid->settle();
    ui->leGoods->clear();
    const InvoiceLine &line = m_model->lines().at(row);
    if (source == Scanned && line.isPiece) {
        m_grid->goToRow(row);
        setCounted(row, line.counted.value_or(0) + one);
        focusField();
    } else {
        m_grid->edit(row);
    }
}

bool QAcceptInvoice::setCounted(int row, const std::optional<qint64> &thousandths)
{
    const QString why = m_model->setCounted(row, thousandths);
    if (!why.isEmpty())
        tell(why);
    m_isChanged = m_isChanged || why.isEmpty();
    return why.isEmpty();
}

/// The whole point of counting is given up: only by a deliberate act.
void QAcceptInvoice::takeRest()
{
    m_grid->settle();
    const int rest = m_model->uncounted();
    if (rest > 0 && QMessDlg::confirm(this, windowTitle(),
                                      tr("Не пораховано позицій: %1. Записати їх кількість як надіслану, не "
                                         "рахуючи?")
                                          .arg(rest),
                                      tr("&Записати як надіслано"), tr("&Рахувати далі"))) {
        m_model->takeRestAsSent();
        m_isChanged = true;
    }
    focusField();
    takeScans();
}

bool QAcceptInvoice::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != ui->leGoods || event->type() != QEvent::KeyPress)
        return InvoiceDialog::eventFilter(watched, event);
    const auto *key = static_cast<QKeyEvent *>(event);
    const QString text = ui->leGoods->text().trimmed();
    if (text.isEmpty() && m_grid->rowKey(key))
        return true;
    if (isEnterKey(key) && !text.isEmpty() && !tasks()->isWaiting()) {
        tell(QString());
        find(text, Typed);
    } else if (key->key() == Qt::Key_Down) {
        ui->viewLines->setFocus();
    }
    return isEnterKey(key) || key->key() == Qt::Key_Down;
}

QString QAcceptInvoice::refusal() const
{
    if (isAsking())
        return tr("Товар ще шукається. Прийміть накладну ще раз.");
    if (!ui->leGoods->text().trimmed().isEmpty())
        return tr("Товар «%1» ще не пораховано. Натисніть Enter або очистіть поле.")
            .arg(ui->leGoods->text().trimmed());
    const int rest = m_model->uncounted();
    return rest == 0 ? QString()
                     : tr("Не пораховано позицій: %1. Введіть кількість; 0 — коли товару немає.").arg(rest);
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

bool QAcceptInvoice::agreesToDifferences()
{
    const QStringList differences = m_model->differences();
    return differences.isEmpty() ||
           QMessDlg::confirm(this, windowTitle(),
                             tr("Прийняти з різницею? Потім змінити пораховане вже не можна.") +
                                 QLatin1Char('\n') + differences.join(QLatin1Char('\n')),
                             tr("&Прийняти з різницею"), tr("&Рахувати далі"));
}

void QAcceptInvoice::save()
{
    if (!isUnclear()) {
        const QString why = m_grid->settle() ? firstRefusal() : ui->labelTold->text();
        if (!why.isEmpty()) {
            warn(why);
            if (m_model->firstUncounted() >= 0)
                m_grid->goToRow(m_model->firstUncounted());
            return focusField();
        }
        const bool isAgreed = agreesToDifferences();
        if (!m_scans.isEmpty()) {
            takeScans();
            return tell(tr("Поки ви відповідали, щось іще скановано: перевірте і прийміть ще раз."));
        }
        if (!isAgreed)
            return focusField();
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
        m_model->freeze();
        ui->cbPlace->setDisabled(true);
        ui->leMessage->setReadOnly(true);
    }
    showSums();
    focusField();
}

void QAcceptInvoice::reject()
{
    if (isBusy() || !m_isChanged)
        return InvoiceDialog::reject();
    commitTyping(this);
    m_grid->settle();
    const QString text = isUnclear() ? tr("Невідомо, чи накладну прийнято: зв'язок обірвався.")
                                     : tr("Пораховане ще не записано.");
    if (QMessDlg::confirm(this, windowTitle(), text, tr("&Закрити без збереження"), tr("&Рахувати далі")))
        return QDialog::reject(); // NOLINT(bugprone-parent-virtual-call)
    focusField();
    takeScans();
}
