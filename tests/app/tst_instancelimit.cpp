#include "testing.h"

#include "instancelimit.h"
#include "startwait.h"

#include <QAbstractButton>
#include <QDeadlineTimer>
#include <QMessageBox>
#include <QProcess>

#include <csignal>

/// Five copies of the program at the most, whatever becomes of them.
class TstInstanceLimit : public QObject
{
    Q_OBJECT

private slots:
    void sixthCopyIsRefused();
    void freedSlotIsTakenAgain();
    void slotOfAKilledCopyIsFree();
    void waitingIsToldAndMayBeGivenUp();

private:
    static QString prefix()
    {
        static int number = 0;
        return QStringLiteral("velta_test_%1_%2_").arg(QCoreApplication::applicationPid()).arg(++number);
    }
};

void TstInstanceLimit::sixthCopyIsRefused()
{
    const QString keys = prefix();
    std::vector<std::unique_ptr<InstanceLimit>> copies;
    for (int i = 0; i < InstanceLimit::slotCount; ++i) {
        copies.push_back(std::make_unique<InstanceLimit>(keys));
        QVERIFY(copies.back()->takeSlot());
        copies.back()->release();
        QCOMPARE(copies.back()->slot(), i);
        QVERIFY2(copies.back()->problem().isEmpty(), qPrintable(copies.back()->problem()));
    }
    InstanceLimit sixth(keys);
    QVERIFY(!sixth.takeSlot());
    sixth.release();
}

void TstInstanceLimit::freedSlotIsTakenAgain()
{
    const QString keys = prefix();
    const auto start = [&] {
        auto copy = std::make_unique<InstanceLimit>(keys);
        copy->takeSlot();
        copy->release();
        return copy;
    };
    const auto first = start();
    auto second = start();
    const auto third = start();
    second.reset();
    QCOMPARE(start()->slot(), 1);
    QCOMPARE(third->slot(), 2);
}

void TstInstanceLimit::slotOfAKilledCopyIsFree()
{
    const QString keys = prefix();
    QProcess copy;
    copy.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--hold"), keys});
    QVERIFY(copy.waitForReadyRead(5000));
    copy.kill();
    copy.waitForFinished();
    InstanceLimit next(keys);
    QVERIFY(next.takeSlot());
    next.release();
    QCOMPARE(next.slot(), 0);
    QVERIFY2(next.problem().isEmpty(), qPrintable(next.problem()));
}

/// Another copy stands between its turn and its slot: it still shows a warning, say.
void TstInstanceLimit::waitingIsToldAndMayBeGivenUp()
{
    const QString keys = prefix();
    auto holder = std::make_unique<InstanceLimit>(keys);
    QVERIFY(holder->takeTurn([] { return true; }));
    int told = 0;
    QTimer hand;
    QString button = "Чекати далі";
    connect(&hand, &QTimer::timeout, this, [&] {
        auto *notice = qobject_cast<QMessageBox *>(QApplication::activeWindow());
        if (notice == nullptr)
            return;
        ++told;
        QVERIFY(notice->text().startsWith("Запуск чекає на іншу копію програми…"));
        const auto buttons = notice->buttons();
        for (QAbstractButton *one : buttons) {
            if (one->text().remove('&') == button)
                QTest::mouseClick(one, Qt::LeftButton);
        }
    });
    hand.start(50);
    InstanceLimit waiting(keys);
    // Goes on waiting, until the other copy is done.
    QTimer::singleShot(600, this, [&] { holder->release(); });
    QVERIFY(waitForTurn(&waiting, 100));
    QCOMPARE(told, 1);
    QVERIFY(waiting.takeSlot());
    button = "Вийти";
    InstanceLimit leaving(keys);
    QVERIFY(!waitForTurn(&leaving, 100));
    QCOMPARE(told, 2);
    // Who was left behind lets the next one pass when its turn comes.
    waiting.release();
    InstanceLimit next(keys);
    QVERIFY(next.takeTurn([clock = QDeadlineTimer(5000)] { return !clock.hasExpired(); }));
    next.release();
}

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    if (argc > 2 && qstrcmp(argv[1], "--hold") == 0) {
        // Killed while it holds the semaphore too.
        InstanceLimit limit(QString::fromLocal8Bit(argv[2]));
        limit.takeSlot();
        puts("held");
        fflush(stdout);
        return QApplication::exec();
    }
    TstInstanceLimit test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_instancelimit.moc"
