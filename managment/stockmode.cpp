#include "stockmode.h"

#include "cheks.h"

namespace {
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(StockMode)
};
} // namespace

StockMode receiveMode()
{
    StockMode mode;
    mode.mode = GoodsSearch::Receive;
    mode.type = ChekType::GoodsReceipt;
    mode.key = Qt::Key_F7;
    mode.caption = Texts::tr("При&йом F7");
    mode.name = Texts::tr("Прийом");
    mode.placeCaption = Texts::tr("Прийняти:");
    mode.places = {{StockPlace::Syllable, Texts::tr("на склад")}, {StockPlace::Showroom, Texts::tr("у зал")}};
    mode.writeCaption = Texts::tr("Прийняти F9");
    mode.emptyText = Texts::tr("Документ порожній. Скануйте товар, знайдіть його та натисніть Enter або "
                               "вставте таблицю.");
    mode.mayBeNegative = true;
    mode.mayGoBelow = true;
    return mode;
}

StockMode moveMode()
{
    StockMode mode;
    mode.mode = GoodsSearch::Move;
    mode.type = ChekType::GoodsMovement;
    mode.key = Qt::Key_F8;
    mode.caption = Texts::tr("Перемі&щення F8");
    mode.name = Texts::tr("Переміщення");
    mode.placeCaption = Texts::tr("Перемістити:");
    mode.places = {{StockPlace::Showroom, Texts::tr("склад → зал")},
                   {StockPlace::Syllable, Texts::tr("зал → склад")}};
    mode.writeCaption = Texts::tr("Перемістити F9");
    mode.emptyText = Texts::tr("Документ порожній. Скануйте товар, знайдіть його та натисніть Enter або "
                               "вставте таблицю.");
    return mode;
}
