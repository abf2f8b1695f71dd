#include "qaddedtcomands.h"
#include "ui_qaddedtcomands.h"

#include "launch.h"

#include <QFileInfo>
#include <QSqlDatabase>

namespace {
const QLatin1String sampleAddress("10.0.0.1");

RecordStatements statements()
{
    return {QStringLiteral("comands"),
            QStringLiteral("SELECT comands.name,comands.comand,comands.param FROM comands WHERE comands.id="),
            QStringLiteral("INSERT INTO comands(name,comand,param) VALUES(:name,:comand,:param)"),
            QStringLiteral("UPDATE comands SET name=:name,comand=:comand,param=:param WHERE comands.id="),
            QStringLiteral("SELECT name FROM comands WHERE id=")};
}
} // namespace

QAddEdtComands::QAddEdtComands(QTab *tab, QSqlDatabase *db, QString *id, QObject *receiver, QWidget *parent)
    : RecordDialog(Db(db, receiver), statements(), id, parent), ui(std::make_unique<Ui::QAddEdtComands>())
{
    Q_UNUSED(tab)
    ui->setupUi(this);
    chooseFile = [this](const QString &title, const QString &filter, const QString &path) {
        return chooseProgram(this, title, filter, path);
    };
    connectFields();
    load(inputs());
}

QAddEdtComands::~QAddEdtComands() = default;

QVector<RecordInput> QAddEdtComands::inputs() const
{
    using Form = InputForm;
    return {{ui->leName, Form::Trimmed, "name", ":name"},
            {ui->lePath, Form::Trimmed, "comand", ":comand"},
            {ui->leParam, Form::Text, "param", ":param"}};
}

void QAddEdtComands::connectFields()
{
    connect(ui->pbOk, &QPushButton::clicked, this, &QAddEdtComands::btok);
    connect(ui->pbCancel, &QPushButton::clicked, this, &QAddEdtComands::btcancel);
    connect(ui->pbPath, &QPushButton::clicked, this, &QAddEdtComands::selPath);
    connect(ui->lePath, &QLineEdit::textChanged, this, &QAddEdtComands::textChangPath);
    connect(ui->leParam, &QLineEdit::textChanged, this, &QAddEdtComands::textChangParam);
}

void QAddEdtComands::loaded()
{
    ui->leName->setFocus();
}

void QAddEdtComands::selPath()
{
    const QString path = chooseFile(tr("Відкрити"), programFilter, ui->lePath->text().trimmed());
    if (!path.isEmpty() && !isReadOnly() && !isBusy())
        ui->lePath->setText(path);
}

void QAddEdtComands::textChangPath()
{
    showLine();
}

void QAddEdtComands::textChangParam()
{
    showLine();
}

void QAddEdtComands::showLine()
{
    const QString path = ui->lePath->text().trimmed();
    ui->leLine->setText(path.isEmpty() ? QString() : commandLine({path, ui->leParam->text()}, sampleAddress));
    ui->leLine->setCursorPosition(0);
}

QString QAddEdtComands::refusal() const
{
    const QString path = ui->lePath->text().trimmed();
    if (ui->leName->text().trimmed().isEmpty())
        return tr("Назва не може бути пустою");
    if (path.isEmpty())
        return tr("Шлях прогамми, не може бути пустим");
    if (!QFileInfo(path).isFile())
        return tr("Файд прогамми, не знайдено");
    return QString();
}

QVector<UniqueValue> QAddEdtComands::uniqueValues() const
{
    return {{"name",
             QStringLiteral("SELECT id FROM comands WHERE name=:name"),
             {{QStringLiteral(":name"), ui->leName->text().trimmed()}},
             tr("Такий запис вже існує в базі!")}};
}
