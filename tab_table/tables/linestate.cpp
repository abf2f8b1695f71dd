#include "linestate.h"

#include "qrowmodel.h"

#include <QBrush>
#include <QCoreApplication>

namespace {
struct Line
{
    Q_DECLARE_TR_FUNCTIONS(LineState)
};

QColor colourOf(LineState state)
{
    switch (state) {
    case LineState::OnLine:
        return {0, 255, 0};
    case LineState::PartlyOnLine:
        return {255, 255, 0};
    case LineState::OffLine:
        break;
    }
    return {255, 0, 0};
}

QString wordsFor(LineState state)
{
    switch (state) {
    case LineState::OnLine:
        return Line::tr("На зв'язку");
    case LineState::PartlyOnLine:
        return Line::tr("Не всі каси на зв'язку");
    case LineState::OffLine:
        break;
    }
    return Line::tr("Немає зв'язку");
}
} // namespace

void showLineState(QRowModel *model, int row, const QVector<int> &columns, LineState state)
{
    const QString words = wordsFor(state);
    for (const int column : columns) {
        const QModelIndex cell = model->index(row, column);
        model->setData(cell, QBrush(colourOf(state)), Qt::BackgroundRole);
        // Black is readable on all three, whatever the palette.
        model->setData(cell, QBrush(Qt::black), Qt::ForegroundRole);
        model->setData(cell, words, Qt::ToolTipRole);
        model->setData(cell, words, Qt::AccessibleDescriptionRole);
    }
}
