#include "tcpproxy.h"
#include "workplace.h"

#include "qmessevent.h"
#include "qntableview.h"
#include "qrowmodel.h"
#include "qtabdevices.h"

#include <QAbstractItemView>
#include <QLabel>
#include <QLineEdit>

/// The devices: names as in every list of names, and types that are chosen.
class TstQTabDevices : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { m_place = std::make_unique<Workplace>(); }
    void cleanupTestCase() { m_place.reset(); }
    void init();
    void cleanup();

    void listIsFoundByNameAndType();
    void chosenTypeIsStored_data();
    void chosenTypeIsStored();
    void newDeviceIsAskedForItsType();
    void typedAheadOnASlowLine();
    void unknownTypeStaysInItsEditor();
    void changedMeanwhile();
    void takenNameIsTold();
    void viewerEditsNothing();

private:
    void open(int right = Permission::Full, QSqlDatabase *db = nullptr);
    QLineEdit *editor();
    QWidget *openCell(int row, DeviceColumn column);
    /// To the list of types while it is open, else to whatever has the focus.
    static void press(int key);
    static void type(const QString &text);
    QStringList stored();
    QString shown(int row) { return m_tab->model()->stored(row, 1) + '/' + m_tab->model()->stored(row, 2); }

    std::unique_ptr<Workplace> m_place;
    FreshDatabase *m_base = nullptr;
    std::unique_ptr<qtabdevices> m_tab;
};

void TstQTabDevices::init()
{
    m_base = &m_place->base;
    m_base->exec(
        {"DELETE FROM devices", "ALTER TABLE devices AUTO_INCREMENT=1",
         "INSERT INTO devices(id,name,id_type_device) VALUES(1,'Каса О''Ніл',2),(2,'Камера двору',3),"
         "(3,NULL,NULL)"});
    open();
}

void TstQTabDevices::cleanup()
{
    waitOutTasks();
    m_tab.reset();
}

void TstQTabDevices::open(int right, QSqlDatabase *db)
{
    m_tab.reset();
    m_place->logIn(Permission::Devices, right);
    m_tab = std::make_unique<qtabdevices>(db != nullptr ? db : m_place->connection(), m_place->user(),
                                          &m_base->heard, m_place->settings(), nullptr);
    m_tab->setPermission(Permission::Devices);
    m_tab->resize(700, 300);
    QVERIFY(showActive(m_tab.get()));
    QTRY_VERIFY(!m_tab->isLoading());
    waitOutTasks();
    m_tab->view()->sortByColumn(0, Qt::AscendingOrder);
    m_base->heard.forget();
}

QLineEdit *TstQTabDevices::editor()
{
    const auto editors = m_tab->view()->viewport()->findChildren<QLineEdit *>();
    for (QLineEdit *edit : editors) {
        if (edit->isVisible())
            return edit;
    }
    return nullptr;
}

/// Returns the open list of types, if that is the column.
QWidget *TstQTabDevices::openCell(int row, DeviceColumn column)
{
    m_tab->view()->setFocus();
    m_tab->view()->setCurrentIndex(m_tab->model()->index(row, static_cast<int>(column)));
    pressKeys({Qt::Key_Return});
    const bool isType = column == DeviceColumn::Type;
    if (!QTest::qWaitFor(
            [&] { return editor() != nullptr && (QApplication::activePopupWidget() != nullptr) == isType; }))
        qFatal("no editor has opened");
    return QApplication::activePopupWidget();
}

void TstQTabDevices::press(int key)
{
    QWidget *popup = QApplication::activePopupWidget();
    QTest::keyClick(popup != nullptr ? popup : QApplication::focusWidget(), Qt::Key(key));
}

void TstQTabDevices::type(const QString &text)
{
    for (const QChar letter : text) {
        QWidget *popup = QApplication::activePopupWidget();
        QKeyEvent down(QEvent::KeyPress, 0, Qt::NoModifier, letter);
        QApplication::sendEvent(popup != nullptr ? popup : QApplication::focusWidget(), &down);
    }
}

QStringList TstQTabDevices::stored()
{
    waitOutTasks();
    return m_base->rows("SELECT id,name,id_type_device FROM devices ORDER BY id");
}

void TstQTabDevices::listIsFoundByNameAndType()
{
    QCOMPARE(shown(0), QString("Каса О'Ніл/РРО"));
    QCOMPARE(shown(2), QString("/"));
    auto *search = child<QLineEdit>(m_tab.get(), "leSearch");
    search->setFocus();
    for (const char *text : {"кам", "двор камера", "рро о'н"}) {
        search->setText(text);
        QTRY_COMPARE(m_tab->model()->rowCount(), 1);
    }
    search->setText("%");
    QTRY_COMPARE(m_tab->model()->rowCount(), 0);
    m_base->exec("DELETE FROM devices");
    search->clear();
    QTRY_COMPARE(child<QLabel>(m_tab.get(), "labelState")->text(), QString("Записів: 0"));
    QCOMPARE(m_base->heard.texts(), QStringList());
}

void TstQTabDevices::chosenTypeIsStored_data()
{
    QTest::addColumn<QString>("way");
    QTest::addColumn<QString>("device");
    QTest::newRow("arrow and Enter") << "arrow"
                                     << "1|Каса О'Ніл|1";
    QTest::newRow("first letters") << "сервер"
                                   << "1|Каса О'Ніл|4";
    QTest::newRow("mouse") << "mouse"
                           << "1|Каса О'Ніл|5";
    QTest::newRow("none") << "не вказано"
                          << "1|Каса О'Ніл|";
    QTest::newRow("looked at only") << ""
                                    << "1|Каса О'Ніл|2";
    QTest::newRow("Esc") << "Esc"
                         << "1|Каса О'Ніл|2";
}

void TstQTabDevices::chosenTypeIsStored()
{
    QFETCH(QString, way);
    m_base->exec("UPDATE updat SET updat='2020-01-01'");
    auto *choices = qobject_cast<QAbstractItemView *>(openCell(0, DeviceColumn::Type));
    QCOMPARE(choices->model()->rowCount(), 6);
    if (way == "mouse") {
        QTest::mouseClick(choices->viewport(), Qt::LeftButton, {},
                          choices->visualRect(choices->model()->index(4, 0)).center());
    } else if (way == "arrow" || way == "Esc") {
        press(Qt::Key_Down);
        press(way == "Esc" ? Qt::Key_Escape : Qt::Key_Return);
    } else {
        type(way);
        press(Qt::Key_Return);
    }
    QTRY_VERIFY2(editor() == nullptr, "one key or click is enough");
    QTEST(stored().first(), "device");
    const bool isWritten = way != "" && way != "Esc";
    QCOMPARE(m_base->rows("SELECT name FROM updat WHERE updat>'2020-01-01'"),
             isWritten ? QStringList("devices") : QStringList());
    QCOMPARE(shown(0).section('/', 1),
             m_base->value("SELECT type_device.name FROM devices LEFT JOIN type_device ON "
                           "type_device.id=id_type_device WHERE devices.id=1"));
    QCOMPARE(m_base->heard.texts(), QStringList());
}

void TstQTabDevices::newDeviceIsAskedForItsType()
{
    m_tab->Add();
    QTRY_VERIFY(editor() != nullptr && editor()->hasFocus());
    typeText("Термінал");
    pressKeys({Qt::Key_Return});
    QTRY_VERIFY(editor() != nullptr && editor()->objectName() == "editType");
    QTRY_VERIFY(QApplication::activePopupWidget() != nullptr);
    type("nas");
    press(Qt::Key_Return);
    QTRY_VERIFY(editor() == nullptr);
    QCOMPARE(stored().last(), QString("4|Термінал|5"));
    QCOMPARE(shown(3), QString("Термінал/NAS-PC"));
    // Without a type, and given up.
    m_tab->Add();
    QTRY_VERIFY(editor() != nullptr && editor()->hasFocus());
    typeText("Ваги");
    pressKeys({Qt::Key_Return});
    QTRY_VERIFY(QApplication::activePopupWidget() != nullptr);
    press(Qt::Key_Escape);
    QTRY_VERIFY(editor() == nullptr);
    QCOMPARE(stored().last(), QString("5|Ваги|"));
    QCOMPARE(m_tab->model()->rowCount(), 5);
    m_tab->Add();
    QTRY_VERIFY(editor() != nullptr && editor()->objectName() == "editName");
    pressKeys({Qt::Key_Escape});
    QTRY_COMPARE(m_tab->model()->rowCount(), 5);
}

void TstQTabDevices::typedAheadOnASlowLine()
{
    TcpProxy proxy(testServer());
    DatabaseAddress address = proxy.address();
    address.name = m_base->address().name;
    QSqlDatabase slow = addConnection("slow", address);
    QVERIFY(slow.open());
    open(Permission::Full, &slow);
    proxy.setDelay(100);
    m_tab->Add();
    QTRY_VERIFY(editor() != nullptr && editor()->hasFocus());
    typeText("Ваги");
    pressKeys({Qt::Key_Return});
    typeText("пк");
    pressKeys({Qt::Key_Return});
    QTRY_COMPARE(stored().last(), QString("4|Ваги|1"));
    QTRY_VERIFY(editor() == nullptr);
    QCOMPARE(shown(3), QString("Ваги/ПК"));
    QCOMPARE(m_base->heard.texts(), QStringList());
    m_tab.reset();
    slow = QSqlDatabase();
}

void TstQTabDevices::unknownTypeStaysInItsEditor()
{
    openCell(0, DeviceColumn::Type);
    type("Праска");
    const QString told = answerQuestion([] { press(Qt::Key_Return); });
    QVERIFY2(told.startsWith("Типу «Праска» немає. Виберіть один із цих: ПК, РРО, Камера"), qPrintable(told));
    m_tab->activateWindow();
    QTRY_VERIFY(editor() != nullptr && editor()->hasFocus());
    QCOMPARE(editor()->text(), QString("Праска"));
    press(Qt::Key_Escape);
    QTRY_VERIFY(editor() == nullptr);
    QCOMPARE(stored().first(), QString("1|Каса О'Ніл|2"));
}

void TstQTabDevices::changedMeanwhile()
{
    openCell(0, DeviceColumn::Type);
    m_base->exec("UPDATE devices SET id_type_device=5 WHERE id=1");
    type("камера");
    QString told = answerQuestion([] {
        press(Qt::Key_Return);
        waitOutTasks();
    });
    QVERIFY2(told.contains("інша програма записала тут «NAS-PC»"), qPrintable(told));
    QCOMPARE(stored().first(), QString("1|Каса О'Ніл|5"));
    m_tab->activateWindow();
    QTRY_VERIFY(editor() != nullptr && editor()->hasFocus());
    press(Qt::Key_Return);
    QTRY_VERIFY(editor() == nullptr);
    QCOMPARE(stored().first(), QString("1|Каса О'Ніл|3"));
    // One that has gone.
    openCell(1, DeviceColumn::Type);
    m_base->exec("DELETE FROM devices WHERE id=2");
    type("пк");
    told = answerQuestion([] {
        press(Qt::Key_Return);
        waitOutTasks();
    });
    QCOMPARE(told, QString("Запис не знайдено в базі!"));
    m_tab->activateWindow();
    QTRY_VERIFY(editor() != nullptr && editor()->hasFocus());
    press(Qt::Key_Escape);
    QTRY_VERIFY(editor() == nullptr);
}

void TstQTabDevices::takenNameIsTold()
{
    openCell(1, DeviceColumn::Name);
    editor()->selectAll();
    typeText("каса о'ніл");
    const QString told = answerQuestion([] {
        pressKeys({Qt::Key_Return});
        waitOutTasks();
    });
    QCOMPARE(told, QString("Такий запис вже існує в базі!"));
    m_tab->activateWindow();
    QTRY_VERIFY(editor() != nullptr && editor()->hasFocus());
    QCOMPARE(editor()->maxLength(), 100);
    pressKeys({Qt::Key_Escape});
    QCOMPARE(stored().at(1), QString("2|Камера двору|3"));
}

void TstQTabDevices::viewerEditsNothing()
{
    open(2);
    m_tab->Add();
    for (const DeviceColumn column : {DeviceColumn::Name, DeviceColumn::Type}) {
        m_tab->view()->setCurrentIndex(m_tab->model()->index(0, static_cast<int>(column)));
        m_tab->view()->setFocus();
        pressKeys({Qt::Key_Return});
        QVERIFY(editor() == nullptr);
    }
    QCOMPARE(m_tab->model()->rowCount(), 3);
    QVERIFY(!m_tab->isOffered(Command::Edit) && !m_tab->isOffered(Command::Add));
    open();
    QCOMPARE(answerQuestion([this] { m_tab->run(Command::Delete); }), QString("Видалення заборонене!!!"));
    QCOMPARE(stored().size(), 3);
}

QTEST_MAIN(TstQTabDevices)
#include "tst_qtabdevices.moc"
