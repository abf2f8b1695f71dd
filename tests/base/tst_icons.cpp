#include "testing.h"

#include "colours.h"
#include "icons.h"
#include "signs.h"

#include <QAction>
#include <QDir>
#include <QDirIterator>
#include <QLineEdit>
#include <QPainter>
#include <QPalette>
#include <QStandardItemModel>
#include <QTemporaryDir>
#include <QToolButton>

/// Icons with and without a theme of the desktop, light and dark, small and large; the signs of states.
class TstIcons : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { init(); }

    void everyIconIsSeen_data();
    void everyIconIsSeen();
    void linesAreSharp();
    void disabledLooksSo();
    void desktopsIconIsTaken();
    void themeThatLacksSomeIsNotTaken();
    void iconFollowsThePalette();
    void programHasItsOwn();
    void cellTellsItsSign();
    void signIsSeenOnItsColour();
    void fieldTellsItsRefusal();

private:
    /// A theme of the desktop whose icons of these names are squares of a colour.
    void installTheme(const QStringList &names, const QColor &colour);

    QTemporaryDir m_themes;
};

namespace {
QPalette paletteOf(bool isDark)
{
    return isDark ? QPalette(QColor(239, 240, 241), QColor(49, 54, 59), QColor(70, 75, 80),
                             QColor(25, 27, 29), QColor(90, 95, 100), QColor(239, 240, 241), Qt::white,
                             QColor(35, 38, 41), QColor(42, 46, 50))
                  : QPalette(QColor(239, 239, 239));
}

QImage drawn(const QIcon &icon, int side, QIcon::Mode mode = QIcon::Normal)
{
    return icon.pixmap(QSize(side, side), mode).toImage().convertToFormat(QImage::Format_ARGB32);
}

/// How much of what is drawn has at least that contrast against the background.
double seenPart(const QImage &image, const QColor &background, double least)
{
    int all = 0;
    int seen = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor colour = image.pixelColor(x, y);
            if (colour.alpha() < 128)
                continue;
            ++all;
            seen += contrast(colour, background) >= least ? 1 : 0;
        }
    }
    return all == 0 ? 0 : seen / double(all);
}

QStringList allNames()
{
    QStringList names;
    for (QDirIterator files(":/icons/22"); files.hasNext();)
        names.append(QFileInfo(files.next()).completeBaseName());
    return names;
}

QColor middle(const QIcon &icon)
{
    return drawn(icon, 16).pixelColor(8, 8);
}
} // namespace

void TstIcons::init()
{
    QIcon::setThemeSearchPaths({m_themes.path()});
    QIcon::setThemeName(QStringLiteral("none"));
    QGuiApplication::setPalette(paletteOf(false));
    // The first one loads those of the program.
    QVERIFY(!themeIcon("list-add").isNull());
}

void TstIcons::installTheme(const QStringList &names, const QColor &colour)
{
    // Qt keeps what it knows of a theme: each one has a name of its own.
    static int number = 0;
    const QString theme = QStringLiteral("theme%1").arg(++number);
    QDir(m_themes.path()).mkpath(theme + "/16");
    QFile index(m_themes.filePath(theme + "/index.theme"));
    QVERIFY(index.open(QIODevice::WriteOnly));
    index.write("[Icon Theme]\nName=x\nDirectories=16\n[16]\nSize=16\nType=Fixed\n");
    QImage square(16, 16, QImage::Format_ARGB32);
    square.fill(colour);
    for (const QString &name : names)
        QVERIFY(square.save(m_themes.filePath(theme + "/16/" + name + ".png")));
    QIcon::setThemeName(theme);
}

void TstIcons::everyIconIsSeen_data()
{
    QTest::addColumn<bool>("isDark");
    QTest::addColumn<int>("side");
    for (const int side : {16, 22, 32, 44})
        for (const bool isDark : {false, true})
            QTest::addRow("%s, %d", isDark ? "dark" : "light", side) << isDark << side;
}

/// Three to one is what pictures need to be told from their background.
void TstIcons::everyIconIsSeen()
{
    QFETCH(bool, isDark);
    QFETCH(int, side);
    QVERIFY(actionIcon("nothing of that name").isNull() && !actionIcon("mt_goods").isNull());
    const QPalette palette = paletteOf(isDark);
    QGuiApplication::setPalette(palette);
    for (const QString &name : allNames()) {
        const double seen = seenPart(drawn(themeIcon(name), side), palette.color(QPalette::Window), 3);
        // A coloured part may be paler than the lines around it.
        const bool isTable = name == "x-office-spreadsheet";
        QVERIFY2(seen > 0.6 || (isTable && seenPart(drawn(themeIcon(name), side),
                                                    palette.color(QPalette::Window), 2) > 0.6),
                 qPrintable(QString("%1: %2").arg(name).arg(seen)));
    }
    QVERIFY(allNames().size() > 40);
}

/// A cross of straight lines has no grey edges in either size, nor twice as large.
void TstIcons::linesAreSharp()
{
    for (const int side : {16, 22, 32, 44, 48}) {
        const QImage image = drawn(themeIcon("list-add"), side);
        QCOMPARE(image.size(), QSize(side, side));
        for (int y = 0; y < side; ++y)
            for (int x = 0; x < side; ++x) {
                const int alpha = image.pixelColor(x, y).alpha();
                QVERIFY2(alpha < 16 || alpha > 239, qPrintable(QString::number(side)));
            }
    }
}

void TstIcons::disabledLooksSo()
{
    for (const bool isDark : {false, true}) {
        const QPalette palette = paletteOf(isDark);
        QGuiApplication::setPalette(palette);
        const QImage usual = drawn(themeIcon("list-add"), 16);
        QImage faint(usual.size(), QImage::Format_ARGB32);
        faint.fill(palette.color(QPalette::Window));
        QPainter(&faint).drawImage(0, 0, drawn(themeIcon("list-add"), 16, QIcon::Disabled));
        const QColor window = palette.color(QPalette::Window);
        QVERIFY(contrast(faint.pixelColor(8, 8), window) < contrast(usual.pixelColor(8, 8), window) / 1.5);
        QVERIFY(contrast(faint.pixelColor(8, 8), window) > 1.2);
    }
}

void TstIcons::desktopsIconIsTaken()
{
    installTheme(allNames(), Qt::darkRed);
    QCOMPARE(middle(actionIcon("add")), QColor(Qt::darkRed));
    QCOMPARE(middle(actionIcon("mt_goods")), QColor(Qt::darkRed));
    // One that nobody would see is not taken: a theme for light windows on dark ones.
    installTheme(allNames(), Qt::black);
    QCOMPARE(middle(actionIcon("add")), QColor(Qt::black));
    QGuiApplication::setPalette(paletteOf(true));
    QVERIFY(contrast(middle(actionIcon("add")), paletteOf(true).color(QPalette::Window)) > 4.5);
}

/// Pictures of two hands do not stand side by side. A theme's "tag" is no "tag-edit", although a loader of
/// icons would take it.
void TstIcons::themeThatLacksSomeIsNotTaken()
{
    QStringList names = allNames();
    QVERIFY(names.removeAll("tag-edit") == 1);
    installTheme(names + QStringList("tag"), Qt::darkRed);
    for (const char *action : {"man_goods", "mt_goods", "add"})
        QVERIFY2(middle(actionIcon(action)) != QColor(Qt::darkRed), action);
}

/// Without anybody giving the icon again.
void TstIcons::iconFollowsThePalette()
{
    const QIcon icon = themeIcon("list-add");
    const QColor onLight = drawn(icon, 16).pixelColor(8, 8);
    QGuiApplication::setPalette(paletteOf(true));
    const QColor onDark = drawn(icon, 16).pixelColor(8, 8);
    QVERIFY(onLight.lightness() < 60 && onDark.lightness() > 200);
}

void TstIcons::programHasItsOwn()
{
    const QIcon icon = programIcon();
    for (const int side : {16, 32, 64, 256}) {
        const QImage image = drawn(icon, side);
        QCOMPARE(image.size(), QSize(side, side));
        // Paper on a coloured plate with round corners.
        QVERIFY(image.pixelColor(0, 0).alpha() < 200 && image.pixelColor(side / 2, side / 8).alpha() == 255);
        QVERIFY(contrast(image.pixelColor(side * 5 / 16, side * 11 / 16),
                         image.pixelColor(side / 2, side / 10)) > 3);
    }
}

void TstIcons::cellTellsItsSign()
{
    QStandardItemModel model(1, 2);
    model.setData(model.index(0, 0), "17");
    showSign(&model, model.index(0, 0), Sign::Bad, "Немає зв'язку");
    const QModelIndex cell = model.index(0, 0);
    QCOMPARE(cell.data().toString(), QString("17"));
    QCOMPARE(cell.data(signRole).toString(), QString("✗"));
    QCOMPARE(cell.data(Qt::AccessibleDescriptionRole).toString(), QString("Немає зв'язку"));
    QCOMPARE(cell.data(Qt::ToolTipRole).toString(), QString("Немає зв'язку"));
    QVERIFY(!cell.data(Qt::DecorationRole).value<QIcon>().isNull());
    endSign(&model, cell);
    for (const int role :
         {int(Qt::DecorationRole), signRole, int(Qt::ToolTipRole), int(Qt::AccessibleDescriptionRole)})
        QVERIFY2(!cell.data(role).isValid(), qPrintable(QString::number(role)));
    QCOMPARE(withSign(Sign::Good, "прийнято"), QString("✓ прийнято"));
}

/// The signs differ from each other, and stand out from every colour that is used for a state.
void TstIcons::signIsSeenOnItsColour()
{
    QStringList pictures;
    for (const Sign sign : {Sign::Good, Sign::Partly, Sign::Bad, Sign::Different, Sign::OnTheWay}) {
        const QImage image = drawn(signIcon(sign), 16);
        for (const char *colour : {"#00ff00", "#ffff00", "#ff0000", "#ff3333", "#ffcdcd", "#ffab91"})
            QVERIFY2(seenPart(image, QColor(colour), 3) > 0.6, colour);
        QString picture;
        for (int y = 0; y < 16; ++y)
            for (int x = 0; x < 16; ++x)
                picture += image.pixelColor(x, y).alpha() < 128 ? ' ' : '#';
        QVERIFY2(!pictures.contains(picture), qPrintable(signLetter(sign)));
        pictures.append(picture);
    }
}

void TstIcons::fieldTellsItsRefusal()
{
    QWidget window;
    QLineEdit field(&window);
    field.setText("482000");
    QVERIFY(showActive(&window));
    field.setFocus();
    showRefusal(&field, QString());
    QVERIFY(field.findChildren<QToolButton *>().isEmpty());
    showRefusal(&field, "Потрібно 13 цифр.");
    showRefusal(&field, "Потрібно 8 цифр.");
    const auto buttons = field.findChildren<QToolButton *>();
    QCOMPARE(buttons.size(), 1);
    QTRY_VERIFY(buttons.first()->isVisible());
    QCOMPARE(buttons.first()->toolTip(), QString("Потрібно 8 цифр."));
    QCOMPARE(field.accessibleDescription(), QString("Потрібно 8 цифр."));
    // It takes nothing from whoever types on.
    QTest::mouseClick(buttons.first(), Qt::LeftButton);
    typeText("7");
    QCOMPARE(field.text(), QString("4820007"));
    showRefusal(&field, QString());
    QTRY_VERIFY(!buttons.first()->isVisible());
    QCOMPARE(field.accessibleDescription(), QString());
}

QTEST_MAIN(TstIcons)
#include "tst_icons.moc"
