#include "networkaddress.h"

#include "launch.h"

#include <QRegularExpression>

namespace {
/// The front-office program's pattern, letter for letter: its points want a backslash before them. Plain
/// addresses are told apart by dottedAddress.
QString storedPattern()
{
    return QStringLiteral(R"(((?:(?:25[0-5]|2[0-4][0-9]|[01]?[0-9][0-9]?)\\.){3})"
                          R"((?:25[0-5]|2[0-4][0-9]|[01]?[0-9][0-9]?))(?![\\d]))");
}
} // namespace

bool isSoundAddress(const QString &address)
{
    static const QRegularExpression pattern(storedPattern());
    return address.isEmpty() || !dottedAddress(address).isEmpty() || pattern.match(address).hasMatch();
}
