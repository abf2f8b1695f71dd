#pragma once

#include "waitnote.h"

#include <QObject>
#include <QPointer>
#include <QTimer>
#include <QVector>

class QKeyEvent;
class QLabel;
class QPushButton;
class QWidget;

/// Keys that were typed while nothing could take them.
class KeptKeys
{
public:
    /// Keeps what types, moves or deletes: what decides (Enter, Esc, shortcuts) it does not keep. False then.
    bool keep(const QKeyEvent &key);
    /// The same for who types one entry after the other: Enter ends one, and Esc drops the one that is being
    /// typed. False for either when nothing was typed before it.
    bool keepEntry(const QKeyEvent &key);
    void drop() { m_keys.clear(); }
    /// What was typed, entries separated by commas.
    QString text() const;
    /// Types them into whatever has the focus in the window; never into a button. What stands behind an Enter
    /// stays kept.
    void giveTo(QWidget *window);

private:
    struct Key
    {
        int key;
        Qt::KeyboardModifiers modifiers;
        QString text;

        bool isEnter() const;
        bool types() const;
    };
    /// Behind the last Enter.
    int lastEntry() const;

    QVector<Key> m_keys;
};

/// Holds a window back while it waits for the database: nothing in it takes keys or mouse but the button that
/// cancels, and Esc. Only a wait that people notice is shown: then the inputs are disabled and the label says
/// what is going on.
class BusyWindow : public QObject
{
    Q_OBJECT

public:
    BusyWindow(QWidget *window, QPushButton *cancel, QLabel *label);

    /// keepsKeys: what is typed meanwhile is meant for this window, see giveKeys().
    void begin(const QString &words, bool keepsKeys);
    bool isBusy() const { return m_isBusy; }
    /// Says something else, at once.
    void say(const QString &words) { m_note.say(words); }
    void end();
    /// Types what was kept; after end(), when the window is ready for it.
    void giveKeys() { m_keys.giveTo(m_window); }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void disable();
    bool cancels(const QKeyEvent &key) const;
    bool isKeyTaken(QEvent *event);

    QWidget *m_window;
    QPushButton *m_cancel;
    WaitNote m_note;
    QTimer m_notice;
    bool m_isBusy = false;
    bool m_keepsKeys = false;
    KeptKeys m_keys;
    /// What disable() has disabled, and what had the focus then.
    QVector<QPointer<QWidget>> m_disabled;
    QPointer<QWidget> m_focused;
};
