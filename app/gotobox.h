#pragma once

#include "gotosearch.h"
#include "scanpace.h"

#include <QDialog>
#include <QTimer>
#include <memory>

class QLabel;
class QLineEdit;
class QLoadedUser;
class QMenuBar;
class QSqlDatabase;
class QTreeWidget;
class QTreeWidgetItem;
class QueryOwner;
class TypingPause;
class WaitNote;
struct QueryAnswer;

/// One field that finds what one may go to: the commands of the menus at once, shops, registers, goods,
/// cards, receipts and shifts as soon as the server has answered. Closes with what was chosen.
class GotoBox : public QDialog
{
    Q_OBJECT

public:
    GotoBox(QSqlDatabase *db, QLoadedUser *user, QObject *receiver, const QMenuBar *menus, QWidget *parent);
    ~GotoBox() override;

    bool isSearching() const { return !m_isAnswered; }

signals:
    /// The box is closed by then.
    void chosen(const GotoHit &hit);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    void build();
    void connectParts();
    void follow();
    void ask();
    void takeAnswer(const std::shared_ptr<QueryAnswer> &answer);
    void takeHits(const QueryAnswer &answer);
    void enter();
    void openBest();
    void choose(const QTreeWidgetItem *item);
    void showHits();
    void addHits(const QVector<GotoHit> &hits, bool isChoosable);
    void addHeading(const QString &text);
    QTreeWidgetItem *best() const;
    QVector<QTreeWidgetItem *> choosable() const;
    bool searchKey(const QKeyEvent &key);
    bool listKey(const QKeyEvent &key);
    void goIntoList();
    void goIntoField();
    void tellCount();

    QLoadedUser *m_user;
    QObject *m_receiver;
    const QMenuBar *m_menus;
    QLineEdit *m_field;
    QTreeWidget *m_list;
    QLabel *m_state;
    WaitNote *m_note;
    TypingPause *m_pause;
    QueryOwner *m_queries;
    /// Of the keys in the field.
    ScanPace m_pace;
    /// The server says nothing for a long time.
    QTimer m_silence;
    QVector<GotoKind> m_askedKinds;
    QVector<GotoHit> m_actions;
    /// Of the text before while the answer is on its way.
    QVector<GotoHit> m_found;
    bool m_isAnswered = true;
    bool m_hasFailed = false;
    /// Enter came before the answer.
    bool m_opensAnswer = false;
};

/// The commands that the menus show and that can be given now in which every word of the text is found.
QVector<GotoHit> gotoActions(const QMenuBar &menus, const QString &text);
