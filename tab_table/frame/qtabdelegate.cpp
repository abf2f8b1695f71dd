#include "qtabdelegate.h"

#include "db.h"
#include "qmessevent.h"
#include "qqestion.h"
#include "qtab.h"
#include "qupdatebd.h"
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
    : QItemDelegate(parent), m_db(db), m_table(table), m_receiver(parent)
{
    connect(this, &QTabDelegate::SetNextEdit, this, &QTabDelegate::setNextEdit);
    connect(this, &QTabDelegate::ClrNextEdit, this, &QTabDelegate::clrNextEdit);
    connect(this, &QTabDelegate::clr, this, &QTabDelegate::clradd);
}

Db QTabDelegate::db() const
{
    return Db(m_db, m_receiver);
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
        limitLength(edit);
    } else {
        edit->setObjectName(idEditor);
        edit->setAccessibleName(tr("Код"));
        edit->setInputMask(QStringLiteral("000000000"));
    }
    connect(edit, &QObject::destroyed, this, &QTabDelegate::esc);
    ++m_openEditors;
    m_editor = edit;
    m_edited = index;
    return edit;
}

void QTabDelegate::limitLength(QLineEdit *edit) const
{
    if (m_maxLength < 0)
        m_maxLength = QTab::GetMaxChar(m_db, m_receiver, m_table, QStringLiteral("name"));
    if (m_maxLength > 0)
        edit->setMaxLength(m_maxLength);
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
    return edit->text() == (m_isAdding ? QString() : m_edited.data(Qt::EditRole).toString());
}

bool QTabDelegate::isChanged() const
{
    const QString keptName = m_edited.sibling(m_edited.row(), Name).data(Qt::EditRole).toString();
    const QLineEdit *edit = openEditor();
    return edit != nullptr && (!isUntouched(edit) || (m_isAdding && !keptName.isEmpty()));
}

bool QTabDelegate::settle()
{
    QLineEdit *edit = openEditor();
    return edit == nullptr || leave(edit);
}

void QTabDelegate::drop()
{
    if (QLineEdit *edit = openEditor())
        close(edit);
}

void QTabDelegate::resume()
{
    if (QLineEdit *edit = openEditor())
        takeFocus(edit);
}

/// False when what is typed was refused: it stays in its editor.
bool QTabDelegate::leave(QLineEdit *edit, bool goesOn)
{
    if (m_isTelling)
        return false;
    const QPointer<QLineEdit> open = edit;
    m_isRefused = false;
    if (isChanged()) {
        const QScopedValueRollback<bool> leaving(m_isLeaving, true);
        emit commitData(edit);
    }
    if (m_isRefused)
        return false;
    m_hasNextEdit = m_hasNextEdit && goesOn;
    if (open)
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
        if (left && left == openEditor() && !left->hasFocus())
            leave(left);
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
    const int key = static_cast<QKeyEvent *>(event)->key();
    return edit->objectName() == nameEditor ? nameKey(edit, key) : idKey(edit, key);
}

bool QTabDelegate::nameKey(QLineEdit *edit, int key)
{
    if (isEnter(key)) {
        leave(edit, true);
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
    if (edit == nullptr)
        return;
    // The list itself stores when another row becomes the current one.
    if (edit == m_editor && !m_isKeeping && index.column() == Name && !isChanged())
        return;
    const QString text = edit->text().trimmed();
    const QModelIndex name = index.sibling(index.row(), Name);
    if (index.column() == Id || m_isKeeping)
        model->setData(index, m_isKeeping ? edit->text() : text);
    else
        store(edit, model, index, text);
    if (index.column() == Id && m_isLeaving)
        store(edit, model, name, name.data(Qt::EditRole).toString().trimmed());
    else if (!m_isLeaving)
        emit ClrNextEdit();
}

void QTabDelegate::store(QLineEdit *edit, QAbstractItemModel *model, const QModelIndex &name,
                         const QString &text) const
{
    m_isRefused = true;
    QString why;
    if (text.isEmpty())
        why = tr("Поле не може бути пустим.");
    else if (hasControlCharacters(text))
        why = controlCharactersRefusal(tr("Назва"));
    else
        why = m_isAdding ? insertName(model, name, text) : updateName(model, name, text);
    refuse(edit, why);
}

/// An empty reason: it was told already, or there is none.
void QTabDelegate::refuse(QLineEdit *edit, const QString &why) const
{
    const QPointer<QLineEdit> open = edit;
    if (!why.isEmpty()) {
        const QScopedValueRollback<bool> telling(m_isTelling, true);
        QQestion::question(edit->window(), tr("Попередження."), why, true);
    }
    if (m_isRefused && open)
        takeFocus(open);
}

/// True also when nobody knows (reported).
bool QTabDelegate::isTaken(const QString &condition, const QString &value, QString *why) const
{
    const auto other =
        db().firstText(QStringLiteral("SELECT id FROM ") + m_table + QStringLiteral(" WHERE ") + condition,
                       {{QStringLiteral(":value"), value}});
    if (other && !other->isEmpty())
        *why = tr("Такий запис вже існує в базі!");
    return !other || !other->isEmpty();
}

/// Why not, in words; empty when it was stored, or when the failure was reported.
QString QTabDelegate::insertName(QAbstractItemModel *model, const QModelIndex &index,
                                 const QString &name) const
{
    QString why;
    const QModelIndex idIndex = index.sibling(index.row(), Id);
    const QString typedId = idIndex.data(Qt::EditRole).toString();
    if (isTaken(QStringLiteral("name=:value"), name, &why))
        return why;
    if (!typedId.isEmpty() && isTaken(QStringLiteral("id=:value"), typedId, &why))
        return why.isEmpty()
                   ? why
                   : tr("Код %1 вже зайнятий. Введіть інший або залиште його порожнім.").arg(typedId);
    const QVariant id = typedId.toUInt() == 0 ? QVariant(QVariant::UInt) : QVariant(typedId.toUInt());
    if (!db().run(QStringLiteral("INSERT INTO ") + m_table + QStringLiteral(" (id,name) VALUES(:id,:name)"),
                  {{QStringLiteral(":id"), id}, {QStringLiteral(":name"), name}}))
        return QString();
    // LAST_INSERT_ID tells nothing about a row whose id was given.
    const auto newId = id.isNull() ? db().lastInsertId() : std::optional<quint64>(typedId.toUInt());
    if (!newId)
        return QString();
    model->setData(idIndex, QString::number(*newId));
    model->setData(index, name);
    m_isRefused = false;
    QUpdateBD().update(m_table, *m_db, m_receiver);
    emit clr();
    emit SetNextEdit();
    emit update();
    return QString();
}

QString QTabDelegate::updateName(QAbstractItemModel *model, const QModelIndex &index,
                                 const QString &name) const
{
    QString why;
    const QString id = QString::number(index.sibling(index.row(), Id).data(Qt::EditRole).toString().toUInt());
    if (isTaken(QStringLiteral("name=:value AND id<>") + id, name, &why))
        return why;
    const auto now =
        db().firstText(QStringLiteral("SELECT name FROM ") + m_table + QStringLiteral(" WHERE id=") + id);
    if (!now)
        return QString();
    if (*now != index.data(Qt::EditRole).toString()) {
        model->setData(index, *now);
        m_editor->setText(name);
        return tr("Поки ви редагували, назву змінили на «%1». Натисніть Enter ще раз, щоб записати свою, або Esc, "
                  "щоб залишити цю.")
            .arg(*now);
    }
    if (!db().run(QStringLiteral("UPDATE ") + m_table + QStringLiteral(" SET name=:name WHERE id=") + id,
                  {{QStringLiteral(":name"), name}}, tr("Помилка оновлення запису.")))
        return QString();
    model->setData(index, name);
    m_isRefused = false;
    QUpdateBD().update(m_table, *m_db, m_receiver);
    emit ClrNextEdit();
    emit update();
    return QString();
}

void QTabDelegate::esc(QObject *editor)
{
    disconnect(editor, &QObject::destroyed, this, &QTabDelegate::esc);
    if (--m_openEditors > 0)
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
