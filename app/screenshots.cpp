#include "screenshots.h"

#include "dbtasks.h"
#include "job.h"
#include "page.h"
#include "qmessdlg.h"
#include "qseluser.h"
#include "qtablebase.h"
#include "rangeselector.h"
#include "veltab.h"
#include "whypriceoffer.h"

#include <QAbstractTextDocumentLayout>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDialog>
#include <QDockWidget>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPainter>
#include <QPalette>
#include <QPushButton>
#include <QRadioButton>
#include <QShortcut>
#include <QStackedWidget>
#include <QTabWidget>
#include <QTableView>
#include <QTemporaryFile>
#include <QTextBrowser>
#include <QTimer>
#include <QTreeView>
#include <algorithm>
#include <utility>

namespace {
const int startLimitMs = 60000;
const int tabLimitMs = 20000;
/// As wide as the paper of a register is drawn.
const int slipWidth = 300;

/// Lets the window work until the condition holds.
void workUntil(const std::function<bool()> &done, int limitMs)
{
    QElapsedTimer clock;
    clock.start();
    do
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
    while (!done() && clock.elapsed() < limitMs);
}

/// So long, and until nothing is read or written.
void workFor(int ms)
{
    workUntil([] { return false; }, ms);
    workUntil([] { return DbTasks::isIdle(); }, tabLimitMs);
}

void waitForRows(QWidget *widget)
{
    const auto *page = dynamic_cast<Page *>(widget);
    workUntil([page] { return page == nullptr || !page->isLoading(); }, tabLimitMs);
    workFor(200);
}

/// What another system might leave to be imported: one card without a code, one of an unknown level.
QByteArray importedCards()
{
    const struct
    {
        const char *name;
        char type;
        int length;
    } fields[] = {{"NUM", 'N', 6}, {"CODE", 'C', 12}, {"NAME", 'C', 30}, {"DATE", 'D', 8}, {"LEVEL", 'N', 5}};
    const int count = 40;
    QByteArray descriptors;
    int length = 1;
    for (const auto &field : fields) {
        descriptors += QByteArray(field.name).leftJustified(11, '\0') + field.type + QByteArray(4, '\0') +
                       static_cast<char>(field.length) + QByteArray(15, '\0');
        length += field.length;
    }
    const int header = 32 + descriptors.size() + 1;
    QByteArray file("\x03\x7a\x01\x01", 4);
    for (const int number : {count, 0, header, length})
        file.append(static_cast<char>(number % 256)).append(static_cast<char>(number / 256));
    file += QByteArray(20, '\0') + descriptors + '\r';
    for (int i = 1; i <= count; ++i) {
        const QByteArray code = i == 7 ? "" : QByteArray::number(2200000400U + 5U * static_cast<uint>(i));
        file += ' ' + QByteArray::number(i).rightJustified(6) + code.leftJustified(12) +
                QByteArray("Client ").append(QByteArray::number(i)).leftJustified(30) + "20240229" +
                QByteArray::number(i == 12 ? 9 : 1 + i % 5).rightJustified(5);
    }
    return file;
}

/// What a supplier might send: a heading, goods that are there, a new one and one without its barcode.
QByteArray priceList(const QAbstractItemModel &goods)
{
    enum { Code = 1, Name, Price };
    QString file = QStringLiteral("Назва;Штрихкод;Ціна\n");
    for (int row = 0; row < qMin(60, goods.rowCount()); ++row) {
        const auto cell = [&](int column) { return goods.index(row, column).data(Qt::EditRole).toString(); };
        file += QStringLiteral("%1;%2;%3\n").arg(cell(Name), cell(Code), cell(Price).replace('.', ','));
        if (row % 3 == 0)
            file += QStringLiteral("%1;%2;1%3\n").arg(cell(Name), cell(Code), cell(Price));
    }
    file.insert(file.indexOf('\n') + 1, QStringLiteral("Сир «Їжак» 350 г;4820000000031;62,4\nСир;482;60\n"));
    return file.toUtf8();
}

bool isEmpty(const QWidget *page)
{
    const auto lists = page->findChildren<QTableView *>();
    return std::all_of(lists.begin(), lists.end(),
                       [](const QTableView *list) { return list->model()->rowCount() == 0; });
}
} // namespace

Screenshots::Screenshots(Veltab *window, const QString &folder)
    : QObject(window), m_window(window), m_folder(folder)
{
    QDir().mkpath(folder);
    window->setLoginUnattended(true);
    connect(window, &Veltab::ready, this, &Screenshots::takeAll, Qt::QueuedConnection);
    QTimer::singleShot(startLimitMs, this, [this] {
        if (m_number > 0)
            return;
        qWarning("No login within a minute: there is nothing to picture.");
        QCoreApplication::exit(1);
    });
}

void Screenshots::darken()
{
    QApplication::setStyle(QStringLiteral("Fusion"));
    const QColor paper(35, 38, 41);
    const QColor text(239, 240, 241);
    QPalette palette(text, QColor(49, 54, 59), QColor(70, 75, 80), QColor(25, 27, 29), QColor(90, 95, 100),
                     text, Qt::white, paper, QColor(42, 46, 50));
    palette.setColor(QPalette::AlternateBase, QColor(49, 54, 59));
    palette.setColor(QPalette::Highlight, QColor(61, 174, 233));
    palette.setColor(QPalette::Link, QColor(61, 174, 233));
    palette.setColor(QPalette::ToolTipBase, paper);
    palette.setColor(QPalette::ToolTipText, text);
    palette.setColor(QPalette::PlaceholderText, QColor(160, 160, 160));
    for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, QColor(130, 134, 138));
    QApplication::setPalette(palette);
}

void Screenshots::takeAll()
{
    takeLogin();
    save(m_window, QStringLiteral("main"));
    const QList<QAction *> actions = m_window->openingActions();
    for (QAction *action : actions) {
        action->trigger();
        takePage(action->objectName());
    }
    takeModal(QStringLiteral("mt_importBD"), [this] { m_window->tableBase()->importBD(); });
    takeModal(QStringLiteral("settings"), [this] { m_window->s_setting(); });
    takeModal(QStringLiteral("changpass"), [this] { m_window->changpass(); });
    takeEverywhere();
    takeModal(QStringLiteral("about"), [this] { m_window->about(); });
    takeModal(QStringLiteral("question"), [this] {
        QMessDlg::confirm(m_window, tr("Ви впевнені?"),
                          tr("Невірні налаштування\nможуть пошкодити дані в базі!"), tr("&Так"));
    });
    QCoreApplication::exit(m_failed ? 1 : 0);
}

/// What is reached from every page: the way to something by its name, the keys, the messages.
void Screenshots::takeEverywhere()
{
    takeModal(QStringLiteral("go_to"), [this] {
        m_window->goTo();
        QApplication::activeModalWidget()->findChild<QLineEdit *>()->setText(QStringLiteral("12"));
        workFor(600);
    });
    takeModal(QStringLiteral("key_list"), [this] { m_window->showKeys(); });
    m_window->findChild<QPushButton *>(QStringLiteral("pbMessages"))->click();
    save(m_window, QStringLiteral("messages"));
    m_window->findChild<QDockWidget *>(QStringLiteral("messages"))->close();
}

void Screenshots::takeLogin()
{
    QSelUser dialog(QCoreApplication::applicationDirPath(), QString(), m_window, false);
    dialog.show();
    save(&dialog, QStringLiteral("login"));
}

/// Pages that show more than a list and its editors.
void Screenshots::takePage(const QString &name)
{
    const struct
    {
        const char *action;
        void (Screenshots::*take)(QWidget *page, const QString &name);
    } others[] = {
        {"man_saleadmiss", &Screenshots::takeSale},   {"man_invoices", &Screenshots::takeInvoices},
        {"mz_overview", &Screenshots::takeOverview},  {"importcln", &Screenshots::takeImport},
        {"mz_cheks", &Screenshots::takeCheks},        {"mt_goods", &Screenshots::takeGoods},
        {"mt_action", &Screenshots::takeActions},     {"man_action", &Screenshots::takeAssignment},
        {"mc_users", &Screenshots::takeUsers},        {"premis_group", &Screenshots::takePermissionGroups},
        {"mz_zzvit", &Screenshots::takeZReports},     {"mt_check", &Screenshots::takeCheck},
        {"man_goods", &Screenshots::takeBulkChanges}, {"man_finance", &Screenshots::takeFinance}};
    const auto other = std::find_if(std::begin(others), std::end(others),
                                    [&name](const auto &each) { return name == QLatin1String(each.action); });
    QWidget *page = m_window->findChild<QTabWidget *>(QStringLiteral("tabWidget"))->currentWidget();
    waitForRows(page);
    (this->*(other == std::end(others) ? &Screenshots::takeList : other->take))(page, name);
}

void Screenshots::takeList(QWidget *page, const QString &name)
{
    if (page->findChild<QPushButton *>(QStringLiteral("pbLoad")) != nullptr)
        fillReport(page, name);
    save(m_window, name);
    if (auto *tab = dynamic_cast<Page *>(page); tab != nullptr && tab->isOffered(Command::Edit))
        takeEditors(page, name);
}

/// The days of the last week; a place where the report shows nothing without one.
void Screenshots::fillReport(QWidget *report, const QString &name)
{
    const QDate today = QDate::currentDate();
    if (auto *range = report->findChild<RangeSelector *>())
        range->setDays(today.addDays(-7), today.addDays(-1));
    load(report, name);
    if (!isEmpty(report))
        return;
    for (const char *box : {"cbGroup", "cbShop", "cbRegister"}) {
        if (auto *choice = report->findChild<QComboBox *>(QLatin1String(box)))
            choice->setCurrentIndex(
                qMin(choice->objectName() == QLatin1String("cbGroup") ? 2 : 1, choice->count() - 1));
        workFor(300);
    }
    load(report, name);
}

/// A report that refuses to load says so in a box, which is its picture then.
void Screenshots::load(QWidget *report, const QString &name)
{
    takeModal(name + QStringLiteral("_refusal"),
              [report] { report->findChild<QPushButton *>(QStringLiteral("pbLoad"))->click(); });
    waitForRows(report);
}

void Screenshots::takeOverview(QWidget *overview, const QString &name)
{
    auto *tree = overview->findChild<QTreeView *>();
    for (const int shop : {0, 6})
        tree->expand(tree->model()->index(shop, 0));
    save(m_window, name);
}

void Screenshots::takeCheks(QWidget *viewer, const QString &name)
{
    fillReport(viewer, name);
    auto *list = viewer->findChild<QTableView *>(QStringLiteral("view"));
    emit list->doubleClicked(list->model()->index(2, 0));
    workFor(200);
    takeSlip(viewer->findChild<QTextBrowser *>(QStringLiteral("tbSlip"))->toHtml());
    save(m_window, name);
}

/// The closed shifts, and what goes on in the open ones.
void Screenshots::takeZReports(QWidget *report, const QString &name)
{
    takeList(report, name);
    report->findChild<QComboBox *>(QStringLiteral("cbGroup"))->setCurrentIndex(0);
    report->findChild<QRadioButton *>(QStringLiteral("rbOpen"))->click();
    waitForRows(report);
    save(m_window, name + QStringLiteral("_open"));
}

void Screenshots::takeSlip(const QString &html)
{
    QTextDocument document;
    document.setHtml(html);
    document.setTextWidth(slipWidth);
    QImage paper(document.size().toSize(), QImage::Format_RGB32);
    paper.fill(Qt::white);
    QPainter painter(&paper);
    QAbstractTextDocumentLayout::PaintContext black;
    black.palette.setColor(QPalette::Text, Qt::black);
    document.documentLayout()->draw(&painter, black);
    painter.end();
    const QString file = fileFor(QStringLiteral("slip"));
    m_failed = !paper.save(file) || m_failed;
}

void Screenshots::takeSale(QWidget *sale, const QString &name)
{
    takePeriod(sale, name);
    pickGoods(sale);
    save(m_window, name);
    takeModal(name + QStringLiteral("_whyprice"), [sale] {
        for (QShortcut *shortcut : sale->findChildren<QShortcut *>()) {
            if (shortcut->key() == QKeySequence(whyPriceKey))
                emit shortcut->activated();
        }
    });
    takeModal(name + QStringLiteral("_payment"),
              [sale] { sale->findChild<QPushButton *>(QStringLiteral("pbSale"))->click(); });
    takeStock(sale, name);
}

/// The goods of a shop that is on the last day of its period.
void Screenshots::takePeriod(QWidget *sale, const QString &name)
{
    auto *shops = sale->findChild<QComboBox *>(QStringLiteral("cbShop"));
    auto *shift = sale->findChild<QLabel *>(QStringLiteral("lbShift"));
    const int before = shops->currentIndex();
    for (int shop = 0; shop < shops->count() && !shift->text().endsWith(QLatin1String(" 7.")); ++shop) {
        shops->setCurrentIndex(shop);
        workFor(300);
    }
    takeModal(name + QStringLiteral("_period"),
              [sale] { sale->findChild<QPushButton *>(QStringLiteral("pbPeriod"))->click(); });
    shops->setCurrentIndex(before);
    workFor(300);
}

/// One on the way with its goods, the windows in which it is closed, and one that came with differences.
void Screenshots::takeInvoices(QWidget *invoices, const QString &name)
{
    auto *list = invoices->findChild<QTableView *>();
    const auto button = [invoices](const char *which) {
        return invoices->findChild<QPushButton *>(QLatin1String(which));
    };
    list->selectRow(0);
    waitForRows(invoices);
    save(m_window, name);
    takeModal(name + QStringLiteral("_accept"), [=] { button("pbAccept")->click(); });
    takeModal(name + QStringLiteral("_cancel"), [=] { button("pbCancelInvoice")->click(); });
    auto *states = invoices->findChild<QComboBox *>(QStringLiteral("cbState"));
    states->setCurrentIndex(3);
    waitForRows(invoices);
    list->selectRow(0);
    waitForRows(invoices);
    save(m_window, name + QStringLiteral("_different"));
}

/// Its transfers as those of the goods, then how all cash moved, and the windows that move it.
void Screenshots::takeFinance(QWidget *finance, const QString &name)
{
    auto *parts = finance->findChild<QTabWidget *>(QStringLiteral("parts"));
    takeInvoices(parts->widget(0), name);
    takeModal(name + QStringLiteral("_send"),
              [parts] { parts->widget(0)->findChild<QPushButton *>(QStringLiteral("pbSend"))->click(); });
    parts->setCurrentIndex(1);
    waitForRows(finance);
    save(m_window, name + QStringLiteral("_report"));
    takeModal(name + QStringLiteral("_service"),
              [parts] { parts->widget(1)->findChild<QPushButton *>(QStringLiteral("pbService"))->click(); });
}

void Screenshots::pickGoods(QWidget *sale)
{
    auto *goods = sale->findChild<QTableView *>(QStringLiteral("viewGoods"));
    workUntil([goods] { return goods->model()->rowCount() > 0; }, tabLimitMs);
    for (int row = 0; row < 3; ++row) {
        goods->setFocus();
        goods->setCurrentIndex(goods->model()->index(row, 0));
        QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
        QCoreApplication::sendEvent(goods, &enter);
        workFor(100);
    }
}

void Screenshots::takeStock(QWidget *sale, const QString &name)
{
    const struct
    {
        const char *button;
        const char *suffix;
    } modes[] = {{"pbMode4", "_transfer"}, {"pbMode1", "_receive"}, {"pbMode3", "_move"}};
    for (const auto &mode : modes) {
        sale->findChild<QPushButton *>(QLatin1String(mode.button))->click();
        workFor(300);
        pickGoods(sale);
        save(m_window, name + QLatin1String(mode.suffix));
    }
    QString table = QStringLiteral("Штрихкод\tКількість\n4.82E+12\t6\n4820000000000\t1\n");
    const QAbstractItemModel &goods = *sale->findChild<QTableView *>(QStringLiteral("viewGoods"))->model();
    for (int row = 0; row < qMin(12, goods.rowCount()); ++row)
        table += QStringLiteral("%1\t%2,5\n").arg(goods.index(row, 1).data().toString()).arg(2 * row);
    QApplication::clipboard()->setText(table);
    takeModal(name + QStringLiteral("_table"), [sale] {
        auto *stack = sale->findChild<QStackedWidget *>(QStringLiteral("documents"));
        stack->currentWidget()->findChild<QPushButton *>(QStringLiteral("pbPaste"))->click();
    });
}

/// A trial of a file, with what is refused.
void Screenshots::takeImport(QWidget *import, const QString &name)
{
    QTemporaryFile file;
    const QByteArray cards = importedCards();
    m_failed = !file.open() || file.write(cards) != cards.size() || !file.flush() || m_failed;
    auto *path = import->findChild<QLineEdit *>(QStringLiteral("leFile"));
    path->setText(file.fileName());
    emit path->returnPressed();
    waitForRows(import);
    import->findChild<QLineEdit *>(QStringLiteral("leGroup"))->setText(QStringLiteral("2"));
    workFor(300);
    import->findChild<QCheckBox *>(QStringLiteral("chTrial"))->setChecked(true);
    import->findChild<QPushButton *>(QStringLiteral("pbStart"))->click();
    waitForRows(import);
    save(m_window, name);
}

void Screenshots::takeGoods(QWidget *goods, const QString &name)
{
    takeList(goods, name);
    goods->findChild<QTableView *>()->selectRow(1);
    takeModal(name + QStringLiteral("_whyprice"),
              [goods] { goods->findChild<QPushButton *>(QStringLiteral("pbWhyPrice"))->click(); });
    QTemporaryFile file(QDir::temp().filePath(QStringLiteral("XXXXXX.csv")));
    const QByteArray prices = priceList(*goods->findChild<QTableView *>()->model());
    m_failed = !file.open() || file.write(prices) != prices.size() || !file.flush() || m_failed;
    m_window->setImportChooser([&file] { return file.fileName(); });
    takeModal(name + QStringLiteral("_import"), [this] { m_window->import_csv(); });
}

void Screenshots::takeCheck(QWidget *check, const QString &name)
{
    check->findChild<QPushButton *>(QStringLiteral("pbStart"))->click();
    waitForRows(check);
    save(m_window, name);
}

/// With the card of the current one.
void Screenshots::takeUsers(QWidget *users, const QString &name)
{
    takeList(users, name);
    users->findChild<QTableView *>()->selectRow(0);
    const auto *cards = users->findChild<QPushButton *>(QStringLiteral("pbCard"))->menu();
    takeModal(name + QStringLiteral("_card"), [cards] { cards->actions().first()->trigger(); });
}

/// One that is in force, and what its week looks like.
void Screenshots::takeActions(QWidget *actions, const QString &name)
{
    actions->findChild<QTableView *>()->selectRow(3);
    workFor(500);
    save(m_window, name);
    takeModal(name + QStringLiteral("_edit"), [this] { m_window->edit(); });
    takeModal(name + QStringLiteral("_add"), [this] { m_window->add(); });
    takeModal(name + QStringLiteral("_delete"), [this] { m_window->dell(); });
}

void Screenshots::takeAssignment(QWidget *assignment, const QString &name)
{
    assignment->findChild<QComboBox *>(QStringLiteral("cbAction"))->setCurrentIndex(2);
    assignment->findChild<QPushButton *>(QStringLiteral("pbPreview"))->click();
    waitForRows(assignment);
    save(m_window, name);
    takeModal(name + QStringLiteral("_barcodes"),
              [assignment] { assignment->findChild<QPushButton *>(QStringLiteral("pbBarcodes"))->click(); });
}

/// A step of the base price, of the prices of all shop groups, and another group.
void Screenshots::takeBulkChanges(QWidget *page, const QString &name)
{
    const auto box = [page](const char *which) { return page->findChild<QComboBox *>(QLatin1String(which)); };
    const auto preview = [page] {
        page->findChild<QPushButton *>(QStringLiteral("pbPreview"))->click();
        waitForRows(page);
    };
    page->findChild<QLineEdit *>(QStringLiteral("lePercent"))->setText(QStringLiteral("7.50"));
    box("cbEnding")->setCurrentIndex(4);
    preview();
    save(m_window, name);
    box("cbPlace")->setCurrentIndex(1);
    box("cbGroups")->setItemData(0, Qt::Checked, Qt::CheckStateRole);
    preview();
    save(m_window, name + QStringLiteral("_groups"));
    takeModal(name + QStringLiteral("_question"),
              [page] { page->findChild<QPushButton *>(QStringLiteral("pbWrite"))->click(); });
    box("cbWhat")->setCurrentIndex(2);
    box("cbValue")->setCurrentIndex(2);
    preview();
    save(m_window, name + QStringLiteral("_group"));
}

void Screenshots::takePermissionGroups(QWidget *page, const QString &name)
{
    workUntil([] { return DbTasks::isIdle(); }, tabLimitMs);
    save(m_window, name);
    auto *parts = page->findChild<QTabWidget *>(QStringLiteral("parts"));
    for (int part = 1; part < parts->count(); ++part) {
        parts->setCurrentIndex(part);
        workFor(100);
        save(m_window, name + QString::number(part));
    }
    for (const char *button : {"pbCompare", "pbShowAs"})
        takeModal(name + QLatin1Char('_') + QLatin1String(button),
                  [page, button] { page->findChild<QPushButton *>(QLatin1String(button))->click(); });
}

void Screenshots::takeEditors(QWidget *page, const QString &name)
{
    page->findChild<QTableView *>()->selectRow(0);
    takeModal(name + QStringLiteral("_edit"), [this] { m_window->edit(); });
    if (dynamic_cast<Page *>(page)->isOffered(Command::Add))
        takeModal(name + QStringLiteral("_add"), [this] { m_window->add(); });
}

/// The window that a command opens, sooner or later, as soon as it has been filled; some open none here.
void Screenshots::takeModal(const QString &name, const std::function<void()> &act)
{
    bool isTaken = false;
    QTimer look;
    connect(&look, &QTimer::timeout, this, [&] {
        auto *modal = qobject_cast<QDialog *>(QApplication::activeModalWidget());
        if (modal == nullptr || !DbTasks::isIdle() || !RunningJobs::all().jobs().isEmpty())
            return;
        // What comes behind it tells that nothing was done.
        if (!std::exchange(isTaken, true))
            save(modal, name);
        modal->reject();
    });
    look.start(300);
    act();
    if (!isTaken)
        workFor(650);
}

QString Screenshots::fileFor(const QString &name)
{
    return m_folder.filePath(QStringLiteral("%1_%2.png").arg(++m_number, 2, 10, QLatin1Char('0')).arg(name));
}

void Screenshots::save(QWidget *widget, const QString &name)
{
    workFor(100);
    const QString file = fileFor(name);
    if (!widget->grab().save(file)) {
        qWarning("Cannot write %s", qPrintable(file));
        m_failed = true;
    }
}
