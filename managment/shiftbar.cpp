#include "shiftbar.h"
#include "ui_shiftbar.h"

#include "dbtasks.h"
#include "permissions.h"
#include "placebar.h"
#include "qloadeduser.h"
#include "qmessdlg.h"
#include "qmessevent.h"
#include "qpayment.h"
#include "qservicecash.h"
#include "waitnote.h"

#include <QPointer>

namespace {
enum LastDayAnswer { CloseShift = 1, ClosePeriodAndShift = 2 };
} // namespace

ShiftBar::ShiftBar(QWidget *parent) : QWidget(parent), ui(std::make_unique<Ui::ShiftBar>())
{
    ui->setupUi(this);
    m_reading = new WaitNote(ui->lbShift, this);
    connect(ui->pbCloseZ, &QPushButton::clicked, this, &ShiftBar::closeShift);
    connect(ui->pbPeriod, &QPushButton::clicked, this, &ShiftBar::closePeriodAlone);
}

ShiftBar::~ShiftBar() = default;

void ShiftBar::setUp(SaleWork *work, PlaceBar *place)
{
    m_work = work;
    m_place = place;
    m_looks = work->makeTasks(this);
    m_tasks = work->makeTasks(this);
    connect(place, &PlaceBar::kassChanged, this, &ShiftBar::refresh);
    connect(work->user(), &QLoadedUser::rightsChanged, this, &ShiftBar::refresh);
}

void ShiftBar::setMayClose(bool mayClose, const QString &why)
{
    for (QPushButton *button : {ui->pbCloseZ, ui->pbPeriod}) {
        button->setEnabled(mayClose);
        button->setToolTip(mayClose ? QString() : why);
    }
    if (mayClose)
        ui->pbCloseZ->setToolTip(QStringLiteral("F12"));
}

QString ShiftBar::whyNoPlace() const
{
    if (!m_place->hasShop())
        return tr("Немає магазину, в якому ви можете продавати.");
    return m_place->isChosen() ? QString() : tr("У магазині немає незаблокованої каси.");
}

void ShiftBar::refresh()
{
    if (!m_work->user()->isLoaded())
        return;
    m_looks->drop();
    m_reading->begin(tr("Читається…"));
    // What is being read there tells when it has come.
    if (m_place->isReading())
        return;
    if (!m_place->isChosen()) {
        m_reading->end();
        ui->lbShift->setText(whyNoPlace());
        return;
    }
    m_looks->read([place = m_place->place(),
                   caller = m_work->caller()](const Db &db) { return shiftState(db, caller, place); },
                  [this](const ShiftState &state) { show(state); });
}

void ShiftBar::show(const ShiftState &state)
{
    m_reading->end();
    if (!state.z)
        ui->lbShift->setText(tr("Стан зміни невідомий."));
    else if (state.z->number.isEmpty())
        ui->lbShift->setText(tr("Зміна буде відкрита першим чеком."));
    else if (state.isOwn)
        ui->lbShift->setText(tr("Зміна № %1 відкрита, день періоду: %2.").arg(state.z->number, state.z->day));
    else
        ui->lbShift->setText(tr("Зміну № %1 відкрив інший користувач: %2").arg(state.z->number, state.owner));
}

void ShiftBar::guarded(const Act &close)
{
    if (!m_work->isFree())
        return;
    m_work->tell(QString());
    if (m_guard)
        m_guard(close);
    else
        close();
}

QString ShiftBar::cashRefusal() const
{
    if (m_place->isReading())
        return tr("Магазини й каси ще читаються. Повторіть.");
    if (!m_place->isChosen())
        return tr("Виберіть магазин і касу.");
    return m_place->isClosingOnly() ? tr("Магазин або касу заблоковано: тут можна лише закрити зміну.")
                                    : QString();
}

/// The receipt that is being filled stays as it is. The window knows how the writing goes; the tab may go
/// while it is open.
void ShiftBar::moveCash()
{
    if (!m_work->isFree() || !m_work->mayEdit())
        return;
    const QString why = cashRefusal();
    m_work->tell(why);
    if (!why.isEmpty())
        return emit m_work->left();
    m_work->user()->beginAct();
    const QPointer<ShiftBar> open = this;
    const SaleWork::Questions questions(m_work);
    m_place->followToday();
    const QServiceCash::Where where = {m_place->place(), m_place->chosenDate(), Permission::Sales};
    if (!m_work->agreeDate(tr("Дата чека"), where.date))
        return;
    auto *form =
        new QServiceCash(m_work->db()->connectionName(), m_work->user(), m_work->receiver(), where, this);
    form->exec();
    if (!open)
        return;
    if (form->wasWritten())
        emit cashMoved(form->writtenWords(), form->order().place.kass, form->result().chek.number);
    delete form;
    refresh();
    emit m_work->left();
}

/// Asks the server about the chosen place, then goes on.
void ShiftBar::check(void (ShiftBar::*then)(const ChekPlace &place, const ClosingCheck &check))
{
    const ChekPlace place = m_place->place();
    m_work->begin(SaleWork::Checking, tr("Перевіряється…"));
    m_tasks->read(
        [place, caller = m_work->caller()](const Db &db) { return checkClosing(db, caller, place); },
        [this, place, then](const ClosingCheck &check) {
            const SaleWork::Questions questions(m_work);
            (this->*then)(place, check);
        });
}

void ShiftBar::closeShift()
{
    guarded([this] {
        const QString why = closingRefusal();
        if (why.isEmpty())
            return check(&ShiftBar::shiftChecked);
        m_work->tell(why);
        emit m_work->left();
    });
}

QString ShiftBar::closingRefusal() const
{
    if (m_place->isReading())
        return tr("Магазини й каси ще читаються. Закрийте зміну ще раз.");
    if (!m_place->isChosen())
        return tr("Виберіть магазин і касу.");
    return m_refusal ? m_refusal() : QString();
}

void ShiftBar::shiftChecked(const ChekPlace &place, const ClosingCheck &check)
{
    m_looks->drop();
    show(check.shift);
    if (isOpen(check.shift) && offerPeriod(check) && check.figures)
        count(place, *check.figures);
    emit m_work->left();
}

/// False, with the reason shown, when there is none to close.
bool ShiftBar::isOpen(const ShiftState &state)
{
    if (!state.z)
        return false;
    if (!state.z->number.isEmpty())
        return state.isOwn || takeOver(state);
    m_work->tell(tr("На цій касі немає відкритої зміни: закривати нічого."));
    return false;
}

/// Whoever opened the shift may have left without closing it.
bool ShiftBar::takeOver(const ShiftState &state)
{
    const QString warning = ChekWriter::explanation({ChekWriter::Busy, {}});
    const QString question = tr("Зміну № %1 відкрив інший користувач: %2. Закрити її замість нього?")
                                 .arg(state.z->number, state.owner);
    return m_work->confirm(tr("Магазин зайнятий!"), warning + QStringLiteral("\n\n") + question,
                           tr("Закрити її"));
}

/// On the last day of the period. False when the shift is not to be closed.
bool ShiftBar::offerPeriod(const ClosingCheck &check)
{
    if (!check.day)
        return false;
    if (!check.day->isLast() || m_closedPeriod == shiftKey(check.shift.z->number))
        return true;
    const int answer = QMessDlg::quest(this, tr("закрити?"),
                                       tr("Ви збираєтесь закрити зміну\nв останні день періоду.\nЗакрити "
                                          "період перед закриттям зміни?"),
                                       tr("Відмінити закриття"), tr("Закрити тільки зміну"),
                                       tr("Закрити період та зміну"), QString());
    return answer == CloseShift || (answer == ClosePeriodAndShift && closePeriod(check));
}

/// What the operator is shown is what is compared and closed.
void ShiftBar::count(const ChekPlace &place, const ShiftFigures &figures)
{
    const QString early = ShiftCloser::dateRefusal(figures, m_place->chosenDate());
    if (!early.isEmpty())
        return m_work->tell(early);
    QPayment form(figures, this);
    if (form.exec() == QDialog::Accepted && m_work->mayEdit())
        close(place, figures, form.count());
}

void ShiftBar::close(const ChekPlace &place, const ShiftFigures &figures, const ShiftCount &count)
{
    m_work->begin(SaleWork::Writing, tr("Записується…"));
    m_tasks->write(
        [=, date = m_place->chosenDate(), caller = m_work->caller()](const Db &db) {
            return ShiftCloser(db, place, caller.file, caller.line).close(figures, count, date);
        },
        [this, zNumber = figures.zNumber](ShiftCloser::Outcome outcome) {
            m_work->end();
            closed(zNumber, outcome);
        });
}

void ShiftBar::closed(const QString &zNumber, ShiftCloser::Outcome outcome)
{
    if (outcome == ShiftCloser::Closed && m_place->isClosingOnly())
        m_place->fillShops();
    refresh();
    if (outcome == ShiftCloser::Closed) {
        m_work->tell(tr("Зміну № %1 закрито.").arg(zNumber));
        emit written({QStringLiteral("cheks"), QStringLiteral("z_zvit")});
        return;
    }
    const QString why = ShiftCloser::explanation(outcome, zNumber);
    postMessage(m_work->receiver(), why, QMessEvent::Warning);
    m_work->tell(why);
    m_work->warn(tr("Попередження."), why);
}

void ShiftBar::closePeriodAlone()
{
    guarded([this] {
        if (!m_place->isReading() && m_place->isChosen())
            return check(&ShiftBar::periodChecked);
        m_work->tell(tr("Виберіть магазин і касу."));
        m_work->warn(tr("Попередження?"), tr("Період не закрито!"));
    });
}

void ShiftBar::periodChecked(const ChekPlace &place, const ClosingCheck &check)
{
    Q_UNUSED(place)
    if (closePeriod(check))
        m_work->tell(tr("Період закрито. Наступна зміна почне новий."));
    else
        m_work->warn(tr("Попередження?"), tr("Період не закрито!"));
    emit m_work->left();
}

/// The day after the last one is the first of the next period, so the days need no writing.
bool ShiftBar::closePeriod(const ClosingCheck &check)
{
    if (!check.day || !check.shift.z)
        return false;
    const QString why = ShiftCloser::periodRefusal(*check.day);
    if (!why.isEmpty()) {
        m_work->warn(tr("Попередження."), why);
        return false;
    }
    m_closedPeriod = shiftKey(check.shift.z->number);
    return true;
}

QString ShiftBar::shiftKey(const QString &zNumber) const
{
    return m_place->place().kass + QLatin1Char('/') + zNumber;
}
