#include "workplace.h"

#include "qaddedtcomands.h"
#include "qcomands.h"
#include "qntableview.h"
#include "qrowmodel.h"

#include <QLineEdit>
#include <QPushButton>

/// The launch commands and their editor.
class TstQComands : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { m_place = std::make_unique<Workplace>(); }
    void cleanupTestCase() { m_place.reset(); }
    void init();
    void cleanup() { m_tab.reset(); }

    void addedCommandIsStored();
    void refusalsInTheirOrder();
    void editingChangesOneRow();
    void programIsChosen();
    void commandsStay();

private:
    bool add(const std::function<void(QAddEdtComands *)> &drive);
    bool edit(const QString &id, const std::function<void(QAddEdtComands *)> &drive);
    QStringList stored() { return m_base->rows("SELECT id,name,comand,param FROM comands ORDER BY id"); }

    std::unique_ptr<Workplace> m_place;
    FreshDatabase *m_base = nullptr;
    std::unique_ptr<QComands> m_tab;
    QTemporaryDir m_folder;
    QString m_program;
};

void TstQComands::init()
{
    m_place->clear();
    m_base = &m_place->base;
    m_base->exec({"DELETE FROM comands", "ALTER TABLE comands AUTO_INCREMENT=1",
                  "INSERT INTO comands(id,name,comand,param) VALUES(1,'Камера','/bin/ls','[{IP}]'),"
                  "(2,'Давня','C:\\\\Program Files\\\\v.exe',NULL)",
                  "UPDATE updat SET updat='2020-01-01'"});
    m_program = m_folder.filePath("моя програма");
    QVERIFY(QFile(m_program).open(QIODevice::WriteOnly));
    m_place->logIn(Permission::Comands);
    m_tab = std::make_unique<QComands>(m_place->connection(), m_place->user(), &m_base->heard,
                                       m_place->settings(), nullptr);
    m_tab->setPermission(Permission::Comands);
    m_tab->show();
    QTRY_VERIFY(!m_tab->isLoading());
    m_base->heard.forget();
}

bool TstQComands::add(const std::function<void(QAddEdtComands *)> &drive)
{
    return inEditor<QAddEdtComands>([&] { m_tab->AddRecord(); }, drive);
}

bool TstQComands::edit(const QString &id, const std::function<void(QAddEdtComands *)> &drive)
{
    for (int row = 0; row < m_tab->model()->rowCount(); ++row) {
        const QModelIndex name = m_tab->model()->index(row, 1);
        if (m_tab->model()->stored(row, 0) == id)
            return inEditor<QAddEdtComands>([&] { emit m_tab->view()->doubleClicked(name); }, drive);
    }
    return false;
}

void TstQComands::addedCommandIsStored()
{
    QCOMPARE(m_tab->model()->headerData(1, Qt::Horizontal).toString(), QString("назва"));
    QVERIFY(add([this](QAddEdtComands *editor) {
        QCOMPARE(editor->windowTitle(), QString("Додавання нового запису"));
        enter(editor, "leName", " Екран \"О'Г\" ");
        enter(editor, "lePath", m_program + ' ');
        enter(editor, "leParam", " -h [{IP}] \"a  b\" \\\\[{IP}]\\c$ :name ?");
        QCOMPARE(child<QLineEdit>(editor, "leLine")->text(),
                 '"' + m_program + "\"  -h 10.0.0.1 \"a  b\" \\\\10.0.0.1\\c$ :name ?");
        QCOMPARE(saveMeets(editor), QString());
    }));
    QCOMPARE(stored().last(), "3|Екран \"О'Г\"|" + m_program + "| -h [{IP}] \"a  b\" \\\\[{IP}]\\c$ :name ?");
    QCOMPARE(m_tab->model()->stored(2, 0), QString("3"));
    QCOMPARE(m_tab->model()->stored(2, 1), QString("Екран \"О'Г\""));
    QVERIFY(m_base->value("SELECT updat FROM updat WHERE name='comands'") != "2020-01-01 00:00:00");
    QCOMPARE(m_base->heard.texts(), QStringList());
}

void TstQComands::refusalsInTheirOrder()
{
    QVERIFY(add([this](QAddEdtComands *editor) {
        QCOMPARE(saveMeets(editor), QString("Назва не може бути пустою"));
        enter(editor, "leName", "камера ");
        enter(editor, "lePath", " ");
        QCOMPARE(saveMeets(editor), QString("Шлях прогамми, не може бути пустим"));
        enter(editor, "lePath", m_folder.path());
        QCOMPARE(saveMeets(editor), QString("Файд прогамми, не знайдено"));
        enter(editor, "lePath", m_program);
        const QString met = saveMeets(editor);
        QVERIFY2(met.startsWith("Такий запис вже існує в базі!"), qPrintable(met));
        QVERIFY(editor->isVisible());
        QCOMPARE(child<QLineEdit>(editor, "lePath")->text(), m_program);
    }));
    QCOMPARE(stored().size(), 2);
}

void TstQComands::editingChangesOneRow()
{
    QVERIFY(edit("1", [this](QAddEdtComands *editor) {
        QCOMPARE(editor->windowTitle(), QString("Редагування запису №1"));
        enter(editor, "leName", "Давня");
        QVERIFY(saveMeets(editor).startsWith("Такий запис вже існує в базі!"));
        enter(editor, "leName", "Камера");
        enter(editor, "lePath", m_program);
        QCOMPARE(saveMeets(editor), QString());
    }));
    QCOMPARE(stored(),
             QStringList({"1|Камера|" + m_program + "|[{IP}]", "2|Давня|C:\\Program Files\\v.exe|"}));
    QVERIFY(edit("2", [](QAddEdtComands *editor) {
        QCOMPARE(child<QLineEdit>(editor, "leLine")->text(), QString("\"C:\\Program Files\\v.exe\""));
        child<QPushButton>(editor, "pbCancel")->click();
    }));
    QVERIFY(m_base->heard.has("Зміни не внесені, відмінено користувачем!"));
    m_tab->EditRecord(QModelIndex());
    QVERIFY(m_base->heard.has("QComands::EditRecord !index.isValid()"));
    QVERIFY(add([](QAddEdtComands *editor) { child<QPushButton>(editor, "pbCancel")->click(); }));
    QVERIFY(m_base->heard.has("Запис не додано, відмінено користувачем!"));
}

void TstQComands::programIsChosen()
{
    QVERIFY(add([this](QAddEdtComands *editor) {
        QStringList asked;
        QString answer = m_program;
        editor->chooseFile = [&](const QString &title, const QString &filter, const QString &path) {
            asked = QStringList{title, filter, path};
            return answer;
        };
        child<QPushButton>(editor, "pbPath")->click();
        QCOMPARE(asked, QStringList({"Відкрити", "*.* (*.*)", ""}));
        QCOMPARE(child<QLineEdit>(editor, "lePath")->text(), m_program);
        answer.clear();
        child<QPushButton>(editor, "pbPath")->click();
        QCOMPARE(asked.last(), m_program);
        QCOMPARE(child<QLineEdit>(editor, "lePath")->text(), m_program);
    }));
}

void TstQComands::commandsStay()
{
    m_tab->view()->selectRow(0);
    QCOMPARE(answerQuestion([this] { m_tab->run(Command::Delete); }), QString("Видалення не реалізоване!"));
    QCOMPARE(stored().size(), 2);
    m_place->logIn(Permission::Comands, 2);
    m_tab = std::make_unique<QComands>(m_place->connection(), m_place->user(), &m_base->heard,
                                       m_place->settings(), nullptr);
    m_tab->setPermission(Permission::Comands);
    QTRY_VERIFY(!m_tab->isLoading());
    QVERIFY2(m_tab->commands().keys() == QList<Command>{Command::Reload}, "whoever may only look reads");
    m_tab->AddRecord();
    QVERIFY(edit("1", [](QAddEdtComands *editor) { QVERIFY(editor->isReadOnly()); }));
}

QTEST_MAIN(TstQComands)
#include "tst_qcomands.moc"
