// Two hundred actions of a hurried person, drawn by a seed, against a receipt kept on paper.

#include "qregistersale.h"

#include "money.h"
#include "moneyspinbox.h"
#include "qloadeduser.h"
#include "qmessdlg.h"
#include "qntableview.h"
#include "qpayment.h"
#include "saleshop.h"
#include "wheelguard.h"

#include <QComboBox>
#include <QDateEdit>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QRandomGenerator>
#include <QSpinBox>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>

namespace {
constexpr int actionsOfOneSeed = 200;
/// Longer than a scanner's pause between two keys: what comes then was typed by hand.
constexpr int handMs = 90;

QString text(const char *words)
{
    return QString::fromUtf8(words);
}

/// A goods item as the shop's people know it.
struct Goods
{
    int id;
    int tax;
    const char *barcode;
    const char *name;
    qint64 price;
    int percentOff;
    bool isPiece;
    bool takesDiscount;
};

const Goods goodsOnSale[] = {{10, 1, "4820000000109", "Хліб житній", 5000, 0, true, true},
                             {11, 2, "0000000000116", "Сир ваговий", 8000, 0, false, true},
                             {13, 3, "4820000000130", "Молоко", 3000, 10, true, true},
                             {14, 5, "48200014", "Картопля", 700, 0, false, false}};

/// What the hand types for a quantity, and what a person takes it for; -1: no quantity.
const struct
{
    const char *typed;
    qint64 thousandths;
} typedQuantities[] = {{"2", 2000}, {"3", 3000}, {"12", 12000}, {"0,25", 250}, {"1.5", 1500},
                       {"0", 0},    {"1 2", -1}, {"7", 7000},   {"4", 4000},   {"1,005", 1005}};

/// Half a kopeck counts as one.
qint64 rounded(qint64 value, qint64 parts)
{
    return (2 * value + parts) / (2 * parts);
}

/// The receipt on paper.
struct PaperRow
{
    const Goods *goods;
    qint64 quantity;
    qint64 seenStock;

    qint64 sum() const { return rounded(goods->price * quantity, 1000); }
    qint64 promotion() const { return rounded(sum() * goods->percentOff, 100); }
};

struct Paper
{
    QVector<PaperRow> rows;
    qint64 beyondPromotions = 0;

    qint64 total() const
    {
        qint64 all = 0;
        for (const PaperRow &row : rows)
            all += row.sum();
        return all;
    }
    qint64 promotions() const
    {
        qint64 all = 0;
        for (const PaperRow &row : rows)
            all += row.promotion();
        return all;
    }
    qint64 discount() const { return promotions() + beyondPromotions; }
    qint64 toPay() const { return total() - discount(); }
    bool isPayable() const
    {
        qint64 room = 0;
        for (const PaperRow &row : rows)
            room += row.goods->takesDiscount ? row.sum() - row.promotion() : 0;
        return !rows.isEmpty() && beyondPromotions <= room;
    }
    bool exceedsStock(int row) const
    {
        qint64 all = 0;
        for (const PaperRow &each : rows)
            all += each.goods == rows.at(row).goods ? each.quantity : 0;
        return all > rows.at(row).seenStock;
    }
    QString written() const
    {
        QStringList list;
        for (const PaperRow &row : rows)
            list.append(QStringLiteral("%1|%2|%3|%4|%5")
                            .arg(row.goods->id)
                            .arg(row.quantity)
                            .arg(row.goods->price)
                            .arg(row.sum())
                            .arg(row.goods->tax));
        return list.join(QLatin1Char(' '));
    }
};

/// The open shift of a register, and its receipts, on paper.
struct PaperShift
{
    qint64 receipts = 0;
    qint64 cash = 0;
    qint64 card = 0;
    qint64 discounted = 0;
    qint64 discounts = 0;
    qint64 turnover[6] = {};

    QString written() const
    {
        return QStringLiteral("%1|%2|%3|%4|%5|%6|%7|%8|%9")
            .arg(receipts)
            .arg(cash)
            .arg(card)
            .arg(discounted)
            .arg(discounts)
            .arg(turnover[1])
            .arg(turnover[2])
            .arg(turnover[3])
            .arg(turnover[5]);
    }
};
} // namespace

class TstHurriedSale : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void cleanupTestCase();

    void agreesWithPaper_data();
    void agreesWithPaper();

private:
    using Act = void (TstHurriedSale::*)();

    int draw(int below) { return static_cast<int>(m_random.bounded(quint32(below))); }
    bool isLucky(int ofHundred) { return draw(100) < ofHundred; }

    void scanGoods();
    void scanUnknown();
    void reachForScanner() const;
    void searchByName();
    void beginQuantity();
    void beginDiscount();
    void payAtOnce();
    void step();
    void removeRow();
    void escape();
    void turnWheels();
    void clickAround();
    void choosePlace();
    void killConnection();
    void payment();
    void cancelledClosing();

    bool settleOnPaper();
    bool quantityOnPaper();
    bool addOnPaper(const Goods &goods);
    bool setOnPaper(int row, qint64 quantity);
    bool wasAgreed(QVector<bool> *answers);
    bool leaveOnPaper();
    void addScanned(const Goods &goods);
    void catchUp();
    void rest();
    static void activate(QWidget *window);

    void answerBox();
    void answerQuestion(QMessDlg *box);
    void pay(QPayment *form);
    void afterPayment();
    void bookOnPaper();

    bool isEditing() const;
    bool canPressForRow() const;
    int currentRow() const { return m_chek->currentIndex().row(); }
    QString shownRows() const;
    QString paperRows() const;
    QString fixedFields() const;
    void compareWithTab();
    void compareWithDatabase();
    QStringList seen(const QString &sql);
    QString shop() const { return in<QComboBox>("cbShop")->currentData().toString(); }
    QString kass() const { return in<QComboBox>("cbKass")->currentData().toString(); }
    QString notice() const { return in<QLabel>("lbNotice")->text(); }
    template<typename T>
    T *in(const char *name) const
    {
        return child<T>(m_tab.get(), QString::fromLatin1(name));
    }

    std::unique_ptr<FreshDatabase> m_base;
    /// Looks at the database beside the tab's connection.
    QSqlDatabase m_eye;
    std::unique_ptr<QLoadedUser> m_user;
    std::unique_ptr<QRegisterSale> m_tab;
    QLineEdit *m_search = nullptr;
    QNTableView *m_chek = nullptr;
    QTimer m_answering;
    QRandomGenerator m_random;
    QElapsedTimer m_handTyped;

    Paper m_paper;
    QMap<QString, PaperShift> m_shifts;
    QMap<QString, qint64> m_stock;
    qint64 m_writtenRows = 0;
    int m_receipts = 0;
    /// What the hand has begun: a quantity of a row, a discount, an item.
    int m_rowBegun = -1;
    int m_typed = 0;
    qint64 m_discountBegun = -1;
    const Goods *m_searched = nullptr;
    bool m_isTold = false;
    /// How the boxes were answered since the last look, and what was scanned into them.
    QVector<bool> m_stockAnswers;
    QVector<bool> m_clearAnswers;
    QVector<const Goods *> m_scannedBehind;
    bool m_wasAsked = false;
    bool m_wasPaid = false;
    qint64 m_cash = 0;
    int m_sinceKill = 100;
};

void TstHurriedSale::initTestCase()
{
    installWheelGuard(qApp);
    m_base = std::make_unique<FreshDatabase>();
    fillSaleShop(m_base.get());
    m_base->exec({text("UPDATE users SET id_shop=1 WHERE id=1"),
                  text("INSERT INTO action(id,name,id_type_action,val,week_day) VALUES(7,'Вихідні',2,1000,"
                       "'Mon,Tue,Wed,Thu,Fri,Sat,Sun,')")});
    m_eye = addConnection(text("eye"), m_base->address());
    QVERIFY(openConnection(m_eye, &m_base->heard));
    m_user = std::make_unique<QLoadedUser>(nullptr, &m_base->heard);
    QVERIFY(m_user->loadpermis(m_base->connection(), text("admin"), QString()));
    connect(&m_answering, &QTimer::timeout, this, &TstHurriedSale::answerBox);
    m_answering.start(5);
}

void TstHurriedSale::init()
{
    m_base->exec({text("DELETE FROM cheks"), text("DELETE FROM z_zvit"),
                  text("UPDATE goods_shop SET count_showroom=40000,id_action=IF(id_goods=13,7,1)")});
    m_tab =
        std::make_unique<QRegisterSale>(m_base->connection(), m_user.get(), &m_base->heard, nullptr, nullptr);
    m_search = in<QLineEdit>("leSearch");
    m_chek = in<QNTableView>("viewChek");
    m_tab->resize(1200, 800);
    QVERIFY(showActive(m_tab.get()));
    waitOutTasks();
    m_paper = Paper();
    m_shifts.clear();
    m_stock.clear();
    for (const char *place : {"1", "2"}) {
        for (const Goods &goods : goodsOnSale)
            m_stock[QStringLiteral("%1|%2").arg(QLatin1String(place)).arg(goods.id)] = 40000;
    }
    m_writtenRows = 0;
    m_receipts = 0;
    m_rowBegun = -1;
    m_discountBegun = -1;
    m_searched = nullptr;
    m_isTold = false;
    m_stockAnswers.clear();
    m_clearAnswers.clear();
    m_scannedBehind.clear();
    m_sinceKill = 100;
}

void TstHurriedSale::cleanup()
{
    m_tab.reset();
    waitOutTasks();
}

void TstHurriedSale::cleanupTestCase()
{
    m_answering.stop();
    m_eye = QSqlDatabase();
    QSqlDatabase::removeDatabase(text("eye"));
    m_user.reset();
    m_base.reset();
}

void TstHurriedSale::agreesWithPaper_data()
{
    QTest::addColumn<uint>("seed");
    for (uint seed : {1U, 311U, 4820000U})
        QTest::newRow(qPrintable(QStringLiteral("seed %1").arg(seed))) << seed;
    const QStringList more = qEnvironmentVariable("VELTAB_SEEDS").split(QLatin1Char(','), Qt::SkipEmptyParts);
    for (const QString &seed : more)
        QTest::newRow(qPrintable(QStringLiteral("seed %1").arg(seed))) << seed.toUInt();
}

void TstHurriedSale::agreesWithPaper()
{
    QFETCH(uint, seed);
    m_random.seed(seed);
    const struct
    {
        int weight;
        const char *name;
        Act act;
    } acts[] = {
        {26, "scan", &TstHurriedSale::scanGoods},        {3, "unknown code", &TstHurriedSale::scanUnknown},
        {8, "search", &TstHurriedSale::searchByName},    {14, "quantity", &TstHurriedSale::beginQuantity},
        {6, "discount", &TstHurriedSale::beginDiscount}, {8, "step", &TstHurriedSale::step},
        {5, "remove", &TstHurriedSale::removeRow},       {3, "escape", &TstHurriedSale::escape},
        {4, "wheel", &TstHurriedSale::turnWheels},       {6, "click", &TstHurriedSale::clickAround},
        {3, "place", &TstHurriedSale::choosePlace},      {3, "kill", &TstHurriedSale::killConnection},
        {14, "payment", &TstHurriedSale::payment},       {2, "closing", &TstHurriedSale::cancelledClosing}};
    const QString before = fixedFields();
    for (int done = 0; done < actionsOfOneSeed; ++done) {
        int drawn = draw(105);
        const auto *chosen = std::begin(acts);
        while (drawn >= chosen->weight)
            drawn -= (chosen++)->weight;
        const QByteArray where =
            QStringLiteral("action %1: %2").arg(done).arg(QLatin1String(chosen->name)).toUtf8();
        activate(m_tab.get());
        (this->*chosen->act)();
        if (!m_scannedBehind.isEmpty() || isLucky(30))
            rest();
        QVERIFY2(!QTest::currentTestFailed(), where.constData());
        QVERIFY2(m_stockAnswers.isEmpty() && m_clearAnswers.isEmpty(), where.constData());
        ++m_sinceKill;
    }
    rest();
    compareWithDatabase();
    QCOMPARE(fixedFields(), before);
    QVERIFY(m_receipts > 5);
}

// --- what the hand does ---

/// Two scans follow each other at once; a hand needs its time between the keyboard and the scanner.
void TstHurriedSale::scanGoods()
{
    const Goods &goods = goodsOnSale[draw(4)];
    reachForScanner();
    scan(QLatin1String(goods.barcode));
    catchUp();
    settleOnPaper();
    addScanned(goods);
}

void TstHurriedSale::reachForScanner() const
{
    if (!m_handTyped.hasExpired(handMs))
        QTest::qSleep(handMs);
}

void TstHurriedSale::scanUnknown()
{
    reachForScanner();
    scan(text("4820000009999"));
    catchUp();
    settleOnPaper();
    QVERIFY(notice().contains(text("4820000009999")));
    m_isTold = true;
}

void TstHurriedSale::searchByName()
{
    pressKeys({Qt::CTRL + Qt::Key_F});
    rest();
    in<QRadioButton>("rbName")->setChecked(true);
    const Goods &goods = goodsOnSale[draw(4)];
    typeText(QString::fromUtf8(goods.name));
    pressKeys({Qt::Key_Return});
    m_searched = &goods;
    payAtOnce();
}

void TstHurriedSale::beginQuantity()
{
    if (!canPressForRow())
        return;
    pressKeys({Qt::Key_Asterisk});
    settleOnPaper();
    QVERIFY(isEditing());
    m_rowBegun = currentRow();
    m_typed = draw(int(std::size(typedQuantities)));
    activate(m_tab.get());
    typeText(QString::fromUtf8(typedQuantities[m_typed].typed));
    m_handTyped.start();
    if (isLucky(40))
        pressKeys({Qt::Key_Return});
    payAtOnce();
}

/// Beyond what the promotions give.
void TstHurriedSale::beginDiscount()
{
    if (m_searched != nullptr || m_discountBegun >= 0)
        return;
    QTest::mouseClick(in<MoneySpinBox>("dsbDiscount"), Qt::LeftButton);
    settleOnPaper();
    m_discountBegun = m_paper.promotions() + qint64(25) * draw(6);
    pressKeys({Qt::CTRL + Qt::Key_A});
    typeText(moneyText(m_discountBegun));
    m_handTyped.start();
    if (isLucky(40)) {
        pressKeys({Qt::Key_Return});
        settleOnPaper();
    }
    payAtOnce();
}

/// The most hurried of all.
void TstHurriedSale::payAtOnce()
{
    if (isLucky(30))
        payment();
}

void TstHurriedSale::step()
{
    if (!canPressForRow())
        return;
    const int row = currentRow();
    const bool isMore = isLucky(60);
    pressKeys({isMore ? Qt::Key_Plus : Qt::Key_Minus});
    if (settleOnPaper())
        setOnPaper(row, m_paper.rows.at(row).quantity + (isMore ? 1000 : -1000));
}

/// A quantity that was begun goes with the row.
void TstHurriedSale::removeRow()
{
    const int row = currentRow();
    if (canPressForRow() && isLucky(50))
        pressKeys({Qt::Key_Delete});
    else
        QTest::mouseClick(in<QPushButton>("pbRemove"), Qt::LeftButton);
    m_rowBegun = -1;
    catchUp();
    if (row >= 0 && settleOnPaper()) {
        m_paper.rows.remove(row);
        if (m_paper.rows.isEmpty())
            m_paper.beyondPromotions = 0;
    }
}

void TstHurriedSale::escape()
{
    const bool isOnlyTold = m_isTold || isEditing();
    const bool isSearching = !m_search->text().isEmpty();
    if (isEditing())
        m_rowBegun = -1;
    else
        m_isTold = false;
    pressKeys({Qt::Key_Escape});
    catchUp();
    if (isOnlyTold)
        return;
    const bool isDiscountOther = m_discountBegun >= 0 && m_discountBegun != m_paper.discount();
    m_discountBegun = -1;
    if (isDiscountOther)
        return;
    if (isSearching)
        m_searched = nullptr;
    else
        leaveOnPaper();
}

void TstHurriedSale::turnWheels()
{
    rest();
    m_search->setFocus();
    const QString before = fixedFields();
    for (const char *name : {"dateEdit", "cbShop", "cbKass", "sbPriority", "sbLimit", "dsbDiscount"})
        turnWheel(child<QWidget>(m_tab.get(), QLatin1String(name)), isLucky(50) ? 1 : -2);
    QCOMPARE(fixedFields(), before);
}

void TstHurriedSale::clickAround()
{
    QNTableView *view = isLucky(50) ? m_chek : in<QNTableView>("viewGoods");
    if (isLucky(40) || view->model()->rowCount() == 0) {
        QTest::mouseClick(view->horizontalHeader()->viewport(), Qt::LeftButton, {},
                          QPoint(view->columnViewportPosition(2) + 20, 5));
    } else {
        const QModelIndex cell = view->model()->index(draw(view->model()->rowCount()), 2);
        QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, view->visualRect(cell).center());
    }
    rest();
}

/// A filled receipt is asked about first.
void TstHurriedSale::choosePlace()
{
    if (m_sinceKill < 5)
        return;
    auto *box = in<QComboBox>(isLucky(50) ? "cbShop" : "cbKass");
    const int before = box->currentIndex();
    box->setFocus(Qt::MouseFocusReason);
    pressKeys({before > 0 ? Qt::Key_Up : Qt::Key_Down});
    catchUp();
    if (box->count() == 1)
        return rest();
    const bool hasLeft = leaveOnPaper();
    QCOMPARE(box->currentIndex() != before, hasLeft);
}

void TstHurriedSale::killConnection()
{
    m_base->killConnection();
    m_sinceKill = 0;
}

void TstHurriedSale::cancelledClosing()
{
    m_wasAsked = false;
    pressKeys({Qt::Key_F12});
    catchUp();
    settleOnPaper();
    QVERIFY(!m_wasAsked || m_paper.rows.isEmpty());
    compareWithDatabase();
}

void TstHurriedSale::payment()
{
    m_wasAsked = false;
    m_wasPaid = false;
    if (isLucky(50))
        pressKeys({Qt::Key_F9});
    else
        QTest::mouseClick(in<QPushButton>("pbSale"), Qt::LeftButton);
    catchUp();
    if (m_wasAsked)
        return afterPayment();
    const bool isDue = settleOnPaper() && m_paper.isPayable() && m_paper.total() > 0;
    QVERIFY2(!isDue || m_sinceKill < 5, qPrintable(notice()));
    QVERIFY(!isDue || !notice().isEmpty());
}

// --- what stands in the way meanwhile ---

void TstHurriedSale::answerBox()
{
    QWidget *modal = QApplication::activeModalWidget();
    if (modal == nullptr)
        return;
    m_answering.stop();
    activate(modal);
    if (auto *box = qobject_cast<QMessDlg *>(modal))
        answerQuestion(box);
    else if (auto *form = qobject_cast<QPayment *>(modal)) {
        pay(form);
        if (form->isVisible())
            form->reject();
    } else
        rejectUnexpected(modal);
    m_answering.start(5);
}

void TstHurriedSale::answerQuestion(QMessDlg *box)
{
    const QString words = child<QLabel>(box, text("labelText"))->text();
    const bool isAgreed = isLucky(60);
    if (isLucky(40)) {
        const Goods &goods = goodsOnSale[draw(4)];
        reachForScanner();
        scan(QLatin1String(goods.barcode));
        m_scannedBehind.append(&goods);
        QVERIFY(box->isVisible());
    }
    if (words.contains(text("Не достатньо товару")))
        m_stockAnswers.append(isAgreed);
    else if (words.contains(text("чек ще не оплачено")))
        m_clearAnswers.append(isAgreed);
    else if (!words.contains(text("в останні день періоду")))
        return rejectUnexpected(box);
    const bool isPeriod = words.contains(text("в останні день періоду"));
    QTest::mouseClick(child<QPushButton>(box, isPeriod || isAgreed ? text("pb0") : text("pb1")),
                      Qt::LeftButton);
}

/// What is asked for is what stands on the paper; what is paid is remembered.
void TstHurriedSale::pay(QPayment *form)
{
    m_wasAsked = true;
    if (form->windowTitle().contains(text("змін"))) {
        scan(text("4820000000109"));
        QVERIFY(form->isVisible());
        return form->reject();
    }
    QVERIFY(settleOnPaper());
    QCOMPARE(child<QLabel>(form, text("lbSum"))->text(), moneyText(m_paper.total()));
    QCOMPARE(child<QLabel>(form, text("lbDiscount"))->text(), moneyText(m_paper.discount()));
    QCOMPARE(child<QLabel>(form, text("lbToPay"))->text(), moneyText(m_paper.toPay()));
    if (isLucky(20)) {
        reachForScanner();
        scan(text("4820000000130"));
        QVERIFY(form->isVisible());
    }
    if (isLucky(25))
        return QTest::mouseClick(child<QPushButton>(form, text("pbCancel")), Qt::LeftButton);
    const qint64 card = isLucky(40) ? m_paper.toPay() / 3 : 0;
    child<MoneySpinBox>(form, text("dsbCard"))->setKopecks(card);
    m_cash = m_paper.toPay() - card;
    QTest::mouseClick(child<QPushButton>(form, text("pbRestCash")), Qt::LeftButton);
    m_wasPaid = true;
    QTest::mouseClick(child<QPushButton>(form, text("pbOk")), Qt::LeftButton);
}

/// Written wholly or not at all; not at all only when the connection was broken, and with words.
void TstHurriedSale::afterPayment()
{
    for (int i = 0; i < 50 && notice().contains(text("невідомо")); ++i) {
        QTest::qWait(100);
        m_tab->close();
        catchUp();
    }
    const bool isWritten = m_wasPaid && m_chek->model()->rowCount() == 0;
    QVERIFY(isWritten || !m_wasPaid || m_sinceKill < 5);
    if (isWritten)
        bookOnPaper();
    else if (m_wasPaid)
        QVERIFY(!notice().isEmpty());
    compareWithDatabase();
}

// --- the paper ---

void TstHurriedSale::bookOnPaper()
{
    PaperShift &shift = m_shifts[kass()];
    ++m_receipts;
    ++shift.receipts;
    shift.cash += m_cash;
    shift.card += m_paper.toPay() - m_cash;
    shift.discounted += m_paper.discount() > 0 ? 1 : 0;
    shift.discounts += m_paper.discount();
    for (const PaperRow &row : qAsConst(m_paper.rows)) {
        shift.turnover[row.goods->tax] += row.sum();
        m_stock[QStringLiteral("%1|%2").arg(shop()).arg(row.goods->id)] -= row.quantity;
    }
    m_writtenRows += m_paper.rows.size() + (m_paper.discount() > 0 ? 2 : 1);
    const QString last =
        text(" id_chek=(SELECT MAX(id_chek) FROM cheks WHERE id_kass=%1) AND id_kass=%1").arg(kass());
    QCOMPARE(seen(text("SELECT id_good_cln_slujb,count,price,summa,tax FROM cheks WHERE id_type=1 AND") +
                  last + text(" ORDER BY id_position"))
                 .join(QLatin1Char(' ')),
             m_paper.written());
    QCOMPARE(seen(text("SELECT price,tax,dis_bon_bez2,summa,id_shop FROM cheks WHERE id_type=3 AND") + last)
                 .value(0),
             QStringLiteral("%1|%2|0|%3|%4")
                 .arg(m_cash)
                 .arg(m_paper.toPay() - m_cash)
                 .arg(m_paper.toPay())
                 .arg(shop()));
    QCOMPARE(
        seen(text("SELECT SUM(IF(id_type=1,sumdisc,0)),SUM(IF(id_type=2,summa,0)) FROM cheks WHERE") + last)
            .value(0),
        QStringLiteral("%1|%1").arg(m_paper.discount()));
    m_paper = Paper();
    m_isTold = false;
}

/// In the order in which the tab ends what was begun; false when something of it was refused.
bool TstHurriedSale::settleOnPaper()
{
    bool isGood = m_rowBegun < 0 || quantityOnPaper();
    m_rowBegun = -1;
    if (m_discountBegun >= 0 && !m_paper.rows.isEmpty())
        m_paper.beyondPromotions = m_discountBegun - m_paper.promotions();
    m_discountBegun = -1;
    if (m_searched != nullptr)
        isGood = addOnPaper(*m_searched) && isGood;
    m_searched = nullptr;
    return isGood;
}

bool TstHurriedSale::quantityOnPaper()
{
    const qint64 quantity = typedQuantities[m_typed].thousandths;
    const int row = m_rowBegun;
    m_rowBegun = -1;
    return quantity >= 0 && (m_paper.rows.at(row).quantity == quantity || setOnPaper(row, quantity));
}

bool TstHurriedSale::addOnPaper(const Goods &goods)
{
    const QString key = QStringLiteral("%1|%2").arg(shop()).arg(goods.id);
    m_paper.rows.append({&goods, 1000, m_stock.value(key)});
    if (!m_paper.exceedsStock(m_paper.rows.size() - 1) || wasAgreed(&m_stockAnswers))
        return true;
    m_paper.rows.removeLast();
    if (m_paper.rows.isEmpty())
        m_paper.beyondPromotions = 0;
    return false;
}

bool TstHurriedSale::setOnPaper(int row, qint64 quantity)
{
    PaperRow &changed = m_paper.rows[row];
    const qint64 before = changed.quantity;
    if (quantity <= 0 || (changed.goods->isPiece && quantity % 1000 != 0))
        return false;
    changed.quantity = quantity;
    if (quantity <= before || !m_paper.exceedsStock(row) || wasAgreed(&m_stockAnswers))
        return true;
    changed.quantity = before;
    return false;
}

/// The question that the paper expects has been asked.
bool TstHurriedSale::wasAgreed(QVector<bool> *answers)
{
    if (answers->isEmpty())
        QTest::qFail("Nobody was asked", __FILE__, __LINE__);
    return !answers->isEmpty() && answers->takeFirst();
}

bool TstHurriedSale::leaveOnPaper()
{
    settleOnPaper();
    if (!m_paper.rows.isEmpty() && !wasAgreed(&m_clearAnswers))
        return false;
    if (!m_paper.rows.isEmpty())
        m_isTold = false;
    m_paper = Paper();
    return true;
}

/// A broken connection may keep an item out, with words; they are read at once.
void TstHurriedSale::addScanned(const Goods &goods)
{
    if (!notice().contains(text("«%1» не додано").arg(QLatin1String(goods.barcode)))) {
        addOnPaper(goods);
        return;
    }
    QVERIFY(m_sinceKill < 5);
    pressKeys({Qt::Key_Escape});
    m_isTold = false;
}

/// Where nobody manages windows, nobody activates the one behind a closed box.
void TstHurriedSale::activate(QWidget *window)
{
    QVERIFY(QTest::qWaitFor([=] {
        if (QApplication::activeWindow() != window)
            window->activateWindow();
        return QApplication::activeWindow() == window;
    }));
}

/// The server has answered everything.
void TstHurriedSale::catchUp()
{
    waitOutTasks();
    if (m_searched == nullptr)
        return;
    QVERIFY(QTest::qWaitFor([this] { return m_searched == nullptr || m_search->text().isEmpty(); }));
    waitOutTasks();
}

/// The window catches up with the hand.
void TstHurriedSale::rest()
{
    activate(m_tab.get());
    if (m_searched != nullptr)
        QTRY_VERIFY(m_search->text().isEmpty());
    if (isEditing())
        m_search->setFocus();
    if (m_discountBegun >= 0)
        m_search->setFocus();
    QTest::qWait(1);
    settleOnPaper();
    while (!m_scannedBehind.isEmpty()) {
        QTest::qWait(1);
        waitOutTasks();
        addScanned(*m_scannedBehind.takeFirst());
    }
    activate(m_tab.get());
    compareWithTab();
}

// --- what is seen ---

bool TstHurriedSale::isEditing() const
{
    // The one before may still wait to be deleted.
    const auto editors = m_chek->findChildren<QLineEdit *>(text("leQuantity"));
    return std::any_of(editors.begin(), editors.end(),
                       [](const QLineEdit *each) { return each->isVisible(); });
}

/// Keys for the current row are that only where nothing else is typed.
bool TstHurriedSale::canPressForRow() const
{
    const QWidget *focus = m_tab->focusWidget();
    return currentRow() >= 0 && (focus == m_chek || (focus == m_search && m_search->text().isEmpty()));
}

QString TstHurriedSale::shownRows() const
{
    QStringList rows;
    for (int row = 0; row < m_chek->model()->rowCount(); ++row) {
        QStringList cells;
        for (int column : {2, 9, 15, 16})
            cells.append(m_chek->model()->index(row, column).data().toString());
        rows.append(cells.join(QLatin1Char('|')));
    }
    rows.append(in<MoneySpinBox>("dsbDiscount")->text());
    rows.append(in<QLabel>("lbToPay")->text());
    return rows.join(QLatin1Char('\n')).remove(QChar(QChar::Nbsp));
}

QString TstHurriedSale::paperRows() const
{
    QStringList rows;
    for (const PaperRow &row : m_paper.rows)
        rows.append(
            QStringLiteral("%1|%2|%3|%4")
                .arg(QString::fromUtf8(row.goods->name),
                     row.goods->isPiece ? QString::number(row.quantity / 1000) : quantityText(row.quantity),
                     moneyText(row.goods->price), moneyText(row.sum())));
    rows.append(moneyText(m_paper.discount()));
    rows.append(moneyText(m_paper.toPay()));
    return rows.join(QLatin1Char('\n'));
}

QString TstHurriedSale::fixedFields() const
{
    return QStringList{in<QDateEdit>("dateEdit")->text(), in<QSpinBox>("sbPriority")->text(),
                       in<QSpinBox>("sbLimit")->text()}
        .join(QLatin1Char('|'));
}

void TstHurriedSale::compareWithTab()
{
    QCOMPARE(shownRows(), paperRows());
}

/// All that was sold, and nothing else.
void TstHurriedSale::compareWithDatabase()
{
    QCOMPARE(seen(text("SELECT COUNT(*) FROM cheks")).value(0), QString::number(m_writtenRows));
    QStringList shifts;
    for (auto shift = m_shifts.cbegin(); shift != m_shifts.cend(); ++shift)
        shifts.append(shift.key() + QLatin1Char('|') + shift.value().written());
    QCOMPARE(seen(text("SELECT id_kass,count_cheks,cash,beznal_1,count_chek_diskount,summ_diskount,Oborot_A,"
                       "Oborot_B,Oborot_V,Oborot_D FROM z_zvit WHERE data_time=0 ORDER BY id_kass")),
             shifts);
    QStringList stock;
    for (auto goods = m_stock.cbegin(); goods != m_stock.cend(); ++goods)
        stock.append(goods.key() + QLatin1Char('|') + QString::number(goods.value()));
    QCOMPARE(
        seen(text("SELECT id_shop,id_goods,count_showroom FROM goods_shop WHERE id_goods IN (10,11,13,14) "
                  "ORDER BY 1,2")),
        stock);
}

QStringList TstHurriedSale::seen(const QString &sql)
{
    QSqlQuery query(m_eye);
    if (!query.exec(sql))
        qFatal("%s", qPrintable(query.lastError().text()));
    QStringList list;
    const int columns = query.record().count();
    while (query.next()) {
        QStringList cells;
        for (int i = 0; i < columns; ++i)
            cells.append(toText(query.value(i)));
        list.append(cells.join(QLatin1Char('|')));
    }
    return list;
}

QTEST_MAIN(TstHurriedSale)
#include "tst_hurriedsale.moc"
