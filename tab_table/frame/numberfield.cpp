#include "numberfield.h"

#include "ean13.h"
#include "money.h"
#include "typedinput.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QToolTip>

namespace {
/// No hand types so many digits of a code one so soon behind the other.
constexpr int betweenDigitsMs = 60;
/// The Enter or Tab of a scanner comes within that time behind its last digit.
constexpr int endOfCodeMs = 100;
constexpr int shortestCode = 8;

struct Kind
{
    bool (*read)(const QString &, qint64 *);
    QString (*shown)(qint64);
    const char *missing;
    const char *scanned;
    const char *unreadable;
};

const Kind &kindOf(NumberKind kind)
{
    static const Kind kinds[] = {
        {&kopecksFromText, &moneyShown, QT_TRANSLATE_NOOP("NumberField", "Введіть суму, наприклад 1234,50."),
         QT_TRANSLATE_NOOP("NumberField", "%1 схоже на штрихкод, а не на суму. Суму вводять так: 1234,50."),
         QT_TRANSLATE_NOOP("NumberField", "«%1» не є сумою. Суму вводять так: 1234,50 або 1 234.50.")},
        {&thousandthsFromText, &quantityShown,
         QT_TRANSLATE_NOOP("NumberField", "Введіть кількість, наприклад 2 або 0,250."),
         QT_TRANSLATE_NOOP("NumberField", "%1 схоже на штрихкод, а не на кількість. Кількість вводять так: 2 "
                                          "або 0,250."),
         QT_TRANSLATE_NOOP("NumberField", "«%1» не є кількістю. Кількість вводять так: 2 або 0,250.")},
        {&rateFromText, &rateText,
         QT_TRANSLATE_NOOP("NumberField", "Введіть ставку у відсотках, наприклад 17,5."),
         QT_TRANSLATE_NOOP("NumberField", "%1 схоже на штрихкод, а не на відсотки. Їх вводять так: 17,5."),
         QT_TRANSLATE_NOOP("NumberField", "«%1» не є числом відсотків. Їх вводять так: 17,5.")}};
    return kinds[static_cast<int>(kind)];
}

bool isDigit(QChar c)
{
    return c >= QLatin1Char('0') && c <= QLatin1Char('9');
}
} // namespace

QString readNumber(const QString &text, NumberKind kind, qint64 minimum, qint64 maximum, qint64 *units)
{
    const Kind &words = kindOf(kind);
    const QString shown = text.simplified();
    if (shown.isEmpty())
        return NumberField::tr(words.missing);
    if (looksScanned(shown))
        return NumberField::tr(words.scanned).arg(shown);
    qint64 number = 0;
    if (!words.read(text, &number))
        return NumberField::tr(words.unreadable).arg(shown.left(40));
    if (number < minimum)
        return NumberField::tr("Тут не може бути менше, ніж %1.").arg(words.shown(minimum));
    if (number > maximum)
        return NumberField::tr("Тут не може бути більше, ніж %1.").arg(words.shown(maximum));
    *units = number;
    return QString();
}

NumberField::NumberField(QLineEdit *field, NumberKind kind, qint64 minimum, qint64 maximum,
                         QWidget *describedBy)
    : QObject(field)
    , m_field(field)
    , m_describedBy(describedBy == nullptr ? field : describedBy)
    , m_toolTip(m_describedBy->toolTip())
    , m_kind(kind)
    , m_minimum(minimum)
    , m_maximum(maximum)
{
    m_clock.start();
    field->installEventFilter(this);
    connect(field, &QLineEdit::textChanged, this, &NumberField::showState);
    showState();
}

void NumberField::setMayBeEmpty(bool mayBeEmpty)
{
    m_mayBeEmpty = mayBeEmpty;
    showState();
}

void NumberField::setRange(qint64 minimum, qint64 maximum)
{
    m_minimum = minimum;
    m_maximum = maximum;
    showState();
}

QString NumberField::text() const
{
    return m_field->text();
}

QString NumberField::refusalOf(const QString &text, qint64 *units) const
{
    qint64 number = 0;
    QString why;
    if (!m_mayBeEmpty || !text.trimmed().isEmpty())
        why = readNumber(text, m_kind, m_minimum, m_maximum, &number);
    if (units != nullptr && why.isEmpty())
        *units = number;
    return why;
}

qint64 NumberField::units() const
{
    qint64 number = 0;
    refusalOf(text(), &number);
    return number;
}

QString NumberField::refusal() const
{
    return m_isScan ? tr(kindOf(m_kind).scanned).arg(m_burst) : refusalOf(text(), nullptr);
}

void NumberField::showState()
{
    const QString why = refusal();
    colourField(m_field, why.isEmpty());
    m_describedBy->setToolTip(why.isEmpty() ? m_toolTip : why);
    m_describedBy->setAccessibleDescription(why);
}

/// Keys may wait in the queue while the program works: their own time tells how fast they were typed.
qint64 NumberField::timeOf(const QKeyEvent &key) const
{
    return key.timestamp() != 0 ? static_cast<qint64>(key.timestamp()) : m_clock.elapsed();
}

bool NumberField::takesKey(const QKeyEvent &key)
{
    const qint64 now = timeOf(key);
    const qint64 since = m_lastKey == 0 ? endOfCodeMs : now - m_lastKey;
    m_lastKey = now;
    const bool isDigitKey = key.text().size() == 1 && isDigit(key.text().at(0)) && !key.isAutoRepeat();
    const bool isEnd = key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter || key.key() == Qt::Key_Tab;
    if (m_isScan && (isDigitKey ? since <= betweenDigitsMs : isEnd && since < endOfCodeMs)) {
        if (isDigitKey)
            m_burst += key.text();
        keepOut();
        return true;
    }
    forgetScan();
    if (!isDigitKey) {
        m_burst.clear();
        return false;
    }
    countDigit(key.text().at(0), since <= betweenDigitsMs);
    if (m_burst.size() >= shortestCode)
        keepOut();
    return m_isScan;
}

void NumberField::countDigit(QChar digit, bool isBurst)
{
    if (!isBurst || m_burst.isEmpty()) {
        m_burst.clear();
        m_textBefore = text();
        m_cursorBefore = m_field->cursorPosition();
        m_selectionBefore = m_field->selectionStart();
        m_selectedBefore = m_field->selectedText().size();
    }
    m_burst += digit;
}

void NumberField::keepOut()
{
    m_isScan = true;
    if (text() != m_textBefore)
        m_field->setText(m_textBefore);
    m_field->setCursorPosition(m_cursorBefore);
    if (m_selectionBefore >= 0)
        m_field->setSelection(m_selectionBefore, m_selectedBefore);
    showState();
    QToolTip::showText(m_field->mapToGlobal(QPoint(0, m_field->height())), refusal(), m_field);
    emit refused(refusal());
}

void NumberField::forgetScan()
{
    if (!m_isScan)
        return;
    m_isScan = false;
    m_burst.clear();
    showState();
}

bool NumberField::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::FocusOut)
        forgetScan();
    if (event->type() != QEvent::KeyPress || m_field->isReadOnly() ||
        !takesKey(*static_cast<QKeyEvent *>(event)))
        return QObject::eventFilter(watched, event);
    event->accept();
    return true;
}
