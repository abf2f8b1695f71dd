#include "screenshots.h"

#include "qartreport.h"
#include "qchekviewer.h"
#include "qmessdlg.h"
#include "qntableview.h"
#include "qregistersale.h"
#include "qrowmodel.h"
#include "qseluser.h"
#include "qstatonline.h"
#include "qtab.h"
#include "qtablebase.h"
#include "rangeselector.h"
#include "veltab.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QPainter>
#include <QTabWidget>
#include <QTableView>
#include <QTextBrowser>
#include <QTimer>

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

void workFor(int ms)
{
    workUntil([] { return false; }, ms);
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

void Screenshots::takeAll()
{
    takeLogin();
    save(m_window, QStringLiteral("main"));
    const QList<QAction *> actions = m_window->openingActions();
    for (QAction *action : actions) {
        action->trigger();
        takeTab(action->objectName());
    }
    takeModal(QStringLiteral("settings"), [this] { m_window->s_setting(); });
    takeModal(QStringLiteral("changpass"), [this] { m_window->changpass(); });
    takeModal(QStringLiteral("about"), [this] { m_window->about(); });
    takeModal(QStringLiteral("question"), [this] {
        QMessDlg::confirm(m_window, tr("Ви впевнені?"),
                          tr("Невірні налаштування\nможуть пошкодити дані в базі!"), tr("&Так"));
    });
    QCoreApplication::exit(m_failed ? 1 : 0);
}

void Screenshots::takeLogin()
{
    QSelUser dialog(QCoreApplication::applicationDirPath(), QString(), m_window, false);
    dialog.show();
    save(&dialog, QStringLiteral("login"));
}

void Screenshots::takeTab(const QString &name)
{
    auto *tabs = m_window->findChild<QTabWidget *>(QStringLiteral("tabWidget"));
    auto *tab = qobject_cast<QTab *>(tabs->currentWidget());
    workUntil([tab] { return tab == nullptr || !tab->isLoading(); }, tabLimitMs);
    workFor(200);
    if (qobject_cast<QRegisterSale *>(tabs->currentWidget()) != nullptr) {
        takeSale(name);
    } else if (qobject_cast<ReportWindow *>(tabs->currentWidget()) != nullptr) {
        takeReport(name);
    } else {
        save(m_window, name);
        if (tab != nullptr)
            takeEditors(name);
    }
}

namespace {
/// The article report wants a register, the on-line statistics a shop; the others show all places.
void choosePlace(ReportWindow *report)
{
    if (qobject_cast<QArtReport *>(report) == nullptr && qobject_cast<QStatOnLine *>(report) == nullptr)
        return;
    for (const char *name : {"cbGroup", "cbShop", "cbRegister"}) {
        if (auto *box = report->findChild<QComboBox *>(QLatin1String(name)))
            box->setCurrentIndex(
                qMin(box->objectName() == QLatin1String("cbGroup") ? 2 : 1, box->count() - 1));
    }
}
} // namespace

void Screenshots::takeReport(const QString &name)
{
    auto *tabs = m_window->findChild<QTabWidget *>(QStringLiteral("tabWidget"));
    auto *report = static_cast<ReportWindow *>(tabs->currentWidget());
    choosePlace(report);
    const QDate today = QDate::currentDate();
    if (auto *range = report->findChild<RangeSelector *>())
        range->setDays(today.addDays(-7), today.addDays(-1));
    // A report that refuses to load says so in a box, which is its picture then.
    takeModal(name + QStringLiteral("_refusal"), [report] { report->load(); });
    workUntil([report] { return !report->isLoading(); }, tabLimitMs);
    workFor(300);
    if (auto *viewer = qobject_cast<QChekViewer *>(report)) {
        viewer->dclicktable(viewer->model()->index(2, 0));
        workFor(200);
        takeSlip(viewer->findChild<QTextBrowser *>(QStringLiteral("tbSlip"))->toHtml());
    }
    save(m_window, name);
}

void Screenshots::takeSlip(const QString &html)
{
    QTextDocument document;
    document.setHtml(html);
    document.setTextWidth(slipWidth);
    QImage paper(document.size().toSize(), QImage::Format_RGB32);
    paper.fill(Qt::white);
    QPainter painter(&paper);
    document.drawContents(&painter);
    painter.end();
    const QString file = fileFor(QStringLiteral("slip"));
    m_failed = !paper.save(file) || m_failed;
}

void Screenshots::takeSale(const QString &name)
{
    auto *tabs = m_window->findChild<QTabWidget *>(QStringLiteral("tabWidget"));
    auto *sale = static_cast<QRegisterSale *>(tabs->currentWidget());
    auto *goods = sale->findChild<QTableView *>(QStringLiteral("viewGoods"));
    workUntil([goods] { return goods->model()->rowCount() > 0; }, tabLimitMs);
    for (int row = 0; row < 3; ++row) {
        goods->setFocus();
        goods->setCurrentIndex(goods->model()->index(row, 0));
        QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
        QCoreApplication::sendEvent(goods, &enter);
        workFor(100);
    }
    save(m_window, name);
    takeModal(name + QStringLiteral("_payment"), [sale] { sale->sale(); });
}

void Screenshots::takeEditors(const QString &name)
{
    auto *tabs = m_window->findChild<QTabWidget *>(QStringLiteral("tabWidget"));
    auto *tab = static_cast<QTab *>(tabs->currentWidget());
    tab->view()->selectRow(0);
    takeModal(name + QStringLiteral("_edit"), [this] { m_window->edit(); });
    takeModal(name + QStringLiteral("_add"), [this] { m_window->add(); });
}

void Screenshots::takeModal(const QString &name, const std::function<void()> &act)
{
    bool isTaken = false;
    QTimer::singleShot(300, this, [this, name, &isTaken] {
        QWidget *modal = QApplication::activeModalWidget();
        if (modal == nullptr)
            return;
        isTaken = true;
        save(modal, name);
        static_cast<QDialog *>(modal)->reject();
    });
    act();
    // A command that opens nothing here leaves its timer behind: let it run out.
    if (!isTaken)
        workFor(350);
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
