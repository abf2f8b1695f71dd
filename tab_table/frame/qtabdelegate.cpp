#include "qtabdelegate.h"

#include "namestore.h"
#include "qmessevent.h"
#include "qqestion.h"
#include "qrowmodel.h"
#include "qtab.h"
#include "typedinput.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QScopedValueRollback>
#include <QTimer>

namespace {
const QLatin1String idEditor("editId");
const QLatin1String nameEditor("editName");

bool isEnter(int key)
{
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

/// A question that has closed leaves some window managers without an active window.
void takeFocus(QLineEdit *edit)
{
    edit->activateWindow();
    edit->setFocus();
}

bool leavesBy(int key)
{
    return key == Qt::Key_Tab || key == Qt::Key_Backtab || key == Qt::Key_Up || key == Qt::Key_Down ||
           key == Qt::Key_PageUp || key == Qt::Key_PageDown;
}

/// A menu, another window, a question: the focus comes back by itself.
bool comesBack(Qt::FocusReason reason)
{
    return reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason ||
           reason == Qt::MenuBarFocusReason;
}
} // namespace

QTabDelegate::QTabDelegate(const QString &table, QSqlDatabase *db, QObject *parent)
    : QItemDelegate(parent)
    , m_table(table)
    , m_receiver(parent)
    , m_tasks(db->connectionName(), parent, nullptr)
{
    connect(this, &QTabDelegate::SetNextEdit, this, &QTabDelegate::setNextEdit);
    connect(this, &QTabDelegate::ClrNextEdit, this, &QTabDelegate::clrNextEdit);
    connect(this, &QTabDelegate::clr, this, &QTabDelegate::clradd);
    connect(this, &QTabDelegate::typed, this, &QTabDelegate::store);
    connect(&m_tasks, &DbTasks::idle, this, &QTabDelegate::endWriting);
    readLength(Name, QStringLiteral("name"));
}

void QTabDelegate::readLength(int column, const QString &tableColumn)
{
    m_tasks.read(
        [table = m_table, tableColumn](const Db &db) {
            return QTab::GetMaxChar(db.connection(), db.receiver(), table, tableColumn);
        },
        [this, column](int length) {
            m_maxLengths.insert(column, length);
            if (QLineEdit *edit = openEditor(); edit != nullptr && m_edited.column() == column)
                limitLength(edit, column);
        });
}

QWidget *QTabDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                                    const QModelIndex &index) const
{
    Q_UNUSED(option)
    postTrace(m_receiver, QStringLiteral("In QTabDelegate::createEditor"));
    if (index.column() != Name && !(index.column() == Id && m_isAdding))
        return nullptr;
    auto *edit = new QLineEdit(parent);
    if (index.column() == Name) {
        edit->setObjectName(nameEditor);
        edit->setAccessibleName(tr("Назва"));
        limitLength(edit, Name);
    } else {
        edit->setObjectName(idEditor);
        edit->setAccessibleName(tr("Код"));
        edit->setInputMask(QStringLiteral("000000000"));
    }
    return takeEditor(edit, index);
}

QLineEdit *QTabDelegate::takeEditor(QLineEdit *edit, const QModelIndex &index) const
{
    connect(edit, &QObject::destroyed, this, &QTabDelegate::esc);
    ++m_openEditors;
    m_editor = edit;
    m_edited = index;
    return edit;
}

void QTabDelegate::setEditorData(QWidget *editor, const QModelIndex &index) const
{
    auto *edit = qobject_cast<QLineEdit *>(editor);
    if (edit == nullptr)
        return;
    edit->setText(beginningText(index));
    m_beginning = edit->text();
}

QString QTabDelegate::beginningText(const QModelIndex &index) const
{
    return index.data(Qt::EditRole).toString();
}

QModelIndex QTabDelegate::cellFor(const QModelIndex &index) const
{
    return index.sibling(index.row(), Name);
}

/// What was typed before the length was known is not cut.
void QTabDelegate::limitLength(QLineEdit *edit, int column) const
{
    const int length = m_maxLengths.value(column);
    if (length >= edit->text().size() && length > 0)
        edit->setMaxLength(length);
}

/// An editor that was closed is hidden until the event loop deletes it.
QLineEdit *QTabDelegate::openEditor() const
{
    return m_editor && !m_editor->isHidden() ? m_editor.data() : nullptr;
}

QModelIndex QTabDelegate::edited() const
{
    return openEditor() == nullptr ? QModelIndex() : QModelIndex(m_edited);
}

bool QTabDelegate::isUntouched(const QLineEdit *edit) const
{
    return edit->text() == (m_isAdding ? QString() : m_beginning);
}

bool QTabDelegate::isChanged() const
{
    const QString keptName = m_edited.sibling(m_edited.row(), Name).data(Qt::EditRole).toString();
    const QLineEdit *edit = openEditor();
    return edit != nullptr && (!isUntouched(edit) || (m_isAdding && !keptName.isEmpty()));
}

bool QTabDelegate::settle(const std::function<void()> &then)
{
    QLineEdit *edit = openEditor();
    return (edit == nullptr && !isWriting()) || leave(edit, {false, then});
}

bool QTabDelegate::hasTyped() const
{
    return isChanged() || !m_keys.text().isEmpty();
}

void QTabDelegate::drop()
{
    m_isAwaitingRow = false;
    m_keys.drop();
    if (QLineEdit *edit = openEditor())
        close(edit);
}

void QTabDelegate::resume()
{
    if (QLineEdit *edit = openEditor())
        takeFocus(edit);
}

/// True when the editor is closed: there was nothing to be stored. While a name is written, what was asked
/// for last comes next.
bool QTabDelegate::leave(QLineEdit *edit, const Next &next)
{
    if (m_isTelling)
        return false;
    m_next = next;
    if (isWriting())
        return false;
    if (isChanged()) {
        const QScopedValueRollback<bool> leaving(m_isLeaving, true);
        emit commitData(edit);
        return false;
    }
    m_hasNextEdit = false;
    close(edit);
    return true;
}

void QTabDelegate::close(QLineEdit *edit, EndEditHint hint)
{
    if (edit == m_editor)
        m_editor = nullptr;
    emit closeEditor(edit, hint);
}

/// When the click or the key that took the focus has been worked off: the answer may be a question.
void QTabDelegate::leaveLater(QLineEdit *edit)
{
    QTimer::singleShot(0, this, [this, left = QPointer<QLineEdit>(edit)] {
        if (!left || left != openEditor() || left->hasFocus())
            return;
        if (!isWriting()) {
            leave(left);
            return;
        }
        m_next.isNewRow = false;
        m_dropped = droppedWords();
    });
}

bool QTabDelegate::eventFilter(QObject *editor, QEvent *event)
{
    auto *edit = qobject_cast<QLineEdit *>(editor);
    if (edit == nullptr)
        return QItemDelegate::eventFilter(editor, event);
    if (event->type() == QEvent::FocusOut) {
        if (!m_isTelling && !comesBack(static_cast<QFocusEvent *>(event)->reason()))
            leaveLater(edit);
        return false;
    }
    if (event->type() != QEvent::KeyPress)
        return QItemDelegate::eventFilter(editor, event);
    if (isWriting()) {
        keepKey(static_cast<const QKeyEvent &>(*event));
        return true;
    }
    const int key = static_cast<QKeyEvent *>(event)->key();
    return edit->objectName() == idEditor ? idKey(edit, key) : nameKey(edit, key);
}

/// What was asked for last comes next: the keys are for that, also those that end a name.
void QTabDelegate::keepKey(const QKeyEvent &key)
{
    const bool goesOn = m_next.then || (m_next.isNewRow && m_draft.isNew);
    if (!goesOn)
        m_keys.keep(key);
    else if (!m_keys.keepEntry(key) && key.key() == Qt::Key_Escape && m_keys.text().isEmpty())
        m_next = {};
}

void QTabDelegate::awaitRow()
{
    m_isAwaitingRow = true;
}

bool QTabDelegate::keepsForRow(const QKeyEvent &key)
{
    if (m_isAwaitingRow && !m_keys.keepEntry(key) && key.key() == Qt::Key_Escape)
        m_isAwaitingRow = false;
    else
        return m_isAwaitingRow;
    return true;
}

void QTabDelegate::giveUpRow(QWidget *window)
{
    m_isAwaitingRow = false;
    m_window = window;
    refuse(droppedWords());
}

QString QTabDelegate::droppedWords()
{
    const QString text = m_keys.text();
    m_keys.drop();
    return text.isEmpty() ? QString() : tr("Не збережено набране далі: «%1».").arg(text);
}

bool QTabDelegate::nameKey(QLineEdit *edit, int key)
{
    if (isEnter(key)) {
        leave(edit, {true, {}});
        return true;
    }
    if (key == Qt::Key_Backtab && m_isAdding) {
        const QScopedValueRollback<bool> keeping(m_isKeeping, true);
        emit commitData(edit);
        close(edit, EditPreviousItem);
        return true;
    }
    return endingKey(edit, key);
}

bool QTabDelegate::idKey(QLineEdit *edit, int key)
{
    if (!isEnter(key) && key != Qt::Key_Tab)
        return endingKey(edit, key);
    emit commitData(edit);
    close(edit, EditNextItem);
    return true;
}

/// What ends the editing of either cell.
bool QTabDelegate::endingKey(QLineEdit *edit, int key)
{
    if (leavesBy(key))
        leave(edit);
    else if (key == Qt::Key_Escape)
        close(edit);
    else
        return false;
    return true;
}

void QTabDelegate::setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const
{
    auto *edit = qobject_cast<QLineEdit *>(editor);
    if (edit == nullptr || isWriting())
        return;
    // The list itself stores when another row becomes the current one.
    if (edit == m_editor && !m_isKeeping && index.column() != Id && !isChanged())
        return;
    const QString text = typedText(*edit, index.column());
    const QModelIndex name = index.sibling(index.row(), Name);
    if (index.column() == Id || m_isKeeping)
        model->setData(index, m_isKeeping ? edit->text() : text);
    else
        emit typed(model, index, text);
    if (index.column() == Id && m_isLeaving)
        emit typed(model, name, name.data(Qt::EditRole).toString().trimmed());
    else if (!m_isLeaving)
        emit ClrNextEdit();
}

QString QTabDelegate::typedText(const QLineEdit &edit, int column) const
{
    Q_UNUSED(column)
    return edit.text().trimmed();
}

QString QTabDelegate::refusal(int column, const QString &text, QString *value) const
{
    Q_UNUSED(column)
    *value = text;
    if (text.isEmpty())
        return tr("Поле не може бути пустим.");
    return hasControlCharacters(text) ? controlCharactersRefusal(tr("Назва")) : QString();
}

bool QTabDelegate::isConfirmed(QWidget *window, const QModelIndex &cell, const QString &value) const
{
    Q_UNUSED(window)
    Q_UNUSED(cell)
    Q_UNUSED(value)
    return true;
}

CellWriter QTabDelegate::writer() const
{
    return &writeName;
}

void QTabDelegate::store(QAbstractItemModel *model, const QModelIndex &cell, const QString &text)
{
    m_model = model;
    m_window = m_editor ? m_editor->window() : nullptr;
    m_typed = text;
    QString value;
    const QString why = refusal(cell.column(), text, &value);
    const CellDraft draft = draftOf(cell, value);
    m_written = cell;
    if (!why.isEmpty())
        refuse(why);
    else if (asks(cell, value))
        write(draft);
}

/// False when the user goes on editing, or the list has gone meanwhile.
bool QTabDelegate::asks(const QModelIndex &cell, const QString &value)
{
    const QPointer<QTabDelegate> open = this;
    m_isTelling = true;
    const bool isWanted = isConfirmed(m_window, cell, value);
    if (!open)
        return false;
    m_isTelling = false;
    if (!isWanted)
        refuse({});
    return isWanted;
}

CellDraft QTabDelegate::draftOf(const QModelIndex &cell, const QString &value) const
{
    return {m_table,
            cell.column(),
            cell.sibling(cell.row(), Id).data(QRowModel::StoredRole).toString(),
            m_isAdding,
            cell.data(QRowModel::StoredRole).toString(),
            value,
            m_unclear == value,
            m_lowestNewId};
}

void QTabDelegate::write(const CellDraft &draft)
{
    m_draft = draft;
    m_unclear.clear();
    m_tasks.write([draft, write = writer()](const Db &db) { return write(db, draft); },
                  [this](const CellWritten &written) { take(written); });
    if (!isWriting())
        return;
    if (QLineEdit *edit = openEditor())
        edit->setReadOnly(true);
    emit writingBegun();
}

void QTabDelegate::endWriting()
{
    if (QLineEdit *edit = openEditor())
        edit->setReadOnly(false);
    emit writingEnded();
}

void QTabDelegate::take(const CellWritten &written)
{
    if (written.outcome == CellWritten::Written)
        takeStored(written);
    else if (written.outcome == CellWritten::GivenUp)
        giveUp();
    else
        takeRefused(written);
}

void QTabDelegate::takeStored(const CellWritten &written)
{
    const bool isInList = m_written.isValid();
    if (isInList) {
        m_model->setData(m_written.sibling(m_written.row(), Id), written.id);
        m_model->setData(m_written, m_draft.value);
    }
    if (m_draft.isNew) {
        emit clr();
        emit SetNextEdit();
        emit added(written.id, m_draft.value);
    } else {
        emit ClrNextEdit();
    }
    emit update();
    QLineEdit *edit = openEditor();
    m_hasNextEdit = m_hasNextEdit && m_next.isNewRow && edit != nullptr;
    m_isAwaitingRow = m_hasNextEdit;
    if (edit != nullptr)
        close(edit);
    if (!isInList)
        emit storedUnseen();
    goOn();
}

void QTabDelegate::goOn()
{
    const QPointer<QTabDelegate> open = this;
    const auto then = std::exchange(m_next, {}).then;
    if (then)
        then();
    if (open && !m_dropped.isEmpty())
        refuse(std::exchange(m_dropped, {}));
    if (open && !m_hasNextEdit && !m_isAwaitingRow)
        giveKeys();
}

/// Names that were typed go into a name's editor or are told to be lost; the list takes what finds its way.
void QTabDelegate::giveKeys()
{
    const QPointer<QTabDelegate> open = this;
    const bool areNames = std::exchange(m_isAwaitingRow, false) || m_draft.isNew;
    const QLineEdit *edit = openEditor();
    if (edit != nullptr)
        m_keys.giveTo(edit->window());
    else if (m_window && !areNames)
        m_keys.giveTo(m_window);
    if (!open || isWriting())
        return;
    const QString dropped = droppedWords();
    if (!dropped.isEmpty())
        refuse(dropped);
}

void QTabDelegate::giveUp()
{
    m_next = {};
    QStringList words = {std::exchange(m_dropped, {}), droppedWords()};
    words.removeAll(QString());
    drop();
    if (!words.isEmpty())
        refuse(words.join(QLatin1Char('\n')));
}

void QTabDelegate::takeRefused(const CellWritten &written)
{
    m_next = {};
    if (written.outcome == CellWritten::Failed)
        m_unclear = m_draft.value;
    QStringList words = {written.why, std::exchange(m_dropped, {}), droppedWords()};
    words.removeAll(QString());
    if (written.theirs && m_written.isValid())
        m_model->setData(m_written, *written.theirs);
    reopen();
    refuse(words.join(QLatin1Char('\n')));
}

/// The name stands in its editor as it was typed: the list may have closed that meanwhile.
void QTabDelegate::reopen()
{
    if (openEditor() == nullptr && m_written.isValid())
        emit editAgain(m_written);
    QLineEdit *edit = openEditor();
    if (edit != nullptr && edit->objectName() != idEditor && typedText(*edit, m_written.column()) != m_typed)
        edit->setText(m_typed);
    if (edit == nullptr && m_draft.isNew)
        emit delnewrecord();
}

/// An empty reason: it was told already.
void QTabDelegate::refuse(const QString &why)
{
    const QPointer<QTabDelegate> open = this;
    const QPointer<QLineEdit> edit = openEditor();
    if (!why.isEmpty()) {
        m_isTelling = true;
        QQestion::question(m_window, tr("Попередження."), why, true);
        if (!open)
            return;
        m_isTelling = false;
    }
    if (edit)
        takeFocus(edit);
}

void QTabDelegate::esc(QObject *editor)
{
    disconnect(editor, &QObject::destroyed, this, &QTabDelegate::esc);
    if (--m_openEditors > 0 || isWriting())
        return;
    const bool wasStored = !m_isAdding;
    if (m_hasNextEdit) {
        m_hasNextEdit = false;
        m_isAdding = true;
        emit extNextEdit();
    } else if (!wasStored) {
        m_isAdding = false;
        emit delnewrecord();
    }
}

void QTabDelegate::clradd()
{
    m_isAdding = false;
}

void QTabDelegate::setNextEdit()
{
    m_hasNextEdit = true;
}

void QTabDelegate::clrNextEdit()
{
    m_hasNextEdit = false;
}
