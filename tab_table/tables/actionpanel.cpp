#include "actionpanel.h"

#include "actionweek.h"
#include "money.h"
#include "qmessevent.h"
#include "queryservice.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>

namespace {
const int pauseMs = 200;

enum OtherColumn { Name, Times, CommonGoods };

/// All other promotions that do something, with the number of goods that have the one in a shop and the other
/// in another.
QString othersSql(const QString &id)
{
    return QStringLiteral(
               "SELECT action.name,%1,IFNULL(common.goods,0) FROM action LEFT JOIN (SELECT theirs.id_action,"
               "COUNT(DISTINCT theirs.id_goods) AS goods FROM (SELECT DISTINCT id_goods FROM goods_shop WHERE "
               "id_action=%2) AS mine JOIN goods_shop AS theirs ON theirs.id_goods=mine.id_goods WHERE "
               "theirs.id_action NOT IN (1,%2) GROUP BY theirs.id_action) AS common ON "
               "common.id_action=action.id WHERE action.id<>%2 AND action.id_type_action<>1 ORDER BY 3 DESC,1")
        .arg(actionTimesSql(), id);
}

QString textOf(const RowStore &rows, int row, int column)
{
    const std::string_view cell = rows.cell(row, column);
    return QString::fromUtf8(cell.data(), static_cast<int>(cell.size()));
}
} // namespace

ActionPanel::ActionPanel(const QString &connection, QObject *receiver, QWidget *parent)
    : QWidget(parent)
    , m_week(new ActionWeek(this))
    , m_caption(new QLabel(tr("Діють &у той самий час:"), this))
    , m_others(new QListWidget(this))
    , m_queries(new QueryOwner(connection, this))
    , m_receiver(receiver)
{
    m_others->setObjectName(QStringLiteral("lwOthers"));
    m_others->setWordWrap(true);
    m_others->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_others->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
    m_caption->setBuddy(m_others);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    auto *right = new QVBoxLayout;
    right->addWidget(m_caption);
    right->addWidget(m_others, 1);
    auto *line = new QHBoxLayout(this);
    line->setContentsMargins(0, 0, 0, 0);
    line->addWidget(m_week, 1);
    line->addLayout(right, 1);
    m_pause.setSingleShot(true);
    m_pause.setInterval(pauseMs);
    connect(&m_pause, &QTimer::timeout, this, &ActionPanel::ask);
    connect(m_queries, &QueryOwner::answered, this, &ActionPanel::take);
}

ActionPanel::~ActionPanel() = default;

void ActionPanel::showAction(const QString &id, const ActionTimes &times)
{
    clear();
    m_id = id;
    m_times = times;
    m_week->setAction(times);
    if (neverWords(times).isEmpty())
        m_pause.start();
}

void ActionPanel::clear()
{
    m_pause.stop();
    m_queries->cancel();
    m_week->clear();
    m_others->clear();
}

void ActionPanel::ask()
{
    m_queries->ask({othersSql(m_id)});
}

void ActionPanel::take(const std::shared_ptr<QueryAnswer> &answer)
{
    if (!answer->error.isEmpty())
        return postMessage(m_receiver, answer->error, answer->kind);
    const RowStore &rows = answer->results.front();
    m_others->clear();
    for (int row = 0; row < rows.rowCount(); ++row) {
        const ActionTimes times = actionTimes(textOf(rows, row, Times));
        if (!meet(m_times, times, QDateTime::currentDateTime()))
            continue;
        QString line = QStringList{textOf(rows, row, Name), weekDaysShown(times.weekDays),
                                   actionHoursShown(times), actionPeriodShown(times)}
                           .join(QStringLiteral(", "));
        if (const qint64 common = textOf(rows, row, CommonGoods).toLongLong(); common > 0)
            line += QStringLiteral("; ") + tr("ті самі товари в інших магазинах: %1").arg(wholeShown(common));
        m_others->addItem(line);
    }
    if (m_others->count() == 0)
        m_others->addItem(tr("жодна інша"));
}
