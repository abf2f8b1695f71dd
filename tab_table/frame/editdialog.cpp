#include "editdialog.h"

#include "busywindow.h"
#include "qmessdlg.h"
#include "qqestion.h"
#include "scanpace.h"
#include "typedinput.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QBoxLayout>
#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QStyle>

namespace {
bool isEnter(const QKeyEvent &key)
{
    return key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
}
} // namespace

/// Listens to the pace of the keys in a window.
class ScanWatch : public QObject
{
public:
    explicit ScanWatch(QWidget *window) : QObject(window), m_window(window)
    {
        qApp->installEventFilter(this);
    }

    bool isEnd(const QKeyEvent &key) const { return isEnter(key) && m_pace.isCode(); }

    /// A button would take the Enter for a press.
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() != QEvent::KeyPress || watched != m_window->focusWidget())
            return false;
        const auto &key = static_cast<const QKeyEvent &>(*event);
        m_pace.take(key);
        return isEnd(key) && qobject_cast<QAbstractButton *>(watched) != nullptr;
    }

private:
    QWidget *m_window;
    ScanPace m_pace;
};

void EditDialog::btok()
{
    if (m_isReadOnly || isBusy())
        return;
    commitTyping(this);
    save();
}

void EditDialog::warn(const QString &why)
{
    QQestion::question(this, tr("Попередження."), why, true);
}

void EditDialog::btcancel()
{
    reject();
}

void EditDialog::reject()
{
    if (isBusy() && !m_isReading)
        return m_busy->say(tr("Записується… Скасувати вже не можна."));
    commitTyping(this);
    if (m_isReading || m_isReadOnly || !isChanged() ||
        QMessDlg::confirm(this, windowTitle(), tr("Зміни не збережено."), tr("Закрити без збереження"),
                          tr("Продовжити редагування")))
        QDialog::reject();
}

bool EditDialog::isBusy() const
{
    return m_busy != nullptr && m_busy->isBusy();
}

/// The words stand left of the buttons.
void EditDialog::begin(const QString &words, bool isReading)
{
    if (m_busy == nullptr) {
        auto *label = new QLabel(this);
        label->setObjectName(QStringLiteral("labelBusy"));
        label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
        auto *rows = qobject_cast<QBoxLayout *>(layout());
        qobject_cast<QBoxLayout *>(rows->itemAt(rows->count() - 1)->layout())->insertWidget(0, label, 1);
        m_busy = new BusyWindow(this, findChild<QPushButton *>(QStringLiteral("pbCancel")), label);
    }
    m_isReading = isReading;
    m_busy->begin(words, isReading);
}

void EditDialog::beginReading()
{
    begin(tr("Читається…"), true);
}

void EditDialog::endReading()
{
    m_busy->end();
    m_isReading = false;
}

void EditDialog::takeKeys()
{
    rememberTexts();
    m_busy->giveKeys();
}

void EditDialog::beginWriting()
{
    begin(tr("Записується…"), false);
}

void EditDialog::endWriting()
{
    m_busy->end();
}

void EditDialog::showEvent(QShowEvent *event)
{
    QDialog::showEvent(event);
    if (m_wasShown)
        return;
    m_wasShown = true;
    m_scans = new ScanWatch(this);
    fitOnScreen();
    rememberTexts();
}

void EditDialog::keyPressEvent(QKeyEvent *event)
{
    if (m_scans == nullptr || !m_scans->isEnd(*event))
        QDialog::keyPressEvent(event);
}

void EditDialog::rememberTexts()
{
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

QString EditDialog::firstRefusal() const
{
    const QString why = linesRefusal();
    return why.isEmpty() ? refusal() : why;
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
