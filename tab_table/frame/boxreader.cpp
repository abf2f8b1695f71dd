#include "boxreader.h"

#include "dbtasks.h"
#include "waitnote.h"

#include <QComboBox>

BoxReader::BoxReader(QComboBox *box, QObject *parent) : QObject(parent), m_box(box)
{
    m_patience.setSingleShot(true);
    m_patience.setInterval(WaitNote::delayMs);
    connect(&m_patience, &QTimer::timeout, this, &BoxReader::showWaiting);
    connect(&m_pause, &TypingPause::ended, this, &BoxReader::ask);
}

void BoxReader::open(const QString &connection, QObject *receiver)
{
    m_tasks = new DbTasks(connection, receiver, this);
}

void BoxReader::setFirstItem(const QString &text)
{
    m_first = text;
    if (m_box->count() == 0)
        show({});
    else
        m_box->setItemText(0, text);
}

void BoxReader::read(const Read &work, When when)
{
    clear();
    m_work = work;
    m_patience.start();
    if (when == AfterTyping)
        m_pause.begin();
    else
        ask();
}

void BoxReader::read(const QString &sql, const Db::Values &values, When when)
{
    read([sql, values](const Db &db) { return readEntries(db, sql, values); }, when);
}

void BoxReader::clear()
{
    m_pause.drop();
    m_patience.stop();
    if (m_tasks != nullptr)
        m_tasks->drop();
    show({});
}

bool BoxReader::isReading() const
{
    return m_pause.isRunning() || (m_tasks != nullptr && m_tasks->isWaiting());
}

void BoxReader::ask()
{
    m_tasks->read(m_work, [this](const std::optional<ListEntries> &entries) {
        m_patience.stop();
        show(entries.value_or(ListEntries()));
        emit filled();
    });
}

void BoxReader::show(const ListEntries &entries)
{
    ListEntries all = entries;
    if (!m_first.isEmpty())
        all.prepend({m_first, 0});
    showEntries(m_box, all);
}

void BoxReader::showWaiting()
{
    if (!isReading())
        return;
    if (m_box->count() == 0)
        showEntries(m_box, {{QString(), {}}});
    m_box->setItemText(0, tr("Читається…"));
}
