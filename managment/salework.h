#pragma once

#include "chekwriter.h"

#include <QObject>
#include <QPointer>
#include <QTimer>

class DbTasks;
class QLoadedUser;
class QSqlDatabase;

/// What the parts of a sale tab have in common: who works there and on which database, the boxes that they
/// ask with, and what is under way. One thing is done at a time: a sale or a closing goes from Checking over
/// Asking to Writing and back to Idle, and nothing else begins or changes anything meanwhile.
class SaleWork : public QObject
{
    Q_OBJECT

public:
    enum Stage { Idle, Checking, Asking, Writing };

    /// Failed statements are reported under this place.
    struct Caller
    {
        const char *file;
        int line;

        ChekWriter writer(const Db &db, const ChekPlace &place) const { return {db, place, file, line}; }
    };

    /// tab: what the boxes stand before. receiver gets the messages, those of failed statements under the
    /// place of the caller.
    SaleWork(QSqlDatabase *db, QLoadedUser *user, QObject *receiver, QWidget *tab,
             const char *file = __builtin_FILE(), int line = __builtin_LINE());

    QLoadedUser *user() const { return m_user; }
    QObject *receiver() const { return m_receiver; }
    QWidget *tab() const { return m_tab; }
    Caller caller() const { return m_caller; }
    QSqlDatabase *db() const { return m_db; }
    /// For a part that reads or writes.
    DbTasks *makeTasks(QObject *part) const;

    void tell(const QString &text) { emit told(text); }
    bool confirm(const QString &title, const QString &text, const QString &actCaption);
    void warn(const QString &title, const QString &text);
    /// Asks about another date than today's; none needs no question.
    bool agreeDate(const QString &title, const QDate &chosen);
    /// False, with the reason told, when the user may only look.
    bool mayEdit();
    static QString viewOnlyWords();

    Stage stage() const { return m_stage; }
    bool isIdle() const { return m_stage == Idle; }
    /// False, with the reason told, while something is under way.
    bool isFree();
    /// What is under way: told when it lasts, and to whoever wants something else meanwhile.
    QString words() const { return m_words; }
    void begin(Stage stage, const QString &words = QString());
    void end();

    /// From an answer to the end of a function that asks about it: then something has been begun, or all is
    /// over.
    class Questions
    {
    public:
        explicit Questions(SaleWork *work);
        ~Questions();
        Q_DISABLE_COPY(Questions)

    private:
        QPointer<SaleWork> m_work;
    };

signals:
    void told(const QString &text);
    /// Somebody is through with a box.
    void left();
    /// Nothing is under way any more.
    void idle();

private:
    void hideWords();

    QSqlDatabase *m_db;
    QLoadedUser *m_user;
    QObject *m_receiver;
    QWidget *m_tab;
    Caller m_caller;
    Stage m_stage = Idle;
    QString m_words;
    QTimer m_wordsDelay;
    bool m_areWordsTold = false;
};
