#pragma once

#include <QDate>
#include <QWidget>
#include <memory>

namespace Ui {
class RangeSelector;
}

struct DayRange
{
    QDate first;
    QDate last;
};
/// The days of a preset: 1 today, 2 yesterday, 3 this week, 4 the last seven days, 5 this month, 6 the month
/// before.
DayRange presetDays(int preset, const QDate &today);

/// "01.03.2026 – 31.03.2026", a single day once.
QString daysShown(const QDate &first, const QDate &last);

/// When: a range of days, with presets, or of Z numbers when "по змінах" is ticked.
class RangeSelector : public QWidget
{
    Q_OBJECT

public:
    explicit RangeSelector(QWidget *parent = nullptr);
    ~RangeSelector() override;

    /// Days only: the box "по змінах" goes.
    void hideNumbers();

    bool isByNumber() const;
    void setByNumber(bool byNumber);
    /// Both ends as the statements write them: the Z numbers as typed, or the first and the last second of
    /// the days as yyyyMMddhhmmss.
    QString from() const;
    QString to() const;
    QDate firstDay() const;
    QDate lastDay() const;
    void setDays(const QDate &first, const QDate &last);
    void setNumbers(const QString &first, const QString &last);

    /// Why the range cannot be asked for (an empty number, an end before its start); empty when it can.
    QString refusal() const;
    /// The range in words, for headings: "01.03.2026 – 31.03.2026" or "зміни 5 – 9".
    QString description() const;

signals:
    void firstDayChanged(const QDate &day);
    void lastDayChanged(const QDate &day);
    /// Either end of days or numbers, or which of the two counts.
    void changed();

public slots:
    void showid(bool byNumber);

private:
    void fillPresets();
    void takePreset(int index);

    std::unique_ptr<Ui::RangeSelector> ui;
};
