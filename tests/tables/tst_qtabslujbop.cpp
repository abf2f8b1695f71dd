#include "workplace.h"

#include "qaddedtslujbop.h"
#include "qntableview.h"
#include "qrowmodel.h"
#include "qtabslujbop.h"

#include <QComboBox>
#include <QLineEdit>

/// The service operations and their editor.
class TstQTabSlujbOp : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { m_place = std::make_unique<Workplace>(); }
    void cleanupTestCase() { m_place.reset(); }
    void init();
    void cleanup() { m_tab.reset(); }

    void listTellsTheDirection();
    void addedByKeys();
    void directionIsChanged();
    void unknownDirectionIsKeptUntilChosen();
    void refusals();

private:
    bool add(const std::function<void(QAddEdtSlujbOp *)> &drive);
    bool edit(int id, const std::function<void(QAddEdtSlujbOp *)> &drive);
    QStringList stored();
    QStringList shown();

    std::unique_ptr<Workplace> m_place;
    FreshDatabase *m_base = nullptr;
    std::unique_ptr<QTabSlujbOp> m_tab;
};

void TstQTabSlujbOp::init()
{
    m_base = &m_place->base;
    m_base->exec({"TRUNCATE slujb_op",
                  "INSERT INTO slujb_op(id,name,plus_minus) VALUES(1,'Службове внесення',1),"
                  "(2,'Службове вилучення',0),(7,'Інкасація',NULL)"});
    m_place->logIn(Permission::SlujbOp);
    m_tab = std::make_unique<QTabSlujbOp>(m_place->connection(), m_place->user(), &m_base->heard,
                                          m_place->settings(), nullptr);
    m_tab->setPermission(Permission::SlujbOp);
    QVERIFY(showActive(m_tab.get()));
    QTRY_VERIFY(!m_tab->isLoading());
    m_tab->view()->sortByColumn(0, Qt::AscendingOrder);
    m_base->heard.forget();
}

bool TstQTabSlujbOp::add(const std::function<void(QAddEdtSlujbOp *)> &drive)
{
    return inEditor<QAddEdtSlujbOp>([&] { m_tab->run(Command::Add); }, drive);
}

bool TstQTabSlujbOp::edit(int id, const std::function<void(QAddEdtSlujbOp *)> &drive)
{
    for (int row = 0; row < m_tab->model()->rowCount(); ++row) {
        if (m_tab->model()->stored(row, 0) != QString::number(id))
            continue;
        m_tab->view()->setCurrentIndex(m_tab->model()->index(row, 1));
        return inEditor<QAddEdtSlujbOp>([this] { m_tab->run(Command::Edit); }, drive);
    }
    return false;
}

QStringList TstQTabSlujbOp::stored()
{
    return m_base->rows("SELECT id,name,IFNULL(plus_minus,'NULL') FROM slujb_op ORDER BY id");
}

QStringList TstQTabSlujbOp::shown()
{
    QStringList rows;
    for (int row = 0; row < m_tab->model()->rowCount(); ++row)
        rows.append(m_tab->model()->index(row, 1).data().toString() + '/' +
                    m_tab->model()->index(row, 2).data().toString());
    return rows;
}

void TstQTabSlujbOp::listTellsTheDirection()
{
    QVERIFY(m_tab->view()->isColumnHidden(0));
    QCOMPARE(m_tab->model()->headerData(1, Qt::Horizontal).toString(), QString("Назва операції"));
    QCOMPARE(m_tab->model()->headerData(2, Qt::Horizontal).toString(), QString("вилучення / внесення"));
    QCOMPARE(shown(),
             QStringList({"Службове внесення/Внесення", "Службове вилучення/Вилучення", "Інкасація/"}));
    QCOMPARE(answerQuestion([this] { m_tab->run(Command::Delete); }), QString("Видалення заборонене!!!"));
}

void TstQTabSlujbOp::addedByKeys()
{
    QVERIFY(add([](QAddEdtSlujbOp *editor) {
        QCOMPARE(editor->windowTitle(), QString("Додавання нового запису"));
        QVERIFY(!editor->isChanged());
        typeText(" Здача виручки '\\% ");
        pressKeys({Qt::Key_Tab, Qt::Key_Down, Qt::Key_Return});
        waitOutTasks();
        QVERIFY(!editor->isVisible());
    }));
    QVERIFY(add([](QAddEdtSlujbOp *editor) {
        QCOMPARE(child<QComboBox>(editor, "cbPlusMinus")->currentText(), QString("внесення"));
        enter(editor, "leName", "Розмінна монета");
        QCOMPARE(saveMeets(editor), QString());
    }));
    QCOMPARE(stored().mid(3), QStringList({"8|Здача виручки '\\%|0", "9|Розмінна монета|1"}));
    QCOMPARE(shown().mid(3), QStringList({"Здача виручки '\\%/Вилучення", "Розмінна монета/Внесення"}));
    QCOMPARE(m_base->heard.texts(), QStringList());
}

void TstQTabSlujbOp::directionIsChanged()
{
    QVERIFY(edit(2, [](QAddEdtSlujbOp *editor) {
        QCOMPARE(editor->windowTitle(), QString("Редагування запису №2"));
        QCOMPARE(child<QLineEdit>(editor, "leName")->text(), QString("Службове вилучення"));
        QCOMPARE(child<QComboBox>(editor, "cbPlusMinus")->currentText(), QString("вилучення"));
        enter(editor, "cbPlusMinus", "внесення");
        QCOMPARE(saveMeets(editor), QString());
    }));
    QCOMPARE(stored().at(1), QString("2|Службове вилучення|1"));
    QCOMPARE(shown().at(1), QString("Службове вилучення/Внесення"));
}

void TstQTabSlujbOp::unknownDirectionIsKeptUntilChosen()
{
    QVERIFY(edit(7, [](QAddEdtSlujbOp *editor) {
        QCOMPARE(child<QComboBox>(editor, "cbPlusMinus")->currentIndex(), -1);
        QCOMPARE(saveMeets(editor), QString("Виберіть, що це: внесення чи вилучення."));
        enter(editor, "cbPlusMinus", "вилучення");
        QCOMPARE(saveMeets(editor), QString());
    }));
    QCOMPARE(stored().at(2), QString("7|Інкасація|0"));
}

void TstQTabSlujbOp::refusals()
{
    QVERIFY(add([this](QAddEdtSlujbOp *editor) {
        enter(editor, "leName", "  ");
        QCOMPARE(saveMeets(editor), QString("Назва не може бути пустою"));
        enter(editor, "leName", "службове ВНЕСЕННЯ");
        QVERIFY(saveMeets(editor).startsWith("Такий запис вже існує в базі!"));
        // Another program is quicker than the one that has just found the name free.
        enter(editor, "leName", "Розмін");
        Db::setStatementHook([this](const QString &sql) {
            if (sql.startsWith("INSERT INTO slujb_op"))
                m_base->execElsewhere("INSERT INTO slujb_op(name,plus_minus) VALUES('Розмін',1)");
        });
        const QString met = saveMeets(editor);
        Db::setStatementHook(nullptr);
        QVERIFY2(met.startsWith("Такий запис вже існує в базі!"), qPrintable(met));
        QCOMPARE(child<QLineEdit>(editor, "leName")->text(), QString("Розмін"));
        QCOMPARE(child<QLineEdit>(editor, "leName")->maxLength(), 100);
    }));
    QVERIFY(edit(1, [](QAddEdtSlujbOp *editor) {
        enter(editor, "leName", "Інкасація");
        QVERIFY(saveMeets(editor).startsWith("Такий запис вже існує в базі!"));
    }));
    QCOMPARE(stored().at(0), QString("1|Службове внесення|1"));
    QCOMPARE(stored().size(), 4);
}

QTEST_MAIN(TstQTabSlujbOp)
#include "tst_qtabslujbop.moc"
