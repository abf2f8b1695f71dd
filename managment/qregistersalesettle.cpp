// What the hand has begun is ended before anything is decided; scans are taken in their order.

#include "qregistersale.h"
#include "ui_qregistersale.h"

#include "ean13.h"
#include "money.h"
#include "quantitydelegate.h"
#include "queryservice.h"
#include "receiptmodel.h"

#include <QApplication>
#include <QEventLoop>
#include <QScopedValueRollback>

namespace {
/// So long a decision waits for an item that is on its way.
constexpr int patienceMs = 2000;
} // namespace

bool QRegisterSale::settle()
{
    const bool isCounted = settleQuantity();
    const bool isDiscounted = settleDiscount();
    return settleSearch() && isCounted && isDiscounted;
}

bool QRegisterSale::settleQuantity()
{
    m_quantity->commit();
    if (!m_typed)
        return true;
    const TypedQuantity typed = *m_typed;
    m_typed.reset();
    return changeQuantity(typed.row, typed.text);
}

bool QRegisterSale::settleDiscount()
{
    ui->dsbDiscount->interpretText();
    if (!ui->dsbDiscount->isReadable()) {
        notify(ui->dsbDiscount->refusal());
        ui->dsbDiscount->setFocus();
        return false;
    }
    discountTyped();
    return true;
}

/// The window takes no keys meanwhile; they come after the item.
bool QRegisterSale::settleSearch()
{
    if (!m_waited)
        return true;
    const int rowsBefore = m_chek->rowCount();
    QEventLoop loop;
    QTimer patience;
    patience.setSingleShot(true);
    connect(&patience, &QTimer::timeout, &loop, &QEventLoop::quit);
    connect(this, &QRegisterSale::answered, &loop, &QEventLoop::quit);
    patience.start(patienceMs);
    loop.exec(QEventLoop::ExcludeUserInputEvents);
    if (m_waited) {
        notAdded(tr("Товар «%1» не додано: сервер не відповів вчасно.").arg(*m_waited));
        dropSearch();
    }
    return m_chek->rowCount() > rowsBefore;
}

/// Forgets the item that Enter waits for.
void QRegisterSale::dropSearch()
{
    m_waited.reset();
    m_queries->cancel();
    m_searchDelay.start();
}

/// A code that was typed and not confirmed: the receipt would be paid without its item.
bool QRegisterSale::isCodeLeft()
{
    const QString text = ui->leSearch->text().trimmed();
    if (!looksScanned(text) || text == m_asked)
        return false;
    notify(tr("Код «%1» ще не в чеку. Натисніть Enter, щоб додати товар, або очистіть поле.").arg(text));
    focusSearch();
    return true;
}

/// In the order they were scanned; a question that one of them asks holds up the others.
void QRegisterSale::takeScans()
{
    if (m_isTakingScans || QApplication::activeModalWidget() != nullptr)
        return;
    const QScopedValueRollback<bool> taking(m_isTakingScans, true);
    while (!m_scans.isEmpty()) {
        const QString code = m_scans.takeFirst();
        settle();
        ui->leSearch->setText(code);
        focusSearch();
        enter();
    }
}

void QRegisterSale::notAdded(const QString &why)
{
    ui->notice->keep(why);
}
