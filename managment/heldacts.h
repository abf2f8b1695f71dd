#pragma once

#include <QObject>
#include <QTimer>
#include <deque>
#include <functional>

class QKeyEvent;
class QWidget;

/// What the hand does while an item is on its way: it is held, and done in its order once the item has come.
/// Behind the first act that is held the keys are held, too: those of a quantity that was begun, say.
class HeldActs : public QObject
{
    Q_OBJECT

public:
    /// isThere: false when what was on its way did not come; a decision is not taken then.
    using Act = std::function<void(bool isThere)>;

    /// area: whose keys are meant.
    explicit HeldActs(QWidget *area);

    /// Something is on its way, and has come or not.
    void await();
    void come(bool isThere);
    bool isAwaiting() const { return m_isAwaiting; }

    /// Does it at once when nothing is on its way. A decision is not held for ever.
    void decide(const Act &act);
    /// The same for what may wait as long as it takes.
    void then(const Act &act);
    /// So many keys that were held last are no keys after all but those of a scan.
    void forgetKeys(int count);

signals:
    /// A decision has been held for too long: what is on its way is to be given up.
    void impatient();
    /// Keys that were held are sent now: they tell nothing about the pace of a scanner.
    void sending(bool isSending);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    struct Held
    {
        Act act;
        bool isKey;
        bool isThere = true;
    };
    void goOn();
    void send(const QKeyEvent &key);

    QWidget *m_area;
    std::deque<Held> m_held;
    bool m_isAwaiting = false;
    bool m_isGoingOn = false;
    bool m_isSending = false;
    QTimer m_patience;
};
