#include "qmangoods.h"

#include "barcodedialog.h"
#include "heartbeat.h"
#include "listpane.h"
#include "permissions.h"
#include "qchekedcombobox.h"
#include "qloadeduser.h"
#include "qmessdlg.h"
#include "qntableview.h"
#include "qrowmodel.h"
#include "saleshop.h"
#include "servererror.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>

/// Many goods changed at once, with other programs and a failing server in between.
class TstQManGoods : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void cleanupTestCase() { m_base.reset(); }

    void previewTellsOldAndNewAndWhatIsRefused();

private:
    void choose(const char *box, const QString &text)
    {
        auto *combo = child<QComboBox>(m_page.get(), box);
        QVERIFY2(combo->findText(text) >= 0, qPrintable(text));
        combo->setCurrentText(text);
    }
    void type(const char *field, const QString &text)
    {
        auto *line = child<QLineEdit>(m_page.get(), field);
        line->setFocus();
        line->selectAll();
        typeText(text);
    }
    void chooseGroups(const QStringList &names);
    QPushButton *button(const char *name) { return child<QPushButton>(m_page.get(), name); }
    void preview();
    /// Presses the button, answers its question and waits for the end; the text of the question.
    QString answered(const char *name, const QString &answer, const std::function<void()> &meanwhile = {});
    QString write(const std::function<void()> &meanwhile = {})
    {
        return answered("pbWrite", "Записати", meanwhile);
    }
    QString undo(const std::function<void()> &meanwhile = {})
    {
        return answered("pbUndo", "Повернути", meanwhile);
    }
    QString counts() const
    {
        return child<QLabel>(m_page.get(), "labelCounts")->text().replace(QChar(0xA0), ' ');
    }
    /// Cells of the shown list, from one column on.
    QStringList lines(int first = 0) const;
    QStringList goodsPrices() { return m_base->rows("SELECT id,price FROM goods ORDER BY id"); }
    QStringList listed()
    {
        return m_base->rows("SELECT id_goods,id_shop,id_group,priority,price FROM prices ORDER BY 1,2,3,4");
    }

    std::unique_ptr<FreshDatabase> m_base;
    std::unique_ptr<QLoadedUser> m_user;
    std::unique_ptr<QManGoods> m_page;
};

void TstQManGoods::initTestCase()
{
    m_base = std::make_unique<FreshDatabase>();
    fillSaleShop(m_base.get());
}

/// Group 2 "Місто" sells bread at 49.95; bread in shop 1 costs 48.00.
void TstQManGoods::init()
{
    resetSaleShop(m_base.get());
    m_base->exec(
        {"UPDATE lst_permis SET permission=1 WHERE id_prem=100", "DELETE FROM lst_group WHERE id_group=2",
         "INSERT INTO lst_group(id_g_prem,id_group) VALUES(1,2)",
         "UPDATE goods SET price=CASE id WHEN 10 THEN 5000 WHEN 11 THEN 8000 WHEN 12 THEN 1230 WHEN 13 "
         "THEN 3000 WHEN 14 THEN 700 WHEN 15 THEN NULL ELSE 100 END,id_rules_goods=1,block=(id=16),"
         "group_g=IF(id=17,3,1)",
         "INSERT INTO prices(id_goods,id_shop,id_group,priority,price,week_day,info) VALUES"
         "(10,0,2,0,4995,5,'акт 7'),(10,1,2,0,4800,0,NULL),(13,0,1,0,2900,0,NULL),(14,0,2,3,650,0,NULL)"});
    m_user = std::make_unique<QLoadedUser>(nullptr, &m_base->heard);
    QVERIFY(m_user->loadpermis(m_base->connection(), "admin", QString()));
    m_page =
        std::make_unique<QManGoods>(m_base->connection(), m_user.get(), &m_base->heard, nullptr, nullptr);
    m_page->setPermission(Permission::GoodsManagement);
    m_page->resize(1000, 600);
    QVERIFY(showActive(m_page.get()));
    QTRY_VERIFY(!m_page->isLoading());
    m_base->heard.forget();
}

void TstQManGoods::cleanup()
{
    Db::setStatementHook(nullptr);
    Db::setStatementRefusal(nullptr);
    m_page.reset();
    QCOMPARE(m_base->heard.texts(), QStringList());
}

void TstQManGoods::chooseGroups(const QStringList &names)
{
    choose("cbPlace", "Ціни груп магазинів");
    auto *groups = child<QChekedComboBox>(m_page.get(), "cbGroups");
    for (int row = 1; row < groups->count(); ++row)
        groups->setChekedItem(row, names.contains(groups->itemText(row)) ? Qt::Checked : Qt::Unchecked);
}

void TstQManGoods::preview()
{
    button("pbPreview")->click();
    waitOutJobs();
    waitOutTasks();
}

QString TstQManGoods::answered(const char *name, const QString &answer,
                               const std::function<void()> &meanwhile)
{
    QString asked;
    withModal<QMessDlg>([&] { button(name)->click(); },
                        [&](QMessDlg *question) {
                            for (const auto *label : question->findChildren<QLabel *>())
                                asked += label->text();
                            if (meanwhile)
                                meanwhile();
                            waitOutGuard();
                            for (auto *each : question->findChildren<QPushButton *>()) {
                                if (each->text().remove('&') == answer)
                                    return each->click();
                            }
                        });
    waitOutJobs();
    waitOutTasks();
    return asked.replace(QChar(0xA0), ' ');
}

QStringList TstQManGoods::lines(int first) const
{
    const auto *model = m_page->list()->model();
    QStringList all;
    for (int row = 0; row < model->rowCount(); ++row) {
        QStringList cells;
        for (int column = first; column < model->columnCount(); ++column)
            cells.append(model->index(row, column).data().toString().replace(QChar(0xA0), ' '));
        all.append(cells.join('|'));
    }
    return all;
}

/// 5 % of 12.30 are 61.5 kopecks.
void TstQManGoods::previewTellsOldAndNewAndWhatIsRefused()
{
    type("lePercent", "5");
    preview();
    QCOMPARE(lines(), QStringList({"10|Хліб житній|default|50.00|базова|50.00|52.50|2.50|2|буде змінено",
                                   "11|Сир ваговий|default|80.00|базова|80.00|84.00|4.00|0|буде змінено",
                                   "12|Пакет O'Neil 5%|default|12.30|базова|12.30|12.92|0.62|0|буде змінено",
                                   "13|Молоко|default|30.00|базова|30.00|31.50|1.50|1|буде змінено",
                                   "14|Картопля|default|7.00|базова|7.00|7.35|0.35|1|буде змінено",
                                   "15|Новинка|default||базова||||0|пропущено: немає ціни",
                                   "16|Знятий|default|1.00|базова|1.00|||0|пропущено: товар заблоковано",
                                   "17|Пляшка|Тара|1.00|базова|1.00|1.05|0.05|0|буде змінено"}));
    QCOMPARE(counts(), QString("Зміниться цін: 6 (різних товарів: 6). Сума цін: 180.30 → 189.32 (різниця "
                               "9.02). Немає ціни: 1. Заблоковані: 1."));
}

QTEST_MAIN(TstQManGoods)
#include "tst_qmangoods.moc"
