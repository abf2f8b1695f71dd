#pragma once

#include "listprinter.h"

#include <QCoreApplication>
#include <QFont>
#include <QRectF>
#include <QVector>

class QFontMetricsF;
class QPaintDevice;
class QPainter;

/// A printed list cut into pages: the heading on the first one, captions and a footer with the number on
/// each, the totals behind the last row. Columns fill the page in the proportions of the view.
class ListPages
{
    Q_DECLARE_TR_FUNCTIONS(ListPages)

public:
    /// page: the size to paint on, in the device's pixels.
    ListPages(const PrintedList &list, QPaintDevice *device, const QSizeF &page);

    int count() const { return m_pages.size(); }
    /// Pages count from 0; the painter's origin is the page's upper left corner.
    void paint(QPainter *painter, int page) const;

    /// The width of the shown columns, in inches, as the view has them.
    static double naturalWidth(const PrintedList &list);

private:
    struct PrintedColumn
    {
        int index;
        double left;
        double width;
        Qt::Alignment alignment;
    };
    struct Page
    {
        int firstRow;
        int rows;
        int firstTotal;
        int totals;
    };

    void placeColumns(QPaintDevice *device);
    void measure(QPaintDevice *device);
    void cutIntoPages();
    double headingHeight() const;
    double paintHeading(QPainter *painter) const;
    void paintCaptions(QPainter *painter, double top) const;
    void paintRow(QPainter *painter, int row, double top) const;
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
    double m_rowHeight = 0;
    double m_padding = 0;
};
