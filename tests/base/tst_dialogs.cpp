#include "testing.h"

#include "qmessdlg.h"
#include "qmessevent.h"
#include "qqestion.h"
#include "scanguard.h"

#include <QClipboard>
#include <QLabel>
#include <QPushButton>
#include <QScreen>

Q_DECLARE_METATYPE(std::function<void(QMessDlg *)>)

/// The dialogs that ask and warn, answered from the keyboard as at a shop counter.
class TstDialogs : public QObject
{
    Q_OBJECT

private slots:
    void questionIsAnsweredByItsKeys();
    void strayKeysAnswerNothing();
    void warningHasOneButton();
    void longTextsFitTheScreen();
    void buttonsFitWithLargeLetters();
    void detailsAreFoldedAndCopied();
    void fourButtonsAnswerWithTheirNumber();
    void choiceByKeys_data();
    void choiceByKeys();
    void losingTakesADeliberateAct_data();
    void losingTakesADeliberateAct();
    void messageCarriesItsPlace();

private:
    int ask(bool single, const QList<int> &keys);
};

int TstDialogs::ask(bool single, const QList<int> &keys)
{
    int answer = -1;
    withModal<QQestion>([&] { answer = QQestion::question(nullptr, "Т", "Текст", single); },
                        [&](QQestion *question) {
                            waitOutGuard();
                            for (const int key : keys) {
                                QTest::qWait(ScanGuard::quietMs + 10);
                                if (question->isVisible())
                                    QTest::keyClick(child<QPushButton>(question, "pbOk"), Qt::Key(key));
                            }
                            if (question->isVisible())
                                question->done(77);
                        });
    return answer;
}

void TstDialogs::questionIsAnsweredByItsKeys()
{
    QCOMPARE(ask(false, {Qt::Key_Space, Qt::Key_Enter}), int(QDialog::Accepted));
    QCOMPARE(ask(false, {Qt::Key_Tab, Qt::Key_Backspace}), int(QDialog::Rejected));
    QCOMPARE(ask(false, {Qt::Key_Escape}), int(QDialog::Rejected));
}

/// A scan that was on its way when the question came up, one that comes later, and a key that is held down.
void TstDialogs::strayKeysAnswerNothing()
{
    int answer = -1;
    withModal<QQestion>([&] { answer = QQestion::question(nullptr, "Т", "Текст"); },
                        [](QPointer<QQestion> question) {
                            scan(question, "4820000000109");
                            for (int i = 0; i < 12 && question; ++i) {
                                pressKeys({Qt::Key_Return});
                                QTest::qWait(50);
                            }
                            QVERIFY(question && question->isVisible());
                            waitOutGuard();
                            scan("4820000000109");
                            pressKeys({Qt::Key_Backspace});
                            QVERIFY(question && question->isVisible());
                            question->done(77);
                        });
    QCOMPARE(answer, 77);
}

void TstDialogs::warningHasOneButton()
{
    QCOMPARE(ask(true, {Qt::Key_Backspace}), int(QDialog::Rejected));
    QQestion warning(nullptr, true);
    QCOMPARE(child<QPushButton>(&warning, "pbOk")->text(), QString("OK"));
    QVERIFY(child<QPushButton>(&warning, "pbCancel")->isHidden());
}

void TstDialogs::longTextsFitTheScreen()
{
    const QRect screen = QGuiApplication::primaryScreen()->virtualGeometry();
    for (const int words : {1, 20, 2000}) {
        const QString text = QString("дуже довгий текст ").repeated(words);
        const auto fits = [&](QDialog *dialog) {
            QVERIFY(dialog->width() <= screen.width() && dialog->height() <= screen.height() * 9 / 10);
            QVERIFY(dialog->width() <= screen.width() / 2 || qobject_cast<QMessDlg *>(dialog));
            auto *label = child<QLabel>(dialog, "labelText");
            QVERIFY2(label->height() >= label->heightForWidth(label->width()), qPrintable(text.left(30)));
            QVERIFY2(words > 20 || label->visibleRegion().boundingRect().height() == label->height(),
                     "A text that finds room is shown whole");
        };
        QVERIFY(withModal<QQestion>([&] { QQestion::question(nullptr, "Т", text); }, fits));
        QVERIFY(withModal<QMessDlg>([&] { QMessDlg::confirm(nullptr, "Т", text, "Так"); }, fits));
    }
}

void TstDialogs::buttonsFitWithLargeLetters()
{
    const QFont before = QApplication::font();
    for (const int points : {9, 24}) {
        QFont font = before;
        font.setPointSize(points);
        QApplication::setFont(font);
        const auto fits = [](QDialog *dialog) {
            const auto buttons = dialog->findChildren<QPushButton *>();
            for (const QPushButton *button : buttons) {
                QVERIFY2(button->isHidden() || dialog->rect().contains(button->geometry()),
                         qPrintable(button->text()));
                QVERIFY2(button->isHidden() || button->width() >= button->sizeHint().width(),
                         qPrintable(button->text()));
            }
            QVERIFY(dialog->width() <= QGuiApplication::primaryScreen()->geometry().width());
        };
        QVERIFY(withModal<QQestion>([] { QQestion::question(nullptr, "Т", "Не достатньо товару!"); }, fits));
        QVERIFY(withModal<QMessDlg>(
            [] {
                QMessDlg::quest(nullptr, "Т", "Закрити?", "Відмінити закриття", "Закрити тільки зміну",
                                "Закрити період та зміну", "");
            },
            fits));
    }
    QApplication::setFont(before);
}

void TstDialogs::detailsAreFoldedAndCopied()
{
    withModal<QQestion>([] { QQestion::tell(nullptr, "Т", "Сервер не відповідає.", "SELECT 1\nerror 2013"); },
                        [](QQestion *told) {
                            QVERIFY(!child<QWidget>(told, "details")->isVisible());
                            waitOutGuard();
                            child<QPushButton>(told, "pbDetails")->click();
                            QVERIFY(child<QWidget>(told, "details")->isVisible());
                            child<QPushButton>(told, "pbCopy")->click();
                            pressKeys({Qt::Key_Return});
                            QVERIFY(!told->isVisible());
                        });
    QCOMPARE(QGuiApplication::clipboard()->text(), QString("Сервер не відповідає.\n\nSELECT 1\nerror 2013"));
    QVERIFY(withModal<QQestion>([] { QQestion::tell(nullptr, "Т", "Текст", ""); },
                                [](QQestion *told) { QVERIFY(!told->findChild<QWidget *>("pbDetails")); }));
}

void TstDialogs::fourButtonsAnswerWithTheirNumber()
{
    for (int i = 0; i < 4; ++i) {
        int answer = -2;
        withModal<QMessDlg>(
            [&] { answer = QMessDlg::quest(nullptr, "Т", "Що?", "А", "Б", "В", "Г"); },
            [i](QMessDlg *dialog) { child<QPushButton>(dialog, QString("pb%1").arg(i))->click(); });
        QCOMPARE(answer, i);
    }
    int answer = -2;
    withModal<QMessDlg>([&] { answer = QMessDlg::quest(nullptr, "Т", "Що?", "А", "Б", "В", ""); },
                        [](QMessDlg *dialog) {
                            QVERIFY(!child<QPushButton>(dialog, "pb3")->isVisible());
                            dialog->reject();
                        });
    QCOMPARE(answer, -1);
}

void TstDialogs::choiceByKeys_data()
{
    QTest::addColumn<QVector<int>>("keys");
    QTest::addColumn<int>("answer");
    QTest::newRow("the next one") << QVector<int>{Qt::Key_Tab, Qt::Key_Return} << 2;
    QTest::newRow("the one before") << QVector<int>{Qt::Key_Left, Qt::Key_Space} << 0;
    QTest::newRow("escape") << QVector<int>{Qt::Key_Escape} << 2;
}

void TstDialogs::choiceByKeys()
{
    QFETCH(QVector<int>, keys);
    int answer = -2;
    withModal<QMessDlg>([&] { answer = QMessDlg::quest(nullptr, "Т", "Що?", "А", "Б", "В", "", 1, 2); },
                        [&](QMessDlg *) {
                            waitOutGuard();
                            for (const int key : keys)
                                pressKeys({key});
                        });
    QTEST(answer, "answer");
}

void TstDialogs::losingTakesADeliberateAct_data()
{
    const auto press = [](std::initializer_list<int> keys) {
        return std::function<void(QMessDlg *)>([keys = QVector<int>(keys)](QMessDlg *) {
            waitOutGuard();
            for (const int key : keys)
                pressKeys({key});
            QTest::qWait(150); // An access key presses its button a tenth of a second later.
        });
    };
    QTest::addColumn<std::function<void(QMessDlg *)>>("act");
    QTest::addColumn<bool>("accepted");
    QTest::newRow("Enter") << press({Qt::Key_Return}) << false;
    QTest::newRow("Esc") << press({Qt::Key_Escape}) << false;
    QTest::newRow("Tab and Enter") << press({Qt::Key_Backtab, Qt::Key_Return}) << true;
    QTest::newRow("access key") << press({int(Qt::ALT) + int(Qt::Key_O)}) << true;
    QTest::newRow("mouse") << std::function<void(QMessDlg *)>([](QMessDlg *dialog) {
        QTest::mouseClick(child<QPushButton>(dialog, "pb0"), Qt::LeftButton);
    }) << true;
    QTest::newRow("scan under way") << std::function<void(QMessDlg *)>([](QMessDlg *dialog) {
        child<QPushButton>(dialog, "pb0")->setFocus();
        scan(dialog, "4820000000109");
        QVERIFY2(dialog->isVisible(), "nothing is answered yet");
    }) << false;
    QTest::newRow("scan while it is read") << std::function<void(QMessDlg *)>([](QMessDlg *dialog) {
        waitOutGuard();
        pressKeys({Qt::Key_Backtab});
        scan(dialog, "4820000000109");
        QVERIFY2(dialog->isVisible(), "nothing is answered yet");
    }) << false;
}

void TstDialogs::losingTakesADeliberateAct()
{
    QFETCH(std::function<void(QMessDlg *)>, act);
    bool accepted = true;
    QVERIFY(withModal<QMessDlg>(
        [&] { accepted = QMessDlg::confirm(nullptr, "Закрити?", "Зміну № 30?", "&Order", "Ні"); }, act));
    QTEST(accepted, "accepted");
}

void TstDialogs::messageCarriesItsPlace()
{
    Heard heard;
    postMessage(&heard, "Текст", QMessEvent::Warning, "setting/setting.cpp", 114);
    QCOMPARE(heard.all().size(), 1);
    QCOMPARE(heard.all().first().location, QString("In file: setting/setting line: 114"));
    const QMessEvent event("In file: a line: b line: 5", "x", 1);
    QCOMPARE(event.file() + '|' + event.line(), QString("a line: b|5"));
}

QTEST_MAIN(TstDialogs)
#include "tst_dialogs.moc"
