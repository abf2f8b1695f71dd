#include "rangeselector.h"
#include "ui_rangeselector.h"

#include "sqldate.h"

#include <QRegularExpressionValidator>
#include <QSignalBlocker>

DayRange presetDays(int preset, const QDate &today)
{
    const QDate monthStart(today.year(), today.month(), 1);
    switch (preset) {
    case 1:
        return {today, today};
    case 2:
        return {today.addDays(-1), today.addDays(-1)};
    case 3:
        return {today.addDays(1 - today.dayOfWeek()), today};
    case 4:
        return {today.addDays(-6), today};
    case 5:
        return {monthStart, today};
    default:
        return {monthStart.addMonths(-1), monthStart.addDays(-1)};
    }
}

QString daysShown(const QDate &first, const QDate &last)
{
    const QString format = QStringLiteral("dd.MM.yyyy");
    return first == last ? first.toString(format)
                         : first.toString(format) + QStringLiteral(" – ") + last.toString(format);
}

RangeSelector::RangeSelector(QWidget *parent) : QWidget(parent), ui(std::make_unique<Ui::RangeSelector>())
{
    ui->setupUi(this);
    const QRegularExpression number(QStringLiteral("^[0-9]{10}$"));
    for (QLineEdit *edit : {ui->leNumberFrom, ui->leNumberTo})
        edit->setValidator(new QRegularExpressionValidator(number, edit));
    fillPresets();
    setDays(QDate::currentDate(), QDate::currentDate());
    showid(false);
    connect(ui->chByNumber, &QCheckBox::toggled, this, &RangeSelector::showid);
    connect(ui->cbPreset, qOverload<int>(&QComboBox::activated), this, &RangeSelector::takePreset);
    connect(ui->deFrom, &QDateEdit::dateChanged, this, &RangeSelector::firstDayChanged);
    connect(ui->deTo, &QDateEdit::dateChanged, this, &RangeSelector::lastDayChanged);
    connect(this, &RangeSelector::changed, this, [this] { ui->cbPreset->setCurrentIndex(0); });
    connect(ui->chByNumber, &QCheckBox::toggled, this, &RangeSelector::changed);
    for (const QLineEdit *edit : {ui->leNumberFrom, ui->leNumberTo})
        connect(edit, &QLineEdit::textChanged, this, &RangeSelector::changed);
    for (const QDateEdit *edit : {ui->deFrom, ui->deTo})
        connect(edit, &QDateEdit::dateChanged, this, &RangeSelector::changed);
}

RangeSelector::~RangeSelector() = default;

void RangeSelector::fillPresets()
{
    ui->cbPreset->addItems({tr("Дні…"), tr("Сьогодні"), tr("Вчора"), tr("Цей тиждень"), tr("Останні 7 днів"),
                            tr("Цей місяць"), tr("Минулий місяць")});
}

void RangeSelector::takePreset(int index)
{
    if (index < 1)
        return;
    const DayRange days = presetDays(index, QDate::currentDate());
    setDays(days.first, days.last);
    ui->cbPreset->setCurrentIndex(index);
}

void RangeSelector::showid(bool byNumber)
{
    for (QWidget *widget :
         QList<QWidget *>{ui->labelNumberFrom, ui->leNumberFrom, ui->labelNumberTo, ui->leNumberTo})
        widget->setVisible(byNumber);
    for (QWidget *widget :
         QList<QWidget *>{ui->cbPreset, ui->labelDateFrom, ui->deFrom, ui->labelDateTo, ui->deTo})
        widget->setVisible(!byNumber);
}

void RangeSelector::hideNumbers()
{
    ui->chByNumber->setChecked(false);
    ui->chByNumber->hide();
}

bool RangeSelector::isByNumber() const
{
    return ui->chByNumber->isChecked();
}

void RangeSelector::setByNumber(bool byNumber)
{
    ui->chByNumber->setChecked(byNumber);
}

QString RangeSelector::from() const
{
    return isByNumber() ? ui->leNumberFrom->text() : sqlDayStart(firstDay());
}

QString RangeSelector::to() const
{
    return isByNumber() ? ui->leNumberTo->text() : sqlDayEnd(lastDay());
}

QDate RangeSelector::firstDay() const
{
    return ui->deFrom->date();
}

QDate RangeSelector::lastDay() const
{
    return ui->deTo->date();
}

void RangeSelector::setDays(const QDate &first, const QDate &last)
{
    ui->deFrom->setDate(first);
    ui->deTo->setDate(last);
}

void RangeSelector::setNumbers(const QString &first, const QString &last)
{
    ui->leNumberFrom->setText(first);
    ui->leNumberTo->setText(last);
}

QString RangeSelector::refusal() const
{
    if (isByNumber()) {
        if (ui->leNumberFrom->text().isEmpty() || ui->leNumberTo->text().isEmpty())
            return tr("Введіть номери змін: від і до.");
        if (ui->leNumberFrom->text().toULongLong() > ui->leNumberTo->text().toULongLong())
            return tr("Початковий номер зміни більший за кінцевий.");
    } else if (firstDay() > lastDay()) {
        return tr("Початкова дата пізніша за кінцеву.");
    }
    return QString();
}

QString RangeSelector::description() const
{
    if (isByNumber())
        return tr("зміни %1 – %2").arg(ui->leNumberFrom->text(), ui->leNumberTo->text());
    return daysShown(firstDay(), lastDay());
}
