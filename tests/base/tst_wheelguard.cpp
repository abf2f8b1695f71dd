#include "testing.h"

#include "wheelguard.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QDateEdit>
#include <QFormLayout>
#include <QLineEdit>
#include <QScrollArea>
#include <QScrollBar>
#include <QSlider>
#include <QSpinBox>
#include <QTabBar>

/// A wheel that is turned over something changes it only when it was chosen before.
class TstWheelGuard : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { installWheelGuard(qApp); }
    void nothingChangesWithoutFocus();
    void whatHasTheFocusFollows();
};

namespace {
/// A form in a scroll area, with the focus in its first field.
struct Form
{
    Form()
    {
        area.setWidgetResizable(true);
        area.setWidget(page);
        auto *rows = new QFormLayout(page);
        rows->addWidget(field);
        rows->addWidget(spin);
        rows->addWidget(date);
        rows->addWidget(combo);
        rows->addWidget(slider);
        rows->addWidget(tabs);
        combo->addItems({"а", "б", "в"});
        combo->setCurrentIndex(1);
        for (const char *name : {"1", "2", "3"})
            tabs->addTab(name);
        tabs->setCurrentIndex(1);
        spin->setValue(50);
        slider->setValue(50);
        page->setMinimumHeight(2000);
        area.resize(300, 400);
        area.show();
        field->setFocus();
    }

    QString values() const
    {
        return QStringLiteral("%1 %2 %3 %4 %5")
            .arg(spin->value())
            .arg(date->date().toString(Qt::ISODate))
            .arg(combo->currentIndex())
            .arg(slider->value())
            .arg(tabs->currentIndex());
    }

    QScrollArea area;
    QWidget *page = new QWidget;
    QLineEdit *field = new QLineEdit;
    QSpinBox *spin = new QSpinBox;
    QDateEdit *date = new QDateEdit(QDate(2026, 3, 29));
    QComboBox *combo = new QComboBox;
    QSlider *slider = new QSlider(Qt::Horizontal);
    QTabBar *tabs = new QTabBar;
};
} // namespace

void TstWheelGuard::nothingChangesWithoutFocus()
{
    Form form;
    QVERIFY(QTest::qWaitForWindowActive(&form.area));
    for (QWidget *widget :
         std::initializer_list<QWidget *>{form.spin, form.date, form.combo, form.slider, form.tabs}) {
        form.area.verticalScrollBar()->setValue(0);
        turnWheel(widget, -1);
        QCOMPARE(form.values(), QString("50 2026-03-29 1 50 1"));
        QVERIFY2(form.field->hasFocus(), widget->metaObject()->className());
        QVERIFY2(form.area.verticalScrollBar()->value() > 0, widget->metaObject()->className());
        turnWheel(widget, 2);
        QCOMPARE(form.values(), QString("50 2026-03-29 1 50 1"));
    }
}

void TstWheelGuard::whatHasTheFocusFollows()
{
    Form form;
    QVERIFY(QTest::qWaitForWindowActive(&form.area));
    form.spin->setFocus();
    turnWheel(form.spin, 2);
    QCOMPARE(form.spin->value(), 52);
    form.combo->setFocus();
    turnWheel(form.combo, 1);
    QCOMPARE(form.combo->currentIndex(), 1);
    QCOMPARE(form.values(), QString("52 2026-03-29 1 50 1"));
}

QTEST_MAIN(TstWheelGuard)
#include "tst_wheelguard.moc"
