#include "qmessevent.h"

#include <QCoreApplication>
#include <QLoggingCategory>

namespace {
const QLatin1String filePrefix("In file: ");
const QLatin1String linePrefix(" line: ");
} // namespace

QMessEvent::QMessEvent(const QString &location, const QString &text, int kind)
    : QEvent(eventType), m_location(location), m_text(text), m_kind(kind)
{
}

QString QMessEvent::file() const
{
    const int start = m_location.startsWith(filePrefix) ? filePrefix.size() : 0;
    const int end = m_location.lastIndexOf(linePrefix);
    return m_location.mid(start, end < 0 ? -1 : end - start);
}

QString QMessEvent::line() const
{
    const int start = m_location.lastIndexOf(linePrefix);
    return start < 0 ? QString() : m_location.mid(start + linePrefix.size());
}

QString sourceLocation(const char *file, int line)
{
    QString path = QString::fromUtf8(file);
    // A compiler cache may hand the compiler paths that are relative to the build folder.
    while (path.startsWith(QLatin1String("../")))
        path.remove(0, 3);
    if (path.endsWith(QLatin1String(".cpp")))
        path.chop(4);
    return filePrefix + path + linePrefix + QString::number(line);
}

void postMessage(QObject *receiver, const QString &text, int kind, const char *file, int line)
{
    if (receiver == nullptr) {
        qWarning("%s: %s", qPrintable(sourceLocation(file, line)), qPrintable(text));
        return;
    }
    QCoreApplication::postEvent(receiver, new QMessEvent(sourceLocation(file, line), text, kind));
}

void postTrace(QObject *receiver, const QString &text, const char *file, int line)
{
    if (receiver != nullptr)
        postMessage(receiver, text, QMessEvent::Debug, file, line);
}
