#include "qreports.h"

#include "cheks.h"
#include "permissions.h"
#include "qartreport.h"
#include "qchekviewer.h"
#include "qloadeduser.h"
#include "qmessevent.h"
#include "qstatonline.h"
#include "qzreport.h"
#include "reportwindow.h"
#include "slipprint.h"
#include "slipreader.h"

#include <QTabWidget>

namespace {
using Factory = QWidget *(*)(QSqlDatabase *, QLoadedUser *, QObject *, setting *, QWidget *);

template<typename Window>
QWidget *make(QSqlDatabase *db, QLoadedUser *user, QObject *mainWindow, setting * /*set*/, QWidget *parent)
{
    return new Window(db, user, mainWindow, parent);
}

QWidget *makeStatOnLine(QSqlDatabase *db, QLoadedUser *user, QObject *mainWindow, setting *set,
                        QWidget *parent)
{
    return new QStatOnLine(db, user, mainWindow, set, parent);
}

/// In the order of QReports::Report. A report without a factory does not exist yet.
struct ReportKind
{
    const char *caption;
    Permission::Id permission;
    Factory make;
};

const ReportKind kinds[] = {
    {QT_TRANSLATE_NOOP("QReports", "Чеки"), Permission::Cheks, make<QChekViewer>},
    {QT_TRANSLATE_NOOP("QReports", "Z - Звіти"), Permission::ZReports, make<QZReport>},
    {QT_TRANSLATE_NOOP("QReports", "Звіт по товарах"), Permission::Articles, make<QArtReport>},
    {QT_TRANSLATE_NOOP("QReports", "Статистика OnLine"), Permission::Online, makeStatOnLine},
};
static_assert(sizeof(kinds) / sizeof(kinds[0]) == QReports::ReportCount, "one line a report");
} // namespace

QReports::QReports(QTabWidget *tabs, QSqlDatabase *db, setting *set, QLoadedUser *user, QObject *mainWindow)
    : QObject(mainWindow), m_tabs(tabs), m_db(db), m_setting(set), m_user(user)
{
    connect(user, &QLoadedUser::rightsChanged, this, &QReports::followRights);
}

void QReports::followRights()
{
    for (int report = 0; m_user->isLoaded() && report < ReportCount; ++report) {
        if (m_open[static_cast<size_t>(report)] != nullptr && !canOpen(Report(report)))
            closetab(m_tabs->indexOf(m_open[static_cast<size_t>(report)]));
    }
}

bool QReports::canOpen(Report report) const
{
    return kinds[report].make != nullptr && m_user->maySee(kinds[report].permission);
}

ReportWindow *QReports::window(Report report) const
{
    return qobject_cast<ReportWindow *>(m_open[report]);
}

ReportWindow *QReports::current() const
{
    return reportAt(m_tabs->currentIndex()) < 0 ? nullptr
                                                : qobject_cast<ReportWindow *>(m_tabs->currentWidget());
}

QWidget *QReports::open(Report report)
{
    if (!canOpen(report)) {
        postMessage(parent(), tr("Немає доступу: %1").arg(tr(kinds[report].caption)), QMessEvent::Warning);
        return nullptr;
    }
    if (m_open[report] == nullptr) {
        m_open[report] = kinds[report].make(m_db, m_user, parent(), m_setting, m_tabs);
        if (window(report) != nullptr)
            connect(window(report), &ReportWindow::cheksWanted, this, &QReports::showCheks);
        m_tabs->addTab(m_open[report], tr(kinds[report].caption));
    }
    m_tabs->setCurrentWidget(m_open[report]);
    // Where the keyboard was in it, at first in its first field.
    QWidget *field = m_open[report]->focusWidget();
    (field == nullptr ? m_open[report].data() : field)->setFocus(Qt::OtherFocusReason);
    return m_open[report];
}

void QReports::ChekViewer()
{
    open(Cheks);
}

void QReports::ZReports()
{
    open(Zvits);
}

void QReports::ArtReports()
{
    open(Articles);
}

void QReports::StatOnLine()
{
    StatOnLine(0);
}

void QReports::StatOnLine(unsigned int shop)
{
    auto *statistics = qobject_cast<QStatOnLine *>(open(OnLine));
    if (statistics != nullptr && shop != 0)
        statistics->showShop(shop);
}

void QReports::showCheks(const ChekOrigin &origin)
{
    if (auto *viewer = qobject_cast<QChekViewer *>(open(Cheks)))
        viewer->showOrigin(origin);
}

uint QReports::shopOfRegister(const QString &kass) const
{
    return Db(m_db, parent())
        .firstText(QStringLiteral("SELECT id_shop FROM kassa WHERE id=%1").arg(kass.toUInt()))
        .value_or(QString())
        .toUInt();
}

void QReports::showSlip(const QString &kass, int chek, bool print)
{
    const SlipKey key = {kass.toUInt(), static_cast<uint>(chek), shopOfRegister(kass)};
    if (!print) {
        if (auto *viewer = qobject_cast<QChekViewer *>(open(Cheks)))
            viewer->showReceipt(key.kass, key.chek, key.shop);
    } else if (const auto slip = readSlip(Db(m_db, parent()), ChekType::Payment, key)) {
        previewSlip(m_tabs->window(), slip->html());
    }
}

int QReports::reportAt(int index) const
{
    const QWidget *widget = m_tabs->widget(index);
    for (int report = 0; widget != nullptr && report < ReportCount; ++report) {
        if (m_open[static_cast<size_t>(report)] == widget)
            return report;
    }
    return -1;
}

bool QReports::closetab(int index)
{
    const int report = reportAt(index);
    if (report < 0)
        return false;
    QWidget *window = m_open[static_cast<size_t>(report)];
    m_open[static_cast<size_t>(report)] = nullptr;
    m_tabs->removeTab(index);
    delete window;
    return true;
}

bool QReports::changetab(int index)
{
    if (reportAt(index) < 0)
        return false;
    emit visible(false, true);
    return true;
}

QString QReports::exportRefusal() const
{
    const int report = reportAt(m_tabs->currentIndex());
    return report < 0 || report == Articles || report == Zvits
               ? QString()
               : tr("Цей звіт зберігається у файл кнопкою «Список у PDF…».");
}

bool QReports::export_to_csv(const QString &code, const QString &path)
{
    if (reportAt(m_tabs->currentIndex()) < 0 || !exportRefusal().isEmpty())
        return false;
    current()->export_to_csv(code, path);
    return true;
}
