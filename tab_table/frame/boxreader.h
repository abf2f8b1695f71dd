#pragma once

#include "combos.h"
#include "typingpause.h"

class DbTasks;

/// Fills a box with rows that are read away from the window. Until they have come it offers its first item
/// only, which says "Читається…" when that takes long; the newest reading counts.
class BoxReader : public QObject
{
    Q_OBJECT

public:
    /// What is run away from the window; nothing after a reported failure.
    using Read = std::function<std::optional<ListEntries>(const Db &)>;

    BoxReader(QComboBox *box, QObject *parent);

    /// Before anything is read: the window's connection, and who hears what fails.
    void open(const QString &connection, QObject *receiver);
    /// The item before all that is read, with 0 as its data; none by default.
    void setFirstItem(const QString &text);

    enum When { AtOnce, AfterTyping };
    void read(const Read &work, When when = AtOnce);
    /// The rows of a statement.
    void read(const QString &sql, const Db::Values &values = {}, When when = AtOnce);
    /// Leaves the first item only; what was asked for does not come.
    void clear();
    bool isReading() const;
    QComboBox *box() const { return m_box; }

signals:
    /// The rows stand in the box, the first item chosen; after a failure there are none.
    void filled();

private:
    void ask();
    void show(const ListEntries &entries);
    void showWaiting();

    QComboBox *m_box;
    DbTasks *m_tasks = nullptr;
    Read m_work;
    TypingPause m_pause;
    /// Until the wait is noticed.
    QTimer m_patience;
    QString m_first;
};
