#include "pastedbarcodes.h"

#include "money.h"

#include <QCoreApplication>
#include <QRegularExpression>
#include <QSet>

namespace {
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(PastedBarcodes)
};

const int codesAtOnce = 1000;
const int listedBarcodes = 5;
} // namespace

void PastedBarcodes::setText(const QString &text)
{
    m_text = text;
    m_codes = barcodesIn(text, &m_ignored);
}

void PastedBarcodes::add(const QString &code)
{
    const bool isBehind = !m_text.isEmpty() && !m_text.endsWith(QLatin1Char('\n'));
    setText(m_text + (isBehind ? QStringLiteral("\n") : QString()) + code);
}

QString PastedBarcodes::words() const
{
    QString words;
    if (!m_codes.isEmpty())
        words = Texts::tr("Лише зі списку: %1").arg(wholeShown(m_codes.size()));
    if (m_ignored > 0)
        words += QLatin1Char(' ') + Texts::tr("(рядків без штрихкоду: %1)").arg(wholeShown(m_ignored));
    return words.trimmed();
}

QString PastedBarcodes::refusal() const
{
    return m_codes.isEmpty() && !m_text.trimmed().isEmpty()
               ? Texts::tr("У списку штрихкодів немає жодного штрихкоду. Виправте список або очистіть його, "
                           "якщо потрібні всі товари.")
               : QString();
}

QStringList barcodesIn(const QString &text, int *ignored)
{
    static const QRegularExpression code(QStringLiteral("(?:^|[\\s;,\"])(\\d{1,13})(?=$|[\\s;,\"])"));
    // Of "4,82E+12" no barcode "4" is left: the spreadsheet has lost its digits.
    static const QRegularExpression lost(QStringLiteral("(?:^|[\\s;\"])\\d+[.,]\\d+[eEеЕ]\\+\\d+"));
    QStringList codes;
    *ignored = 0;
    for (const QString &line : text.split(QLatin1Char('\n'))) {
        const auto found = code.match(line);
        if (found.hasMatch() && !lost.match(line).hasMatch())
            codes.append(found.captured(1));
        else if (!line.trimmed().isEmpty())
            ++*ignored;
    }
    codes.removeDuplicates();
    return codes;
}

bool findBarcodes(const Db &db, const QStringList &codes, QVector<DbId> *goods, QStringList *unknown)
{
    QSet<QString> found;
    for (int begin = 0; begin < codes.size(); begin += codesAtOnce) {
        QStringList literals;
        for (const QString &code : codes.mid(begin, codesAtOnce))
            literals.append(lit(code));
        auto rows = db.run(QStringLiteral("SELECT shtrihcod,id_goods FROM dk_shc WHERE shtrihcod IN (%1)")
                               .arg(literals.join(QLatin1Char(','))));
        while (rows && rows->next()) {
            found.insert(toText(rows->value(0)));
            goods->append(rows->value(1).toUInt());
        }
        if (!rows)
            return false;
    }
    for (const QString &code : codes) {
        if (!found.contains(code))
            unknown->append(code);
    }
    return true;
}

QString unknownBarcodesWords(const QStringList &unknown)
{
    const QString listed = QStringList(unknown.mid(0, listedBarcodes)).join(QStringLiteral(", "));
    return Texts::tr("Невідомі штрихкоди: %1 (%2).")
        .arg(wholeShown(unknown.size()),
             unknown.size() > listedBarcodes ? listed + QStringLiteral("…") : listed);
}

QString idList(const QVector<DbId> &ids)
{
    QStringList texts = {QStringLiteral("0")};
    for (const DbId id : ids)
        texts.append(QString::number(id));
    return texts.join(QLatin1Char(','));
}
