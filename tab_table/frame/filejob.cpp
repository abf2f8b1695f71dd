#include "filejob.h"

#include "job.h"
#include "qmessevent.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QSaveFile>
#include <algorithm>

namespace {
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(FileJob)
};

const char *const pathProperty = "path";

bool isBeingWritten(const QString &path)
{
    const QVector<Job *> &jobs = RunningJobs::all().jobs();
    return std::any_of(jobs.begin(), jobs.end(),
                       [&](const Job *job) { return job->property(pathProperty) == path; });
}

/// Why a file cannot be written; empty when it can.
QString refusal(const QString &path)
{
    const QFileInfo there(path);
    // The new file would take the place of a device.
    if (there.exists() && !there.isFile())
        return Texts::tr("Це не звичайний файл.");
    return isBeingWritten(there.absoluteFilePath())
               ? Texts::tr("Цей файл саме записується: дочекайтесь кінця або скасуйте те завдання.")
               : QString();
}

QString failure(const QString &path, const QString &reason)
{
    return Texts::tr("Файл не збережено: %1\n%2").arg(path, reason);
}

JobResult write(JobContext &context, const QString &path, const FileWorkElsewhere &work)
{
    QSaveFile file(path);
    // Where no file can be laid beside it.
    file.setDirectWriteFallback(true);
    const auto mayGoOn = [&context](qint64 done, qint64 of) {
        context.progress(done, of);
        return !context.isCancelled();
    };
    QString why;
    // Unbuffered: what a buffer could not write at the end would not be noticed.
    if (file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) && work(&file, mayGoOn, &why) &&
        !context.isCancelled() && file.commit())
        return {JobResult::Done, Texts::tr("Файл збережено: %1").arg(path), {}};
    return {JobResult::Failed,
            context.isCancelled() ? QString() : failure(path, why.isEmpty() ? file.errorString() : why),
            {}};
}

void tell(QObject *receiver, const JobResult &result)
{
    if (result.outcome != JobResult::Cancelled)
        postMessage(receiver, result.words,
                    result.outcome == JobResult::Done ? QMessEvent::Information : QMessEvent::Critical);
}
} // namespace

bool saveInBackground(QObject *receiver, const QString &path, const FileWork &work)
{
    return saveInBackground(receiver, path,
                            [work](QIODevice *file, const ListProgress &mayGoOn, QString * /*why*/) {
                                return work(file, mayGoOn);
                            });
}

bool saveInBackground(QObject *receiver, const QString &path, const FileWorkElsewhere &work)
{
    const QString why = refusal(path);
    if (!why.isEmpty()) {
        postMessage(receiver, failure(path, why));
        return false;
    }
    const QFileInfo file(path);
    auto *job = new Job(
        Texts::tr("Запис файла %1").arg(file.fileName()), QString(),
        [path, work](JobContext &context) { return write(context, path, work); }, receiver);
    job->setProperty(pathProperty, file.absoluteFilePath());
    QObject::connect(job, &Job::finished, job, [receiver, job](const JobResult &result) {
        tell(receiver, result);
        job->deleteLater();
    });
    job->start();
    return true;
}
