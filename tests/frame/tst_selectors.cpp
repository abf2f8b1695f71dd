#include "heartbeat.h"
#include "testing.h"

#include "combos.h"
#include "qchekedcombobox.h"
#include "rangeselector.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QSignalSpy>
#include <QTest>

namespace {
constexpr int manyShops = 12800;
/// Quadratic work on so many takes ten times as long and more, also on a fast machine.
constexpr int mostMs = 700;

/// Each shop three times, as the join with its registers gives it.
ListEntries shopsByRegisters()
{
    ListEntries entries;
    for (int row = 0; row < 3 * manyShops; ++row)
        entries.append({QStringLiteral("вул. Довга, %1").arg(row / 3), uint(1 + row / 3)});
    return entries;
}
} // namespace

/// The boxes that choose place and time, with few items and with those of a large chain.
class TstSelectors : public QObject
{
    Q_OBJECT

private slots:
    void presetsFromAGivenToday_data();
    void presetsFromAGivenToday();
    void presetIsTaken();
    void thousandsOfShopsAreOfferedInAMoment();
    void chosenEntryStays();
    void thousandsAreCheckedInAMoment();
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

void TstSelectors::thousandsOfShopsAreOfferedInAMoment()
{
    QComboBox box;
    box.setStyleSheet("QComboBox { combobox-popup: 1px }");
    keepNarrow(&box);
    box.show();
    QVERIFY(QTest::qWaitForWindowActive(&box));
    const ListEntries rows = shopsByRegisters();
    QSignalSpy changed(&box, qOverload<int>(&QComboBox::currentIndexChanged));
    Heartbeat beat;
    showEntries(&box, eachOnce(rows));
    QVERIFY2(beat.longestGap() < mostMs, qPrintable(QString::number(beat.longestGap())));
    QCOMPARE(box.count(), manyShops);
    QCOMPARE(changed.count(), 0);
    QCOMPARE(chosenItem(&box).id, QString("1"));
    QCOMPARE(box.itemText(manyShops - 1) + box.itemData(manyShops - 1).toString(),
             QString("вул. Довга, 1279912800"));
    // A hand goes through them and opens the list.
    beat.restart();
    for (int i = 0; i < 20; ++i)
        QTest::keyClick(&box, Qt::Key_Down);
    QTest::mouseClick(&box, Qt::LeftButton);
    QTRY_VERIFY(box.view()->isVisible());
    QVERIFY2(beat.longestGap() < mostMs, qPrintable(QString::number(beat.longestGap())));
    QCOMPARE(chosenItem(&box).id, QString("21"));
    QVERIFY(box.view()->viewport()->width() >= box.fontMetrics().horizontalAdvance("вул. Довга, 12799"));
    box.hidePopup();
}

void TstSelectors::chosenEntryStays()
{
    QComboBox box;
    box.resize(200, 30);
    box.show();
    QVERIFY(QTest::qWaitForWindowActive(&box));
    showEntries(&box, {{"Усі", 0}, {"Перша", 7}, {"Друга", 8}});
    box.setCurrentIndex(2);
    // Renamed and at another place; then gone.
    QVERIFY(showEntriesAgain(&box, {{"Усі", 0}, {"Нова", 9}, {"Інша", 5}, {"Друга нова", 8}}));
    QCOMPARE(box.currentText(), QString("Друга нова"));
    QVERIFY(!showEntriesAgain(&box, {{"Усі", 0}, {"Нова", 9}}));
    QCOMPARE(box.currentIndex(), 0);
    // Without data by text. A list that is open meanwhile shows all of them.
    showEntries(&box, {{"Усі", {}}, {"Каса 1", {}}});
    box.setCurrentIndex(1);
    box.showPopup();
    QTRY_VERIFY(box.view()->isVisible());
    QVERIFY(showEntriesAgain(&box, {{"Усі", {}}, {"Каса 0", {}}, {"Каса 1", {}}}));
    QCOMPARE(box.currentText(), QString("Каса 1"));
    QTRY_VERIFY(box.view()->isVisible());
    QVERIFY(box.view()->viewport()->height() >= box.view()->visualRect(box.model()->index(2, 0)).bottom());
    box.hidePopup();
}

void TstSelectors::thousandsAreCheckedInAMoment()
{
    QChekedComboBox box;
    box.resize(300, 30);
    box.show();
    QVERIFY(QTest::qWaitForWindowActive(&box));
    Heartbeat beat;
    ListEntries entries = eachOnce(shopsByRegisters());
    entries.prepend({"Усі", 0});
    showEntries(&box, entries);
    box.setChekedItem(0, Qt::Checked);
    QCOMPARE(box.listData(Qt::UserRole).size(), manyShops + 1);
    QTest::mouseClick(&box, Qt::LeftButton);
    QTRY_VERIFY(box.view()->isVisible());
    box.view()->setCurrentIndex(box.model()->index(2, 0));
    pressKeys({Qt::Key_Space, Qt::Key_Down, Qt::Key_Space});
    QVERIFY2(beat.longestGap() < 3 * mostMs, qPrintable(QString::number(beat.longestGap())));
    box.hidePopup();
    const QStringList texts = box.listTexts();
    QCOMPARE(texts.size(), manyShops - 2);
    QCOMPARE(texts.mid(0, 2), QStringList({"вул. Довга, 0", "вул. Довга, 3"}));
    QVERIFY(!box.isAllSelect());
    QVERIFY2(box.displayText().startsWith("вул. Довга, 0, вул. Довга, 3") && box.displayText().endsWith("…"),
             qPrintable(box.displayText()));
    QVERIFY(box.toolTip().size() < 2000 && box.toolTip().endsWith("…"));
}

QTEST_MAIN(TstSelectors)
#include "tst_selectors.moc"
