#include "heldacts.h"

#include "testing.h"

#include <QLineEdit>
#include <QSignalSpy>
#include <QVBoxLayout>

/// Acts and keys behind something that is on its way, in a window of two fields.
class TstHeldActs : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void inTheirOrder();
    void whatDoesNotCome();
    void actsThatAwait();
    void keysOfAScan();
    void patience();

private:
    HeldActs::Act note(const QString &name)
    {
        return [=](bool isThere) { m_done.append(isThere ? name : QLatin1Char('-') + name); };
    }

    QStringList m_done;
    std::unique_ptr<QWidget> m_window;
    QLineEdit *m_first = nullptr;
    QLineEdit *m_second = nullptr;
    HeldActs *m_acts = nullptr;
};

void TstHeldActs::init()
{
    m_done.clear();
    m_window = std::make_unique<QWidget>();
    auto *column = new QVBoxLayout(m_window.get());
    m_first = new QLineEdit;
    m_second = new QLineEdit;
    column->addWidget(m_first);
    column->addWidget(m_second);
    m_acts = new HeldActs(m_window.get());
    QVERIFY(showActive(m_window.get()));
    m_first->setFocus();
}

/// Keys before the first act are nobody's business; those behind it come behind it, wherever the focus is by
/// then.
void TstHeldActs::inTheirOrder()
{
    m_acts->decide(note(QStringLiteral("at once")));
    QCOMPARE(m_done, QStringList{QStringLiteral("at once")});
    m_acts->await();
    typeText(QStringLiteral("ab"));
    QCOMPARE(m_first->text(), QStringLiteral("ab"));
    m_acts->decide([this](bool) { m_second->setFocus(); });
    typeText(QStringLiteral("c"));
    m_acts->then(note(QStringLiteral("then")));
    typeText(QStringLiteral("d"));
    QCOMPARE(m_first->text() + m_second->text(), QStringLiteral("ab"));
    m_acts->come(true);
    QCOMPARE(m_second->text(), QStringLiteral("cd"));
    QCOMPARE(m_done.last(), QStringLiteral("then"));
    typeText(QStringLiteral("e"));
    QCOMPARE(m_second->text(), QStringLiteral("cde"));
}

/// All that was held behind it learns it, and keys that were meant for it go with it; what comes later begins
/// anew.
void TstHeldActs::whatDoesNotCome()
{
    m_acts->await();
    m_acts->decide(note(QStringLiteral("pay")));
    typeText(QStringLiteral("5"));
    m_acts->then([this](bool) { m_acts->await(); });
    m_acts->decide(note(QStringLiteral("close")));
    m_acts->come(false);
    QCOMPARE(m_done, QStringList{QStringLiteral("-pay")});
    m_acts->decide(note(QStringLiteral("later")));
    m_acts->come(true);
    QCOMPARE(m_done,
             (QStringList{QStringLiteral("-pay"), QStringLiteral("-close"), QStringLiteral("later")}));
    QCOMPARE(m_first->text(), QString());
}

/// One that awaits something itself holds up those behind it; one that it does meanwhile is part of it.
void TstHeldActs::actsThatAwait()
{
    m_acts->await();
    m_acts->then([this](bool) {
        m_acts->decide(note(QStringLiteral("inner")));
        m_acts->await();
    });
    m_acts->decide(note(QStringLiteral("outer")));
    m_acts->come(true);
    QCOMPARE(m_done, QStringList{QStringLiteral("inner")});
    // Whoever is done may be gone by then, and this with it.
    m_acts->decide([this](bool) { m_window.reset(); });
    m_acts->then(note(QStringLiteral("never")));
    m_acts->come(true);
    QCOMPARE(m_done, (QStringList{QStringLiteral("inner"), QStringLiteral("outer")}));
}

void TstHeldActs::keysOfAScan()
{
    QSignalSpy sending(m_acts, &HeldActs::sending);
    m_acts->await();
    m_acts->decide(note(QStringLiteral("act")));
    typeText(QStringLiteral("x48200014"));
    m_acts->forgetKeys(8);
    m_acts->come(true);
    QCOMPARE(m_first->text(), QStringLiteral("x"));
    QCOMPARE(sending, (QList<QVariantList>{{true}, {false}}));
}

/// Scans wait as long as it takes, decisions do not.
void TstHeldActs::patience()
{
    QSignalSpy impatient(m_acts, &HeldActs::impatient);
    m_acts->await();
    m_acts->then(note(QStringLiteral("scan")));
    QVERIFY(!impatient.wait(2300));
    m_acts->decide(note(QStringLiteral("pay")));
    QVERIFY(impatient.wait(10000));
    m_acts->come(false);
    QCOMPARE(m_done, (QStringList{QStringLiteral("-scan"), QStringLiteral("-pay")}));
}

QTEST_MAIN(TstHeldActs)
#include "tst_heldacts.moc"
