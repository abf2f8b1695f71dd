#pragma once

#include <QEvent>
#include <QString>

class QObject;

/// A line for the log and, when it is an error, a message for the user; posted to the main window.
class QMessEvent : public QEvent
{
public:
    /// The scale of the log: the smaller, the graver.
    enum ecritical { NoClass = 0, Critical = 1, Warning = 2, Information = 3, Debug = 4 };

    static constexpr QEvent::Type eventType = static_cast<QEvent::Type>(1000);

    QMessEvent(const QString &location, const QString &text, int kind);

    int kind() const { return m_kind; }
    const QString &text() const { return m_text; }
    /// "In file: tab_table/frame/qtab line: 57"
    const QString &location() const { return m_location; }
    /// The two parts of the location, as the log writes them.
    QString file() const;
    QString line() const;

private:
    QString m_location;
    QString m_text;
    int m_kind;
};

/// "In file: <path without ending> line: <number>" of a place in the source.
QString sourceLocation(const char *file, int line);

/// Posts a message to the receiver, from any thread; without a receiver it goes to qWarning.
/// The place that calls is the place that is reported.
void postMessage(QObject *receiver, const QString &text, int kind = QMessEvent::Critical,
                 const char *file = __builtin_FILE(), int line = __builtin_LINE());

/// The same for a trace of the program's course, which only the log shows.
void postTrace(QObject *receiver, const QString &text, const char *file = __builtin_FILE(),
               int line = __builtin_LINE());
