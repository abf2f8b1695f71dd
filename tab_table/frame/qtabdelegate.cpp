#include "qtabdelegate.h"

#include "db.h"
#include "qmessevent.h"
#include "qqestion.h"
#include "qtab.h"
#include "qupdatebd.h"
#include "typedinput.h"

#include <QKeyEvent>
#include <QLineEdit>

namespace {
const int idColumn = 0;
const int nameColumn = 1;
const QLatin1String idEditor("editId");
const QLatin1String nameEditor("editName");
} // namespace

QTabDelegate::QTabDelegate(const QString &table, QSqlDatabase *db, QObject *parent)
    : QItemDelegate(parent), m_db(db), m_table(table), m_receiver(parent)
{
    connect(this, &QTabDelegate::SetNextEdit, this, &QTabDelegate::setNextEdit);
    connect(this, &QTabDelegate::ClrNextEdit, this, &QTabDelegate::clrNextEdit);
    connect(this, &QTabDelegate::clr, this, &QTabDelegate::clradd);
}

QWidget *QTabDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                                    const QModelIndex &index) const
{
    Q_UNUSED(option)
    postTrace(m_receiver, QStringLiteral("In QTabDelegate::createEditor"));
    if (index.column() != nameColumn && !(index.column() == idColumn && m_isAdding))
        return nullptr;
    auto *edit = new QLineEdit(parent);
    edit->setObjectName(index.column() == nameColumn ? nameEditor : idEditor);
    if (index.column() == nameColumn) {
        if (m_maxLength < 0)
            m_maxLength = QTab::GetMaxChar(m_db, m_receiver, m_table, QStringLiteral("name"));
        if (m_maxLength > 0)
            edit->setMaxLength(m_maxLength);
        edit->setAccessibleName(tr("Назва"));
    } else {
        edit->setInputMask(QStringLiteral("000000000"));
        edit->setAccessibleName(tr("Код"));
    }
    connect(edit, &QObject::destroyed, this, &QTabDelegate::esc);
    ++m_openEditors;
    return edit;
}

bool QTabDelegate::eventFilter(QObject *editor, QEvent *event)
{
    auto *edit = qobject_cast<QLineEdit *>(editor);
    if (!m_isAdding || edit == nullptr || event->type() != QEvent::KeyPress)
        return QItemDelegate::eventFilter(editor, event);
    const int key = static_cast<QKeyEvent *>(event)->key();
    if (edit->objectName() == nameEditor && key == Qt::Key_Backtab) {
        // Without storing: there need not be a name yet.
        emit closeEditor(edit, EditPreviousItem);
        return true;
    }
    if (edit->objectName() == idEditor && (key == Qt::Key_Return || key == Qt::Key_Enter)) {
        emit commitData(edit);
        emit closeEditor(edit, EditNextItem);
        return true;
    }
    return QItemDelegate::eventFilter(editor, event);
}

void QTabDelegate::setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const
{
    const auto *edit = qobject_cast<QLineEdit *>(editor);
    if (edit == nullptr)
        return;
    const QString text = edit->text().trimmed();
    if (index.column() == idColumn) {
        model->setData(index, text);
        return;
    }
    if (text.isEmpty())
        warn(editor, tr("Поле не може бути пустим."));
    else if (hasControlCharacters(text))
        warn(editor, controlCharactersRefusal(tr("Назва")));
    else if (m_isAdding)
        insertName(editor, model, index, text);
    else
        updateName(editor, model, index, text);
}

void QTabDelegate::warn(QWidget *editor, const QString &text) const
{
    QQestion::question(editor->window(), tr("Попередження."), text, true);
}

bool QTabDelegate::isTaken(QWidget *editor, const QString &name, const QString &ownId) const
{
    QString sql = QStringLiteral("SELECT id FROM ") + m_table + QStringLiteral(" WHERE name=:name");
    if (!ownId.isEmpty())
        sql += QStringLiteral(" AND id<>") + QString::number(ownId.toUInt());
    const auto other = Db(m_db, m_receiver).firstText(sql, {{QStringLiteral(":name"), name}});
    if (!other)
        return true;
    if (other->isEmpty())
        return false;
    warn(editor, tr("Такий запис вже існує в базі!"));
    return true;
}

void QTabDelegate::insertName(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index,
                              const QString &name) const
{
    if (isTaken(editor, name, QString()))
        return;
    const QModelIndex idIndex = index.sibling(index.row(), idColumn);
    const quint64 typedId = idIndex.data(Qt::EditRole).toString().toULongLong();
    const QVariant id = typedId == 0 ? QVariant(QVariant::ULongLong) : QVariant(typedId);
    const Db db(m_db, m_receiver);
    if (!db.run(QStringLiteral("INSERT INTO ") + m_table + QStringLiteral(" (id,name) VALUES(:id,:name)"),
                {{QStringLiteral(":id"), id}, {QStringLiteral(":name"), name}}))
        return;
    // LAST_INSERT_ID tells nothing about a row whose id was given.
    const auto newId = typedId == 0 ? db.lastInsertId() : std::optional<quint64>(typedId);
    if (!newId)
        return;
    model->setData(idIndex, QString::number(*newId));
    model->setData(index, name);
    QUpdateBD().update(m_table, *m_db, m_receiver);
    emit clr();
    emit SetNextEdit();
    emit update();
}

void QTabDelegate::updateName(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index,
                              const QString &name) const
{
    const QString id =
        QString::number(index.sibling(index.row(), idColumn).data(Qt::EditRole).toString().toUInt());
    if (isTaken(editor, name, id))
        return;
    if (!Db(m_db, m_receiver)
             .run(QStringLiteral("UPDATE ") + m_table + QStringLiteral(" SET name=:name WHERE id=") + id,
                  {{QStringLiteral(":name"), name}}, tr("Помилка оновлення запису.")))
        return;
    model->setData(index, name);
    QUpdateBD().update(m_table, *m_db, m_receiver);
    emit ClrNextEdit();
    emit update();
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
