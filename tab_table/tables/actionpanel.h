#pragma once

#include "actiontimes.h"

#include <QTimer>
#include <QWidget>
#include <memory>

class ActionWeek;
class QLabel;
class QListWidget;
class QObject;
class QueryOwner;
struct QueryAnswer;

/// The week of a promotion, and beside it the others that are in force at the same time. A goods item has one
/// promotion in a shop, so that two never meet in one price; who sees the same item under another promotion
/// in another shop at that hour may still wonder, therefore each tells with how many items that is so.
class ActionPanel : public QWidget
{
    Q_OBJECT

public:
    /// connection: the window's one. receiver hears what fails.
    ActionPanel(const QString &connection, QObject *receiver, QWidget *parent);
    ~ActionPanel() override;

    /// The others are read a moment later, for those who only pass by.
    void showAction(const QString &id, const ActionTimes &times);
    void clear();

private:
    void ask();
    void take(const std::shared_ptr<QueryAnswer> &answer);

    ActionWeek *m_week;
    QLabel *m_caption;
    QListWidget *m_others;
    QueryOwner *m_queries;
    QObject *m_receiver;
    QTimer m_pause;
    QString m_id;
    ActionTimes m_times;
};
