#pragma once

#include <QObject>
#include <QStringList>

class QWidget;

/// The errors that the user is to see: a burst of them is one dialog, with what only an administrator can
/// read folded away.
class ErrorList : public QObject
{
    Q_OBJECT

public:
    explicit ErrorList(QWidget *window);

    /// Shown as soon as the program is back from the statement that failed; of more than `most` the oldest
    /// are left out.
    void add(const QString &error, int most);
    /// Now, unless a dialog of this list is open.
    void show();

private:
    QWidget *m_window;
    QStringList m_errors;
    bool m_isShowing = false;
};

/// True for an error that only tells of a lost server, by the words of the client library, which are the same
/// in every language: each connection of the program tells of the same one.
bool isLossOfServer(const QString &error);
