#include "qaddedtdiscount.h"
#include "ui_qaddedtdiscount.h"

#include "combos.h"
#include "money.h"
#include "numberfield.h"
#include "thresholds.h"
#include "typedinput.h"

#include <QFocusEvent>
#include <QSqlDatabase>

namespace {
const QLatin1String percentColumn("discount");
const QLatin1String thresholdColumn("sum");
const qint64 largestPercent = 9999;

RecordStatements statements()
{
    return {QStringLiteral("procent"),
            QStringLiteral("SELECT procent.id, procent.name, procent.discount, procent.sum, yesno.name, "
                           "yn2.name,procent.auto,procent.block FROM procent LEFT JOIN yesno ON "
                           "procent.auto=yesno.id LEFT JOIN yesno AS yn2 ON procent.block=yn2.id WHERE "
                           "procent.id="),
            QStringLiteral("INSERT INTO procent(id,name,discount,sum,auto,block) "
                           "VALUES(:id,:name,:discount,:sum,(SELECT id FROM yesno WHERE name=:auto),(SELECT "
                           "id FROM yesno WHERE name=:block))"),
            QStringLiteral("UPDATE procent SET name=:name,discount=:discount,sum=:sum,auto=(SELECT id FROM "
                           "yesno WHERE name=:auto),block=(SELECT id FROM yesno WHERE name=:block) WHERE "
                           "procent.id="),
            QStringLiteral("SELECT name FROM procent WHERE id=")};
}

/// A field is not left for another window or a menu: its typing goes on.
bool isLeft(const QEvent &event)
{
    if (event.type() != QEvent::FocusOut)
        return false;
    const Qt::FocusReason reason = static_cast<const QFocusEvent &>(event).reason();
    return reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason;
}
} // namespace

QAddEdtDiscount::QAddEdtDiscount(QTab *tab, QSqlDatabase *db, QString *id, QObject *receiver, QWidget *parent)
    : RecordDialog(Db(db, receiver), statements(), id, parent), ui(std::make_unique<Ui::QAddEdtDiscount>())
{
    Q_UNUSED(tab)
    ui->setupUi(this);
    ui->leId->setText(this->id());
    // What it says comes while the window is open.
    ui->labelRounding->setMinimumWidth(fontMetrics().horizontalAdvance(roundingWords(largestThreshold)));
    // The point of the patterns is any character: what is no decimal separator is refused in words later.
    limitTo(ui->leId, "[0-9]{1,8}");
    limitTo(ui->leDiscount, "^[0-9]{1,2}.[0-9]{1,2}$");
    limitTo(ui->leSum, "^[0-9]{1,8}.[0-9]{1,2}$");
    connectFields();
    load(inputs());
}

/// A field that loses the focus still finds the others.
QAddEdtDiscount::~QAddEdtDiscount()
{
    hide();
}

QVector<RecordInput> QAddEdtDiscount::inputs() const
{
    using Form = InputForm;
    const QString yesNo = QStringLiteral("SELECT name,id FROM yesno");
    return {{ui->leName, Form::Trimmed, "name", ":name"},
            {ui->leDiscount, Form::Money, "discount", ":discount"},
            {ui->leSum, Form::Money, "sum", ":sum"},
            {ui->cbAuto, Form::Entry, "auto", ":auto", "yesno.name", nullptr, yesNo},
            {ui->cbBlock, Form::Entry, "block", ":block", "yn2.name", nullptr, yesNo}};
}

void QAddEdtDiscount::connectFields()
{
    connect(ui->pbOk, &QPushButton::clicked, this, &QAddEdtDiscount::btok);
    connect(ui->pbCancel, &QPushButton::clicked, this, &QAddEdtDiscount::btcancel);
    connect(ui->leSum, &QLineEdit::textChanged, this, &QAddEdtDiscount::showRounding);
    ui->leDiscount->installEventFilter(this);
}

void QAddEdtDiscount::loaded()
{
    if (isNew()) {
        ui->leDiscount->setText(QStringLiteral("00.00"));
        ui->leSum->setText(QStringLiteral("00.00"));
        ui->cbAuto->setCurrentIndex(0);
        ui->cbBlock->setCurrentIndex(1);
    }
    showRounding();
    ui->leName->setFocus();
}

bool QAddEdtDiscount::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == ui->leDiscount && isLeft(*event) && !isReadOnly() && !isBusy() &&
        ui->leName->text().isEmpty() && !ui->leDiscount->text().isEmpty())
        ui->leName->setText(tr("Знижка") + QLatin1Char(' ') + ui->leDiscount->text() + QLatin1Char('%'));
    return RecordDialog::eventFilter(watched, event);
}

/// What other programs have stored is not judged while it stays as it is.
bool QAddEdtDiscount::isAsRead(const QLineEdit *field, const QString &column) const
{
    for (const RecordField &read : readFields()) {
        if (read.key == column)
            return field->text() == read.shown;
    }
    return false;
}

QString QAddEdtDiscount::refusal() const
{
    qint64 units = 0;
    if (!isAsRead(ui->leDiscount, percentColumn)) {
        const QString why = readNumber(ui->leDiscount->text(), NumberKind::Rate, 0, largestPercent, &units);
        if (!why.isEmpty())
            return tr("Відсоток знижки") + QStringLiteral(": ") + why;
    }
    if (!isAsRead(ui->leSum, thresholdColumn)) {
        const QString why = readNumber(ui->leSum->text(), NumberKind::Money, 0, largestThreshold, &units);
        if (!why.isEmpty())
            return tr("Сума після якої діє знижка") + QStringLiteral(": ") + why;
    }
    if (ui->leName->text().trimmed().isEmpty())
        return tr("Введіть назву знижки, наприклад \"Знижка 05.00%\".");
    return QString();
}

QVector<UniqueValue> QAddEdtDiscount::uniqueValues() const
{
    return {{"name",
             QStringLiteral("SELECT id FROM procent WHERE name=:name"),
             {{QStringLiteral(":name"), ui->leName->text().trimmed()}},
             tr("Назва знижки повинна бути унікальною")}};
}

/// In kopecks, as it will be stored; 0 while it cannot be read.
qint64 QAddEdtDiscount::threshold() const
{
    qint64 kopecks = 0;
    if (!kopecksFromText(ui->leSum->text(), &kopecks))
        return 0;
    return isAsRead(ui->leSum, thresholdColumn) ? kopecks : storedThreshold(kopecks);
}

RecordDraft QAddEdtDiscount::draft() const
{
    RecordDraft draft = RecordDialog::draft();
    for (RecordField &field : draft.fields) {
        if (field.key == thresholdColumn && !field.stored.isNull()) {
            field.stored = QString::number(threshold());
            field.shown = moneyText(threshold());
        }
    }
    return draft;
}

QString QAddEdtDiscount::roundingWords(qint64 kopecks)
{
    return tr("Буде збережено %1: сума має шість цифр.").arg(moneyShown(kopecks));
}

void QAddEdtDiscount::showRounding()
{
    qint64 typed = 0;
    const bool isRounded = kopecksFromText(ui->leSum->text(), &typed) && typed != threshold();
    ui->labelRounding->setText(isRounded ? roundingWords(threshold()) : QString());
}
