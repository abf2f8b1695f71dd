#include "secretquery.h"

#include "db.h"
#include "qmessevent.h"
#include "servererror.h"

namespace {
const int quotedCharacters = 500;

QString withoutSecrets(QString text, const QStringList &secrets)
{
    for (const QString &secret : secrets) {
        if (secret.isEmpty())
            continue;
        text.replace(lit(secret), QLatin1String("'***'"));
        text.replace(QLatin1Char('\'') + secret + QLatin1Char('\''), QLatin1String("'***'"));
    }
    return text;
}
} // namespace

std::optional<QSqlQuery> runSecret(const Db &db, const QString &sql, const QStringList &secrets,
                                   const QString &failure, int expectedError, const char *file, int line)
{
    QString error;
    auto query = db.attempt(sql, &error);
    if (query)
        return query;
    const int number = db.lastErrorNumber();
    if (expectedError != 0 && number == expectedError)
        return std::nullopt;
    const QString words = serverWords(number);
    // Not even sent: the loss of the server was told already.
    const int kind = number == ServerError::ServerGone ? QMessEvent::Warning : QMessEvent::Critical;
    postMessage(db.receiver(),
                (words.isEmpty() ? words : words + QStringLiteral("\n\n")) + failure + QLatin1Char('\n') +
                    withoutSecrets(error, secrets) + QLatin1Char('\n') +
                    withoutSecrets(sql, secrets).left(quotedCharacters),
                kind, file, line);
    return std::nullopt;
}
