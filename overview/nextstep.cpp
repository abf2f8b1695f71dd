#include "nextstep.h"

#include "db.h"
#include "permissions.h"
#include "qloadeduser.h"

#include <QCoreApplication>

const QVector<NextStep> &nextSteps()
{
    static const QVector<NextStep> steps = {
        {&FirstSteps::hasShops, "mt_shops", Permission::Shops, true,
         QT_TRANSLATE_NOOP("NextStep", "Магазин: адреса, група, рядки чека"),
         QT_TRANSLATE_NOOP("NextStep", "Додати магазин…"),
         QT_TRANSLATE_NOOP(
             "NextStep",
             "Щоб почати продаж, додайте магазин (Таблиці → Магазини, Ctrl+N), його касу (Таблиці → "
             "Обладнання) і товари з цінами (Таблиці → Товари).")},
        {&FirstSteps::hasRegisters, "mt_kass", Permission::Kassa, true,
         QT_TRANSLATE_NOOP("NextStep", "Каса магазину"), QT_TRANSLATE_NOOP("NextStep", "Додати касу…"),
         QT_TRANSLATE_NOOP("NextStep",
                           "Щоб почати продаж, додайте касу магазину (Таблиці → Обладнання, Ctrl+N) і товари "
                           "з цінами (Таблиці → Товари).")},
        {&FirstSteps::hasGoods, "mt_goods", Permission::Goods, true,
         QT_TRANSLATE_NOOP("NextStep",
                           "Товари з цінами і штрихкодами; багато товарів імпортуються з прайс-листа"),
         QT_TRANSLATE_NOOP("NextStep", "Додати товар…"),
         QT_TRANSLATE_NOOP("NextStep",
                           "Щоб почати продаж, додайте товари з цінами (Таблиці → Товари, Ctrl+N).")},
        {&FirstSteps::hasStock, "mt_goods", Permission::Goods, false,
         QT_TRANSLATE_NOOP("NextStep", "Де товар продається: у товарі (F4) список «Продається в магазинах»"),
         QT_TRANSLATE_NOOP("NextStep", "Відкрити товари"),
         QT_TRANSLATE_NOOP("NextStep",
                           "Щоб товар можна було продати, позначте в ньому магазини: Таблиці → Товари, F4, "
                           "«Продається в магазинах».")},
        {&FirstSteps::hasShifts, "man_saleadmiss", Permission::Sales, false,
         QT_TRANSLATE_NOOP("NextStep", "Перший продаж: він відкриє зміну"),
         QT_TRANSLATE_NOOP("NextStep", "Відкрити продаж"), ""},
    };
    return steps;
}

QString nextStepText(const char *text)
{
    return *text == '\0' ? QString() : QCoreApplication::translate("NextStep", text);
}

QString firstStepsSql()
{
    return QStringLiteral("EXISTS(SELECT 1 FROM shops) AS shops,EXISTS(SELECT 1 FROM kassa) AS kassa,"
                          "EXISTS(SELECT 1 FROM goods) AS goods,EXISTS(SELECT 1 FROM goods_shop) AS stock,"
                          "EXISTS(SELECT 1 FROM z_zvit) AS shifts");
}

bool mayFollowNextStep(const QLoadedUser &user)
{
    return user.maySee(Permission::BackOffice) && user.mayEdit(Permission::Shops) &&
           user.mayEdit(Permission::Goods);
}

QString nextStep(const Db &db)
{
    const auto found = db.firstRow(QStringLiteral("SELECT ") + firstStepsSql());
    if (!found)
        return QString();
    const auto has = [&found](int what) { return found->value(what) == QLatin1String("1"); };
    const FirstSteps done = {has(0), has(1), has(2), has(3), has(4)};
    for (const NextStep &step : nextSteps()) {
        if (!(done.*step.isDone))
            return nextStepText(step.words);
    }
    return QString();
}
