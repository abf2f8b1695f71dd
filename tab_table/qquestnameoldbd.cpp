#include "qquestnameoldbd.h"
#include "ui_qquestnameoldbd.h"

QQuestNameOldBD::QQuestNameOldBD(const QStringList &names, QWidget *parent)
    : QDialog(parent), ui(std::make_unique<Ui::QQuestNameOldBD>())
{
    ui->setupUi(this);
    ui->cbName->addItems(names);
    connect(ui->pbOk, &QPushButton::clicked, this, &QQuestNameOldBD::Ok);
    connect(ui->pbCancel, &QPushButton::clicked, this, &QQuestNameOldBD::reject);
}

QQuestNameOldBD::~QQuestNameOldBD() = default;

QString QQuestNameOldBD::name() const
{
    return ui->cbName->currentText();
}

void QQuestNameOldBD::Ok()
{
    accept();
}
