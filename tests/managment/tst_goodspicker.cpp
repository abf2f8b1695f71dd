#include "goodspicker.h"

#include "heldacts.h"
#include "qloadeduser.h"
#include "qmessdlg.h"
#include "qntableview.h"
#include "saleshop.h"
#include "salework.h"
#include "scanpace.h"

#include <QLineEdit>
#include <QRadioButton>
#include <QSignalSpy>
#include <QSpinBox>
#include <QVBoxLayout>

/// The goods of shop 1, without a receipt: whoever owns the picker takes what is picked.
class TstGoodsPicker : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void cleanupTestCase();

    void pickedOneByOne();
    void severalLeadIntoTheList();
    void settledBeforeADecision();
    void codeThatWasNotConfirmed();
    void scansBehindABox();
    void lostServer();
    void modesAndPlaces();

private:
    QStringList m_picked;
    std::unique_ptr<FreshDatabase> m_base;
    std::unique_ptr<QLoadedUser> m_user;
    std::unique_ptr<QWidget> m_tab;
    SaleWork *m_work = nullptr;
    HeldActs *m_acts = nullptr;
    GoodsPicker *m_picker = nullptr;
    QNTableView *m_list = nullptr;
    QLineEdit *m_other = nullptr;
    GoodsSearch m_scope;
    bool m_isWanted = true;
};

void TstGoodsPicker::initTestCase()
{
    m_base = std::make_unique<FreshDatabase>();
    fillSaleShop(m_base.get());
    m_user = std::make_unique<QLoadedUser>(nullptr, &m_base->heard);
    QVERIFY(m_user->loadpermis(m_base->connection(), QStringLiteral("admin"), QString()));
}

void TstGoodsPicker::init()
{
    m_scope = GoodsSearch();
    m_scope.idShop = 1;
    m_scope.time = QDateTime(QDate(2026, 11, 21), QTime(12, 0));
    m_isWanted = true;
    m_picked.clear();
    m_tab = std::make_unique<QWidget>();
    auto *rows = new QVBoxLayout(m_tab.get());
    m_picker = new GoodsPicker;
    m_other = new QLineEdit;
    rows->addWidget(m_picker);
    rows->addWidget(m_other);
    m_work = new SaleWork(m_base->connection(), m_user.get(), &m_base->heard, m_tab.get());
    m_acts = new HeldActs(m_tab.get());
    m_picker->setUp(
        m_work, m_acts, [this] { return m_scope; },
        [this](const GoodsItem &item) {
            m_picked.append(QStringLiteral("%1 %2").arg(item.idGoods).arg(item.price));
            m_picker->clearField();
            return m_isWanted;
        });
    m_list = child<QNTableView>(m_picker, QStringLiteral("viewGoods"));
    m_picker->refresh();
    m_tab->resize(1000, 600);
    QVERIFY(showActive(m_tab.get()));
    m_picker->focusSearch();
    QTRY_COMPARE(m_list->model()->rowCount(), 5);
}

void TstGoodsPicker::cleanup()
{
    Db::setStatementRefusal({});
    m_tab.reset();
    m_base->heard.forget();
}

void TstGoodsPicker::cleanupTestCase()
{
    m_user.reset();
    m_base.reset();
}

/// Scanned with the focus here and elsewhere, found by a name, clicked.
void TstGoodsPicker::pickedOneByOne()
{
    scan(QStringLiteral("4820000000109"));
    m_other->setText(QStringLiteral("abc"));
    m_other->setFocus();
    scan(QStringLiteral("4820000000130"));
    waitOutTasks();
    QCOMPARE(m_other->text(), QStringLiteral("abc"));
    QVERIFY(m_picker->searchField()->hasFocus());
    child<QRadioButton>(m_picker, QStringLiteral("rbName"))->click();
    typeText(QStringLiteral("Картопля"));
    pressKeys({Qt::Key_Return});
    QTRY_COMPARE(m_picked.size(), 3);
    // By name those without a barcode are found, too.
    QTRY_COMPARE(m_list->model()->rowCount(), 6);
    const QRect cell = m_list->visualRect(m_list->model()->index(1, 2));
    QTest::mouseClick(m_list->viewport(), Qt::LeftButton, {}, cell.center());
    QTest::mouseDClick(m_list->viewport(), Qt::LeftButton, {}, cell.center());
    QCOMPARE(m_picked.size(), 4);
    QCOMPARE(m_picked.mid(0, 3),
             (QStringList{QStringLiteral("10 5000"), QStringLiteral("13 3000"), QStringLiteral("14 700")}));
    QCOMPARE(m_picked.last().section(QLatin1Char(' '), 0, 0), m_list->model()->index(1, 0).data().toString());
}

void TstGoodsPicker::severalLeadIntoTheList()
{
    QSignalSpy told(m_work, &SaleWork::told);
    child<QRadioButton>(m_picker, QStringLiteral("rbName"))->click();
    typeText(QStringLiteral("о"));
    pressKeys({Qt::Key_Return});
    QTRY_VERIFY(m_list->hasFocus());
    QVERIFY(told.last().first().toString().contains(QStringLiteral("кілька товарів")));
    pressKeys({Qt::Key_Down, Qt::Key_Return});
    QCOMPARE(m_picked.size(), 1);
    QVERIFY(m_picker->searchField()->hasFocus());
    // What is typed in the list is searched; above its first row the field is reached again.
    pressKeys({Qt::Key_Down});
    QVERIFY(m_list->hasFocus());
    typeText(QStringLiteral("7"));
    QCOMPARE(m_picker->searchField()->text(), QStringLiteral("7"));
    m_list->setFocus();
    m_list->setCurrentIndex(m_list->model()->index(0, 2));
    pressKeys({Qt::Key_Up});
    QVERIFY(m_picker->searchField()->hasFocus());
}

/// A decision comes behind the item that is on its way, and is told when that did not come or nobody wanted
/// it after all.
void TstGoodsPicker::settledBeforeADecision()
{
    QVector<bool> decided;
    const auto decide = [&] {
        pressKeys({Qt::Key_Return});
        m_acts->decide([&](bool isThere) { decided.append(isThere); });
        const bool isHeld = decided.isEmpty();
        return isHeld && QTest::qWaitFor([&] { return !decided.isEmpty(); }) && decided.takeFirst();
    };
    m_acts->decide([&](bool isThere) { decided.append(isThere); });
    QCOMPARE(decided.takeFirst(), true);
    child<QRadioButton>(m_picker, QStringLiteral("rbName"))->click();
    typeText(QStringLiteral("Хліб"));
    QVERIFY(decide());
    QCOMPARE(m_picked, QStringList{QStringLiteral("10 5000")});
    m_isWanted = false;
    typeText(QStringLiteral("Хліб"));
    QVERIFY(!decide());
    m_isWanted = true;
    typeText(QStringLiteral("нема такого"));
    QVERIFY(!decide());
    QCOMPARE(m_picked.size(), 2);
}

void TstGoodsPicker::codeThatWasNotConfirmed()
{
    QTest::keyClicks(m_picker->searchField(), QStringLiteral("48200014"), Qt::NoModifier,
                     ScanPace::gapMs + 20);
    QCOMPARE(m_picker->codeLeft(), QStringLiteral("48200014"));
    pressKeys({Qt::Key_Return});
    waitOutTasks();
    QCOMPARE(m_picker->codeLeft(), QString());
    QCOMPARE(m_picked, QStringList{QStringLiteral("14 700")});
    // Asked for and unknown: somebody has been told.
    QSignalSpy notAdded(m_picker, &GoodsPicker::notAdded);
    scan(QStringLiteral("4820000009999"));
    waitOutTasks();
    QCOMPARE(m_picker->codeLeft(), QString());
    QCOMPARE(notAdded.size(), 1);
}

/// In their order, once nobody asks any more; what the hand has begun elsewhere comes before each.
void TstGoodsPicker::scansBehindABox()
{
    QStringList order;
    connect(m_picker, &GoodsPicker::aboutToTake, m_tab.get(),
            [&] { order.append(QString::number(m_picked.size())); });
    QVERIFY(!answerConfirm(
                 [this] {
                     QTimer::singleShot(0, m_tab.get(), [] {
                         scan(QStringLiteral("4820000000130"));
                         scan(QStringLiteral("4820000000109"));
                     });
                     QMessDlg::confirm(m_picker, QStringLiteral("?"), QStringLiteral("?"),
                                       QStringLiteral("Так"));
                 },
                 false)
                 .isEmpty());
    QVERIFY(m_picked.isEmpty());
    m_picker->focusSearch();
    QTRY_COMPARE(m_picked, (QStringList{QStringLiteral("13 3000"), QStringLiteral("10 5000")}));
    QCOMPARE(order, (QStringList{QStringLiteral("0"), QStringLiteral("1")}));
}

void TstGoodsPicker::lostServer()
{
    QSignalSpy notAdded(m_picker, &GoodsPicker::notAdded);
    Db::setStatementRefusal(
        [](const QString &sql) { return sql.contains(QLatin1String("dk_shc.shtrihcod=")) ? 1146 : 0; });
    scan(QStringLiteral("4820000000109"));
    waitOutTasks();
    QCOMPARE(notAdded.size(), 1);
    QVERIFY(notAdded.first().first().toString().contains(QStringLiteral("сервер не відповів")));
    QVERIFY(m_base->heard.has(QStringLiteral("Помилка запиту:"), 1));
    QVERIFY(m_base->heard.all().first().location.contains(QLatin1String("tst_goodspicker")));
    Db::setStatementRefusal({});
    // The list's own statement fails while Enter waits for it.
    child<QRadioButton>(m_picker, QStringLiteral("rbName"))->click();
    m_base->exec(QStringLiteral("RENAME TABLE prices TO away"));
    m_picker->searchField()->setText(QStringLiteral("Хліб"));
    pressKeys({Qt::Key_Return});
    QTRY_COMPARE(notAdded.size(), 2);
    m_base->exec(QStringLiteral("RENAME TABLE away TO prices"));
    QCOMPARE(m_list->model()->rowCount(), 0);
    QVERIFY(m_picked.isEmpty());
}

/// The same picker serves another shop and the receiving of goods, which knows no goods of the third rule.
void TstGoodsPicker::modesAndPlaces()
{
    m_base->exec({QStringLiteral("UPDATE goods SET id_rules_goods=3 WHERE id=13"),
                  QStringLiteral("DELETE FROM goods_shop WHERE id_shop=2 AND id_goods<>13")});
    m_scope.idShop = 2;
    m_picker->refresh();
    QTRY_COMPARE(m_list->model()->rowCount(), 1);
    // What the shop never had can be received, too.
    m_scope.mode = GoodsSearch::Receive;
    m_picker->refresh();
    QTRY_COMPARE(m_list->model()->rowCount(), 4);
    for (int row = 0; row < 4; ++row)
        QVERIFY(m_list->model()->index(row, 0).data().toString() != QStringLiteral("13"));
    m_scope.idShop = 1;
    child<QSpinBox>(m_picker, QStringLiteral("sbLimit"))->setValue(2);
    QTRY_COMPARE(m_list->model()->rowCount(), 2);
}

QTEST_MAIN(TstGoodsPicker)
#include "tst_goodspicker.moc"
