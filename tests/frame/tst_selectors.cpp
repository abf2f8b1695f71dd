#include "rangeselector.h"

#include <QComboBox>
#include <QSignalSpy>
#include <QTest>

/// The days of the presets, reckoned by hand from a given today.
class TstSelectors : public QObject
{
    Q_OBJECT

private slots:
    void presetsFromAGivenToday_data();
    void presetsFromAGivenToday();
    void presetIsTaken();
};

void TstSelectors::presetsFromAGivenToday_data()
{
    QTest::addColumn<QString>("today");
    QTest::addColumn<QStringList>("ranges");
    // Today, yesterday, this week, the last seven days, this month, the month before.
    QTest::newRow("sunday, first of a month")
        << "2026-03-01"
        << QStringList{"2026-03-01 2026-03-01", "2026-02-28 2026-02-28", "2026-02-23 2026-03-01",
                       "2026-02-23 2026-03-01", "2026-03-01 2026-03-01", "2026-02-01 2026-02-28"};
    QTest::newRow("monday after New Year")
        << "2026-01-05"
        << QStringList{"2026-01-05 2026-01-05", "2026-01-04 2026-01-04", "2026-01-05 2026-01-05",
                       "2025-12-30 2026-01-05", "2026-01-01 2026-01-05", "2025-12-01 2025-12-31"};
    QTest::newRow("leap day") << "2028-02-29"
                              << QStringList{"2028-02-29 2028-02-29", "2028-02-28 2028-02-28",
                                             "2028-02-28 2028-02-29", "2028-02-23 2028-02-29",
                                             "2028-02-01 2028-02-29", "2028-01-01 2028-01-31"};
}

void TstSelectors::presetsFromAGivenToday()
{
    QFETCH(QString, today);
    QFETCH(QStringList, ranges);
    QStringList reckoned;
    for (int preset = 1; preset <= ranges.size(); ++preset) {
        const DayRange days = presetDays(preset, QDate::fromString(today, Qt::ISODate));
        reckoned.append(days.first.toString(Qt::ISODate) + ' ' + days.last.toString(Qt::ISODate));
    }
    QCOMPARE(reckoned, ranges);
}

void TstSelectors::presetIsTaken()
{
    RangeSelector range;
    QSignalSpy changed(&range, &RangeSelector::changed);
    auto *presets = range.findChild<QComboBox *>("cbPreset");
    range.show();
    presets->setFocus();
    QTest::keyClick(presets, Qt::Key_Down);
    QTest::keyClick(presets, Qt::Key_Down);
    QCOMPARE(presets->currentText(), QString("Вчора"));
    QCOMPARE(range.firstDay(), QDate::currentDate().addDays(-1));
    QCOMPARE(range.lastDay(), range.firstDay());
    QVERIFY(changed.count() > 0);
    // Another day by hand is no longer the preset's.
    range.setDays(QDate(2026, 3, 1), QDate(2026, 3, 2));
    QCOMPARE(presets->currentIndex(), 0);
    QCOMPARE(range.description(), QString("01.03.2026 – 02.03.2026"));
}

QTEST_MAIN(TstSelectors)
#include "tst_selectors.moc"
