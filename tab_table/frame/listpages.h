#pragma once

#include "listprinter.h"

#include <QCoreApplication>
#include <QFont>
#include <QHash>
#include <QRectF>
#include <QVector>
#include <memory>

class QPaintDevice;
class QPainter;

/// A printed list cut into pages: the heading on the first one, captions and a footer with the number on
/// each, the totals behind the last row. Columns are as wide as what they hold and fill the page; where they
/// do not fit, the letters become smaller and long texts go over several lines. Nothing is cut.
class ListPages
{
    Q_DECLARE_TR_FUNCTIONS(ListPages)

public:
    explicit ListPages(const PrintedList &list);
    ~ListPages();
    Q_DISABLE_COPY(ListPages)

    /// Reads the rows, once and first of all. False when it was stopped, as layOut().
    bool read(const ListProgress &mayGoOn = {});
    /// The width that the columns want, in inches.
    double naturalWidth(QPaintDevice *device) const;
    /// Cuts the list into pages of that size, in the device's pixels.
    bool layOut(QPaintDevice *device, const QSizeF &page, const ListProgress &mayGoOn = {});

    int count() const { return m_pages.size(); }
    /// Pages count from 0; the painter's origin is the page's upper left corner.
    void paint(QPainter *painter, int page) const;

private:
    class CharacterWidths;
    struct PrintedColumn
    {
        QString caption;
        Qt::Alignment alignment;
        /// The longest texts in it, by which it is measured.
        QStringList longest;
        double left = 0;
        double width = 0;
        /// The lines of texts that are too long for it.
        mutable QHash<QString, QStringList> broken;

        bool isNumber() const { return (alignment & Qt::AlignRight) != 0; }
        /// With the empty edges, in the device's pixels.
        double wanted(const QFont &font, QPaintDevice *device) const;
    };
    struct Page
    {
        int firstRow;
        int rows;
        int firstTotal;
        int totals;
    };

    static double paddingOf(const QFont &font, QPaintDevice *device);
    QVector<double> wantedWidths(const QFont &font, QPaintDevice *device) const;
    void chooseFont(QPaintDevice *device);
    void placeColumns(QPaintDevice *device);
    bool measureRows(QPaintDevice *device, const ListProgress &mayGoOn);
    int lineCount(int column, int row, QPaintDevice *device) const;
    QStringList linesOf(const QString &text, double width, QPaintDevice *device) const;
    QStringList brokenLines(const PrintedColumn &column, const QString &text, QPaintDevice *device) const;
    bool fits(const PrintedColumn &column, const QString &text) const;
    double rowHeight(int row) const { return m_rowHeights.value(row, m_rowHeight); }
    void measure(QPaintDevice *device);
    void cutIntoPages();
    double headingHeight() const;
    double paintHeading(QPainter *painter) const;
    void paintCaptions(QPainter *painter, double top) const;
    void paintRow(QPainter *painter, int row, double top) const;
    void paintCell(QPainter *painter, const QString &text, const PrintedColumn &column, double top) const;
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
    /// Of a row of one line; of those that have more.
    double m_rowHeight = 0;
    QHash<int, double> m_rowHeights;
    std::unique_ptr<CharacterWidths> m_widths;
    double m_lineSpacing = 0;
    double m_padding = 0;
};
