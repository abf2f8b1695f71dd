#include "listpages.h"

#include <QBrush>
#include <QFontMetricsF>
#include <QPainter>
#include <QTableView>
#include <numeric>

namespace {
constexpr double fontPoints = 9;
constexpr double smallestFontPoints = 6;
constexpr int captionLines = 3;
constexpr int defaultColumnWidth = 100;
constexpr int wrapped = Qt::TextWordWrap;

/// In inches, of the shown columns.
QVector<QPair<int, double>> naturalColumns(const PrintedList &list)
{
    QVector<QPair<int, double>> columns;
    for (int column = 0; column < list.model->columnCount(); ++column) {
        if (list.view == nullptr)
            columns.append({column, defaultColumnWidth / 96.0});
        else if (!list.view->isColumnHidden(column))
            columns.append(
                {column, qMax(1, list.view->columnWidth(column)) / double(list.view->logicalDpiX())});
    }
    return columns;
}

/// Numbers stand as they do in the first row.
Qt::Alignment alignmentOf(const QAbstractItemModel &model, int column)
{
    const QVariant given = model.index(0, column).data(Qt::TextAlignmentRole);
    const auto horizontal = Qt::Alignment(given.toInt()) & Qt::AlignHorizontal_Mask;
    return (horizontal == 0 ? Qt::Alignment(Qt::AlignLeft) : horizontal) | Qt::AlignVCenter;
}

double heightOf(const QFontMetricsF &metrics, double width, const QString &text)
{
    return metrics.boundingRect(QRectF(0, 0, width, 1e6), wrapped, text).height();
}

/// The caption of a column, ready to be wrapped: no word is wider than the column.
QString captionOf(const QAbstractItemModel &model, int column, const QFontMetricsF &metrics, double width)
{
    const QString caption = model.headerData(column, Qt::Horizontal).toString();
    QStringList words = caption.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    for (QString &word : words)
        word = metrics.elidedText(word, Qt::ElideRight, width);
    return words.join(QLatin1Char(' '));
}
} // namespace

ListPages::ListPages(const PrintedList &list, QPaintDevice *device, const QSizeF &page)
    : m_list(list), m_page(page)
{
    placeColumns(device);
    measure(device);
    cutIntoPages();
}

double ListPages::naturalWidth(const PrintedList &list)
{
    double width = 0;
    for (const auto &column : naturalColumns(list))
        width += column.second;
    return width;
}

void ListPages::placeColumns(QPaintDevice *device)
{
    const double scale = m_page.width() / qMax(0.01, naturalWidth(m_list));
    const double fontScale = scale / device->logicalDpiX();
    m_font.setPointSizeF(qBound(smallestFontPoints, fontPoints * fontScale, fontPoints));
    double left = 0;
    for (const auto &column : naturalColumns(m_list)) {
        const double width = column.second * scale;
        m_columns.append({column.first, left, width, alignmentOf(*m_list.model, column.first)});
        left += width;
    }
}

QFont ListPages::boldFont() const
{
    QFont font = m_font;
    font.setBold(true);
    return font;
}

QFont ListPages::titleFont() const
{
    QFont font = boldFont();
    font.setPointSizeF(fontPoints * 1.5);
    return font;
}

void ListPages::measure(QPaintDevice *device)
{
    const QFontMetricsF plain(m_font, device);
    const QFontMetricsF bold(boldFont(), device);
    const QFontMetricsF title(titleFont(), device);
    m_padding = plain.averageCharWidth() * 0.8;
    m_rowHeight = plain.height() * 1.3;
    for (int i = 0; i < m_list.heading.size(); ++i)
        m_headingHeights.append(heightOf(i == 0 ? title : plain, m_page.width(), m_list.heading.at(i)));
    for (const QString &line : m_list.totals)
        m_totalHeights.append(qMax(m_rowHeight, heightOf(bold, m_page.width(), line)));
    double lines = bold.height();
    for (const PrintedColumn &column : m_columns) {
        const double width = inside(column, 0, 0).width();
        lines = qMax(lines, heightOf(bold, width, captionOf(*m_list.model, column.index, bold, width)));
    }
    m_captionHeight = qMin(lines, captionLines * bold.lineSpacing()) + 2 * m_padding;
}

double ListPages::headingHeight() const
{
    const double lines = std::accumulate(m_headingHeights.begin(), m_headingHeights.end(), 0.0);
    return m_headingHeights.isEmpty() ? 0 : lines + m_rowHeight / 2;
}

void ListPages::cutIntoPages()
{
    const int rows = m_list.model->rowCount();
    int row = 0;
    int total = 0;
    do {
        Page page{row, 0, total, 0};
        double room = m_page.height() - m_captionHeight - 2 * m_rowHeight;
        if (m_pages.isEmpty())
            room -= headingHeight();
        page.rows = qMin(rows - row, qMax(1, static_cast<int>(room / m_rowHeight)));
        row += page.rows;
        room -= page.rows * m_rowHeight;
        while (row == rows && total < m_totalHeights.size() &&
               (m_totalHeights.at(total) <= room || page.rows + page.totals == 0)) {
            room -= m_totalHeights.at(total++);
            ++page.totals;
        }
        m_pages.append(page);
    } while (row < rows || total < m_totalHeights.size());
}

void ListPages::paint(QPainter *painter, int page) const
{
    const Page &shown = m_pages.at(page);
    double top = page == 0 ? paintHeading(painter) : 0;
    paintCaptions(painter, top);
    top += m_captionHeight;
    painter->setFont(m_font);
    for (int row = 0; row < shown.rows; ++row, top += m_rowHeight)
        paintRow(painter, shown.firstRow + row, top);
    paintTotals(painter, shown, top);
    paintFooter(painter, page);
}

double ListPages::paintHeading(QPainter *painter) const
{
    double top = 0;
    for (int i = 0; i < m_list.heading.size(); ++i) {
        painter->setFont(i == 0 ? titleFont() : m_font);
        painter->setPen(Qt::black);
        painter->drawText(QRectF(0, top, m_page.width(), m_headingHeights.at(i)), wrapped,
                          m_list.heading.at(i));
        top += m_headingHeights.at(i);
    }
    return headingHeight();
}

QRectF ListPages::inside(const PrintedColumn &column, double top, double height) const
{
    return {column.left + m_padding, top, qMax(1.0, column.width - 2 * m_padding), height};
}

void ListPages::paintCaptions(QPainter *painter, double top) const
{
    painter->fillRect(QRectF(0, top, m_page.width(), m_captionHeight), QColor(230, 230, 230));
    painter->setFont(boldFont());
    painter->setPen(Qt::black);
    const QFontMetricsF metrics(boldFont(), painter->device());
    for (const PrintedColumn &column : m_columns) {
        const QRectF place = inside(column, top, m_captionHeight);
        painter->save();
        painter->setClipRect(place);
        painter->drawText(place, static_cast<int>(column.alignment) | wrapped,
                          captionOf(*m_list.model, column.index, metrics, place.width()));
        painter->restore();
    }
}

void ListPages::paintRow(QPainter *painter, int row, double top) const
{
    const QFontMetricsF metrics(m_font, painter->device());
    for (const PrintedColumn &column : m_columns) {
        const QModelIndex cell = m_list.model->index(row, column.index);
        const QVariant background = cell.data(Qt::BackgroundRole);
        if (background.isValid())
            painter->fillRect(QRectF(column.left, top, column.width, m_rowHeight),
                              background.value<QBrush>());
        const QVariant colour = cell.data(Qt::ForegroundRole);
        painter->setPen(colour.isValid() ? colour.value<QBrush>().color() : QColor(Qt::black));
        const QRectF place = inside(column, top, m_rowHeight);
        const QString text = cell.data().toString().replace(QLatin1Char('\n'), QLatin1Char(' '));
        painter->drawText(place, static_cast<int>(column.alignment) | Qt::TextSingleLine,
                          metrics.elidedText(text, Qt::ElideRight, place.width()));
    }
    painter->setPen(QPen(Qt::lightGray, 0));
    painter->drawLine(QPointF(0, top + m_rowHeight), QPointF(m_page.width(), top + m_rowHeight));
}

void ListPages::paintTotals(QPainter *painter, const Page &page, double top) const
{
    painter->setFont(boldFont());
    painter->setPen(Qt::black);
    for (int i = page.firstTotal; i < page.firstTotal + page.totals; ++i) {
        painter->drawText(QRectF(0, top, m_page.width(), m_totalHeights.at(i)), wrapped | Qt::AlignVCenter,
                          m_list.totals.at(i));
        top += m_totalHeights.at(i);
    }
}

void ListPages::paintFooter(QPainter *painter, int page) const
{
    const QRectF place(0, m_page.height() - m_rowHeight, m_page.width(), m_rowHeight);
    const QFontMetricsF metrics(m_font, painter->device());
    const QString number = tr("сторінка %1 з %2").arg(page + 1).arg(count());
    const double room = place.width() - metrics.horizontalAdvance(number) - 4 * m_padding;
    painter->setFont(m_font);
    painter->setPen(Qt::black);
    painter->drawText(place, Qt::AlignLeft | Qt::AlignBottom | Qt::TextSingleLine,
                      metrics.elidedText(m_list.heading.value(0), Qt::ElideRight, room));
    painter->drawText(place, Qt::AlignRight | Qt::AlignBottom | Qt::TextSingleLine, number);
}
