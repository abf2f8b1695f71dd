#pragma once

#include "dbtasks.h"

#include <QTimer>
#include <chrono>

class ListPane;
class QFrame;

/// Tells below a list that the database has something newer by now, and offers to read it: the list itself is
/// never changed under anybody's hands. Every few seconds the change tracker is asked, away from the window,
/// as long as somebody sees the list and nothing was told.
class ChangeWatch : public QObject
{
    Q_OBJECT

public:
    /// page: what has to be seen.
    ChangeWatch(ListPane *list, const QString &connection, QObject *receiver, QWidget *page);

    /// How long it rests between two answers. For tests.
    static void setPause(std::chrono::milliseconds pause);

signals:
    void reloadWanted();

protected:
    /// A page that comes to the front asks soon.
    bool eventFilter(QObject *page, QEvent *event) override;

private:
    void buildBar();
    void ask();
    bool mayAsk() const;
    void tell();
    void begin();

    ListPane *m_list;
    QWidget *m_page;
    QFrame *m_bar = nullptr;
    QTimer m_pause;
    DbTasks m_tasks;
};
