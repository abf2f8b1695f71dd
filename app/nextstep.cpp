#include "nextstep.h"

#include "db.h"
#include "permissions.h"
#include "qloadeduser.h"

#include <QCoreApplication>

bool mayFollowNextStep(const QLoadedUser &user)
{
    return user.maySee(Permission::BackOffice) && user.mayEdit(Permission::Shops) &&
           user.mayEdit(Permission::Goods);
}

QString nextStep(const Db &db)
{
    struct Step
    {
        const char *table;
        const char *text;
    };
    static const Step steps[] = {
        {"shops", QT_TRANSLATE_NOOP(
                      "NextStep",
                      "Щоб почати продаж, додайте магазин (Таблиці → Магазини, Ctrl+N), його касу (Таблиці → "
                      "Обладнання) і товари з цінами (Таблиці → Товари).")},
        {"kassa",
         QT_TRANSLATE_NOOP("NextStep",
                           "Щоб почати продаж, додайте касу магазину (Таблиці → Обладнання, Ctrl+N) і товари "
                           "з цінами (Таблиці → Товари).")},
        {"goods", QT_TRANSLATE_NOOP(
                      "NextStep", "Щоб почати продаж, додайте товари з цінами (Таблиці → Товари, Ctrl+N).")},
        {"goods_shop",
         QT_TRANSLATE_NOOP("NextStep",
                           "Щоб товар можна було продати, позначте в ньому магазини: Таблиці → Товари, F4, "
                           "«Продається в магазинах».")}};
    for (const Step &step : steps) {
        const auto isFilled =
            db.firstText(QStringLiteral("SELECT EXISTS(SELECT 1 FROM %1)").arg(QLatin1String(step.table)));
        if (isFilled != QStringLiteral("1"))
            return isFilled ? QCoreApplication::translate("NextStep", step.text) : QString();
    }
    return QString();
}
