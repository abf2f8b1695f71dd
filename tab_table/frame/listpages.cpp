#include "listpages.h"

#include <QBrush>
#include <QFontMetricsF>
#include <QPainter>
#include <QTableView>
#include <QTextLayout>
#include <algorithm>
#include <numeric>

namespace {
constexpr double fontPoints = 9;
constexpr double smallestFontPoints = 6;
constexpr int captionLines = 3;
constexpr int wrapped = Qt::TextWordWrap;
/// Of a column, to measure it by.
constexpr int longestTexts = 8;
/// Letters smaller than usual are better than texts broken into lines of fewer than this.
constexpr int shortestLine = 20;
/// A page is turned rather than texts broken into lines of fewer than this.
constexpr int fairLine = 40;
/// A cell cannot be higher than the page.
constexpr int mostLines = 12;

QString textOf(const QModelIndex &cell)
{
    return cell.data().toString().replace(QLatin1Char('\n'), QLatin1Char(' '));
}

QVector<int> shownColumns(const PrintedList &list)
{
    QVector<int> columns;
    for (int column = 0; column < list.model->columnCount(); ++column) {
        if (list.view == nullptr || !list.view->isColumnHidden(column))
            columns.append(column);
    }
    return columns;
}

void keepLongest(QStringList *longest, const QString &text)
{
    if (longest->size() == longestTexts && text.size() <= longest->constLast().size())
        return;
    const auto place =
        std::lower_bound(longest->begin(), longest->end(), text,
                         [](const QString &one, const QString &other) { return one.size() > other.size(); });
    longest->insert(place, text);
    while (longest->size() > longestTexts)
        longest->removeLast();
}

QFont fontOf(double points)
{
    QFont font;
    font.setPointSizeF(points);
    return font;
}

QFont boldOf(QFont font)
{
    font.setBold(true);
    return font;
}

double widestWord(const QString &caption, const QFontMetricsF &metrics)
{
    double width = 0;
    const QStringList words = caption.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    for (const QString &word : words)
        width = qMax(width, metrics.horizontalAdvance(word));
    return width;
}

/// The width that, as the most of each, makes them fit into the room.
double levelOf(QVector<double> widths, double room)
{
    std::sort(widths.begin(), widths.end());
    for (int i = 0; i < widths.size(); ++i) {
        const double level = room / (widths.size() - i);
        if (widths.at(i) >= level)
            return level;
        room -= widths.at(i);
    }
    return widths.isEmpty() ? 0 : widths.constLast();
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
    : m_list(list), m_page(page), m_columns(columnsOf(list))
{
    chooseFont(device);
    placeColumns(device);
    measure(device);
    measureRows(device);
    cutIntoPages();
}

QVector<ListPages::PrintedColumn> ListPages::columnsOf(const PrintedList &list)
{
    QVector<PrintedColumn> columns;
    const QVector<int> shown = shownColumns(list);
    for (const int index : shown) {
        PrintedColumn column = {index, alignmentOf(*list.model, index), {}};
        for (int row = 0; row < list.model->rowCount(); ++row)
            keepLongest(&column.longest, textOf(list.model->index(row, index)));
        columns.append(column);
    }
    return columns;
}

double ListPages::paddingOf(const QFont &font, QPaintDevice *device)
{
    return QFontMetricsF(font, device).averageCharWidth() * 0.8;
}

double ListPages::PrintedColumn::wanted(const QFont &font, QPaintDevice *device, const QString &caption) const
{
    const QFontMetricsF metrics(font, device);
    double width = widestWord(caption, QFontMetricsF(boldOf(font), device));
    for (const QString &text : longest)
        width = qMax(width, metrics.horizontalAdvance(text));
    return width + 2 * paddingOf(font, device) + 1;
}

double ListPages::naturalWidth(const PrintedList &list, QPaintDevice *device)
{
    const QFont font = fontOf(fontPoints);
    const double fair = QFontMetricsF(font, device).averageCharWidth() * fairLine;
    double width = 0;
    const QVector<PrintedColumn> columns = columnsOf(list);
    for (const PrintedColumn &column : columns) {
        const double wanted =
            column.wanted(font, device, list.model->headerData(column.index, Qt::Horizontal).toString());
        width += column.isNumber() ? wanted : qMin(wanted, fair);
    }
    return width / device->logicalDpiX();
}

QVector<double> ListPages::wantedWidths(const QFont &font, QPaintDevice *device) const
{
    QVector<double> widths;
    for (const PrintedColumn &column : m_columns)
        widths.append(
            column.wanted(font, device, m_list.model->headerData(column.index, Qt::Horizontal).toString()));
    return widths;
}

void ListPages::chooseFont(QPaintDevice *device)
{
    const int steps = static_cast<int>((fontPoints - smallestFontPoints) * 2);
    for (int step = 0; step <= steps; ++step) {
        m_font = fontOf(fontPoints - step / 2.0);
        const double shortest = QFontMetricsF(m_font, device).averageCharWidth() * shortestLine;
        const QVector<double> widths = wantedWidths(m_font, device);
        double sum = 0;
        for (int i = 0; i < widths.size(); ++i)
            sum += m_columns.at(i).isNumber() ? widths.at(i) : qMin(widths.at(i), shortest);
        if (sum <= m_page.width())
            return;
    }
}

void ListPages::placeColumns(QPaintDevice *device)
{
    QVector<double> widths = wantedWidths(m_font, device);
    double room = m_page.width();
    QVector<double> texts;
    for (int i = 0; i < widths.size(); ++i) {
        if (m_columns.at(i).isNumber())
            room -= widths.at(i);
        else
            texts.append(widths.at(i));
    }
    // Numbers keep their width; the widest texts give way.
    const double level = levelOf(texts, qMax(room, m_page.width() / 4));
    for (int i = 0; i < widths.size(); ++i)
        widths[i] = m_columns.at(i).isNumber() ? widths.at(i) : qMin(widths.at(i), level);
    const double scale = m_page.width() / qMax(1.0, std::accumulate(widths.cbegin(), widths.cend(), 0.0));
    double left = 0;
    for (int i = 0; i < widths.size(); ++i) {
        m_columns[i].left = left;
        m_columns[i].width = widths.at(i) * scale;
        left += m_columns.at(i).width;
    }
}

QStringList ListPages::linesOf(const QString &text, double width, QPaintDevice *device) const
{
    QTextLayout layout(text, m_font, device);
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    QStringList lines;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        const bool isLast = lines.size() == mostLines - 1;
        lines.append(text.mid(line.textStart(), isLast ? -1 : line.textLength()).trimmed());
        if (isLast)
            break;
    }
    layout.endLayout();
    return lines;
}

void ListPages::measureRows(QPaintDevice *device)
{
    const QFontMetricsF metrics(m_font, device);
    m_lineSpacing = metrics.lineSpacing();
    const int rows = m_list.model->rowCount();
    for (const PrintedColumn &column : qAsConst(m_columns)) {
        const double width = inside(column, 0, 0).width();
        if (column.isNumber() || column.longest.isEmpty() ||
            column.wanted(m_font, device, QString()) <= column.width)
            continue;
        m_rowHeights.resize(rows);
        for (int row = 0; row < rows; ++row) {
            const QString text = textOf(m_list.model->index(row, column.index));
            const bool fits = metrics.horizontalAdvance(text) <= width;
            const int lines = fits ? 1 : linesOf(text, width, device).size();
            m_rowHeights[row] = qMax(m_rowHeights.at(row), m_rowHeight + (lines - 1) * m_lineSpacing);
        }
    }
}

QFont ListPages::boldFont() const
{
    return boldOf(m_font);
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
    m_padding = paddingOf(m_font, device);
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
        while (row < rows && (page.rows == 0 || rowHeight(row) <= room)) {
            room -= rowHeight(row++);
            ++page.rows;
        }
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
    for (int row = shown.firstRow; row < shown.firstRow + shown.rows; ++row) {
        paintRow(painter, row, top);
        top += rowHeight(row);
    }
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
    const double height = rowHeight(row);
    for (const PrintedColumn &column : m_columns) {
        const QModelIndex cell = m_list.model->index(row, column.index);
        const QVariant background = cell.data(Qt::BackgroundRole);
        if (background.isValid())
            painter->fillRect(QRectF(column.left, top, column.width, height), background.value<QBrush>());
        const QVariant colour = cell.data(Qt::ForegroundRole);
        painter->setPen(colour.isValid() ? colour.value<QBrush>().color() : QColor(Qt::black));
        paintCell(painter, cell, column, inside(column, top, height));
    }
    painter->setPen(QPen(Qt::lightGray, 0));
    painter->drawLine(QPointF(0, top + height), QPointF(m_page.width(), top + height));
}

void ListPages::paintCell(QPainter *painter, const QModelIndex &cell, const PrintedColumn &column,
                          const QRectF &place) const
{
    const QFontMetricsF metrics(m_font, painter->device());
    const QString text = textOf(cell);
    const bool fits = column.isNumber() || metrics.horizontalAdvance(text) <= place.width();
    const QStringList lines = fits ? QStringList(text) : linesOf(text, place.width(), painter->device());
    QRectF line(place.left(), place.top(), place.width(), m_rowHeight);
    for (const QString &part : lines) {
        painter->drawText(line, static_cast<int>(column.alignment) | Qt::TextSingleLine,
                          metrics.elidedText(part, Qt::ElideRight, place.width() + 1));
        line.translate(0, m_lineSpacing);
    }
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
