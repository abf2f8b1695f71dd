#include "checkrun.h"

#include "checks.h"

#include <algorithm>

QStringList CheckRun::lines() const
{
    QStringList all;
    for (const integrity::Finding &one : findings) {
        const QString key = QString::fromLatin1(integrity::integrityChecks().at(one.check).key);
        all.append(QStringList{key, one.shop, one.kass, one.words}.join('|').replace(QChar(0xA0), ' '));
    }
    std::sort(all.begin(), all.end());
    return all;
}

const integrity::CheckState &CheckRun::state(const char *key) const
{
    return states.at(integrity::checkNumber(key));
}

CheckRun checkDatabase(FreshDatabase *base, const QDateTime &now, int mostListed)
{
    CheckRun run;
    integrity::FindingsSoFar found;
    Job job(
        QStringLiteral("check"), base->connection()->connectionName(),
        [&](JobContext &context) {
            Db::letHooksHearThisThread();
            return checkIntegrity(context, {now, mostListed}, &found);
        },
        &base->heard);
    bool isOver = false;
    QObject::connect(&job, &Job::finished, &job, [&](const JobResult &result) {
        run.result = result;
        isOver = true;
    });
    job.start();
    if (!QTest::qWaitFor([&] { return isOver; }, 60000))
        qFatal("The check does not end");
    run.states = found.states();
    run.findings = found.after(0);
    return run;
}
