#include "pastedtable.h"

#include "listpane.h"
#include "qloadeduser.h"
#include "qmessdlg.h"
#include "qpastetable.h"
#include "qrowmodel.h"
#include "saleshop.h"

#include <QFile>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTemporaryDir>

namespace {
QString text(const char *words)
{
    return QString::fromUtf8(words);
}

const SaleWork::Caller caller{__FILE__, __LINE__};
} // namespace

class TstPastedTable : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void cleanupTestCase();

    void barcodes_data();
    void barcodes();
    void lines_data();
    void lines();
    void layouts_data();
    void layouts();
    void doubledAddUp();
    void whatMovesHasToBeThere();
    void oneStatement();
    void serverDoesNotAnswer();
    void window();
    void textThatChangesMeanwhile();

private:
    PastedTable check(const QString &table, GoodsSearch::Mode mode = GoodsSearch::Receive);

    std::unique_ptr<FreshDatabase> m_base;
    std::unique_ptr<QLoadedUser> m_user;
};

void TstPastedTable::initTestCase()
{
    m_base = std::make_unique<FreshDatabase>();
    fillSaleShop(m_base.get());
    m_base->exec(QStringList{
        text("UPDATE goods SET id_rules_goods=3 WHERE id=14"),
        text(
            "INSERT INTO dk_shc(id_goods,shtrihcod) VALUES(10,'0000000000777'),(13,'000000000777'),(12,'AB-12')"),
        text("DELETE FROM goods_shop WHERE id_goods=15 AND id_shop=1")});
    m_user = std::make_unique<QLoadedUser>(nullptr, &m_base->heard);
    QVERIFY(m_user->loadpermis(m_base->connection(), text("admin"), QString()));
}

void TstPastedTable::init()
{
    m_base->heard.forget();
}

void TstPastedTable::cleanup()
{
    Db::setStatementRefusal({});
}

void TstPastedTable::cleanupTestCase()
{
    m_user.reset();
    m_base.reset();
}

PastedTable TstPastedTable::check(const QString &table, GoodsSearch::Mode mode)
{
    return checkPastedTable(m_base->db(), caller, table, text("1"), mode);
}

void TstPastedTable::barcodes_data()
{
    QTest::addColumn<QString>("cell");
    QTest::addColumn<QString>("barcode");
    QTest::addColumn<QString>("why");
    QTest::newRow("as it is") << "4820000000109"
                              << "4820000000109"
                              << "";
    QTest::newRow("groups") << "482 0000 000109"
                            << "4820000000109"
                            << "";
    QTest::newRow("no-break blank") << text("4820000000109\u00a0") << "4820000000109"
                                    << "";
    QTest::newRow("made a text") << "'0000000000116"
                                 << "0000000000116"
                                 << "";
    QTest::newRow("a formula") << "=\"0000000000116\""
                               << "0000000000116"
                               << "";
    QTest::newRow("a number with decimals") << "4820000000109,00"
                                            << "4820000000109"
                                            << "";
    QTest::newRow("exponent") << "4.82E+12"
                              << ""
                              << "зіпсувала";
    QTest::newRow("exponent with comma") << "4,82e12"
                                         << ""
                                         << "зіпсувала";
    QTest::newRow("too long") << "48200000001090"
                              << ""
                              << "13";
    QTest::newRow("nothing") << " "
                             << ""
                             << "немає штрихкоду";
}

void TstPastedTable::barcodes()
{
    QFETCH(QString, cell);
    QFETCH(QString, barcode);
    QFETCH(QString, why);
    QString refusal;
    const QString found = Pasted::barcodeOf(cell, &refusal);
    if (why.isEmpty()) {
        QCOMPARE(refusal, QString());
        QCOMPARE(found, barcode);
    } else {
        QVERIFY2(refusal.contains(why), qPrintable(refusal));
    }
}

void TstPastedTable::lines_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<qint64>("taken");
    QTest::addColumn<QString>("words");
    QTest::newRow("pieces") << "4820000000109\t12" << qint64(12000) << "додається 12.000";
    QTest::newRow("comma") << "0000000000116\t0,25" << qint64(250) << "додається 0.250";
    QTest::newRow("point") << "0000000000116\t0.250" << qint64(250) << "додається 0.250";
    QTest::newRow("lost zeros") << "116\t2" << qint64(2000) << "штрихкод 0000000000116";
    QTest::newRow("thousands") << text("4820000000130\t1\u00a0200") << qint64(1200000) << "1 200.000";
    QTest::newRow("letters") << "ab-12\t1" << qint64(1000) << "додається";
    QTest::newRow("never in this shop") << "4820000000154\t1" << qint64(1000) << "додається";
    QTest::newRow("ambiguous") << "777\t1" << qint64(0) << "неоднозначний";
    QTest::newRow("exactly there") << "000000000777\t1" << qint64(1000) << "додається";
    QTest::newRow("unknown") << "4820000000999\t1" << qint64(0) << "невідомий штрихкод";
    QTest::newRow("blocked") << "4820000000161\t1" << qint64(0) << "заблоковано";
    QTest::newRow("service group") << "4820000000178\t1" << qint64(0) << "службової групи";
    QTest::newRow("rule") << "48200014\t1" << qint64(0) << "не приймають";
    QTest::newRow("half a piece") << "4820000000109\t1,5" << qint64(0) << "цілою";
    QTest::newRow("zero") << "4820000000109\t0" << qint64(0) << "кількість нуль";
    QTest::newRow("negative") << "4820000000109\t-5" << qint64(0) << "менша за нуль";
    QTest::newRow("too large") << "4820000000109\t2147484" << qint64(0) << "завелика";
    QTest::newRow("the largest") << "4820000000109\t2147483" << qint64(2147483000) << "додається";
    QTest::newRow("words") << "4820000000109\tдві" << qint64(0) << "«дві» не є кількістю";
    QTest::newRow("no quantity") << "4820000000109" << qint64(0) << "немає кількості";
    QTest::newRow("price in between") << "4820000000109\t50,00\t2" << qint64(0) << "більше ніж дві";
    QTest::newRow("spoiled") << "4.82E+12\t1" << qint64(0) << "зіпсувала";
    QTest::newRow("injection") << "x'); DELETE\t1" << qint64(0) << "невідомий";
}

void TstPastedTable::lines()
{
    QFETCH(QString, line);
    QFETCH(qint64, taken);
    QFETCH(QString, words);
    const PastedTable table = check(line);
    QCOMPARE(table.lines.size(), 1);
    const PastedLine &only = table.lines.first();
    QVERIFY2(QString(only.words).replace(QChar(0xa0), QLatin1Char(' ')).contains(words),
             qPrintable(only.words));
    QCOMPARE(only.isTaken, taken != 0);
    QCOMPARE(table.rows.size(), taken != 0 ? 1 : 0);
    QCOMPARE(table.refused.size(), taken != 0 ? 0 : 1);
    if (taken != 0)
        QCOMPARE(table.rows.first().quantity, taken);
    QCOMPARE(m_base->heard.texts(3), QStringList());
}

void TstPastedTable::layouts_data()
{
    QTest::addColumn<QString>("table");
    QTest::newRow("tabs, Windows") << "4820000000109\t2\r\n116\t0,5\r\n";
    QTest::newRow("semicolons") << "4820000000109;2\n116;0,5";
    QTest::newRow("heading") << "Штрихкод\tКількість\n4820000000109\t2\n116\t0.5\n";
    QTest::newRow("columns named") << "Назва\tКількість\tШтрихкод\nХліб\t2\t4820000000109\nСир\t0,5\t116";
    QTest::newRow("blank lines") << "\n4820000000109\t2\n\t\n\n  116 \t 0,5 \t\n\n";
    QTest::newRow("quoted") << "\"4820000000109\";\"2\"\n\"116\";\"0,5\"";
}

void TstPastedTable::layouts()
{
    QFETCH(QString, table);
    const PastedTable checked = check(table);
    QCOMPARE(checked.refused.size(), 0);
    QCOMPARE(checked.rows.size(), 2);
    QCOMPARE(checked.rows.at(0).idGoods, 10U);
    QCOMPARE(checked.rows.at(0).quantity, qint64(2000));
    QCOMPARE(checked.rows.at(1).idGoods, 11U);
    QCOMPARE(checked.rows.at(1).quantity, qint64(500));
    QCOMPARE(checked.rows.at(1).barcode, text("0000000000116"));
}

/// Told where it happens, also by another barcode of the same goods; together they fit, too.
void TstPastedTable::doubledAddUp()
{
    const PastedTable table = check(
        text("4820000000109;2\n4820000000130;1\n0000000000777;3\n4820000000109;2147482\n4820000000109;1"));
    QCOMPARE(table.rows.size(), 4);
    QCOMPARE(table.lines.at(2).words, text("ще раз, разом 5.000"));
    QVERIFY(table.lines.at(3).words.contains(text("завелика")));
    QCOMPARE(table.refused.first().number, qint64(4));
    StockDocument document;
    document.add(table.rows);
    QCOMPARE(document.rows().size(), 2);
    QCOMPARE(document.rows().first().quantity, qint64(6000));
}

void TstPastedTable::whatMovesHasToBeThere()
{
    const PastedTable table =
        check(text("4820000000154;1\n48200014;2,5\n4820000000109;1"), GoodsSearch::Move);
    QVERIFY(table.lines.at(0).words.contains(text("у магазині немає")));
    QCOMPARE(table.rows.size(), 2);
    QCOMPARE(table.rows.last().showroom, qint64(10000));
}

void TstPastedTable::oneStatement()
{
    QString many;
    for (int i = 0; i < 3000; ++i)
        many += text("482%1;1\n").arg(i, 10, 10, QLatin1Char('0'));
    many += text("4820000000109;1\n");
    Sent sent;
    const PastedTable table = check(many);
    QCOMPARE(sent.containing(QString()).size(), 1);
    QCOMPARE(table.lines.size(), 3001);
    QVERIFY(table.lines.last().isTaken);
    QVERIFY(!check(text("1;1\n").repeated(Pasted::mostLines + 1)).error.isEmpty());
    QVERIFY(check(QString()).lines.isEmpty());
    QCOMPARE(sent.containing(QString()).size(), 1);
}

void TstPastedTable::serverDoesNotAnswer()
{
    Db::setStatementRefusal(
        [](const QString &sql) { return sql.contains(QLatin1String("dk_shc")) ? 1205 : 0; });
    const PastedTable table = check(text("4820000000109;2"));
    QVERIFY(table.error.contains(text("не відповів")));
}

/// What is left out is listed, can be saved, and is asked about.
void TstPastedTable::window()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(text("refused.csv"));
    QWidget tab;
    SaleWork work(m_base->connection(), m_user.get(), &m_base->heard, &tab);
    QPasteTable form(&work, receiveMode(), text("1"), nullptr);
    form.setFileChooser([&](const QString &) { return path; });
    QVERIFY(showActive(&form));
    auto *add = child<QPushButton>(&form, text("pbAdd"));
    QVERIFY(!add->isEnabled());
    form.setText(text("4820000000109\t2\n4820000000999\t3\n116\t0,5"));
    waitOutTasks();
    QTRY_COMPARE(child<ListPane>(&form, text("listLines"))->model()->rowCount(), 3);
    const auto *refused = child<ListPane>(&form, text("listRefused"));
    QTRY_COMPARE(refused->model()->rowCount(), 1);
    QCOMPARE(child<QLabel>(&form, text("labelResult"))->text(), text("Рядків: 3, додається: 2."));
    child<QPushButton>(&form, text("pbSaveRefused"))->click();
    waitOutJobs();
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QVERIFY(QString::fromUtf8(file.readAll()).contains(text("4820000000999 3")));
    QVERIFY(answerConfirm([&] { add->click(); }, false).contains(text("не додаються: 1 з 3")));
    QVERIFY(form.isVisible());
    answerConfirm([&] { add->click(); }, true);
    QCOMPARE(form.result(), int(QDialog::Accepted));
    QCOMPARE(form.rows().size(), 2);
}

/// What was checked is not what stands there by now.
void TstPastedTable::textThatChangesMeanwhile()
{
    QWidget tab;
    SaleWork work(m_base->connection(), m_user.get(), &m_base->heard, &tab);
    QPasteTable form(&work, receiveMode(), text("1"), nullptr);
    QVERIFY(showActive(&form));
    form.setText(text("4820000000109\t2"));
    waitOutTasks();
    auto *table = child<QPlainTextEdit>(&form, text("teTable"));
    auto *add = child<QPushButton>(&form, text("pbAdd"));
    QTRY_VERIFY(add->isEnabled());
    table->moveCursor(QTextCursor::End);
    QTest::keyClicks(table, text("5"));
    QVERIFY(!add->isEnabled());
    form.accept();
    QVERIFY(form.isVisible());
    QTRY_VERIFY(add->isEnabled());
    form.accept();
    QCOMPARE(form.rows().first().quantity, qint64(25000));
}

QTEST_MAIN(TstPastedTable)
#include "tst_pastedtable.moc"
