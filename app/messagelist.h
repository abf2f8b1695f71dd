#pragma once

#include <QDateTime>
#include <QDockWidget>
#include <QHash>
#include <QPointer>

class QCheckBox;
class QLabel;
class QMessEvent;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

/// The notices and errors of the session, the newest first: each in plain words, with what only an
/// administrator can read folded away below it. What comes again is counted. Opens below the tabs by its
/// button in the status bar.
class MessageList : public QDockWidget
{
    Q_OBJECT

public:
    /// Older ones are left out.
    static constexpr int most = 1000;

    explicit MessageList(QWidget *window);

    /// Traces of the program's course are left out: the log has them.
    void add(const QMessEvent &message);
    /// For the status bar: opens the list, and tells how many came since it was seen last.
    QPushButton *button() const { return m_button; }
    int newCount() const { return m_new; }

public slots:
    /// Opens the list, goes into it when it is open, and closes it when the keyboard is there.
    void toggle();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void build();
    QWidget *buildButtons();
    void buildButton(QWidget *window);
    void showItem(QTreeWidgetItem *item);
    void dropOldest();
    void filter();
    void count(int kind);
    void see();
    void showCount();
    void showState();
    void copyCurrent();
    void copyAll();
    bool isSeen() const;
    bool isInside() const;

    QTreeWidget *m_tree;
    QCheckBox *m_errorsOnly;
    QLabel *m_state;
    QPushButton *m_button;
    QHash<QString, QTreeWidgetItem *> m_items;
    int m_new = 0;
    int m_newErrors = 0;
    /// What had the focus before the list.
    QPointer<QWidget> m_before;
};
