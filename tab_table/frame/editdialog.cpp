#include "editdialog.h"

#include "qmessdlg.h"
#include "qqestion.h"
#include "typedinput.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QBoxLayout>
#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScreen>
#include <QScrollArea>
#include <QStyle>

void EditDialog::btok()
{
    if (m_isReadOnly)
        return;
    commitTyping(this);
    if (m_isUnclear && !askWhetherArrived() && m_isUnclear)
        return;
    QString why = linesRefusal();
    if (why.isEmpty())
        why = refusal();
    if (!why.isEmpty())
        warn(why);
    else if (save())
        accept();
}

void EditDialog::warn(const QString &why)
{
    QQestion::question(this, tr("Попередження."), why, true);
}

bool EditDialog::isSaved(const Saved &saved)
{
    if (saved.outcome == Saved::Refused)
        warn(saved.why);
    return saved.outcome == Saved::Written || (saved.outcome == Saved::Unclear && askWhetherArrived());
}

bool EditDialog::askWhetherArrived()
{
    const auto arrived = hasArrived();
    m_isUnclear = !arrived;
    if (!arrived) {
        warn(tr("Зв'язок обірвався під час запису, і невідомо, чи запис збережено. Зачекайте, доки "
                "зв'язок відновиться, і збережіть ще раз: програма спершу запитає сервер."));
    } else if (*arrived) {
        takeOver();
    }
    return arrived.value_or(false);
}

void EditDialog::btcancel()
{
    reject();
}

void EditDialog::reject()
{
    commitTyping(this);
    if (m_isReadOnly || !isChanged() ||
        QMessDlg::confirm(this, windowTitle(), tr("Зміни не збережено."), tr("Закрити без збереження"),
                          tr("Продовжити редагування")))
        QDialog::reject();
}

void EditDialog::showEvent(QShowEvent *event)
{
    QDialog::showEvent(event);
    if (m_wasShown)
        return;
    m_wasShown = true;
    fitOnScreen();
    m_shown = enteredTexts(this);
    const auto fields = findChildren<QLineEdit *>();
    for (const auto *field : fields)
        m_shownTexts.insert(field, field->text());
}

/// On a small screen, or with large letters, the fields scroll; the buttons below them stay.
void EditDialog::fitOnScreen()
{
    // The window manager has not said yet how much its frame takes.
    const int title = style()->pixelMetric(QStyle::PM_TitleBarHeight) + fontMetrics().height();
    const QSize room = screen()->availableGeometry().size() - QSize(fontMetrics().height(), title);
    auto *rows = qobject_cast<QBoxLayout *>(layout());
    const QSize wanted = sizeHint();
    if (rows == nullptr || (wanted.height() <= room.height() && wanted.width() <= room.width()))
        return;
    QWidget *const focused = focusWidget();
    auto *area = new QScrollArea(this);
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    // In this window from the beginning: the order of Tab stays.
    auto *fields = new QWidget(area);
    auto *inner = new QVBoxLayout(fields);
    inner->setContentsMargins(0, 0, 0, 0);
    while (rows->count() > 1) {
        QLayoutItem *item = rows->takeAt(0);
        if (item->layout() != nullptr) {
            inner->addLayout(item->layout());
        } else {
            inner->addWidget(item->widget());
            delete item;
        }
    }
    area->setWidget(fields);
    rows->insertWidget(0, area, 1);
    const int scrollBar = style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    resize((wanted + QSize(scrollBar, scrollBar)).boundedTo(room));
    move(screen()->availableGeometry().topLeft());
    if (focused != nullptr)
        focused->setFocus();
}

bool EditDialog::isChanged() const
{
    return m_wasShown && enteredTexts(this) != m_shown;
}

/// A text that came from the database as it is stays as it is.
QString EditDialog::linesRefusal() const
{
    const auto fields = findChildren<QLineEdit *>();
    for (auto *field : fields) {
        const bool isTyped = !field->isReadOnly() && field->text() != m_shownTexts.value(field) &&
                             field->text() != storedText(field);
        if (isTyped && hasControlCharacters(field->text())) {
            field->setFocus();
            return controlCharactersRefusal(fieldName(field));
        }
    }
    return QString();
}

void EditDialog::setRecordTitle(const QString &id)
{
    setWindowTitle(id.isEmpty() ? tr("Додавання нового запису") : tr("Редагування запису №") + id);
}

void EditDialog::setReadOnly(bool readOnly)
{
    m_isReadOnly = readOnly;
    for (auto *edit : findChildren<QLineEdit *>())
        edit->setReadOnly(readOnly);
    for (auto *edit : findChildren<QPlainTextEdit *>())
        edit->setReadOnly(readOnly);
    for (auto *box : findChildren<QComboBox *>())
        box->setDisabled(readOnly);
    for (auto *spin : findChildren<QAbstractSpinBox *>())
        spin->setReadOnly(readOnly);
    for (auto *view : findChildren<QAbstractItemView *>())
        view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    for (auto *button : findChildren<QAbstractButton *>()) {
        if (button->objectName() != QLatin1String("pbCancel"))
            button->setDisabled(readOnly);
    }
}
