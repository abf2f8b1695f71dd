#pragma once

#include "connection.h"
#include "db.h"

#include <QApplication>
#include <QDialog>
#include <QElapsedTimer>
#include <QPointer>
#include <QSqlDatabase>
#include <QTest>
#include <QTimer>
#include <functional>

/// What tests share: a database of their own, an ear for messages, a hand for modal dialogs.

/// The private server of this test run.
DatabaseAddress testServer();

/// A receiver that remembers the messages posted to it.
class Heard : public QObject
{
public:
    struct Message
    {
        QString text;
        QString location;
        int kind;
    };

    bool event(QEvent *event) override;

    /// What has arrived so far; delivers what is still on its way.
    const QVector<Message> &all();
    QStringList texts(int mostVerboseKind = 1);
    /// The first message of a kind up to the given one that contains the text, for QVERIFY2.
    bool has(const QString &part, int mostVerboseKind = 4);
    void forget();

private:
    QVector<Message> m_messages;
};

/// A utf8mb4 database of this test's own, dropped at the end; with the program's schema when asked.
class FreshDatabase
{
public:
    enum Content { Empty, WithSchema };
    explicit FreshDatabase(Content content = WithSchema);
    ~FreshDatabase();
    Q_DISABLE_COPY(FreshDatabase)

    QSqlDatabase *connection() { return &m_db; }
    Db db() { return Db(&m_db, &heard); }
    DatabaseAddress address() const;
    /// Runs statements and fails the program loudly when one does not work.
    void exec(const QString &sql);
    void exec(const QStringList &statements);
    /// The first cell as text.
    QString value(const QString &sql);
    /// All rows, the cells of a row joined by "|"; NULL is empty.
    QStringList rows(const QString &sql);
    /// Ends this connection from outside, as a failing server or network would.
    void killConnection();

    Heard heard;

private:
    QString m_name;
    QString m_adminName;
    QSqlDatabase m_db;
    QSqlDatabase m_admin;
};

/// The child widget of that name and type; prints the names there are and fails the test program if it
/// is missing.
[[noreturn]] void failMissingChild(const QObject *parent, const QString &name, const char *type);
template<typename T>
T *child(const QObject *parent, const QString &name)
{
    auto *found = parent->findChild<T *>(name);
    if (found == nullptr)
        failMissingChild(parent, name, T::staticMetaObject.className());
    return found;
}

/// Runs act, which opens a modal dialog of type Dialog, and drive on that dialog once it is shown.
/// Returns false when no such dialog appeared within the time; a dialog of another type, or one that
/// drive leaves open, is rejected, so that a test never hangs.
template<typename Dialog>
bool withModal(const std::function<void()> &act, const std::function<void(Dialog *)> &drive,
               int timeoutMs = 5000)
{
    bool driven = false;
    QElapsedTimer clock;
    clock.start();
    QTimer poll;
    poll.setInterval(5);
    QObject::connect(&poll, &QTimer::timeout, &poll, [&] {
        QWidget *modal = QApplication::activeModalWidget();
        if (modal == nullptr)
            return;
        if (auto *dialog = qobject_cast<Dialog *>(modal); dialog != nullptr && !driven) {
            driven = true;
            poll.stop();
            const QPointer<QDialog> guard(dialog);
            drive(dialog);
            if (guard && guard->isVisible() && guard->isModal())
                guard->done(QDialog::Rejected);
        } else if (clock.elapsed() > timeoutMs) {
            qWarning("withModal: closing an unexpected %s", modal->metaObject()->className());
            modal->close();
        }
    });
    poll.start();
    act();
    return driven;
}

/// Answers the next question or warning (QQestion) and returns its text; empty when none appeared.
QString answerQuestion(const std::function<void()> &act, bool confirm = true);
