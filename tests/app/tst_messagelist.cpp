#include "testing.h"

#include "messagelist.h"
#include "messagewords.h"
#include "qmessevent.h"

#include <QCheckBox>
#include <QClipboard>
#include <QLineEdit>
#include <QMainWindow>
#include <QPushButton>
#include <QStatusBar>
#include <QTreeWidget>

/// "Повідомлення": what the session told, in plain words, and what can be done with it.
class TstMessageList : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void plainWordsComeFirst_data();
    void plainWordsComeFirst();
    void newestStandsAboveAndRepeatedIsCounted();
    void oldestGo();
    void countGoesWhenSeen();
    void errorsAloneAreShownAndCopied();
    void keyOpensAndGivesTheFocusBack();

private:
    void tell(const QString &text, int kind = QMessEvent::Critical)
    {
        m_list->add(QMessEvent("In file: tab_table/frame/qtab line: 57", text, kind));
    }
    QTreeWidget *tree() { return child<QTreeWidget>(m_list, "messageTree"); }
    QStringList column(int number);
    QPushButton *button() { return child<QPushButton>(m_window.get(), "pbMessages"); }
    QString copied(const char *name)
    {
        child<QPushButton>(m_list, name)->click();
        return QApplication::clipboard()->text();
    }

    std::unique_ptr<QMainWindow> m_window;
    QLineEdit *m_page = nullptr;
    MessageList *m_list = nullptr;
};

void TstMessageList::init()
{
    m_window = std::make_unique<QMainWindow>();
    m_window->resize(900, 600);
    m_page = new QLineEdit(m_window.get());
    m_window->setCentralWidget(m_page);
    m_list = new MessageList(m_window.get());
    m_window->addDockWidget(Qt::BottomDockWidgetArea, m_list);
    m_window->statusBar()->addPermanentWidget(m_list->button());
    QVERIFY(showActive(m_window.get()));
    m_page->setFocus();
}

void TstMessageList::cleanup()
{
    m_window.reset();
}

QStringList TstMessageList::column(int number)
{
    QStringList texts;
    for (int row = 0; row < tree()->topLevelItemCount(); ++row) {
        if (!tree()->topLevelItem(row)->isHidden())
            texts.append(tree()->topLevelItem(row)->text(number));
    }
    return texts;
}

void TstMessageList::plainWordsComeFirst_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("words");
    QTest::addColumn<QString>("details");

    const auto row = [](const char *name, const QString &text, const QString &words, const QString &details) {
        QTest::newRow(name) << text << words << details;
    };
    const QString taken =
        "Помилка запиту:\nDuplicate entry 'Сир' for key 'name'\nINSERT INTO goods VALUES(1)";
    row("a known error of the server", taken,
        "Такий запис у базі вже є: значення, яке не повинно повторюватись, зайняте. Змініть його і запишіть "
        "ще раз.",
        taken);
    const QString odd = "Помилка запиту:\nSomething odd\nSELECT 1";
    row("an unknown one", odd,
        "База даних не виконала запит. Спробуйте ще раз; якщо це повториться, передайте подробиці "
        "адміністратору.",
        odd);
    const QString opened =
        "Помилка створення таблиці shops\nTable 'x.y' doesn't exist\nCREATE TABLE shops(id)";
    row("one with words of its own", opened,
        "Помилка створення таблиці shops. У базі бракує таблиці. Зверніться до адміністратора: відсутні таблиці "
        "додає «Сервіс – Створити таблиці».",
        opened);
    row("one that is explained already",
        "Ці дані зараз тримає інша програма.\n\nПомилка запиту:\nLock wait timeout exceeded\nUPDATE goods",
        "Ці дані зараз тримає інша програма.", "Помилка запиту:\nLock wait timeout exceeded\nUPDATE goods");
    const QString noDatabase = "Помилка з'єднання з БД.\nCan't connect to server on '10.0.0.1' (111)";
    row("no connection", noDatabase,
        "Помилка з'єднання з БД. Немає зв'язку із сервером бази даних. Програма підключається знову сама; "
        "перевірте мережу, якщо це триває.",
        noDatabase);
    row("a notice", "Список записано у файл:\n/home/olena/Goods list.csv",
        "Список записано у файл:\n/home/olena/Goods list.csv", "");
}

void TstMessageList::plainWordsComeFirst()
{
    QFETCH(QString, text);
    QFETCH(QString, words);
    QFETCH(QString, details);

    QCOMPARE(plainMessage(text).words, words);
    QCOMPARE(plainMessage(text).details, details);
    tell(text);
    QCOMPARE(column(2).first(), words.section('\n', 0, 0));
    const QString folded = tree()->topLevelItem(0)->child(0)->text(0);
    QVERIFY2(folded.contains(details) && folded.contains("Файл: tab_table/frame/qtab, рядок: 57"),
             qPrintable(folded));
    QVERIFY(!tree()->topLevelItem(0)->isExpanded());
}

void TstMessageList::newestStandsAboveAndRepeatedIsCounted()
{
    tell("Перше");
    tell("Друге", QMessEvent::Warning);
    tell("Слід", QMessEvent::Debug);
    tell("Третє", QMessEvent::Information);
    QCOMPARE(column(2), (QStringList{"Третє", "Друге", "Перше"}));
    QCOMPARE(column(0), (QStringList{"Повідомлення", "Попередження", "Помилка"}));

    // Read by somebody just now: it stays open where it goes.
    tree()->topLevelItem(2)->setExpanded(true);
    tree()->setCurrentItem(tree()->topLevelItem(2));
    tell("Перше");
    tell("Перше");
    QCOMPARE(column(2), (QStringList{"Перше (разів: 3)", "Третє", "Друге"}));
    QVERIFY(tree()->topLevelItem(0)->isExpanded());
    QCOMPARE(tree()->currentItem(), tree()->topLevelItem(0));
    // Of another kind it is another one.
    tell("Перше", QMessEvent::Information);
    QCOMPARE(column(2).size(), 4);
}

void TstMessageList::oldestGo()
{
    for (int i = 0; i < MessageList::most + 5; ++i)
        tell(QString::number(i));
    QCOMPARE(column(2).size(), MessageList::most);
    QCOMPARE(column(2).last(), QString("5"));
    // One that is gone comes as a new one.
    tell("0");
    QCOMPARE(column(2).first(), QString("0"));
    QCOMPARE(column(2).last(), QString("6"));
}

void TstMessageList::countGoesWhenSeen()
{
    const QString quiet = button()->text();
    tell("Один", QMessEvent::Information);
    QCOMPARE(button()->text(), QString("Повідомлення: 1"));
    QVERIFY(button()->icon().isNull());
    tell("Два");
    QCOMPARE(button()->accessibleName(), QString("Нових повідомлень: 2, з них помилок: 1"));
    QVERIFY(!button()->icon().isNull());

    QTest::mouseClick(button(), Qt::LeftButton);
    QVERIFY(m_list->isVisible());
    QCOMPARE(button()->text(), quiet);
    tell("Три");
    QCOMPARE(button()->text(), quiet);
    m_list->close();
    tell("Чотири");
    QCOMPARE(m_list->newCount(), 1);
}

void TstMessageList::errorsAloneAreShownAndCopied()
{
    tell("Помилка запиту:\nData too long for column 'name'\nUPDATE goods SET name='Б'");
    tell("Готово", QMessEvent::Information);
    QTest::mouseClick(button(), Qt::LeftButton);
    QCOMPARE(column(2).size(), 2);
    QVERIFY(copied("pbCopyMessages").contains("Готово"));

    child<QCheckBox>(m_list, "chErrorsOnly")->click();
    QCOMPARE(column(0), QStringList("Помилка"));
    tell("Ще", QMessEvent::Warning);
    QCOMPARE(column(0), QStringList("Помилка"));
    const QString errors = copied("pbCopyMessages");
    QVERIFY2(errors.contains("Текст задовгий") && errors.contains("UPDATE goods") &&
                 !errors.contains("Готово"),
             qPrintable(errors));

    child<QCheckBox>(m_list, "chErrorsOnly")->click();
    tree()->setFocus();
    tree()->setCurrentItem(tree()->topLevelItem(1));
    pressKeys({Qt::CTRL + Qt::Key_C});
    const QString one = QApplication::clipboard()->text();
    QVERIFY2(one.contains("Повідомлення\nГотово\nФайл: ") && !one.contains("UPDATE"), qPrintable(one));
}

void TstMessageList::keyOpensAndGivesTheFocusBack()
{
    tell("Один");
    pressKeys({Qt::CTRL + Qt::Key_M});
    QTRY_VERIFY(tree()->hasFocus());
    QCOMPARE(tree()->currentItem(), tree()->topLevelItem(0));
    // The details unfold by a key.
    pressKeys({Qt::Key_Right});
    QVERIFY(tree()->topLevelItem(0)->isExpanded());
    pressKeys({Qt::Key_Escape});
    QVERIFY(!m_list->isVisible());
    QTRY_VERIFY(m_page->hasFocus());

    pressKeys({Qt::CTRL + Qt::Key_M});
    QTRY_VERIFY(tree()->hasFocus());
    m_page->setFocus();
    // Open already: the key leads into it.
    pressKeys({Qt::CTRL + Qt::Key_M});
    QTRY_VERIFY(tree()->hasFocus());
    pressKeys({Qt::CTRL + Qt::Key_M});
    QTRY_VERIFY(m_page->hasFocus());
}

QTEST_MAIN(TstMessageList)
#include "tst_messagelist.moc"
