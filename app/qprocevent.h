#pragma once

#include <QEvent>

/// How a background task of the start ended; posted to the main window.
class QProcEvent : public QEvent
{
public:
    enum Outcome {
        Connected,        ///< the connection stands and the tables are there
        ConnectionFailed, ///< the reason was posted as a message
        NoDatabase,       ///< the server is there, the database is not
        NoTables,         ///< the database is there, without the program's tables
        SchemaReady,      ///< database and tables were created
        SchemaFailed,     ///< the reason was posted as a message
    };

    static constexpr QEvent::Type eventType = static_cast<QEvent::Type>(1001);

    explicit QProcEvent(Outcome outcome) : QEvent(eventType), m_outcome(outcome) {}
    Outcome outcome() const { return m_outcome; }

private:
    Outcome m_outcome;
};
