#include "shiftbar.h"
#include "ui_shiftbar.h"

#include "placebar.h"
#include "qloadeduser.h"
#include "qmessdlg.h"
#include "qmessevent.h"
#include "qpayment.h"
#include "qqestion.h"

namespace {
enum LastDayAnswer { CloseShift = 1, ClosePeriodAndShift = 2 };
} // namespace

ShiftBar::ShiftBar(QWidget *parent) : QWidget(parent), ui(std::make_unique<Ui::ShiftBar>())
{
    ui->setupUi(this);
    connect(ui->pbCloseZ, &QPushButton::clicked, this, &ShiftBar::closeShift);
    connect(ui->pbPeriod, &QPushButton::clicked, this, &ShiftBar::closePeriodAlone);
}

ShiftBar::~ShiftBar() = default;

void ShiftBar::setUp(QSqlDatabase *db, QLoadedUser *user, QObject *receiver, PlaceBar *place,
                     const char *file, int line)
{
    m_db = db;
    m_user = user;
    m_receiver = receiver;
    m_place = place;
    m_file = file;
    m_line = line;
    connect(place, &PlaceBar::kassChanged, this, &ShiftBar::refresh);
    connect(user, &QLoadedUser::rightsChanged, this, &ShiftBar::refresh);
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

Db ShiftBar::db() const
{
    return Db(m_db, m_receiver);
}

ChekWriter ShiftBar::writer() const
{
    return ChekWriter(db(), m_place->place(), m_file, m_line);
}

ShiftCloser ShiftBar::closer() const
{
    return ShiftCloser(db(), m_place->place(), m_file, m_line);
}

bool ShiftBar::confirm(const QString &title, const QString &text, const QString &actCaption)
{
    const bool isAgreed = QMessDlg::confirm(this, title, text, actCaption);
    emit left();
    return isAgreed;
}

void ShiftBar::warn(const QString &title, const QString &text)
{
    QQestion::question(this, title, text, true);
    emit left();
}

void ShiftBar::refresh()
{
    if (m_user->isLoaded())
        ui->lbShift->setText(shiftText());
}

QString ShiftBar::shiftText() const
{
    if (!m_place->hasShop())
        return tr("Немає магазину, в якому ви можете продавати.");
    if (!m_place->isChosen())
        return tr("У магазині немає незаблокованої каси.");
    const auto z = writer().openZ();
    if (!z)
        return tr("Стан зміни невідомий.");
    if (z->number.isEmpty())
        return tr("Зміна буде відкрита першим чеком.");
    if (writer().isOwn(*z))
        return tr("Зміна № %1 відкрита, день періоду: %2.").arg(z->number, z->day);
    return tr("Зміну № %1 відкрив інший користувач: %2")
        .arg(z->number, m_user->getNameSename(m_db, z->user.toInt()));
}

void ShiftBar::closeShift()
{
    emit told(QString());
    if (m_mayClose && !m_mayClose())
        return;
    const QString zNumber = shiftToClose();
    if (!zNumber.isEmpty() && offerPeriod(zNumber)) {
        if (const auto figures = closer().figures(zNumber))
            countAndClose(*figures);
    }
    emit left();
}

/// The number of the open shift; empty, with the reason shown, when there is none to close.
QString ShiftBar::shiftToClose()
{
    const QString why = m_refusal ? m_refusal() : QString();
    if (!m_place->isChosen())
        emit told(tr("Виберіть магазин і касу."));
    else if (!why.isEmpty())
        emit told(why);
    else if (const auto z = writer().openZ()) {
        refresh();
        if (z->number.isEmpty())
            emit told(tr("На цій касі немає відкритої зміни: закривати нічого."));
        else if (writer().isOwn(*z) || takeOver(*z))
            return z->number;
    }
    return QString();
}

/// Whoever opened the shift may have left without closing it.
bool ShiftBar::takeOver(const OpenZ &z)
{
    const QString warning = ChekWriter::explanation({ChekWriter::Busy, {}});
    const QString question = tr("Зміну № %1 відкрив інший користувач: %2. Закрити її замість нього?")
                                 .arg(z.number, m_user->getNameSename(m_db, z.user.toInt()));
    return confirm(tr("Магазин зайнятий!"), warning + QStringLiteral("\n\n") + question, tr("Закрити її"));
}

/// On the last day of the period. False when the shift is not to be closed.
bool ShiftBar::offerPeriod(const QString &zNumber)
{
    const auto day = closer().periodDay();
    if (!day)
        return false;
    if (!day->isLast() || m_closedPeriod == shiftKey(zNumber))
        return true;
    const int answer = QMessDlg::quest(this, tr("закрити?"),
                                       tr("Ви збираєтесь закрити зміну\nв останні день періоду.\nЗакрити "
                                          "період перед закриттям зміни?"),
                                       tr("Відмінити закриття"), tr("Закрити тільки зміну"),
                                       tr("Закрити період та зміну"), QString());
    return answer == CloseShift || (answer == ClosePeriodAndShift && closePeriod());
}

void ShiftBar::countAndClose(const ShiftFigures &figures)
{
    const QString early = ShiftCloser::dateRefusal(figures, m_place->chosenDate());
    if (!early.isEmpty()) {
        emit told(early);
        return;
    }
    QPayment form(figures, this);
    if (form.exec() != QDialog::Accepted)
        return;
    const ShiftCloser::Outcome outcome = closer().close(figures, form.count(), m_place->chosenDate());
    if (outcome == ShiftCloser::Closed)
        return afterClosing(figures.zNumber);
    const QString why = ShiftCloser::explanation(outcome, figures.zNumber);
    postMessage(m_receiver, why, QMessEvent::Warning);
    refresh();
    emit told(why);
    warn(tr("Попередження."), why);
}

void ShiftBar::afterClosing(const QString &zNumber)
{
    if (m_place->isClosingOnly()) {
        m_place->fillShops();
        emit placesChanged();
    } else {
        refresh();
    }
    emit told(tr("Зміну № %1 закрито.").arg(zNumber));
    emit written({QStringLiteral("cheks"), QStringLiteral("z_zvit")});
}

void ShiftBar::closePeriodAlone()
{
    emit told(QString());
    if (m_mayClose && !m_mayClose())
        return;
    if (closePeriod())
        emit told(tr("Період закрито. Наступна зміна почне новий."));
    else
        warn(tr("Попередження?"), tr("Період не закрито!"));
    emit left();
}

/// The day after the last one is the first of the next period, so the days need no writing.
bool ShiftBar::closePeriod()
{
    if (!m_place->isChosen()) {
        emit told(tr("Виберіть магазин і касу."));
        return false;
    }
    const auto day = closer().periodDay();
    const auto z = writer().openZ();
    if (!day || !z)
        return false;
    const QString why = ShiftCloser::periodRefusal(*day);
    if (!why.isEmpty()) {
        warn(tr("Попередження."), why);
        return false;
    }
    m_closedPeriod = shiftKey(z->number);
    return true;
}

QString ShiftBar::shiftKey(const QString &zNumber) const
{
    return m_place->place().kass + QLatin1Char('/') + zNumber;
}
