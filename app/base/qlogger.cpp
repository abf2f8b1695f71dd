#include "qlogger.h"

#include "sqldate.h"

#include <QDateTime>

QLogger::QLogger(const QString &fileName, bool flag, LEVELVERB level, QObject *parent)
    : QObject(parent)
    , m_file(fileName)
    , m_level(level)
    , m_labels({QStringLiteral("   NO   "), QStringLiteral("CRITICAL"), QStringLiteral("WARNING "),
                QStringLiteral("  INFO  "), QStringLiteral(" DEBUG  ")})
{
    Q_UNUSED(flag)
    m_file.open(QIODevice::WriteOnly | QIODevice::Append);
}

void QLogger::wlog(TYPELOG type, const QString &file, const QString &line, const QString &message)
{
    const QMutexLocker lock(&m_mutex);
    if (type > m_level || !m_file.isOpen())
        return;
    const QString &label = m_labels.at(type >= 0 && type < m_labels.size() ? type : 1);
    const QString name = file.mid(file.lastIndexOf(QLatin1Char('/')) + 1);
    const QString time = shownDateTime(QDateTime::currentDateTime());
    const QString text = label + QLatin1String("  ") + time + QLatin1String("  ") + name + QLatin1Char('\t') +
                         line + QLatin1Char('\t') + message + QLatin1Char('\n');
    m_file.write(text.toLocal8Bit());
    m_file.flush();
}
