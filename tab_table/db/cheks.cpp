#include "cheks.h"

#include <QCoreApplication>

namespace {
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(ChekType)
};
} // namespace

QString ChekType::name(int type)
{
    switch (type) {
    case Payment:
        return Texts::tr("продаж");
    case CashIn:
        return Texts::tr("внесення");
    case CashOut:
        return Texts::tr("вилучення");
    case Return:
        return Texts::tr("повернення");
    case GoodsReceipt:
        return Texts::tr("прийом");
    case GoodsMovement:
        return Texts::tr("переміщення");
    case ZReport:
        return Texts::tr("Z-звіт");
    default:
        return Texts::tr("невідомо");
    }
}

QString cheksOfRegister(const QString &kass, const QString &table)
{
    return QStringLiteral("%1id_kass=%2 AND %1id_shop IN (SELECT id FROM shops)").arg(table, kass);
}
