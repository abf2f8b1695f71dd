#include "clnfilter.h"
#include "ui_clnfilter.h"

#include <QStringList>

ClnFilter::ClnFilter(QWidget *parent) : QDialog(parent), ui(std::make_unique<Ui::ClnFilter>())
{
    ui->setupUi(this);
    connect(ui->pbOk, &QPushButton::clicked, this, &QDialog::accept);
    connect(ui->pbCancel, &QPushButton::clicked, this, &QDialog::reject);
    // A card is blocked or it is not.
    connect(ui->chBlocked, &QCheckBox::toggled, ui->chNotBlocked, &QCheckBox::setDisabled);
    connect(ui->chNotBlocked, &QCheckBox::toggled, ui->chBlocked, &QCheckBox::setDisabled);
}

ClnFilter::~ClnFilter() = default;

/// Of the kinds, both is the same as none.
QString ClnFilter::condition() const
{
    QStringList conditions;
    if (ui->chBonus->isChecked() != ui->chDiscount->isChecked())
        conditions.append(QStringLiteral("clients.bonus_discount=%1").arg(ui->chBonus->isChecked() ? 1 : 0));
    if (ui->chBlocked->isChecked() || ui->chNotBlocked->isChecked())
        conditions.append(QStringLiteral("clients.block=%1").arg(ui->chBlocked->isChecked() ? 1 : 0));
    return conditions.join(QStringLiteral(" AND "));
}
