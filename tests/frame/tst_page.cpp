#include "testing.h"

#include "page.h"
#include "permissions.h"
#include "qloadeduser.h"

#include <QLineEdit>
#include <QTabBar>
#include <QTabWidget>
#include <QVBoxLayout>

/// Pages in tabs: who may open them, what holds them, where the keyboard is.
class TstPage : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();

    void opensOnceForThoseWhoMay();
    void whatHoldsOnStays();
    void goneWhileItAsks();
    void refusedCommandIsNoOffer();
    void keyboardComesBack();

private:
    void allow(const QString &permissions);
    QWidget *open(const char *action) { return openPage(m_tabs.get(), *m_user, pageEntry(m_table, action)); }

    std::unique_ptr<FreshDatabase> m_base;
    std::unique_ptr<QLoadedUser> m_user;
    std::unique_ptr<QTabWidget> m_tabs;
    PageTable m_table;
};

namespace {
class TwoFields : public QWidget, public Page
{
public:
    TwoFields()
    {
        auto *fields = new QVBoxLayout(this);
        for (const char *name : {"first", "second"}) {
            auto *field = new QLineEdit;
            field->setObjectName(name);
            fields->addWidget(field);
        }
    }
    Commands commands() const override { return {{Command::Add, QString()}, {Command::Export, "Ніяк."}}; }
    bool mayClose() override { return ask(); }

    std::function<bool()> ask = [] { return true; };
};

TwoFields *fields(QWidget *page)
{
    return static_cast<TwoFields *>(page);
}
} // namespace

void TstPage::initTestCase()
{
    m_base = std::make_unique<FreshDatabase>();
    m_table = {{"goods", Permission::Goods, "Товари", [] { return new TwoFields; }},
               {"shops", Permission::Shops, "Магазини", [] { return new TwoFields; }},
               {"later", Permission::Tax, "Ще немає", {}}};
}

void TstPage::init()
{
    m_tabs = std::make_unique<QTabWidget>();
    QVERIFY(showActive(m_tabs.get()));
    allow("(1,10,1),(1,13,2),(1,23,1)");
}

void TstPage::allow(const QString &permissions)
{
    m_base->exec({"DELETE FROM lst_permis WHERE id_g_prem=1",
                  "INSERT INTO lst_permis(id_g_prem,id_prem,permission) VALUES" + permissions});
    m_user = std::make_unique<QLoadedUser>(nullptr, &m_base->heard);
    QVERIFY(m_user->load(m_base->connection(), "1", "1", QString()));
}

void TstPage::opensOnceForThoseWhoMay()
{
    QWidget *goods = open("goods");
    QCOMPARE(pageAt(m_tabs.get(), 0)->permission(), int(Permission::Goods));
    open("shops");
    QCOMPARE(open("goods"), goods);
    QCOMPARE(m_tabs->count(), 2);
    QCOMPARE(m_tabs->currentWidget(), goods);
    QCOMPARE(open("later"), static_cast<QWidget *>(nullptr));
    closePage(m_tabs.get(), 0);
    allow("(1,10,1)");
    QCOMPARE(answerQuestion([this] { open("goods"); }),
             QString("У вас немає доступу до вкладки \"Товари\"."));
    QCOMPARE(m_tabs->count(), 1);
    QCOMPARE(pageAt(m_tabs.get(), 0, {m_table[0]}), static_cast<Page *>(nullptr));
}

void TstPage::whatHoldsOnStays()
{
    TwoFields *page = fields(open("goods"));
    page->ask = [] { return false; };
    QVERIFY(!closePage(m_tabs.get(), 0));
    QCOMPARE(m_tabs->widget(0), static_cast<QWidget *>(page));
    QVERIFY(!closePage(m_tabs.get(), 7));
    page->ask = [] { return true; };
    QVERIFY(closePage(m_tabs.get(), 0));
    QCOMPARE(m_tabs->count(), 0);
}

/// While the question is open the tabs are moved, or somebody else removes the page.
void TstPage::goneWhileItAsks()
{
    TwoFields *page = fields(open("goods"));
    open("shops");
    page->ask = [this] {
        m_tabs->tabBar()->moveTab(0, 1);
        return true;
    };
    QVERIFY(closePage(m_tabs.get(), 0));
    QCOMPARE(m_tabs->tabText(0), QString("Магазини"));
    page = fields(open("goods"));
    page->ask = [page] {
        page->deleteLater();
        QCoreApplication::sendPostedEvents(page, QEvent::DeferredDelete);
        return true;
    };
    QVERIFY(closePage(m_tabs.get(), 1));
    QCOMPARE(m_tabs->count(), 1);
}

void TstPage::refusedCommandIsNoOffer()
{
    const TwoFields *page = fields(open("goods"));
    QVERIFY(page->isOffered(Command::Add));
    QVERIFY(!page->isOffered(Command::Export) && !page->isOffered(Command::Delete));
}

void TstPage::keyboardComesBack()
{
    QWidget *goods = open("goods");
    QCOMPARE(QApplication::focusWidget(), child<QWidget>(goods, "first"));
    pressKeys({Qt::Key_Tab});
    QCOMPARE(QApplication::focusWidget(), child<QWidget>(goods, "second"));
    QWidget *shops = open("shops");
    QCOMPARE(QApplication::focusWidget(), child<QWidget>(shops, "first"));
    open("goods");
    QCOMPARE(QApplication::focusWidget(), child<QWidget>(goods, "second"));
}

QTEST_MAIN(TstPage)
#include "tst_page.moc"
