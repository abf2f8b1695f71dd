#include "qaddedtslujbop.h"
#include "ui_qaddedtslujbop.h"

#include <QSqlDatabase>

namespace {
QString inWord()
{
    return QAddEdtSlujbOp::tr("внесення");
}

QString outWord()
{
    return QAddEdtSlujbOp::tr("вилучення");
}

RecordStatements statements()
{
    return {QStringLiteral("slujb_op"),
            QStringLiteral("SELECT slujb_op.id,slujb_op.name,slujb_op.plus_minus,IF(plus_minus=1,%1,"
                           "IF(plus_minus=0,%2,plus_minus)) AS direction FROM slujb_op WHERE id=")
                .arg(lit(inWord()), lit(outWord())),
            QStringLiteral("INSERT INTO slujb_op(name,plus_minus) VALUES(:name,:pm)"),
            QStringLiteral("UPDATE slujb_op set name=:name, plus_minus=:pm WHERE id="),
            QStringLiteral("SELECT name FROM slujb_op WHERE id=")};
}
} // namespace

QAddEdtSlujbOp::QAddEdtSlujbOp(QSqlDatabase *db, QString *id, QObject *receiver, QWidget *parent)
    : RecordDialog(Db(db, receiver), statements(), id, parent), ui(std::make_unique<Ui::QAddEdtSlujbOp>())
{
    ui->setupUi(this);
    ui->leName->setMinimumWidth(fontMetrics().averageCharWidth() * 40);
    ui->cbPlusMinus->addItem(inWord(), 1);
    ui->cbPlusMinus->addItem(outWord(), 0);
    connect(ui->pbOk, &QPushButton::clicked, this, &QAddEdtSlujbOp::btok);
    connect(ui->pbCancel, &QPushButton::clicked, this, &QAddEdtSlujbOp::btcancel);
    load(inputs());
}

/// A field that loses the focus still finds the others.
QAddEdtSlujbOp::~QAddEdtSlujbOp()
{
    hide();
}

QVector<RecordInput> QAddEdtSlujbOp::inputs() const
{
    return {{ui->leName, InputForm::Trimmed, "name", ":name"},
            {ui->cbPlusMinus, InputForm::EntryId, "plus_minus", ":pm", "direction"}};
}

void QAddEdtSlujbOp::loaded()
{
    ui->leName->setFocus();
}

QString QAddEdtSlujbOp::refusal() const
{
    if (ui->leName->text().trimmed().isEmpty())
        return tr("Назва не може бути пустою");
    if (ui->cbPlusMinus->currentIndex() < 0)
        return tr("Виберіть, що це: внесення чи вилучення.");
    return QString();
}

QVector<UniqueValue> QAddEdtSlujbOp::uniqueValues() const
{
    return {{"name",
             QStringLiteral("SELECT id FROM slujb_op WHERE name=:name"),
             {{QStringLiteral(":name"), ui->leName->text().trimmed()}},
             tr("Такий запис вже існує в базі!")}};
}
