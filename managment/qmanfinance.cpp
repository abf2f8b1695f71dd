#include "qmanfinance.h"

#include "listpane.h"
#include "permissions.h"
#include "qcashreport.h"
#include "qmancash.h"
#include "qntableview.h"

#include <QTabWidget>
#include <QVBoxLayout>

QManFinance::QManFinance(QSqlDatabase *db, QLoadedUser *user, QObject *receiver, setting *set,
                         QWidget *parent)
    : QWidget(parent)
    , m_parts(new QTabWidget(this))
    , m_transfers(new QManCash(db, user, receiver, set, nullptr))
    , m_report(new QCashReport(db, user, receiver, set, nullptr))
{
    auto *rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->addWidget(m_parts);
    m_parts->setObjectName(QStringLiteral("parts"));
    m_parts->setDocumentMode(true);
    m_parts->addTab(m_transfers, tr("Передачі готівки між магазинами"));
    m_parts->addTab(m_report, tr("Рух готівки: каси й передачі"));
    m_report->setPermission(Permission::Finance);
    setFocusProxy(m_parts);
    connect(m_parts, &QTabWidget::currentChanged, this, [this] { setFocusProxy(m_parts->currentWidget()); });
    setFocusProxy(m_transfers);
    connect(m_report, &QCashReport::cheksWanted, this, &QManFinance::cheksWanted);
    connect(m_report, &QCashReport::slipWanted, this, &QManFinance::slipWanted);
    connect(m_report, &QCashReport::invoiceWanted, this, &QManFinance::showInvoice);
}

QTab *QManFinance::front() const
{
    return static_cast<QTab *>(m_parts->currentWidget());
}

void QManFinance::showInvoice(uint invoice)
{
    m_parts->setCurrentWidget(m_transfers);
    m_transfers->showInvoice(invoice);
    m_transfers->view()->setFocus();
}

void QManFinance::goTo(const Destination &destination)
{
    showInvoice(destination.id);
}

Commands QManFinance::commands() const
{
    return front()->commands();
}

void QManFinance::run(Command command)
{
    front()->run(command);
}

bool QManFinance::isLoading() const
{
    return m_transfers->isLoading() || m_report->isLoading();
}

bool QManFinance::mayClose()
{
    return m_transfers->mayClose() && m_report->mayClose();
}

ListPane *QManFinance::list() const
{
    const bool isInMoves = front() == m_report && m_report->moves()->view()->hasFocus();
    return isInMoves ? m_report->moves() : front()->list();
}
