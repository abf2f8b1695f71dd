#pragma once

#include "shiftcloser.h"

#include <QDialog>
#include <memory>

namespace Ui {
class QPayment;
}
class MoneySpinBox;
class QLabel;

/// How a receipt is paid; in its other form, what the operator counts when the shift is closed.
///
/// The note that the buyer gives is typed first: what is paid in cash follows it, up to what is owed, until
/// somebody types another amount there, and the change is told. What is stored is never more than what is
/// owed. What a scanner sends is taken out of the fields again; in the closing form Enter leads from field to
/// field, only the button closes.
class QPayment : public QDialog
{
    Q_OBJECT

public:
    /// The form of a receipt. due: what is to pay, and the discount that is taken off already.
    QPayment(const ChekPayment &due, QWidget *parent);
    /// The closing form: what the count is compared with, and from where its counters start. It proposes to
    /// withdraw all that was sold for in cash; of a shift with service cash all that it had, of which a part
    /// may have been issued before.
    QPayment(const ShiftFigures &figures, QWidget *parent);
    /// The same from texts with two decimals, or from the shift's cash (kopecks) alone.
    QPayment(const QString &total, const QString &discount, bool closing, QWidget *parent, int cash = 0);
    ~QPayment() override;

    /// How the receipt was paid; complete once it was accepted.
    const ChekPayment &payment() const { return m_payment; }
    /// Kopecks that were handed over in cash, and those to hand back.
    qint64 given() const { return m_given; }
    qint64 change() const { return m_change; }
    /// What was counted; complete once the closing was accepted.
    const ShiftCount &count() const { return m_count; }

    /// The same as texts of whole numbers.
    QString toPay() const { return QString::number(m_payment.toPay); }
    QString cash() const { return QString::number(m_payment.cash); }
    QString certificate() const { return QString::number(m_payment.certificate); }
    QString card() const { return QString::number(m_payment.card); }
    QString vnesenia() const { return QString::number(m_count.vnesenia); }
    QString viluchenia() const { return QString::number(m_count.viluchenia); }
    QString countCheks() const { return QString::number(m_count.countCheks); }
    QString countDiskount() const { return QString::number(m_count.countDiskount); }
    QString countChekCanc() const { return QString::number(m_count.countChekCanc); }
    QString countPositionCanc() const { return QString::number(m_count.countPositionCanc); }

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void changeEvent(QEvent *event) override;

public slots:
    /// Shows what is paid so far, and in red when it is too much.
    void calcsumpaym(double value);
    void ok();
    void cancel();

private:
    QPayment(bool closing, QWidget *parent);
    void showReceipt(const ChekPayment &due);
    void connectReceipt();
    void showClosing();
    void showFigures(const ShiftFigures &figures);
    void showDifferences();
    static void showDifference(QLabel *label, qint64 difference);
    static void mark(QLabel *label, bool isWrong);
    void refuseScan(const QString &digits);
    /// True when every field that is shown can be read; what is being typed counts then.
    bool takeTyped();
    qint64 remaining() const;
    bool confirmClosing();
    qint64 expectedCash() const;
    qint64 owed() const { return m_payment.toPay; }
    qint64 paid() const;
    void putRestInto(MoneySpinBox *box);
    void cashFollowsGiven();
    void showChange();
    void warn(const QString &text, QWidget *field);
    void acceptPayment();
    void acceptClosing();

    std::unique_ptr<Ui::QPayment> ui;
    bool m_isClosing;
    /// What is owed from the beginning; how it was paid once that is accepted.
    ChekPayment m_payment;
    qint64 m_given = 0;
    qint64 m_change = 0;
    /// What the note given has put into the cash field.
    qint64 m_followed = 0;
    ShiftFigures m_expected;
    ShiftCount m_count;
};
