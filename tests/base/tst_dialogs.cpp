#include "testing.h"

#include "qmessdlg.h"
#include "qmessevent.h"
#include "qqestion.h"

#include <QLabel>
#include <QPushButton>
#include <QScreen>

/// The dialogs that ask and warn, answered from the keyboard as at a shop counter.
class TstDialogs : public QObject
{
    Q_OBJECT

private slots:
    void questionIsAnsweredByTwoKeys();
    void warningHasOneButton();
    void longTextWraps();
    void fourButtonsAnswerWithTheirNumber();
    void messageCarriesItsPlace();

private:
    int ask(bool single, const QList<int> &keys);
};

int TstDialogs::ask(bool single, const QList<int> &keys)
{
    int answer = -1;
    withModal<QQestion>([&] { answer = QQestion::question(nullptr, "Т", "Текст", single); },
                        [&](QQestion *question) {
                            for (const int key : keys) {
                                if (question->isVisible())
                                    QTest::keyClick(child<QPushButton>(question, "pbOk"), Qt::Key(key));
                            }
                            if (question->isVisible())
                                question->done(77);
                        });
    return answer;
}

void TstDialogs::questionIsAnsweredByTwoKeys()
{
    QCOMPARE(ask(false, {Qt::Key_Return}), int(QDialog::Accepted));
    QCOMPARE(ask(false, {Qt::Key_Enter}), int(QDialog::Accepted));
    QCOMPARE(ask(false, {Qt::Key_Backspace}), int(QDialog::Rejected));
    // What a scanner or a stray hand sends is swallowed.
    QCOMPARE(ask(false, {Qt::Key_Space, Qt::Key_Escape, Qt::Key_4, Qt::Key_Tab}), 77);
}

void TstDialogs::warningHasOneButton()
{
    QCOMPARE(ask(true, {Qt::Key_Return}), int(QDialog::Accepted));
    QCOMPARE(ask(true, {Qt::Key_Backspace}), int(QDialog::Rejected));
    QQestion warning(nullptr, true);
    QCOMPARE(child<QPushButton>(&warning, "pbOk")->text(), QString("OK"));
    QVERIFY(child<QPushButton>(&warning, "pbCancel")->isHidden());
}

void TstDialogs::longTextWraps()
{
    withModal<QQestion>([] { QQestion::question(nullptr, "Т", QString("дуже довгий текст ").repeated(60)); },
                        [](QQestion *question) {
                            const int half = QGuiApplication::primaryScreen()->virtualGeometry().width() / 2;
                            QVERIFY(question->width() <= half);
                            auto *text = child<QLabel>(question, "labelText");
                            QVERIFY(text->height() >= text->heightForWidth(text->width()));
                        });
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
