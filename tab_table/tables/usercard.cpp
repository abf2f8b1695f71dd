#include "usercard.h"

#include "filejob.h"

#include <QCoreApplication>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QPdfWriter>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <memory>
#include <zint.h>

namespace {
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(UserCard)
};

// Millimetres.
constexpr double cardWidth = 85.6;
constexpr double cardHeight = 54;
constexpr double edge = 5;
constexpr double moduleWidth = 0.5;
constexpr double mmPerInch = 25.4;
/// A part of the card: where it begins, and how high it is.
struct Line
{
    double top;
    double height;
};
constexpr Line surnameLine = {5, 7};
constexpr Line namesLine = {12.5, 5.5};
constexpr Line barsLine = {21, 20};
constexpr Line digitsLine = {42.5, 5.5};
/// The letters of a line; and what is left of them at least before a long text is cut.
constexpr double lettersPart = 0.75;
constexpr double leastPart = 0.5;
constexpr int eanModules = 95;

/// A card on a device whose dots are not those of the screen.
class CardPainter
{
public:
    CardPainter(QPainter *painter, double dotsPerMm) : m_painter(painter), m_dotsPerMm(dotsPerMm) {}

    void paint(const UserCard &card) const
    {
        m_painter->setPen(Qt::black);
        write(surnameLine, card.surname, QFont::Bold);
        write(namesLine, card.names);
        paintBars(card.code);
        write(digitsLine, spaced(card.code));
    }

private:
    /// As it stands below such codes everywhere.
    static QString spaced(const QString &code)
    {
        return code.left(1) + QStringLiteral("  ") + code.mid(1, 6) + QStringLiteral("  ") + code.mid(7);
    }

    void write(const Line &line, const QString &text, QFont::Weight weight = QFont::Normal) const
    {
        const QRectF room = dots(edge, line.top, cardWidth - 2 * edge, line.height);
        QFont font(QStringLiteral("sans-serif"));
        font.setWeight(weight);
        const int wanted = qRound(room.height() * lettersPart);
        int size = wanted;
        do
            font.setPixelSize(size);
        while (QFontMetricsF(font, m_painter->device()).horizontalAdvance(text) > room.width() &&
               --size > wanted * leastPart);
        const QString fitting =
            QFontMetricsF(font, m_painter->device()).elidedText(text, Qt::ElideRight, room.width());
        m_painter->setFont(font);
        m_painter->drawText(room, Qt::AlignHCenter | Qt::AlignVCenter | Qt::TextSingleLine, fitting);
    }

    void paintBars(const QString &code) const
    {
        const double left = (cardWidth - eanModules * moduleWidth) / 2;
        for (const Bar &bar : eanBars(code))
            m_painter->fillRect(
                dots(left + bar.left * moduleWidth, barsLine.top, bar.width * moduleWidth, barsLine.height),
                Qt::black);
    }

    QRectF dots(double left, double top, double width, double height) const
    {
        return {left * m_dotsPerMm, top * m_dotsPerMm, width * m_dotsPerMm, height * m_dotsPerMm};
    }

    QPainter *m_painter;
    double m_dotsPerMm;
};

bool writePdf(const QVector<UserCard> &cards, QIODevice *file)
{
    QPdfWriter writer(file);
    writer.setTitle(Texts::tr("Картка користувача"));
    setCardPage(&writer);
    printCards(cards, &writer);
    return true;
}
} // namespace

QVector<Bar> eanBars(const QString &code)
{
    const std::unique_ptr<zint_symbol, decltype(&ZBarcode_Delete)> symbol(ZBarcode_Create(),
                                                                          &ZBarcode_Delete);
    symbol->symbology = BARCODE_EANX;
    symbol->show_hrt = 0;
    const QByteArray digits = code.toLatin1();
    const auto *bytes = reinterpret_cast<const unsigned char *>(digits.constData());
    if (digits.size() != 13 ||
        ZBarcode_Encode_and_Buffer_Vector(symbol.get(), bytes, digits.size(), 0) >= ZINT_ERROR)
        return {};
    QVector<Bar> bars;
    for (const zint_vector_rect *rect = symbol->vector->rectangles; rect != nullptr; rect = rect->next)
        bars.append({rect->x, rect->width});
    // The margins beside them are part of its picture.
    const double left = bars.first().left;
    const double unit = (bars.last().left + bars.last().width - left) / eanModules;
    for (Bar &bar : bars)
        bar = {(bar.left - left) / unit, bar.width / unit};
    return bars;
}

void setCardPage(QPagedPaintDevice *paper)
{
    const QPageSize size(QSizeF(cardWidth, cardHeight), QPageSize::Millimeter, Texts::tr("Картка"),
                         QPageSize::ExactMatch);
    paper->setPageLayout(QPageLayout(size, QPageLayout::Portrait, QMarginsF()));
}

void printCards(const QVector<UserCard> &cards, QPagedPaintDevice *paper)
{
    QPainter painter;
    if (!painter.begin(paper))
        return;
    for (int i = 0; i < cards.size(); ++i) {
        if (i > 0)
            paper->newPage();
        CardPainter(&painter, paper->logicalDpiX() / mmPerInch).paint(cards.at(i));
    }
}

void previewCards(QWidget *parent, const QVector<UserCard> &cards)
{
    QPrinter printer(QPrinter::HighResolution);
    printer.setFullPage(true);
    setCardPage(&printer);
    QPrintPreviewDialog preview(&printer, parent);
    preview.setWindowTitle(Texts::tr("Перегляд перед друком"));
    if (parent != nullptr)
        preview.resize(parent->window()->size());
    QObject::connect(&preview, &QPrintPreviewDialog::paintRequested, &preview,
                     [&cards](QPrinter *paper) { printCards(cards, paper); });
    preview.exec();
}

bool saveCardsPdf(QObject *receiver, const QVector<UserCard> &cards, const QString &path)
{
    return saveInBackground(receiver, path, [cards](QIODevice *file, const ListProgress & /*mayGoOn*/) {
        return writePdf(cards, file);
    });
}
