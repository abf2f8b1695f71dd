#include "salework.h"

#include "dbtasks.h"
#include "qloadeduser.h"
#include "qmessdlg.h"
#include "qqestion.h"
#include "saleclock.h"
#include "waitnote.h"

#include <utility>

SaleWork::SaleWork(QSqlDatabase *db, QLoadedUser *user, QObject *receiver, QWidget *tab, const char *file,
                   int line)
    : QObject(tab), m_db(db), m_user(user), m_receiver(receiver), m_tab(tab), m_caller{file, line}
{
    m_wordsDelay.setSingleShot(true);
    m_wordsDelay.setInterval(WaitNote::delayMs);
    connect(&m_wordsDelay, &QTimer::timeout, this, [this] {
        m_areWordsTold = true;
        tell(m_words);
    });
}

DbTasks *SaleWork::makeTasks(QObject *part) const
{
    return new DbTasks(m_db->connectionName(), m_receiver, part);
}

bool SaleWork::confirm(const QString &title, const QString &text, const QString &actCaption)
{
    const bool isAgreed = QMessDlg::confirm(m_tab, title, text, actCaption);
    emit left();
    return isAgreed;
}

bool SaleWork::agreeDate(const QString &title, const QDate &chosen)
{
    const auto shown = [](const QDate &date) { return date.toString(QStringLiteral("dd.MM.yyyy")); };
    return !chosen.isValid() || confirm(title,
                                        tr("Сьогодні %1, а вибрано дату %2.\nЗаписати цією датою?")
                                            .arg(shown(SaleClock::now().date()), shown(chosen)),
                                        tr("Записати %1").arg(shown(chosen)));
}

void SaleWork::warn(const QString &title, const QString &text)
{
    QQestion::question(m_tab, title, text, true);
    emit left();
}

bool SaleWork::mayEdit()
{
    const bool may = m_user->mayEdit(Permission::Sales);
    if (!may)
        tell(viewOnlyWords());
    return may;
}

QString SaleWork::viewOnlyWords()
{
    return tr("Лише перегляд: продавати може користувач з повним дозволом.");
}

bool SaleWork::isFree()
{
    if (!isIdle() && !m_words.isEmpty())
        tell(m_words);
    return isIdle();
}

void SaleWork::begin(Stage stage, const QString &words)
{
    hideWords();
    m_stage = stage;
    m_words = words;
    if (!words.isEmpty())
        m_wordsDelay.start();
}

void SaleWork::end()
{
    hideWords();
    m_words.clear();
    if (std::exchange(m_stage, Idle) != Idle)
        emit idle();
}

void SaleWork::hideWords()
{
    m_wordsDelay.stop();
    if (std::exchange(m_areWordsTold, false))
        tell(QString());
}

SaleWork::Questions::Questions(SaleWork *work) : m_work(work)
{
    work->begin(Asking);
}

SaleWork::Questions::~Questions()
{
    if (m_work != nullptr && m_work->stage() == Asking)
        m_work->end();
}
