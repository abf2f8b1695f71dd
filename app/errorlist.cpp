#include "errorlist.h"

#include "messagewords.h"
#include "qqestion.h"

#include <QApplication>
#include <QTimer>

namespace {
const int errorsTogether = 5;

void tell(QWidget *parent, const QStringList &errors)
{
    const QString gap = QStringLiteral("\n\n");
    QStringList words;
    QStringList details;
    for (const QString &error : errors) {
        const MessageWords folded = foldedMessage(error);
        words.append(folded.words);
        if (!folded.details.isEmpty())
            details.append(folded.details);
    }
    words.removeDuplicates();
    QQestion::tell(parent, ErrorList::tr("Попередження."), words.join(gap), details.join(gap));
}
} // namespace

bool isLossOfServer(const QString &error)
{
    return error.contains(QLatin1String("Can't connect to")) ||
           error.contains(QLatin1String("Lost connection to")) ||
           error.contains(QLatin1String("server has gone away"));
}

ErrorList::ErrorList(QWidget *window) : QObject(window), m_window(window) {}

void ErrorList::add(const QString &error, int most)
{
    m_errors.append(error);
    while (m_errors.size() > qMax(1, most))
        m_errors.removeFirst();
    QTimer::singleShot(0, this, &ErrorList::show);
}

void ErrorList::show()
{
    if (m_isShowing || m_errors.isEmpty())
        return;
    m_isShowing = true;
    QWidget *parent = QApplication::activeModalWidget();
    while (!m_errors.isEmpty()) {
        m_errors.removeDuplicates();
        const QStringList burst = m_errors.mid(0, errorsTogether);
        m_errors = m_errors.mid(errorsTogether);
        tell(parent == nullptr ? m_window : parent, burst);
    }
    m_isShowing = false;
}
