#include "qpayment.h"
#include "ui_qpayment.h"

#include "money.h"
#include "qmessdlg.h"
#include "qqestion.h"
#include "scancatcher.h"
#include "scanguard.h"

#include <QKeyEvent>
#include <QShortcut>

namespace {
/// Red that can be read on the window's colour.
QColor alarmColour(const QPalette &palette)
{
    return palette.color(QPalette::Window).lightness() < 128 ? QColor(0xff, 0x8a, 0x8a)
                                                             : QColor(0xc0, 0x00, 0x10);
}

ChekPayment dueOf(const QString &total, const QString &discount)
{
    qint64 sum = 0;
    ChekPayment due;
    kopecksFromText(total, &sum);
    kopecksFromText(discount, &due.discount);
    due.toPay = sum - due.discount;
    return due;
}
} // namespace

QPayment::QPayment(bool closing, QWidget *parent)
    : QDialog(parent), ui(std::make_unique<Ui::QPayment>()), m_isClosing(closing)
{
    ui->setupUi(this);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    ui->serviceFields->setVisible(closing);
    ui->lbNotice->hide();
    new ScanTail(this);
    connect(new ScanCatcher(this), &ScanCatcher::scanned, this, &QPayment::refuseScan);
    connect(ui->pbOk, &QPushButton::clicked, this, &QPayment::ok);
    connect(ui->pbCancel, &QPushButton::clicked, this, &QPayment::cancel);
}

QPayment::QPayment(const ChekPayment &due, QWidget *parent) : QPayment(false, parent)
{
    showReceipt(due);
}

QPayment::QPayment(const ShiftFigures &figures, QWidget *parent) : QPayment(true, parent)
{
    showClosing();
    showFigures(figures);
}

QPayment::QPayment(const QString &total, const QString &discount, bool closing, QWidget *parent, int cash)
    : QPayment(closing, parent)
{
    if (closing) {
        showClosing();
        m_expected.cash = cash;
        ui->dsbCounted->setKopecks(cash);
        ui->dsbViluchenia->setKopecks(cash);
        showDifferences();
    } else {
        showReceipt(dueOf(total, discount));
    }
}

QPayment::~QPayment() = default;

void QPayment::showReceipt(const ChekPayment &due)
{
    m_payment.discount = due.discount;
    m_payment.toPay = due.toPay;
    ui->lbSum->setText(moneyText(due.toPay + due.discount));
    ui->lbDiscount->setText(moneyText(due.discount));
    ui->lbToPay->setText(moneyText(due.toPay));
    QFont large = ui->lbToPay->font();
    large.setPointSize(large.pointSize() * 2);
    ui->lbToPay->setFont(large);
    connectReceipt();
}

void QPayment::connectReceipt()
{
    for (MoneySpinBox *box : {ui->dsbCash, ui->dsbCertificate, ui->dsbCard})
        connect(box, qOverload<double>(&QDoubleSpinBox::valueChanged), this, &QPayment::calcsumpaym);
    for (MoneySpinBox *box : {ui->dsbGiven, ui->dsbCertificate, ui->dsbCard})
        connect(box, qOverload<double>(&QDoubleSpinBox::valueChanged), this, &QPayment::cashFollowsGiven);
    for (MoneySpinBox *box : {ui->dsbCash, ui->dsbGiven})
        connect(box, qOverload<double>(&QDoubleSpinBox::valueChanged), this, &QPayment::showChange);
    QFont large = ui->lbChange->font();
    large.setPointSize(large.pointSize() * 2);
    ui->lbChange->setFont(large);
    const struct
    {
        QPushButton *button;
        Qt::Key key;
        MoneySpinBox *box;
    } rests[] = {{ui->pbRestCash, Qt::Key_F5, ui->dsbCash},
                 {ui->pbRestCard, Qt::Key_F6, ui->dsbCard},
                 {ui->pbRestCertificate, Qt::Key_F7, ui->dsbCertificate}};
    for (const auto &rest : rests) {
        const auto put = [this, box = rest.box] { putRestInto(box); };
        connect(rest.button, &QPushButton::clicked, this, put);
        // Not the button's own shortcut: that presses it a tenth of a second later, after Enter.
        connect(new QShortcut(rest.key, this), &QShortcut::activated, this, put);
    }
    calcsumpaym(0);
    ui->dsbGiven->setFocus();
}

void QPayment::showClosing()
{
    ui->receiptFields->hide();
    ui->gbPaid->hide();
    ui->gbGiven->hide();
    ui->pbOk->setText(tr("За&крити"));
    ui->pbOk->setDefault(false);
    ui->pbOk->setAutoDefault(false);
    for (QSpinBox *box : {ui->sbCheks, ui->sbDiskount, ui->sbChekCanc, ui->sbPositionCanc})
        box->setRange(0, 1000000);
    for (MoneySpinBox *box : {ui->dsbCounted, ui->dsbVnesenia, ui->dsbViluchenia})
        connect(box, qOverload<double>(&QDoubleSpinBox::valueChanged), this, &QPayment::showDifferences);
    ui->dsbCounted->setFocus();
}

namespace {
/// All that was sold for; where service cash was brought in or issued, all that has left the drawer by then
/// and what lies in it still, so that nothing stays there.
qint64 proposedOut(const ShiftFigures &figures)
{
    const bool hasService = figures.vnesenia != 0 || figures.issued != 0;
    return hasService ? qMax<qint64>(figures.expectedCash(), 0) + figures.issued : figures.cash;
}
} // namespace

void QPayment::showFigures(const ShiftFigures &figures)
{
    setWindowTitle(tr("Закрити зміну № %1").arg(figures.zNumber));
    m_expected = figures;
    ui->dsbCounted->setKopecks(figures.expectedCash());
    ui->dsbVnesenia->setKopecks(figures.vnesenia);
    ui->dsbViluchenia->setKopecks(proposedOut(figures));
    ui->sbCheks->setValue(figures.countCheks);
    ui->sbDiskount->setValue(figures.countDiskount);
    ui->sbChekCanc->setValue(figures.countChekCanc);
    ui->sbPositionCanc->setValue(figures.countPositionCanc);
    showDifferences();
}

/// What should lie in the drawer before the closing takes it out, by what was brought in after all.
qint64 QPayment::expectedCash() const
{
    return m_expected.expectedCash() - m_expected.vnesenia + ui->dsbVnesenia->kopecks();
}

/// What was issued during the shift is part of what was taken out.
void QPayment::showDifferences()
{
    const qint64 expectedOut = expectedCash() + m_expected.issued;
    ui->lbExpectedCounted->setText(moneyShown(expectedCash()));
    ui->lbExpectedVnesenia->setText(moneyShown(m_expected.vnesenia));
    ui->lbExpectedViluchenia->setText(moneyShown(expectedOut));
    ui->lbIssued->setText(moneyShown(m_expected.issued));
    showDifference(ui->lbDifferenceCounted, ui->dsbCounted->kopecks() - expectedCash());
    showDifference(ui->lbDifferenceVnesenia, ui->dsbVnesenia->kopecks() - m_expected.vnesenia);
    showDifference(ui->lbDifferenceViluchenia, ui->dsbViluchenia->kopecks() - expectedOut);
    ui->lbRest->setText(moneyShown(remaining()));
    mark(ui->lbDifferenceCounted, ui->dsbCounted->kopecks() != expectedCash());
    mark(ui->lbRest, remaining() < 0);
}

qint64 QPayment::remaining() const
{
    return ui->dsbCounted->kopecks() + m_expected.issued - ui->dsbViluchenia->kopecks();
}

void QPayment::mark(QLabel *label, bool isWrong)
{
    QPalette palette;
    if (isWrong)
        palette.setColor(QPalette::WindowText, alarmColour(palette));
    label->setPalette(palette);
}

void QPayment::showDifference(QLabel *label, qint64 difference)
{
    label->setText((difference > 0 ? QStringLiteral("+") : QString()) + moneyShown(difference));
}

qint64 QPayment::paid() const
{
    return ui->dsbCash->kopecks() + ui->dsbCertificate->kopecks() + ui->dsbCard->kopecks();
}

void QPayment::calcsumpaym(double value)
{
    Q_UNUSED(value)
    ui->gbPaid->setTitle(tr("оплачено:") + QLatin1Char(' ') + moneyText(paid()));
    const bool isMore = paid() > owed();
    ui->gbPaid->setStyleSheet(isMore ? QStringLiteral("font: bold; color: #DD1010;") : QString());
    ui->gbPaid->setAccessibleDescription(isMore ? tr("Більше, ніж до оплати.") : QString());
}

void QPayment::putRestInto(MoneySpinBox *box)
{
    if (!takeTyped())
        return;
    box->setKopecks(qMax<qint64>(owed() - (paid() - box->kopecks()), 0));
    box->setFocus(Qt::ShortcutFocusReason);
}

/// As long as nobody has typed another amount of cash.
void QPayment::cashFollowsGiven()
{
    if (ui->dsbCash->kopecks() != m_followed)
        return;
    const qint64 rest = owed() - ui->dsbCertificate->kopecks() - ui->dsbCard->kopecks();
    m_followed = qMax<qint64>(qMin(ui->dsbGiven->kopecks(), rest), 0);
    ui->dsbCash->setKopecks(m_followed);
}

/// What is stored is what is owed; what was handed over only tells the change.
void QPayment::showChange()
{
    const qint64 given = ui->dsbGiven->kopecks();
    ui->lbChange->setText(moneyText(given == 0 ? 0 : given - ui->dsbCash->kopecks()));
}

void QPayment::refuseScan(const QString &digits)
{
    ui->lbNotice->setText((m_isClosing ? tr("Скановано %1: у цьому вікні сканер нічого не змінює.")
                                       : tr("Скановано %1: товар додають у чек до оплати."))
                              .arg(digits));
    mark(ui->lbNotice, true);
    ui->lbNotice->show();
}

void QPayment::warn(const QString &text, QWidget *field)
{
    QQestion::question(this, tr("Попередження!"), text, true);
    field->setFocus(Qt::ShortcutFocusReason);
    if (auto *box = qobject_cast<QAbstractSpinBox *>(field))
        box->selectAll();
}

namespace {
QString whyUnreadable(const QAbstractSpinBox *field)
{
    if (const auto *money = qobject_cast<const MoneySpinBox *>(field))
        return money->isReadable() ? QString() : money->refusal();
    return field->hasAcceptableInput() ? QString()
                                       : QPayment::tr("«%1» не є числом. Виправте його.").arg(field->text());
}
} // namespace

bool QPayment::takeTyped()
{
    for (QAbstractSpinBox *field : findChildren<QAbstractSpinBox *>()) {
        const QString why = field->isVisible() ? whyUnreadable(field) : QString();
        if (!why.isEmpty()) {
            warn(why, field);
            return false;
        }
        if (field->isVisible())
            field->interpretText();
    }
    return true;
}

void QPayment::keyPressEvent(QKeyEvent *event)
{
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!m_isClosing || !isEnter)
        return QDialog::keyPressEvent(event);
    // Held down it would run through all fields and close the shift.
    if (event->isAutoRepeat())
        return;
    if (auto *button = qobject_cast<QPushButton *>(focusWidget()))
        button->click();
    else
        focusNextChild();
}

void QPayment::changeEvent(QEvent *event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && m_isClosing)
        showDifferences();
}

void QPayment::ok()
{
    if (!takeTyped())
        return;
    if (m_isClosing)
        return acceptClosing();
    if (paid() != owed())
        return warn(tr("Сума до оплати повинна дорівнювати оплачено!"),
                    ui->dsbCash->kopecks() == m_followed ? ui->dsbGiven : ui->dsbCash);
    if (ui->dsbGiven->kopecks() != 0 && ui->dsbGiven->kopecks() < ui->dsbCash->kopecks())
        return warn(tr("Отримано менше, ніж треба сплатити готівкою!"), ui->dsbGiven);
    acceptPayment();
}

/// Once more when the cash is not what it should be.
bool QPayment::confirmClosing()
{
    const qint64 difference = ui->dsbCounted->kopecks() - expectedCash();
    QStringList lines;
    if (difference != 0)
        lines.append(tr("Готівки пораховано %1, а має бути %2 (різниця %3).")
                         .arg(moneyShown(ui->dsbCounted->kopecks()), moneyShown(expectedCash()),
                              ui->lbDifferenceCounted->text()));
    if (remaining() < 0)
        lines.append(tr("Вилучено більше, ніж є: в касі залишиться %1.").arg(moneyShown(remaining())));
    if (lines.isEmpty())
        return true;
    lines.append(tr("Закрити зміну з такими сумами?"));
    return QMessDlg::confirm(this, windowTitle(), lines.join(QLatin1Char('\n')), tr("&Закрити зміну"),
                             tr("&Ні, перевірити"));
}

void QPayment::acceptPayment()
{
    m_payment.cash = ui->dsbCash->kopecks();
    m_payment.certificate = ui->dsbCertificate->kopecks();
    m_payment.card = ui->dsbCard->kopecks();
    m_given = qMax(ui->dsbGiven->kopecks(), ui->dsbCash->kopecks());
    m_change = m_given - ui->dsbCash->kopecks();
    accept();
}

void QPayment::acceptClosing()
{
    if (!confirmClosing())
        return ui->dsbCounted->setFocus(Qt::ShortcutFocusReason);
    m_count.countCheks = ui->sbCheks->value();
    m_count.countDiskount = ui->sbDiskount->value();
    m_count.countPositionCanc = ui->sbPositionCanc->value();
    m_count.countChekCanc = ui->sbChekCanc->value();
    m_count.vnesenia = ui->dsbVnesenia->kopecks();
    m_count.viluchenia = ui->dsbViluchenia->kopecks();
    accept();
}

void QPayment::cancel()
{
    reject();
}
