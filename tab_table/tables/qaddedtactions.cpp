#include "qaddedtactions.h"
#include "ui_qaddedtactions.h"

#include "actionusage.h"
#include "qmessdlg.h"
#include "typedinput.h"

#include <QSqlDatabase>
#include <algorithm>

namespace {
const int noKind = 1;
const int percentKind = 2;
const int daysProposed = 6;
const QLatin1String startColumn("datetime_start");
const QLatin1String typeColumn("id_type_action");
const QLatin1String zeroDate("0000-00-00 00:00:00");
const char *const everyDay = "Mon,Tue,Wed,Thu,Fri,Sat,Sun,";

/// The dates as texts: a date-time of the driver would lose zero dates and the hours that the summer time
/// leaves out.
RecordStatements statements()
{
    return {QStringLiteral("action"),
            QStringLiteral("SELECT action.*,type_action.name FROM (SELECT id,name,id_type_action,val,val_1,"
                           "val_2,CAST(datetime_start AS CHAR) AS datetime_start,CAST(datetime_end AS CHAR) "
                           "AS datetime_end,week_day FROM action) AS action LEFT JOIN type_action ON "
                           "type_action.id=action.id_type_action WHERE action.id="),
            QStringLiteral("INSERT INTO action(name,id_type_action,val,val_1,val_2,datetime_start,"
                           "datetime_end,week_day) VALUES(:name,:type,:val,:val1,:val2,:start,:end,:days)"),
            QStringLiteral("UPDATE action SET name=:name,id_type_action=:type,val=:val,val_1=:val1,"
                           "val_2=:val2,datetime_start=:start,datetime_end=:end,week_day=:days WHERE "
                           "action.id="),
            QStringLiteral("SELECT name FROM action WHERE id=")};
}
} // namespace

QAddEdtActions::QAddEdtActions(QSqlDatabase *db, QString *id, QObject *receiver, QWidget *parent)
    : RecordDialog(Db(db, receiver), statements(), id, parent), ui(std::make_unique<Ui::QAddEdtActions>())
{
    ui->setupUi(this);
    ui->leId->setText(this->id());
    ui->start->setUp(tr("щодня з"), QTime(0, 0), tr("Перший день"));
    ui->end->setUp(tr("щодня до"), QTime(23, 59, 59), tr("Останній день"));
    connectFields();
    load(inputs(), {actionUsageSql(this->id().isEmpty() ? QStringLiteral("0") : this->id())});
}

QAddEdtActions::~QAddEdtActions()
{
    hide();
}

QVector<RecordInput> QAddEdtActions::inputs() const
{
    using Form = InputForm;
    return {{ui->leName, Form::Trimmed, "name", ":name"},
            {ui->cbType, Form::EntryId, "id_type_action", ":type", "type_action.name", nullptr,
             QStringLiteral("SELECT name,id FROM type_action ORDER BY id")},
            {ui->leVal, Form::Money, "val", ":val"},
            {ui->leVal1, Form::Money, "val_1", ":val1"},
            {ui->leVal2, Form::Money, "val_2", ":val2"},
            {ui->start, Form::Moment, "datetime_start", ":start"},
            {ui->end, Form::Moment, "datetime_end", ":end"},
            {ui->weekDays, Form::WeekDays, "week_day", ":days"}};
}

void QAddEdtActions::connectFields()
{
    connect(ui->pbOk, &QPushButton::clicked, this, &QAddEdtActions::btok);
    connect(ui->pbCancel, &QPushButton::clicked, this, &QAddEdtActions::btcancel);
    connect(ui->cbType, qOverload<int>(&QComboBox::currentIndexChanged), this, &QAddEdtActions::followType);
    connect(ui->chDated, &QCheckBox::toggled, this, &QAddEdtActions::followDates);
    connect(ui->start, &ActionEndEdit::changed, this, &QAddEdtActions::proposeEnd);
    for (const ActionEndEdit *end : {ui->start, ui->end})
        connect(end, &ActionEndEdit::changed, this, &QAddEdtActions::follow);
    connect(ui->weekDays, &WeekDaysEdit::changed, this, &QAddEdtActions::follow);
}

bool QAddEdtActions::takeRows(const QVector<TextRows> &more)
{
    m_usage = actionUsageWords(more.first());
    return true;
}

void QAddEdtActions::showField(const QString &key, const std::optional<RecordField> &value)
{
    RecordDialog::showField(key, value);
    if (key != startColumn || !value)
        return;
    const bool isDated = value->stored != zeroDate;
    ui->start->setReadDated(isDated);
    ui->end->setReadDated(isDated);
    const QSignalBlocker blocker(ui->chDated);
    ui->chDated->setChecked(isDated);
}

void QAddEdtActions::loaded()
{
    if (isNew()) {
        ui->cbType->setCurrentIndex(ui->cbType->findData(percentKind));
        ui->leVal1->setStored(QStringLiteral("0"));
        ui->leVal2->setStored(QStringLiteral("0"));
        ui->weekDays->setStored(QLatin1String(everyDay));
        ui->start->setReadDated(false);
        ui->end->setReadDated(false);
    }
    ui->labelUsage->setText(m_usage.isEmpty() ? tr("Жодному товару не призначена.")
                                              : tr("Призначена: %1.").arg(m_usage));
    followType();
    follow();
    ui->leName->setFocus();
}

void QAddEdtActions::followType()
{
    const int kind = ui->cbType->currentData().toInt();
    const bool isPercent = kind == percentKind;
    ui->leVal->setPercent(isPercent || kind == noKind);
    ui->label_leVal->setText(isPercent ? tr("Знижка, %") : tr("Значення"));
    for (QWidget *part : std::initializer_list<QWidget *>{ui->label_leVal, ui->leVal})
        part->setVisible(kind != noKind);
    for (QWidget *part :
         std::initializer_list<QWidget *>{ui->label_leVal1, ui->leVal1, ui->label_leVal2, ui->leVal2})
        part->setVisible(kind > percentKind);
    follow();
}

void QAddEdtActions::followDates()
{
    const bool isDated = ui->chDated->isChecked();
    ui->start->setDated(isDated);
    ui->end->setDated(isDated);
    if (isDated) {
        ui->start->propose(QDate::currentDate());
        proposeEnd();
    }
}

/// As long as nobody has chosen one.
void QAddEdtActions::proposeEnd()
{
    if (ui->chDated->isChecked() && ui->start->day().isValid())
        ui->end->propose(ui->start->day().addDays(daysProposed));
}

ActionTimes QAddEdtActions::times() const
{
    return actionTimes(ui->cbType->currentData().toInt(), ui->start->stored(), ui->end->stored(),
                       ui->weekDays->stored());
}

/// What comes of it, in words.
void QAddEdtActions::follow()
{
    const ActionTimes now = times();
    const QString never = neverWords(now);
    ui->labelState->setText(
        never.isEmpty() ? tr("Стан: %1. %2, %3, %4.")
                              .arg(actionStateWords(actionState(now, QDateTime::currentDateTime())),
                                   actionPeriodShown(now), actionHoursShown(now), weekDaysShown(now.weekDays))
                        : tr("Не діятиме ніколи: %1").arg(never));
    ui->week->setAction(now);
}

QString QAddEdtActions::refusal() const
{
    if (ui->leName->text().trimmed().isEmpty())
        return tr("Введіть назву акції.");
    if (ui->cbType->currentIndex() < 0)
        return tr("Виберіть тип акції.");
    const QString why = valueRefusal();
    return why.isEmpty() ? timesRefusal() : why;
}

QString QAddEdtActions::valueRefusal() const
{
    const int kind = ui->cbType->currentData().toInt();
    const bool isSameKind =
        std::any_of(readFields().begin(), readFields().end(), [kind](const RecordField &read) {
            return read.key == typeColumn && read.stored.toInt() == kind;
        });
    for (const ActionValueEdit *value : {ui->leVal, ui->leVal1, ui->leVal2}) {
        if (value->isHidden())
            continue;
        if (const QString why = value->refusal(isSameKind); !why.isEmpty())
            return fieldName(value) + QStringLiteral(": ") + why;
    }
    return QString();
}

/// What was read and not touched is not judged.
QString QAddEdtActions::timesRefusal() const
{
    for (const ActionEndEdit *end : {ui->start, ui->end}) {
        if (const QString why = end->refusal(); !why.isEmpty())
            return fieldName(end) + QStringLiteral(": ") + why;
    }
    const ActionTimes now = times();
    const bool isTouched =
        std::any_of(readFields().begin(), readFields().end(), [this](const RecordField &read) {
            return (read.key == startColumn && read.stored != ui->start->stored()) ||
                   (read.key == QLatin1String("datetime_end") && read.stored != ui->end->stored());
        });
    if (!now.isDated() || !now.start || !now.end || (!isNew() && !isTouched))
        return QString();
    if (*now.start > *now.end)
        return tr("Акція закінчується раніше, ніж починається. Виправте дати.");
    const ActionHours hours = actionHours(now);
    return hours.from > hours.to
               ? tr("Години «з» пізніші за години «до». Каси порівнюють години в межах одного дня, тому акція "
                    "через північ (наприклад, з 22:00 до 06:00) неможлива. Введіть проміжок до 23:59:59.")
               : QString();
}

/// What is not shown for this type and was never read is nothing.
RecordDraft QAddEdtActions::draft() const
{
    RecordDraft draft = RecordDialog::draft();
    for (RecordField &field : draft.fields) {
        if (field.key.startsWith(QLatin1String("val")) && field.stored.isNull())
            field.stored = QStringLiteral("0");
    }
    return draft;
}

QVector<UniqueValue> QAddEdtActions::uniqueValues() const
{
    return {{"name",
             QStringLiteral("SELECT id FROM action WHERE name=:name"),
             {{QStringLiteral(":name"), ui->leName->text().trimmed()}},
             tr("Назва акції повинна бути унікальною")}};
}

/// True when something else than the name differs from what was read.
bool QAddEdtActions::changesPrices() const
{
    const RecordFields now = draft().fields;
    for (const RecordField &read : readFields()) {
        for (const RecordField &field : now) {
            if (field.key == read.key && field.key != QLatin1String("name") && field.stored != read.stored)
                return true;
        }
    }
    return false;
}

/// What may be a mistake; empty when nothing is.
QString QAddEdtActions::doubts() const
{
    QStringList lines;
    const QString never = neverWords(times());
    if (!isNew() && !changesPrices())
        return QString();
    if (!never.isEmpty())
        lines.append(tr("Акція не діятиме ніколи: %1").arg(never));
    else if (actionState(times(), QDateTime::currentDateTime()) == ActionState::Over)
        lines.append(tr("Акція вже закінчилася і не діятиме."));
    if (!m_usage.isEmpty())
        lines.append(
            tr("Акцію призначено: %1. Ціни цих товарів зміняться одразу після збереження.").arg(m_usage));
    return lines.join(QStringLiteral("\n\n"));
}

void QAddEdtActions::save()
{
    const QString why = firstRefusal().isEmpty() && !isUnclear() ? doubts() : QString();
    // The right may go while the question is open.
    if (why.isEmpty() ||
        (QMessDlg::confirm(this, windowTitle(), why, tr("Зберегти"), tr("Повернутись до редагування")) &&
         !isReadOnly()))
        RecordDialog::save();
}
