#include "launch.h"

#include "qmessevent.h"
#include "qqestion.h"

#include <QCoreApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QProcess>

namespace {
struct Launch
{
    Q_DECLARE_TR_FUNCTIONS(Launch)
};

ProgramStarter &starter()
{
    static ProgramStarter instance;
    return instance;
}

bool startDetached(const QString &commandLine)
{
    QStringList arguments = QProcess::splitCommand(commandLine);
    if (arguments.isEmpty())
        return false;
    const QString program = arguments.takeFirst();
    return starter() ? starter()(program, arguments) : QProcess::startDetached(program, arguments);
}

/// The log gets a warning: an error would be shown to the user a second time.
void tell(QWidget *parent, QObject *receiver, const QString &text, const char *file = __builtin_FILE(),
          int line = __builtin_LINE())
{
    postMessage(receiver, text, QMessEvent::Warning, file, line);
    QQestion::question(parent, Launch::tr("Попередження."), text, true);
}

} // namespace

void setProgramStarter(const ProgramStarter &replacement)
{
    starter() = replacement;
}

QString commandLine(const LaunchCommand &command, const QString &address)
{
    // Three quotes are one that belongs to the path.
    QString path = command.path;
    path.replace(QLatin1Char('"'), QStringLiteral("\"\"\""));
    QString line = QLatin1Char('"') + path + QLatin1Char('"');
    if (!command.param.isEmpty())
        line += QLatin1Char(' ') + command.param;
    return line.replace(addressPlace, address);
}

QString dottedAddress(const QString &text)
{
    QStringList numbers = text.trimmed().split(QLatin1Char('.'));
    if (numbers.size() != 4)
        return QString();
    for (QString &number : numbers) {
        bool isNumber = number.size() <= 3;
        for (const QChar c : qAsConst(number))
            isNumber = isNumber && c >= QLatin1Char('0') && c <= QLatin1Char('9');
        if (number.isEmpty() || !isNumber || number.toInt() > 255)
            return QString();
        number = QString::number(number.toInt());
    }
    return numbers.join(QLatin1Char('.'));
}

QString chooseProgram(QWidget *parent, const QString &title, const QString &filter, const QString &path)
{
    QString allFiles = Launch::tr("Усі файли (*)");
    return QFileDialog::getOpenFileName(parent, title, path, filter + QStringLiteral(";;") + allFiles,
                                        &allFiles);
}

bool launchProgram(QWidget *parent, QObject *receiver, const LaunchCommand &command, const QString &address)
{
    if (command.path.isEmpty())
        return false;
    const bool hasPlace = command.path.contains(addressPlace) || command.param.contains(addressPlace);
    const QString valid = hasPlace ? dottedAddress(address) : QString();
    if (hasPlace && valid.isEmpty()) {
        tell(parent, receiver, Launch::tr("Помилка в IP адресі"));
        return false;
    }
    if (startDetached(commandLine(command, valid)))
        return true;
    if (QFileInfo::exists(command.path))
        tell(parent, receiver, Launch::tr("Помилка запуску зовнішньої програми."));
    else
        tell(parent, receiver, Launch::tr("Не вірний шлях до програми:") + command.path + QLatin1Char('.'));
    return false;
}
