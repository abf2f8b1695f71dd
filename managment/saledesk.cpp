#include "saledesk.h"

#include "dbtasks.h"
#include "qloadeduser.h"
#include "qmessdlg.h"
#include "qqestion.h"

#include <utility>

namespace {
/// What is over sooner is not told: it would only flash.
constexpr int wordsAfterMs = 150;
} // namespace

SaleDesk::SaleDesk(QSqlDatabase *db, QLoadedUser *user, QObject *receiver, QWidget *tab, const char *file,
                   int line)
    : QObject(tab), m_db(db), m_user(user), m_receiver(receiver), m_tab(tab), m_caller{file, line}
{
    m_wordsDelay.setSingleShot(true);
    m_wordsDelay.setInterval(wordsAfterMs);
    connect(&m_wordsDelay, &QTimer::timeout, this, [this] {
        m_areWordsTold = true;
        tell(m_words);
    });
}

DbTasks *SaleDesk::makeTasks(QObject *part) const
{
    return new DbTasks(m_db->connectionName(), m_receiver, part);
}

bool SaleDesk::confirm(const QString &title, const QString &text, const QString &actCaption)
{
    const bool isAgreed = QMessDlg::confirm(m_tab, title, text, actCaption);
    emit left();
    return isAgreed;
}

void SaleDesk::warn(const QString &title, const QString &text)
{
    QQestion::question(m_tab, title, text, true);
    emit left();
}

bool SaleDesk::mayEdit()
{
    const bool may = m_user->mayEdit(Permission::Sales);
    if (!may)
        tell(viewOnlyWords());
    return may;
}

QString SaleDesk::viewOnlyWords()
{
    return tr("Лише перегляд: продавати може користувач з повним дозволом.");
}

bool SaleDesk::isFree()
{
    if (!isIdle() && !m_words.isEmpty())
        tell(m_words);
    return isIdle();
}

void SaleDesk::begin(Stage stage, const QString &words)
{
    hideWords();
    m_stage = stage;
    m_words = words;
    if (!words.isEmpty())
        m_wordsDelay.start();
}

void SaleDesk::end()
{
    hideWords();
    m_words.clear();
    if (std::exchange(m_stage, Idle) != Idle)
        emit idle();
}

void SaleDesk::hideWords()
{
    m_wordsDelay.stop();
    if (std::exchange(m_areWordsTold, false))
        tell(QString());
}

SaleDesk::Questions::Questions(SaleDesk *desk) : m_desk(desk)
{
    desk->begin(Asking);
}

SaleDesk::Questions::~Questions()
{
    if (m_desk != nullptr && m_desk->stage() == Asking)
        m_desk->end();
}
