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
    /// total, discount: texts with two decimals. closing: the form for the end of a shift, which proposes to
    /// withdraw all of cash (kopecks).
    QPayment(const QString &total, const QString &discount, bool closing, QWidget *parent, int cash = 0);
    ~QPayment() override;

    /// What the closing form compares the count with, and from where its counters start.
    void setExpected(const ShiftFigures &figures);

    /// What was accepted, as whole kopecks.
    QString toPay() const { return m_toPay; }
    QString cash() const { return m_cash; }
    QString certificate() const { return m_certificate; }
    QString card() const { return m_card; }
    /// The same as one value, with the discount.
    ChekPayment payment() const;
    /// Kopecks that were handed over in cash, and those to hand back.
    qint64 given() const { return m_given; }
    qint64 change() const { return m_change; }
    /// The same of the closing form.
    QString vnesenia() const { return m_vnesenia; }
    QString viluchenia() const { return m_viluchenia; }
    QString countCheks() const { return m_countCheks; }
    QString countDiskount() const { return m_countDiskount; }
    QString countChekCanc() const { return m_countChekCanc; }
    QString countPositionCanc() const { return m_countPositionCanc; }

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void changeEvent(QEvent *event) override;

public slots:
    /// Shows what is paid so far, and in red when it is too much.
    void calcsumpaym(double value);
    void ok();
    void cancel();

private:
    void showReceipt(const QString &total, const QString &discount);
    void connectReceipt();
    void showClosing(int cash);
    void showDifferences();
    static void showDifference(QLabel *label, qint64 difference);
    static void mark(QLabel *label, bool isWrong);
    void refuseScan(const QString &digits);
    /// True when every field that is shown can be read; what is being typed counts then.
    bool takeTyped();
    qint64 remaining() const;
    bool confirmClosing();
    qint64 expectedCash() const;
    qint64 owed() const;
    qint64 paid() const;
    void putRestInto(MoneySpinBox *box);
    void cashFollowsGiven();
    void showChange();
    void warn(const QString &text, QWidget *field);
    void acceptPayment();
    void acceptClosing();

    std::unique_ptr<Ui::QPayment> ui;
    bool m_isClosing;
    qint64 m_discount = 0;
    qint64 m_given = 0;
    qint64 m_change = 0;
    /// What the note given has put into the cash field.
    qint64 m_followed = 0;
    ShiftFigures m_expected;
    QString m_toPay, m_cash, m_certificate, m_card;
    QString m_vnesenia, m_viluchenia;
    QString m_countCheks, m_countDiskount, m_countChekCanc, m_countPositionCanc;
};
