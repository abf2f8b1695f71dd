#include "transactionspool.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QSaveFile>
#include <QUrl>
#include <QUuid>
#include <atomic>

namespace {
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(TransactionSpool)
};

const QByteArray fileKind = "veltab-cashdrive-1";
const QString ending = QStringLiteral(".txt");
constexpr int fieldsOfLine = 7;

/// Sorts by the time of reading.
QString newName()
{
    static std::atomic<uint> number{0};
    const QString time = QDateTime::currentDateTimeUtc().toString(QStringLiteral("yyyyMMddhhmmsszzz"));
    return QStringLiteral("%1-%2_%3_0")
               .arg(time)
               .arg(++number, 8, 10, QLatin1Char('0'))
               .arg(QUuid::createUuid().toString(QUuid::Id128).left(16)) +
           ending;
}

QByteArray headOf(const QString &kass, int count)
{
    return fileKind + ';' + QUrl::toPercentEncoding(kass) + ';' + QByteArray::number(count) + '\n';
}

QByteArray textOf(const ServerLine &line)
{
    return QByteArray::number(line.article) + ';' + QByteArray::number(line.thousandths) + ';' +
           QByteArray::number(line.kopecks) + ';' + QByteArray::number(line.card) + ';' +
           QByteArray::number(line.year) + ';' + QByteArray::number(line.month) + ';' +
           QByteArray::number(line.day) + '\n';
}

bool lineOf(const QByteArray &text, ServerLine *line)
{
    const QList<QByteArray> fields = text.split(';');
    if (fields.size() != fieldsOfLine)
        return false;
    *line = {fields[0].toULongLong(), fields[1].toLongLong(), fields[2].toLongLong(), fields[3].toULongLong(),
             fields[4].toInt(),       fields[5].toInt(),      fields[6].toInt()};
    return textOf(*line) == text + '\n';
}

bool parse(const QByteArray &text, KeptReading *reading)
{
    const QList<QByteArray> rows = text.split('\n');
    const QList<QByteArray> head = rows.constFirst().split(';');
    if (head.size() != 3 || head[0] != fileKind || !text.endsWith('\n') || rows.size() - 2 != head[2].toInt())
        return false;
    reading->kass = QUrl::fromPercentEncoding(head[1]);
    reading->lines.resize(rows.size() - 2);
    for (int i = 0; i < reading->lines.size(); ++i) {
        if (!lineOf(rows.at(i + 1), &reading->lines[i]))
            return false;
    }
    return reading->counted <= reading->lines.size();
}

/// From "time_id_counted.txt".
bool parseName(const QFileInfo &file, KeptReading *reading)
{
    const QStringList parts = file.completeBaseName().split(QLatin1Char('_'));
    bool isNumber = false;
    reading->path = file.absoluteFilePath();
    reading->id = parts.value(1);
    reading->counted = parts.value(2).toLongLong(&isNumber);
    return parts.size() == 3 && isNumber && reading->counted >= 0;
}
} // namespace

TransactionSpool::TransactionSpool(const QString &folder) : m_folder(folder) {}

QString TransactionSpool::keep(const QString &kass, const ServerLines &lines) const
{
    if (lines.isEmpty())
        return QString();
    QByteArray text = headOf(kass, lines.size());
    for (const ServerLine &line : lines)
        text += textOf(line);
    QSaveFile file(QDir(m_folder).filePath(newName()));
    if (QDir().mkpath(m_folder) && file.open(QIODevice::WriteOnly) && file.write(text) == text.size() &&
        file.commit())
        return QString();
    return Texts::tr("Транзакції каси %1 не збережено: %2\n%3")
        .arg(kass, file.fileName(), file.errorString());
}

QVector<KeptReading> TransactionSpool::waiting(QStringList *problems) const
{
    QVector<KeptReading> readings;
    const auto files = QDir(m_folder).entryInfoList({QLatin1Char('*') + ending}, QDir::Files, QDir::Name);
    for (const QFileInfo &info : files) {
        KeptReading reading;
        QFile file(info.absoluteFilePath());
        if (parseName(info, &reading) && file.open(QIODevice::ReadOnly) && parse(file.readAll(), &reading))
            readings.append(reading);
        else
            problems->append(
                Texts::tr("Файл транзакцій пошкоджено, його не розібрано: %1").arg(reading.path));
    }
    return readings;
}

bool TransactionSpool::setCounted(KeptReading *reading, qint64 counted)
{
    if (counted == reading->counted)
        return true;
    QString path = reading->path;
    path.truncate(path.lastIndexOf(QLatin1Char('_')) + 1);
    path += QString::number(counted) + ending;
    if (!QFile::rename(reading->path, path))
        return false;
    reading->path = path;
    reading->counted = counted;
    return true;
}

bool TransactionSpool::remove(const KeptReading &reading)
{
    return QFile::remove(reading.path);
}
