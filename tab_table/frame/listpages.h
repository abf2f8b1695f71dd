#pragma once

#include "listprinter.h"

#include <QCoreApplication>
#include <QFont>
#include <QRectF>
#include <QVector>

class QFontMetricsF;
class QModelIndex;
class QPaintDevice;
class QPainter;

/// A printed list cut into pages: the heading on the first one, captions and a footer with the number on
/// each, the totals behind the last row. Columns are as wide as what they hold and fill the page; where they
/// do not fit, the letters become smaller and long texts go over several lines. Nothing is cut.
class ListPages
{
    Q_DECLARE_TR_FUNCTIONS(ListPages)

public:
    /// page: the size to paint on, in the device's pixels.
    ListPages(const PrintedList &list, QPaintDevice *device, const QSizeF &page);

    int count() const { return m_pages.size(); }
    /// Pages count from 0; the painter's origin is the page's upper left corner.
    void paint(QPainter *painter, int page) const;

    /// The width that the shown columns want, in inches.
    static double naturalWidth(const PrintedList &list, QPaintDevice *device);

private:
    struct PrintedColumn
    {
        int index;
        Qt::Alignment alignment;
        /// The longest texts in it, by which it is measured.
        QStringList longest;
        double left = 0;
        double width = 0;

        bool isNumber() const { return (alignment & Qt::AlignRight) != 0; }
        /// With the empty edges, in the device's pixels.
        double wanted(const QFont &font, QPaintDevice *device, const QString &caption) const;
    };
    struct Page
    {
        int firstRow;
        int rows;
        int firstTotal;
        int totals;
    };

    static QVector<PrintedColumn> columnsOf(const PrintedList &list);
    static double paddingOf(const QFont &font, QPaintDevice *device);
    QVector<double> wantedWidths(const QFont &font, QPaintDevice *device) const;
    void chooseFont(QPaintDevice *device);
    void placeColumns(QPaintDevice *device);
    void measureRows(QPaintDevice *device);
    QStringList linesOf(const QString &text, double width, QPaintDevice *device) const;
    double rowHeight(int row) const { return m_rowHeights.isEmpty() ? m_rowHeight : m_rowHeights.at(row); }
    void measure(QPaintDevice *device);
    void cutIntoPages();
    double headingHeight() const;
    double paintHeading(QPainter *painter) const;
    void paintCaptions(QPainter *painter, double top) const;
    void paintRow(QPainter *painter, int row, double top) const;
    void paintCell(QPainter *painter, const QModelIndex &cell, const PrintedColumn &column,
                   const QRectF &place) const;
    void paintTotals(QPainter *painter, const Page &page, double top) const;
    void paintFooter(QPainter *painter, int page) const;
    QRectF inside(const PrintedColumn &column, double top, double height) const;
    QFont titleFont() const;
    QFont boldFont() const;

    PrintedList m_list;
    QSizeF m_page;
    QFont m_font;
    QVector<PrintedColumn> m_columns;
    QVector<Page> m_pages;
    QVector<double> m_headingHeights;
    QVector<double> m_totalHeights;
    double m_captionHeight = 0;
    /// Of a row of one line; of each row where some have more.
    double m_rowHeight = 0;
    QVector<double> m_rowHeights;
    double m_lineSpacing = 0;
    double m_padding = 0;
};
