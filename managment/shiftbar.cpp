#include "shiftbar.h"
#include "ui_shiftbar.h"

#include "dbtasks.h"
#include "permissions.h"
#include "placebar.h"
#include "qcloseperiod.h"
#include "qloadeduser.h"
#include "qmessdlg.h"
#include "qmessevent.h"
#include "qpayment.h"
#include "qservicecash.h"
#include "rightsguard.h"
#include "waitnote.h"

#include <QPointer>

namespace {
enum LastDayAnswer { CloseShift = 1, ClosePeriodAndShift = 2 };

QString shiftKey(const ChekPlace &place, const ShiftState &state)
{
    return place.kass + QLatin1Char('/') + state.z->number;
}
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
        m_takenOver.clear();
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
    if (isOpen(check.shift)) {
        const LastDay lastDay = offerPeriod(place, check);
        if (lastDay == LastDay::ReadAgain)
            return this->check(&ShiftBar::shiftChecked);
        if (lastDay == LastDay::GoOn && check.figures)
            count(place, *check.figures);
    }
    emit m_work->left();
}

/// False, with the reason shown, when there is none to close.
bool ShiftBar::isOpen(const ShiftState &state)
{
    if (!state.z)
        return false;
    if (!state.z->number.isEmpty())
        return state.isOwn || m_takenOver == shiftKey(m_place->place(), state) ||
               takeOver(state,
                        tr("Зміну № %1 відкрив інший користувач: %2. Закрити її замість нього?")
                            .arg(state.z->number, state.owner),
                        tr("Закрити її"));
    m_work->tell(tr("На цій касі немає відкритої зміни: закривати нічого."));
    return false;
}

/// Whoever opened the shift may have left without closing it.
bool ShiftBar::takeOver(const ShiftState &state, const QString &question, const QString &act)
{
    const QString warning = ChekWriter::explanation({ChekWriter::Busy, {}});
    if (!m_work->confirm(tr("Магазин зайнятий!"), warning + QStringLiteral("\n\n") + question, act))
        return false;
    m_takenOver = shiftKey(m_place->place(), state);
    return true;
}

/// On the last day of the period.
ShiftBar::LastDay ShiftBar::offerPeriod(const ChekPlace &place, const ClosingCheck &check)
{
    if (!check.day)
        return LastDay::Stop;
    if (!check.day->isLast() || isPeriodClosed(check))
        return LastDay::GoOn;
    const int answer = QMessDlg::quest(this, tr("закрити?"),
                                       tr("Ви збираєтесь закрити зміну\nв останні день періоду.\nЗакрити "
                                          "період перед закриттям зміни?"),
                                       tr("Відмінити закриття"), tr("Закрити тільки зміну"),
                                       tr("Закрити період та зміну"), QString());
    if (answer == CloseShift)
        return LastDay::GoOn;
    return answer == ClosePeriodAndShift && closePeriod(place, check) ? LastDay::ReadAgain : LastDay::Stop;
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
            const auto may = userMayEdit(db, place.user, Permission::Sales);
            if (!may || !*may)
                return may ? ShiftCloser::Forbidden : ShiftCloser::Failed;
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
        m_takenOver.clear();
        if (!m_place->isReading() && m_place->isChosen())
            return check(&ShiftBar::periodChecked);
        m_work->tell(tr("Виберіть магазин і касу."));
        m_work->warn(tr("Попередження?"), tr("Період не закрито!"));
    });
}

void ShiftBar::periodChecked(const ChekPlace &place, const ClosingCheck &check)
{
    if (closePeriod(place, check))
        refresh();
    else
        m_work->warn(tr("Попередження?"), tr("Період не закрито!"));
    emit m_work->left();
}

bool ShiftBar::isPeriodClosed(const ClosingCheck &check) const
{
    return (check.day && check.day->closedBy != 0) ||
           m_closedPeriod == shiftKey(m_place->place(), check.shift);
}

/// Why it cannot be closed; empty when it can. What would refuse the document in the end is told before
/// anything is counted.
QString ShiftBar::periodRefusal(const ChekPlace &place, const ClosingCheck &check) const
{
    QString why = ShiftCloser::periodRefusal(*check.day);
    if (!why.isEmpty())
        return why;
    if (m_place->isClosingOnly())
        return tr("Магазин або касу заблоковано: тут можна лише закрити зміну.");
    if (!check.figures)
        return QString();
    if (check.figures->shop != place.shop)
        return tr("Зміну цієї каси відкрито в іншому магазині: її період тут не закрити.");
    return ShiftCloser::dateRefusal(*check.figures, m_place->chosenDate());
}

/// The day after the last one is the first of the next period, so the days need no writing.
bool ShiftBar::closePeriod(const ChekPlace &place, const ClosingCheck &check)
{
    if (!check.day || !check.shift.z)
        return false;
    const QString why = periodRefusal(place, check);
    if (!why.isEmpty()) {
        m_work->warn(tr("Попередження."), why);
        return false;
    }
    if (isPeriodClosed(check)) {
        m_work->tell(tr("Період уже закрито. Наступна зміна почне новий."));
        return true;
    }
    const bool isTaken =
        check.shift.isOwn || m_takenOver == shiftKey(place, check.shift) ||
        takeOver(check.shift,
                 tr("Зміну № %1 відкрив інший користувач: %2. Закрити її період замість нього?")
                     .arg(check.shift.z->number, check.shift.owner),
                 tr("Закрити період"));
    return isTaken && countPeriod(place, check);
}

/// What is counted is a document of the register.
bool ShiftBar::countPeriod(const ChekPlace &place, const ClosingCheck &check)
{
    PeriodOrder order;
    order.place = place;
    order.date = m_place->chosenDate();
    order.zNumber = check.shift.z->number;
    if (!check.shift.isOwn)
        order.takenOver = check.shift.z->user;
    QClosePeriod form(m_work, order, *check.day, this);
    if (form.exec() != QDialog::Accepted)
        return false;
    if (!order.zNumber.isEmpty())
        m_closedPeriod = shiftKey(place, check.shift);
    const int document = form.document().number;
    m_work->tell(document == 0 ? tr("Період закрито. Наступна зміна почне новий.")
                               : tr("Період закрито, пораховане записано: документ № %1.").arg(document));
    if (document != 0)
        emit written({QStringLiteral("cheks"), QStringLiteral("goods_shop"), QStringLiteral("z_zvit")});
    return true;
}
