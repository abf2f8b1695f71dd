#include "qcloseperiod.h"
#include "ui_qcloseperiod.h"

#include "dbtasks.h"
#include "periodmodel.h"
#include "periodreader.h"
#include "qloadeduser.h"
#include "qmessdlg.h"
#include "qmessevent.h"
#include "salework.h"
#include "typedinput.h"

#include <QShortcut>

QClosePeriod::QClosePeriod(SaleWork *work, const PeriodOrder &order, const PeriodDay &day, QWidget *parent)
    : EditDialog(parent)
    , ui(std::make_unique<Ui::QClosePeriod>())
    , m_work(work)
    , m_tasks(work->makeTasks(this))
    , m_model(new PeriodModel(this))
    , m_columns((ui->setupUi(this), ui->viewLines))
    , m_order(order)
    , m_day(day)
{
    m_desk =
        new CountDesk(this, m_model, {ui->viewLines, ui->leGoods, ui->labelSums, ui->labelTold, ui->pbRest},
                      {tr("Не пораховано позицій: %1. Записати їх залишок за програмою, не рахуючи?"),
                       tr("&Записати за програмою"),
                       tr("Закрити період з різницею? Залишки в залі стануть такими, як пораховано."),
                       tr("&Закрити період")});
    m_columns.set(m_model->columns(), work->user()->idUser(), QStringLiteral("QClosePeriod_viewLines"));
    connectParts();
    beginReading();
    m_tasks->read([place = order.place](const Db &db) { return readPeriod(db, place); },
                  [this](const std::optional<PeriodSheet> &sheet) { show(sheet); });
}

QClosePeriod::~QClosePeriod()
{
    m_desk->leave();
}

void QClosePeriod::connectParts()
{
    connect(m_desk, &CountDesk::unknown, this, [this](const QString &text) {
        m_desk->tell(tr("«%1» немає серед товарів, які рахують.").arg(text));
    });
    connect(ui->pbOk, &QPushButton::clicked, this, &EditDialog::btok);
    connect(ui->pbCancel, &QPushButton::clicked, this, &EditDialog::btcancel);
    connect(new QShortcut(Qt::Key_F9, this), &QShortcut::activated, this, &EditDialog::btok);
}

void QClosePeriod::showEvent(QShowEvent *event)
{
    EditDialog::showEvent(event);
    m_desk->listen();
}

/// What could not be read was reported.
void QClosePeriod::show(const std::optional<PeriodSheet> &sheet)
{
    endReading();
    if (!sheet)
        return QDialog::reject(); // NOLINT(bugprone-parent-virtual-call)
    if (sheet->goods.isEmpty())
        return accept();
    ui->labelWords->setText(headWords(*sheet));
    m_desk->setBarcodes(sheet->barcodes);
    m_model->setGoods(sheet->goods);
    m_desk->setChanged(false);
    m_desk->focusField();
    takeKeys();
}

QString QClosePeriod::headWords(const PeriodSheet &sheet) const
{
    QStringList words = {tr("Магазин: %1, каса «%2»").arg(sheet.shop, sheet.kass)};
    const QDateTime since = QDateTime::fromString(sheet.since, QStringLiteral("yyyyMMddhhmmss"));
    QString period = tr("День періоду: %1 з %2").arg(m_day.day).arg(m_day.last);
    if (since.isValid())
        period += tr(", почався %1").arg(since.toString(QStringLiteral("dd.MM.yyyy hh:mm")));
    words.append(period);
    if (!sheet.lastCount.isEmpty())
        words.append(tr("Востаннє тут рахували: %1").arg(sheet.lastCount));
    if (m_order.zNumber.isEmpty())
        words.append(tr("Зміна закрита: пораховане відкриє нову, першого дня наступного періоду."));
    words.append(tr("Порахуйте вагові товари в залі, у кілограмах. Enter — наступний непорахований товар."));
    return words.join(QLatin1Char('\n'));
}

QString QClosePeriod::refusal() const
{
    return m_desk->refusal();
}

/// All is counted, and the user agrees to what differs.
bool QClosePeriod::isCounted()
{
    const QString why = m_desk->settle() ? firstRefusal() : m_desk->told();
    if (!why.isEmpty()) {
        warn(why);
        m_desk->goToUncounted();
        return false;
    }
    const bool isAgreed = m_desk->agreesToDifferences();
    if (!m_desk->hasScans())
        return isAgreed;
    m_desk->takeScans();
    m_desk->tell(tr("Поки ви відповідали, щось іще скановано: перевірте і закрийте період ще раз."));
    return false;
}

void QClosePeriod::save()
{
    m_work->user()->beginAct();
    if (!isUnclear() && !isCounted()) {
        if (m_desk->told().isEmpty())
            m_desk->focusField();
        return;
    }
    if (m_work->mayEdit())
        write();
    else
        warn(SaleWork::viewOnlyWords());
}

PeriodOrder QClosePeriod::counted() const
{
    PeriodOrder order = m_order;
    order.goods = m_model->goods();
    for (const InvoiceLine &line : m_model->lines())
        order.counted.append(line.counted.value_or(0));
    return order;
}

void QClosePeriod::write()
{
    std::optional<WrittenChek> unclear;
    if (isUnclear())
        unclear = m_result.chek;
    beginWriting();
    m_tasks->write(
        [order = counted(), unclear, caller = m_work->caller()](const Db &db) {
            return PeriodWriter(db, order, caller.file, caller.line).write(unclear);
        },
        [this](const PeriodWriter::Result &result) {
            endWriting();
            take(result);
        });
}

/// What was counted stays, whatever was in the way.
void QClosePeriod::take(const PeriodWriter::Result &result)
{
    m_result = result;
    if (result.outcome == PeriodWriter::Written)
        return accept();
    const QString why = PeriodWriter::explanation(result);
    postMessage(m_work->receiver(), why, QMessEvent::Warning);
    m_model->takeChanged(result.changed);
    if (isUnclear())
        m_desk->freeze();
    m_desk->focusField();
    m_desk->tell(why);
    warn(why);
}

void QClosePeriod::reject()
{
    if (!isBusy()) {
        commitTyping(this);
        m_desk->settle();
    }
    if (isBusy() || !m_desk->isChanged())
        return EditDialog::reject();
    const QString text = isUnclear() ? tr("Невідомо, чи період закрито: зв'язок обірвався.")
                                     : tr("Пораховане ще не записано.");
    if (QMessDlg::confirm(this, windowTitle(), text, tr("&Закрити без збереження"), tr("&Рахувати далі")))
        return QDialog::reject(); // NOLINT(bugprone-parent-virtual-call)
    m_desk->focusField();
    m_desk->takeScans();
}
