#include "listpages.h"

#include "signs.h"

#include <QBrush>
#include <QFontMetricsF>
#include <QPainter>
#include <QTextLayout>
#include <algorithm>
#include <numeric>
#include <vector>

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
/// Looked up again rather than broken into lines again.
constexpr int mostBroken = 20000;
/// Rows that are measured between two questions whether to go on: some milliseconds at most.
constexpr int rowsBetween = 64;

QString textOf(const ListSnapshot &list, int row, int column)
{
    const QString text = list.shown(row, column).replace(QLatin1Char('\n'), QLatin1Char(' '));
    const QString sign = list.data(row, column, signRole).toString();
    return sign.isEmpty() ? text : sign + QLatin1Char(' ') + text;
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
Qt::Alignment alignmentOf(const ListSnapshot &list, int column)
{
    const QVariant given = list.rowCount() > 0 ? list.data(0, column, Qt::TextAlignmentRole) : QVariant();
    const auto horizontal = Qt::Alignment(given.toInt()) & Qt::AlignHorizontal_Mask;
    return (horizontal == 0 ? Qt::Alignment(Qt::AlignLeft) : horizontal) | Qt::AlignVCenter;
}

double heightOf(const QFontMetricsF &metrics, double width, const QString &text)
{
    return metrics.boundingRect(QRectF(0, 0, width, 1e6), wrapped, text).height();
}

/// The caption of a column, ready to be wrapped: no word is wider than the column.
QString captionOf(const QString &caption, const QFontMetricsF &metrics, double width)
{
    QStringList words = caption.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    for (QString &word : words)
        word = metrics.elidedText(word, Qt::ElideRight, width);
    return words.join(QLatin1Char(' '));
}
} // namespace

/// Widths of characters in a font, each asked for once. Their sum is what a text takes at most: letters that
/// stand closer together only make it shorter.
class ListPages::CharacterWidths
{
public:
    CharacterWidths(const QFont &font, QPaintDevice *device)
        : m_metrics(font, device), m_widths(tableSize, -1)
    {
    }

    double of(const QString &text)
    {
        double width = 0;
        for (const QChar character : text)
            width += of(character);
        return width;
    }

private:
    /// Latin, Greek and Cyrillic letters.
    static constexpr size_t tableSize = 0x500;

    double of(QChar character)
    {
        const size_t code = character.unicode();
        if (code >= tableSize)
            return m_metrics.horizontalAdvance(character);
        if (m_widths[code] < 0)
            m_widths[code] = m_metrics.horizontalAdvance(character);
        return m_widths[code];
    }

    QFontMetricsF m_metrics;
    std::vector<double> m_widths;
};

ListPages::ListPages(const PrintedList &list) : m_list(list) {}

ListPages::~ListPages() = default;

bool ListPages::read(const ListProgress &mayGoOn)
{
    const ListSnapshot &rows = m_list.rows;
    for (int column = 0; column < rows.columnCount(); ++column) {
        PrintedColumn printed;
        printed.caption = rows.caption(column);
        printed.alignment = alignmentOf(rows, column);
        m_columns.append(printed);
    }
    for (int row = 0; row < rows.rowCount(); ++row) {
        if (row % rowsBetween == 0 && mayGoOn && !mayGoOn(row, rows.rowCount()))
            return false;
        for (int column = 0; column < m_columns.size(); ++column)
            keepLongest(&m_columns[column].longest, textOf(rows, row, column));
    }
    return true;
}

bool ListPages::layOut(QPaintDevice *device, const QSizeF &page, const ListProgress &mayGoOn)
{
    m_page = page;
    chooseFont(device);
    m_widths = std::make_unique<CharacterWidths>(m_font, device);
    placeColumns(device);
    measure(device);
    if (!measureRows(device, mayGoOn))
        return false;
    cutIntoPages();
    return true;
}

double ListPages::paddingOf(const QFont &font, QPaintDevice *device)
{
    return QFontMetricsF(font, device).averageCharWidth() * 0.8;
}

double ListPages::PrintedColumn::wanted(const QFont &font, QPaintDevice *device) const
{
    const QFontMetricsF metrics(font, device);
    double width = widestWord(caption, QFontMetricsF(boldOf(font), device));
    for (const QString &text : longest)
        width = qMax(width, metrics.horizontalAdvance(text));
    return width + 2 * paddingOf(font, device) + 1;
}

double ListPages::naturalWidth(QPaintDevice *device) const
{
    const QFont font = fontOf(fontPoints);
    const double fair = QFontMetricsF(font, device).averageCharWidth() * fairLine;
    double width = 0;
    for (const PrintedColumn &column : m_columns) {
        const double wanted = column.wanted(font, device);
        width += column.isNumber() ? wanted : qMin(wanted, fair);
    }
    return width / device->logicalDpiX();
}

QVector<double> ListPages::wantedWidths(const QFont &font, QPaintDevice *device) const
{
    QVector<double> widths;
    for (const PrintedColumn &column : m_columns)
        widths.append(column.wanted(font, device));
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
        m_columns[i].broken.clear();
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

/// The same text stands in many rows: its lines are kept.
QStringList ListPages::brokenLines(const PrintedColumn &column, const QString &text,
                                   QPaintDevice *device) const
{
    const auto known = column.broken.constFind(text);
    if (known != column.broken.constEnd())
        return *known;
    QStringList lines = linesOf(text, inside(column, 0, 0).width(), device);
    if (column.broken.size() < mostBroken)
        column.broken.insert(text, lines);
    return lines;
}

bool ListPages::fits(const PrintedColumn &column, const QString &text) const
{
    return m_widths->of(text) <= inside(column, 0, 0).width();
}

bool ListPages::measureRows(QPaintDevice *device, const ListProgress &mayGoOn)
{
    m_lineSpacing = QFontMetricsF(m_font, device).lineSpacing();
    m_rowHeights.clear();
    const int rows = m_list.rows.rowCount();
    for (int row = 0; row < rows; ++row) {
        if (row % rowsBetween == 0 && mayGoOn && !mayGoOn(row, rows))
            return false;
        int lines = 1;
        for (int column = 0; column < m_columns.size(); ++column)
            lines = qMax(lines, lineCount(column, row, device));
        if (lines > 1)
            m_rowHeights.insert(row, m_rowHeight + (lines - 1) * m_lineSpacing);
    }
    return true;
}

int ListPages::lineCount(int column, int row, QPaintDevice *device) const
{
    const PrintedColumn &placed = m_columns.at(column);
    if (placed.isNumber())
        return 1;
    const QString text = textOf(m_list.rows, row, column);
    return fits(placed, text) ? 1 : brokenLines(placed, text, device).size();
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
    m_headingHeights.clear();
    m_totalHeights.clear();
    for (int i = 0; i < m_list.heading.size(); ++i)
        m_headingHeights.append(heightOf(i == 0 ? title : plain, m_page.width(), m_list.heading.at(i)));
    for (const QString &line : m_list.totals)
        m_totalHeights.append(qMax(m_rowHeight, heightOf(bold, m_page.width(), line)));
    double lines = bold.height();
    for (const PrintedColumn &column : m_columns) {
        const double width = inside(column, 0, 0).width();
        lines = qMax(lines, heightOf(bold, width, captionOf(column.caption, bold, width)));
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
    const int rows = m_list.rows.rowCount();
    int row = 0;
    int total = 0;
    m_pages.clear();
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
                          captionOf(column.caption, metrics, place.width()));
        painter->restore();
    }
}

void ListPages::paintRow(QPainter *painter, int row, double top) const
{
    const double height = rowHeight(row);
    for (int i = 0; i < m_columns.size(); ++i) {
        const PrintedColumn &column = m_columns.at(i);
        const QVariant background = m_list.rows.data(row, i, Qt::BackgroundRole);
        if (background.isValid())
            painter->fillRect(QRectF(column.left, top, column.width, height), background.value<QBrush>());
        const QVariant colour = m_list.rows.data(row, i, Qt::ForegroundRole);
        painter->setPen(colour.isValid() ? colour.value<QBrush>().color() : QColor(Qt::black));
        paintCell(painter, textOf(m_list.rows, row, i), column, top);
    }
    painter->setPen(QPen(Qt::lightGray, 0));
    painter->drawLine(QPointF(0, top + height), QPointF(m_page.width(), top + height));
}

void ListPages::paintCell(QPainter *painter, const QString &text, const PrintedColumn &column,
                          double top) const
{
    QRectF line = inside(column, top, m_rowHeight);
    const int flags = static_cast<int>(column.alignment) | Qt::TextSingleLine;
    if (fits(column, text))
        return painter->drawText(line, flags, text);
    const QFontMetricsF metrics(m_font, painter->device());
    const QStringList lines =
        column.isNumber() ? QStringList(text) : brokenLines(column, text, painter->device());
    for (const QString &part : lines) {
        painter->drawText(line, flags, metrics.elidedText(part, Qt::ElideRight, line.width() + 1));
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
