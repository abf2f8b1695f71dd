#include "icons.h"

#include "colours.h"

#include <QAbstractButton>
#include <QAction>
#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QSvgRenderer>
#include <algorithm>
#include <iterator>

// Its resource is part of a static library.
static void loadIcons()
{
    Q_INIT_RESOURCE(icons);
}

namespace {
struct NamedIcon
{
    const char *objectName;
    const char *icon;
};

/// In the order of the menus; then the buttons that many pages have.
const NamedIcon namedIcons[] = {
    {"man_saleadmiss", "amarok_cart_view"},
    {"man_invoices", "document-swap"},
    {"man_goods", "tag-edit"},
    {"man_finance", "wallet-open"},
    {"man_action", "tag-new"},
    {"mt_shops", "go-home"},
    {"mt_kass", "computer"},
    {"mt_devices", "phone"},
    {"mt_group_shops", "view-list-tree"},
    {"mt_goods", "package"},
    {"mt_group_goods", "folder"},
    {"mt_goods_shops", "view-barcode"},
    {"mt_clients", "view-pim-contacts"},
    {"mt_diskount", "format-number-percent"},
    {"mt_action", "view-calendar-special-occasion"},
    {"mt_cheks", "view-list-text"},
    {"mt_type_cheks", "view-list-details"},
    {"mt_z_zvits", "clock"},
    {"mt_slujb_op", "view-financial-account-cash"},
    {"mt_day_update", "view-calendar-upcoming-days"},
    {"mt_tax", "view-financial-category"},
    {"mz_overview", "view-statistics"},
    {"mz_cheks", "view-financial-list"},
    {"mz_zzvit", "office-report"},
    {"mz_art_zvit", "office-chart-bar"},
    {"mz_StatisticOnLine", "network-connect"},
    {"cashdrive", "call-start"},
    {"importcln", "document-import"},
    {"comands", "system-run"},
    {"add", "list-add"},
    {"edit", "document-edit"},
    {"dell", "edit-delete"},
    {"reload", "view-refresh"},
    {"export_to_xlsx", "x-office-spreadsheet"},
    {"export_to_csv", "text-csv"},
    {"export_to_csv_UTF8", "text-csv"},
    {"export_to_csv_cp1251", "text-csv"},
    {"import_csv_UTF8", "document-import"},
    {"import_csv_cp1251", "document-import"},
    {"import_csv_utf8_tab", "document-import"},
    {"login", "system-switch-user"},
    {"changpass", "lock"},
    {"mc_users", "system-users"},
    {"premis_group", "user-group-properties"},
    {"close_tab", "tab-close"},
    {"close_all", "tab-close-other"},
    {"quit", "application-exit"},
    {"settings", "configure"},
    {"reconnect", "network-server-database"},
    {"mt_create_tables", "table"},
    {"mt_tune", "speedometer"},
    {"mt_importBD", "archive-insert"},
    {"mt_check", "kt-check-data"},
    {"show_toolbar", "configure-toolbars"},
    {"go_to", "edit-find"},
    {"key_list", "input-keyboard"},
    {"about", "help-about"},
    {"pbPrintList", "document-print"},
    {"pbPdfList", "document-save"},
    {"pbLoad", "view-refresh"},
    {"pbStop", "process-stop"},
    {"pbFilter", "view-filter"},
    {"pbPaste", "edit-paste"},
    {"pbCopy", "edit-copy"},
    {"pbPrintSlip", "document-print"},
    {"pbPrintInvoice", "document-print"},
    {"pbPdf", "document-save"},
    {"pbReload", "view-refresh"},
    {"pbMessages", "dialog-messages"},
};

/// What the files draw with where they mean the colour of the text.
const char *const textInFiles = "#232629";
/// So much has to stand out for a sign to be seen.
constexpr double seenContrast = 2;
constexpr int smallSide = 16;

QString fileOf(int side, const QString &name)
{
    return QStringLiteral(":/icons/%1/%2.svg").arg(side).arg(name);
}

/// Drawn line by line for one of two sizes, whose multiples stay sharp.
QString fileFor(const QString &name, const QSize &size)
{
    const QString small = fileOf(smallSide, name);
    const int side = qMin(size.width(), size.height());
    return side % smallSide == 0 && QFile::exists(small) ? small : fileOf(22, name);
}

/// An icon of the program in the colour that texts have when it is painted.
class OwnIcon : public QIconEngine
{
public:
    explicit OwnIcon(const QString &name) : m_name(name) {}

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State state) override
    {
        Q_UNUSED(state)
        QFile file(fileFor(m_name, rect.size()));
        if (!file.open(QIODevice::ReadOnly))
            return;
        const QByteArray colour = textColour(mode).name().toLatin1();
        QSvgRenderer drawing(file.readAll().replace(textInFiles, colour));
        const int side = qMin(rect.width(), rect.height());
        QRectF place(0, 0, side, side);
        place.moveCenter(QRectF(rect).center());
        if (mode == QIcon::Disabled)
            painter->setOpacity(painter->opacity() * 0.6);
        drawing.render(painter, place);
    }

    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return pixmap;
    }

    QIconEngine *clone() const override { return new OwnIcon(m_name); }

private:
    static QColor textColour(QIcon::Mode mode)
    {
        const QPalette palette = QGuiApplication::palette();
        if (mode == QIcon::Disabled)
            return palette.color(QPalette::Disabled, QPalette::WindowText);
        return palette.color(mode == QIcon::Selected ? QPalette::HighlightedText : QPalette::WindowText);
    }

    QString m_name;
};

/// Pictures of two hands beside each other are harder to tell than those of one: a theme that lacks some is
/// no help.
bool hasTheme()
{
    static QString known;
    static bool isWhole = false;
    if (known == QIcon::themeName())
        return isWhole;
    known = QIcon::themeName();
    isWhole = std::all_of(std::begin(namedIcons), std::end(namedIcons), [](const NamedIcon &each) {
        return QIcon::hasThemeIcon(QLatin1String(each.icon));
    });
    return isWhole;
}

/// Half of what is drawn can be told from the background: a theme for light windows may be drawn in black.
bool standsOut(const QIcon &icon, const QColor &background)
{
    const QImage image = icon.pixmap(smallSide).toImage().convertToFormat(QImage::Format_ARGB32);
    int drawn = 0;
    int seen = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor colour = image.pixelColor(x, y);
            drawn += colour.alpha() > 127 ? 1 : 0;
            seen += colour.alpha() > 127 && contrast(colour, background) >= seenContrast ? 1 : 0;
        }
    }
    return drawn > 0 && 2 * seen >= drawn;
}
} // namespace

QIcon themeIcon(const QString &name)
{
    loadIcons();
    QIcon desktops = hasTheme() ? QIcon::fromTheme(name) : QIcon();
    if (standsOut(desktops, QGuiApplication::palette().color(QPalette::Window)))
        return desktops;
    return QFile::exists(fileOf(22, name)) ? QIcon(new OwnIcon(name)) : QIcon();
}

QIcon actionIcon(const QString &objectName)
{
    const auto *found =
        std::find_if(std::begin(namedIcons), std::end(namedIcons),
                     [&](const NamedIcon &each) { return objectName == QLatin1String(each.objectName); });
    return found == std::end(namedIcons) ? QIcon() : themeIcon(QLatin1String(found->icon));
}

void showIcons(QObject *parent)
{
    const auto show = [](auto *object) {
        const QIcon icon = actionIcon(object->objectName());
        if (!icon.isNull())
            object->setIcon(icon);
    };
    for (QAction *action : parent->findChildren<QAction *>())
        show(action);
    for (QAbstractButton *button : parent->findChildren<QAbstractButton *>())
        show(button);
}

QIcon programIcon()
{
    loadIcons();
    QSvgRenderer drawing(QStringLiteral(":/icons/veltab.svg"));
    QIcon icon;
    for (const int side : {16, 24, 32, 48, 64, 128, 256}) {
        QPixmap pixmap(side, side);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        drawing.render(&painter);
        painter.end();
        icon.addPixmap(pixmap);
    }
    return icon;
}
