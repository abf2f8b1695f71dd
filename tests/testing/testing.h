#pragma once

#include "connection.h"
#include "db.h"

#include <QApplication>
#include <QDialog>
#include <QElapsedTimer>
#include <QMutex>
#include <QPointer>
#include <QSqlDatabase>
#include <QTest>
#include <QTimer>
#include <functional>

/// What tests share: a database of their own, an ear for messages, hands for dialogs, keys, scanner and
/// wheel. A modal window that nobody answers for some seconds is rejected and fails the test with its text.

/// The private server of this test run.
DatabaseAddress testServer();

/// Writes a Velta.ini that leads to a database into a folder.
void writeSettings(const QString &folder, const DatabaseAddress &address);

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
    /// Ends every connection to this database from outside, as a failing server or network would: this one,
    /// that of the tasks and those in the background. Any thread.
    void killConnection();
    /// Runs a statement on another connection, as another program would in the middle of a transaction of
    /// this one.
    void execElsewhere(const QString &sql);

    Heard heard;

private:
    QString m_name;
    QString m_adminName;
    QSqlDatabase m_db;
    QSqlDatabase m_admin;
};

/// What is sent to the server as long as this lives, from any thread that is heard.
class Sent
{
public:
    /// also: called with each statement right before it is sent, in its thread.
    explicit Sent(const std::function<void(const QString &sql)> &also = {});
    ~Sent();
    Q_DISABLE_COPY(Sent)

    QStringList containing(const QString &part);

private:
    QMutex m_guard;
    QStringList m_all;
};

/// For a statement hook at COMMIT, in the thread of that statement: its transaction is committed, and the
/// COMMIT itself finds a new one. killConnection() right behind it loses the answer to what was written.
void commitHere();

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

/// Fails the running test with the class and the texts of a window, and closes it.
void rejectUnexpected(QWidget *modal);

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
            rejectUnexpected(modal);
        }
    });
    poll.start();
    act();
    return driven;
}

/// Answers the next question or warning (QQestion) and returns its text; empty when none appeared.
QString answerQuestion(const std::function<void()> &act, bool confirm = true);
/// Answers the next question of several buttons (QMessDlg) by a click on the button of that number and
/// returns its title and text, a line each; empty when none appeared.
QString answerChoice(const std::function<void()> &act, int button);
/// Answers the next QMessDlg::confirm: lets what it asks for happen, or keeps things as they are.
QString answerConfirm(const std::function<void()> &act, bool accept);
/// Waits for the end of all jobs.
void waitOutJobs();
/// Waits until no task of the database is under way, also those that follow from the end of one.
void waitOutTasks();
/// Waits until the server has been found again after a loss: by the window's connection and by its tasks.
void waitOutLoss(const QSqlDatabase &window);
/// Waits until a question that has just appeared takes keys.
void waitOutGuard();
/// Shows a window that gets the keyboard, as a window manager does; false when it did not get it.
bool showActive(QWidget *window);

/// Keys as they come from a keyboard: each goes to whatever has the focus when it is pressed. A key is a
/// Qt::Key with its modifiers, "Qt::SHIFT + Qt::Key_F5".
void pressKeys(std::initializer_list<int> keys);
/// The same for the characters of a text.
void typeText(const QString &text);
/// The digits of a code and Enter, within some 30 ms and as a scanner sends them: into whatever has the
/// focus. A window that one of the keys opens gets the rest, unless it is modal: then this returns when it
/// closes.
void scan(const QString &code);
/// Activates the window first and gives the focus to its focus widget.
void scan(QWidget *window, const QString &code);
/// Turns the wheel over the middle of a widget, upwards for positive steps.
void turnWheel(QWidget *widget, int steps);

/// A global variable of the private server, for as long as this lives. Every test shares that server: one
/// that uses this runs alone (velta_test_sets_globals in its CMakeLists.txt).
class GlobalVariable
{
public:
    GlobalVariable(const QString &name, const QString &value);
    ~GlobalVariable();
    Q_DISABLE_COPY(GlobalVariable)

private:
    QString m_name;
    QString m_before;
    QSqlDatabase m_admin;
};

/// The text of a PDF file without any blanks, by pdftotext of poppler-utils, which may be missing.
bool canReadPdf();
QString textOfPdf(const QString &path);
/// The barcode on a page of a PDF file, counted from 1, by zbarimg of zbar-tools and pdftoppm of
/// poppler-utils, which may be missing; empty when none is read.
bool canReadBarcodes();
QString barcodeOfPdf(const QString &path, int page = 1);
