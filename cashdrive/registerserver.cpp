#include "registerserver.h"

#include <QCoreApplication>

namespace {
class MissingServer : public RegisterServer
{
public:
    bool isThere() const override { return false; }
    QString open(const QString &, int) override { return noRegisterServer(); }
    QString writeCard(const QString &, const ServerCard &) override { return noRegisterServer(); }
    QString writeArticles(const QVector<ServerArticle> &, bool) override { return noRegisterServer(); }
    QString writeLevels(const QVector<ServerLevel> &) override { return noRegisterServer(); }
    QString readTransactions(const QString &, const Keep &) override { return noRegisterServer(); }
    QString call(const QString &) override { return noRegisterServer(); }
};
} // namespace

std::unique_ptr<RegisterServer> platformRegisterServer()
{
    return std::make_unique<MissingServer>();
}

QString noRegisterServer()
{
    return QCoreApplication::translate("RegisterServer",
                                       "Бібліотека для роботи з сервером CASHDRIVE існує тільки для windows");
}
