#include "numberfield.h"

#include "ean13.h"
#include "money.h"
#include "typedinput.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QToolTip>

namespace {
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
    return m_isScan ? tr(kindOf(m_kind).scanned).arg(m_pace.code()) : refusalOf(text(), nullptr);
}

void NumberField::showState()
{
    const QString why = refusal();
    colourField(m_field, why);
    m_describedBy->setToolTip(why.isEmpty() ? m_toolTip : why);
    m_describedBy->setAccessibleDescription(why);
}

bool NumberField::takesKey(const QKeyEvent &key)
{
    const bool isNext = m_pace.take(key);
    const ScanPace::Kind kind = ScanPace::kindOf(key);
    const bool goesOn = m_isScan && isNext && kind != ScanPace::Other;
    if (m_isScan && !goesOn) {
        m_isScan = false;
        showState();
    }
    if (kind == ScanPace::Digit && m_pace.code().size() == 1 && !goesOn)
        rememberField();
    m_isScan = goesOn || (kind == ScanPace::Digit && m_pace.isCode());
    if (m_isScan)
        keepOut();
    return m_isScan;
}

void NumberField::rememberField()
{
    m_textBefore = text();
    m_cursorBefore = m_field->cursorPosition();
    m_selectionBefore = m_field->selectionStart();
    m_selectedBefore = m_field->selectedText().size();
}

void NumberField::keepOut()
{
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
    m_pace.forget();
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
