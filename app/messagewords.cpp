#include "messagewords.h"

#include <QCoreApplication>
#include <QRegularExpression>
#include <algorithm>
#include <iterator>

namespace {
struct Messages
{
    Q_DECLARE_TR_FUNCTIONS(MessageWords)
};

/// What the server says, in the part that is the same for every table, and what that means.
const struct
{
    const char *said;
    const char *means;
} meanings[] = {
    {"Duplicate entry",
     QT_TRANSLATE_NOOP("MessageWords", "Такий запис у базі вже є: значення, яке не повинно повторюватись, "
                                       "зайняте. Змініть його і запишіть ще раз.")},
    {"Cannot delete or update a parent row",
     QT_TRANSLATE_NOOP("MessageWords",
                       "Запис не можна видалити чи змінити: на нього посилаються інші записи.")},
    {"Cannot add or update a child row",
     QT_TRANSLATE_NOOP("MessageWords",
                       "Запису, на який посилаються ці дані, у базі вже немає. Оновіть список "
                       "(F5) і оберіть інший.")},
    {"Data too long",
     QT_TRANSLATE_NOOP("MessageWords", "Текст задовгий для свого поля. Скоротіть його і запишіть ще раз.")},
    {"Out of range value",
     QT_TRANSLATE_NOOP("MessageWords",
                       "Число завелике або замале для свого поля. Виправте його і запишіть ще "
                       "раз.")},
    {"cannot be null",
     QT_TRANSLATE_NOOP("MessageWords",
                       "Обов'язкове значення не вказано, або того, що обрано, у базі вже немає. "
                       "Оновіть список (F5) і спробуйте ще раз.")},
    {"doesn't exist",
     QT_TRANSLATE_NOOP("MessageWords",
                       "У базі бракує таблиці. Зверніться до адміністратора: відсутні таблиці "
                       "додає «Сервіс – Створити таблиці».")},
    {"Unknown column",
     QT_TRANSLATE_NOOP("MessageWords", "Таблиця в базі не така, як її знає програма. Зверніться до "
                                       "адміністратора бази.")},
    {"Access denied",
     QT_TRANSLATE_NOOP("MessageWords", "База даних не впустила програму. Перевірте користувача і пароль у "
                                       "налаштуваннях або зверніться до адміністратора бази.")},
    {"command denied",
     QT_TRANSLATE_NOOP("MessageWords", "Програмі не дозволено робити це в базі даних. Зверніться до "
                                       "адміністратора бази.")},
    {"Unknown database",
     QT_TRANSLATE_NOOP("MessageWords", "Бази з такою назвою на сервері немає. Перевірте налаштування.")},
    {"Too many connections",
     QT_TRANSLATE_NOOP("MessageWords",
                       "На сервері забагато підключень. Повторіть за хвилину або зверніться до "
                       "адміністратора бази.")},
    {"is full", QT_TRANSLATE_NOOP("MessageWords",
                                  "На сервері бази закінчилось місце. Зверніться до адміністратора бази.")},
    {"read-only",
     QT_TRANSLATE_NOOP("MessageWords", "Сервер бази зараз дозволяє лише читати. Зверніться до адміністратора "
                                       "бази.")},
    {"execution was interrupted",
     QT_TRANSLATE_NOOP("MessageWords", "Запит перервано на сервері. Спробуйте ще раз.")},
    {"Lock wait timeout",
     QT_TRANSLATE_NOOP("MessageWords", "Ці дані зараз тримає інша програма. Повторіть за хвилину.")},
    {"Deadlock found",
     QT_TRANSLATE_NOOP("MessageWords", "Інша програма щойно записала ті самі дані. Нічого не записано. "
                                       "Повторіть.")},
    {"Can't connect to",
     QT_TRANSLATE_NOOP("MessageWords",
                       "Немає зв'язку із сервером бази даних. Програма підключається знову сама; "
                       "перевірте мережу, якщо це триває.")},
    {"Lost connection to",
     QT_TRANSLATE_NOOP("MessageWords",
                       "Зв'язок із сервером бази даних втрачено. Програма підключається знову "
                       "сама; перевірте мережу, якщо це триває.")},
    {"server has gone away",
     QT_TRANSLATE_NOOP("MessageWords",
                       "Зв'язок із сервером бази даних втрачено. Програма підключається знову "
                       "сама; перевірте мережу, якщо це триває.")},
};

QString unknownMeaning()
{
    return Messages::tr("База даних не виконала запит. Спробуйте ще раз; якщо це повториться, передайте "
                        "подробиці адміністратору.");
}

QString meaningOf(const QString &said)
{
    const auto found = std::find_if(std::begin(meanings), std::end(meanings), [&said](const auto &each) {
        return said.contains(QLatin1String(each.said));
    });
    return found == std::end(meanings) ? unknownMeaning() : Messages::tr(found->means);
}

/// What opens a report of the database without words of its own.
QString failedQuery()
{
    return QCoreApplication::translate("Db", "Помилка запиту:");
}

/// -1 when there is nothing but words.
int detailsOf(const QString &text)
{
    static const QRegularExpression begin(QStringLiteral(
        "\n\n|\n(?=(SELECT|INSERT|UPDATE|DELETE|REPLACE|CREATE|ALTER|SHOW|START|COMMIT|KILL) )"));
    return text.indexOf(begin);
}

bool isServersLine(const QString &line)
{
    return line.contains(QLatin1String("QMYSQL")) ||
           std::any_of(std::begin(meanings), std::end(meanings),
                       [&line](const auto &each) { return line.contains(QLatin1String(each.said)); });
}

/// The first line that is the server's own: one that is known, or the last one before a statement. As many as
/// there are when there is none.
int serversLine(const QStringList &lines, bool isBeforeStatement)
{
    const auto known = std::find_if(lines.begin(), lines.end(), isServersLine);
    const int line = static_cast<int>(known - lines.begin());
    return line == lines.size() && isBeforeStatement && line > 1 ? line - 1 : line;
}

/// As the beginning of a sentence.
QString sentence(QString opening)
{
    while (opening.endsWith(QLatin1Char(':')) || opening.endsWith(QLatin1Char('.')))
        opening.chop(1);
    return opening.isEmpty() ? opening : opening.simplified() + QStringLiteral(". ");
}

} // namespace

MessageWords foldedMessage(const QString &text)
{
    const int cut = detailsOf(text);
    return {text.left(cut), cut < 0 ? QString() : text.mid(cut).trimmed()};
}

/// A report of the database is its opening, the server's words and the statement. Where it explains itself
/// before them that is enough.
MessageWords plainMessage(const QString &text)
{
    MessageWords folded = foldedMessage(text);
    const bool isBeforeStatement = !folded.details.isEmpty() && !text.contains(QLatin1String("\n\n"));
    const QStringList lines = folded.words.split(QLatin1Char('\n'));
    const int line = serversLine(lines, isBeforeStatement);
    if (line == lines.size())
        return folded;
    const QString opening = lines.mid(0, line).join(QLatin1Char('\n'));
    const QString meaning = meaningOf(lines.mid(line).join(QLatin1Char('\n')));
    return {opening == failedQuery() ? meaning : sentence(opening) + meaning, text};
}
