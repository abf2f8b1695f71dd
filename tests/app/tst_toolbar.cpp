#include "testing.h"

#include "toolbar.h"

#include <QAction>
#include <QHelpEvent>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QSignalSpy>
#include <QToolButton>
#include <QToolTip>

/// The tool bar beside a field that a scanner types into.
class TstToolBar : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_window.reset(); }

    void nothingTakesTheFocus();
    void showsWhatItsActionsShow();
    void tellsKeyAndReason();
    void wordsGoWhereThereIsNoRoom();
    void hiddenOneStaysHidden();

private:
    QAction *add(const QString &text, const QString &key = {});
    QToolButton *button(QAction *action) const
    {
        return qobject_cast<QToolButton *>(m_bar->widgetForAction(action));
    }
    QString tipOf(QAction *action) const;
    /// What is seen in it, from the left; "|" is a separator.
    QStringList seen() const;

    std::unique_ptr<QMainWindow> m_window;
    ToolBar *m_bar = nullptr;
    QLineEdit *m_field = nullptr;
    QAction *m_sale = nullptr;
    QAction *m_goods = nullptr;
    QAction *m_new = nullptr;
    QAction *m_csv = nullptr;
};

QAction *TstToolBar::add(const QString &text, const QString &key)
{
    auto *action = new QAction(text, m_window.get());
    action->setShortcut(QKeySequence(key));
    QPixmap square(16, 16);
    square.fill(Qt::darkBlue);
    action->setIcon(square);
    return action;
}

void TstToolBar::init()
{
    m_window = std::make_unique<QMainWindow>();
    m_field = new QLineEdit(m_window.get());
    m_window->setCentralWidget(m_field);
    m_bar = new ToolBar(m_window.get());
    m_window->addToolBar(m_bar);
    m_sale = add("Пр&одаж, прийом", "Ctrl+1");
    m_sale->setIconText("Продаж");
    m_goods = add("&Товари");
    m_new = add("&Додати", "Ctrl+N");
    m_csv = add("&CSV");
    m_bar->setActions({m_sale, nullptr, m_goods}, {{m_new}, {m_csv}});
    m_window->resize(800, 200);
    QVERIFY(showActive(m_window.get()));
    m_field->setFocus();
    QTRY_VERIFY(m_bar->isVisible());
}

QStringList TstToolBar::seen() const
{
    QStringList words;
    for (QAction *action : m_bar->actions()) {
        const QWidget *widget = m_bar->widgetForAction(action);
        if (widget->isVisible())
            words.append(action->isSeparator() ? "|" : button(action)->text());
    }
    return words;
}

QString TstToolBar::tipOf(QAction *action) const
{
    QToolButton *hovered = button(action);
    QHelpEvent event(QEvent::ToolTip, QPoint(2, 2), hovered->mapToGlobal(QPoint(2, 2)));
    QCoreApplication::sendEvent(hovered, &event);
    return QToolTip::text();
}

void TstToolBar::nothingTakesTheFocus()
{
    QSignalSpy pressed(m_new, &QAction::triggered);
    QTest::mouseClick(button(m_new), Qt::LeftButton);
    QCOMPARE(pressed.size(), 1);
    // The extension, too.
    m_window->resize(70, 200);
    for (const QWidget *widget : m_bar->findChildren<QWidget *>())
        QVERIFY2(widget->focusPolicy() == Qt::NoFocus, qPrintable(widget->objectName()));
    scan("4820000000031");
    QVERIFY2(m_field->text().startsWith("4820000000031"), qPrintable(m_field->text()));
    QCOMPARE(pressed.size(), 1);
}

void TstToolBar::showsWhatItsActionsShow()
{
    QCOMPARE(seen(), QStringList({"Продаж", "Товари", "|", "Додати", "|", "CSV"}));
    const int left = button(m_goods)->x();
    m_new->setVisible(false);
    QTRY_COMPARE(seen(), QStringList({"Продаж", "Товари", "|", "CSV"}));
    // Pages stay under the hand when the commands change.
    QCOMPARE(button(m_goods)->x(), left);
    m_csv->setVisible(false);
    QTRY_COMPARE(seen(), QStringList({"Продаж", "Товари"}));
    m_sale->setVisible(false);
    m_goods->setVisible(false);
    // An empty one takes no room.
    QTRY_VERIFY(!m_bar->isVisible());
    m_csv->setVisible(true);
    QTRY_COMPARE(seen(), QStringList({"CSV"}));
    m_csv->setEnabled(false);
    QVERIFY(!button(m_csv)->isEnabled());
}

void TstToolBar::tellsKeyAndReason()
{
    QCOMPARE(tipOf(m_sale), QString("Продаж, прийом (Ctrl+1)"));
    QCOMPARE(tipOf(m_goods), QString("Товари"));
    m_new->setEnabled(false);
    m_new->setToolTip("У списку нічого не вибрано.");
    m_new->setStatusTip("У списку нічого не вибрано.");
    QCOMPARE(tipOf(m_new), QString("Додати: У списку нічого не вибрано."));
    m_new->setEnabled(true);
    m_new->setToolTip(QString());
    m_new->setStatusTip(QString());
    QCOMPARE(tipOf(m_new), QString("Додати (Ctrl+N)"));
}

void TstToolBar::wordsGoWhereThereIsNoRoom()
{
    const auto hasWords = [this](QAction *action) {
        return button(action)->toolButtonStyle() == Qt::ToolButtonTextBesideIcon;
    };
    QVERIFY(hasWords(m_sale) && hasWords(m_csv));
    int width = 800;
    for (; width > 60 && hasWords(m_csv); width -= 10)
        m_window->resize(width, 200);
    // The commands lose theirs first, and everything is there still.
    QVERIFY(hasWords(m_sale) && hasWords(m_goods) && !hasWords(m_new));
    QTRY_COMPARE(seen().size(), 6);
    for (; width > 60 && hasWords(m_sale); width -= 10)
        m_window->resize(width, 200);
    QVERIFY(!hasWords(m_goods));
    QTRY_COMPARE(seen().size(), 6);
    m_window->resize(800, 200);
    QVERIFY(hasWords(m_sale) && hasWords(m_csv));
}

void TstToolBar::hiddenOneStaysHidden()
{
    m_bar->setWanted(false);
    m_new->setVisible(false);
    m_new->setVisible(true);
    QTest::qWait(20);
    QVERIFY(!m_bar->isVisible());
    m_bar->setWanted(true);
    QVERIFY(m_bar->isVisible());
}

QTEST_MAIN(TstToolBar)
#include "tst_toolbar.moc"
