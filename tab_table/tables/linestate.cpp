#include "linestate.h"

#include "qrowmodel.h"
#include "signs.h"

#include <QBrush>
#include <QCoreApplication>

namespace {
struct Line
{
    Q_DECLARE_TR_FUNCTIONS(LineState)
};

struct StateLook
{
    QColor colour;
    Sign sign;
    const char *words;
};

const StateLook &lookOf(LineState state)
{
    static const StateLook looks[] = {
        {{0, 255, 0}, Sign::Good, QT_TRANSLATE_NOOP("LineState", "На зв'язку")},
        {{255, 255, 0}, Sign::Partly, QT_TRANSLATE_NOOP("LineState", "Не всі каси на зв'язку")},
        {{255, 0, 0}, Sign::Bad, QT_TRANSLATE_NOOP("LineState", "Немає зв'язку")},
    };
    return looks[static_cast<int>(state)];
}
} // namespace

void showLineState(QRowModel *model, int row, const QVector<int> &columns, LineState state)
{
    const StateLook &look = lookOf(state);
    for (const int column : columns) {
        const QModelIndex cell = model->index(row, column);
        model->setData(cell, QBrush(look.colour), Qt::BackgroundRole);
        // Black is readable on all three, whatever the palette.
        model->setData(cell, QBrush(Qt::black), Qt::ForegroundRole);
        showSign(model, cell, look.sign, Line::tr(look.words));
    }
}
