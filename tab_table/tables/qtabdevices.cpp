#include "qtabdevices.h"

#include "listpane.h"
#include "namestore.h"
#include "qntableview.h"
#include "qrowmodel.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTimer>
#include <QVBoxLayout>
#include <utility>

namespace {
DeviceColumn columnOf(int column)
{
    return static_cast<DeviceColumn>(column);
}

QString notSet()
{
    return qtabdevices::tr("не вказано");
}

bool takesBy(int key)
{
    return key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Tab;
}

/// A line of which one of some texts is chosen: all of them stand below it in a list, what is typed narrows
/// it.
class ChoiceEdit : public QLineEdit
{
public:
    ChoiceEdit(const QStringList &choices, QWidget *parent)
        : QLineEdit(parent), m_completer(new QCompleter(choices, this))
    {
        m_completer->setCaseSensitivity(Qt::CaseInsensitive);
        m_completer->setFilterMode(Qt::MatchContains);
        m_completer->setMaxVisibleItems(choices.size());
        setCompleter(m_completer);
        // Behind the filter of the completer itself, and so before it.
        m_completer->popup()->installEventFilter(this);
        m_completer->popup()->setObjectName(QStringLiteral("viewChoices"));
        connect(m_completer, qOverload<const QString &>(&QCompleter::activated), this, &ChoiceEdit::store,
                Qt::QueuedConnection);
        QTimer::singleShot(0, this, &ChoiceEdit::offerAll);
    }

    void offerAll()
    {
        if (!hasFocus() || isReadOnly())
            return;
        m_completer->setCompletionPrefix(QString());
        m_completer->complete();
    }

    /// The current entry of the open list, else the first one that fits what was typed.
    void takeOffered()
    {
        const QModelIndex current = m_completer->popup()->currentIndex();
        if (m_completer->popup()->isVisible() && current.isValid())
            setText(current.data().toString());
        else if (isModified() && !text().trimmed().isEmpty() && m_completer->completionCount() > 0)
            setText(m_completer->currentCompletion());
    }

protected:
    bool eventFilter(QObject *popup, QEvent *event) override
    {
        if (event->type() != QEvent::KeyPress)
            return QLineEdit::eventFilter(popup, event);
        const int key = static_cast<QKeyEvent *>(event)->key();
        if (!takesBy(key) && key != Qt::Key_Escape)
            return false;
        if (takesBy(key))
            takeOffered();
        m_completer->popup()->hide();
        // To whoever edits the cell: one key is enough.
        QCoreApplication::sendEvent(this, event);
        return true;
    }

private:
    /// What was clicked on is chosen.
    void store()
    {
        QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
        QCoreApplication::sendEvent(this, &enter);
    }

    QCompleter *m_completer;
};
} // namespace

QTabDevicesDelegate::QTabDevicesDelegate(QSqlDatabase *db, QObject *parent)
    : QTabDelegate(QStringLiteral("devices"), db, parent), m_typeTasks(db->connectionName(), parent, nullptr)
{
    m_typeTasks.read(&readDeviceTypes, [this](const std::optional<QStringList> &types) { m_types = types; });
}

QStringList QTabDevicesDelegate::choices() const
{
    return m_types.value_or(QStringList()) + QStringList(notSet());
}

QWidget *QTabDevicesDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                                           const QModelIndex &index) const
{
    if (columnOf(index.column()) != DeviceColumn::Type)
        return QTabDelegate::createEditor(parent, option, index);
    auto *edit = new ChoiceEdit(choices(), parent);
    edit->setObjectName(QStringLiteral("editType"));
    edit->setAccessibleName(index.model()->headerData(index.column(), Qt::Horizontal).toString());
    return takeEditor(edit, index);
}

QModelIndex QTabDevicesDelegate::cellFor(const QModelIndex &index) const
{
    return columnOf(index.column()) == DeviceColumn::Type ? index : QTabDelegate::cellFor(index);
}

QString QTabDevicesDelegate::typedText(const QLineEdit &edit, int column) const
{
    const QString text = QTabDelegate::typedText(edit, column);
    return columnOf(column) == DeviceColumn::Type && text == notSet() ? QString() : text;
}

/// Types that were not read yet are judged by the writer.
QString QTabDevicesDelegate::refusal(int column, const QString &text, QString *value) const
{
    if (columnOf(column) != DeviceColumn::Type)
        return QTabDelegate::refusal(column, text, value);
    *value = text;
    return m_types ? deviceTypeRefusal(*m_types, text) : QString();
}

CellWriter QTabDevicesDelegate::writer() const
{
    return [](const Db &db, const CellDraft &draft) {
        return columnOf(draft.column) == DeviceColumn::Type ? writeDeviceType(db, draft)
                                                            : writeName(db, draft);
    };
}

bool QTabDevicesDelegate::eventFilter(QObject *editor, QEvent *event)
{
    auto *choice =
        event->type() == QEvent::KeyPress && !isWriting() ? dynamic_cast<ChoiceEdit *>(editor) : nullptr;
    const int key = choice != nullptr ? static_cast<QKeyEvent *>(event)->key() : 0;
    if (key == Qt::Key_Down || key == Qt::Key_F4) {
        choice->offerAll();
        return true;
    }
    // Keys that were typed ahead come before the list is open.
    if (choice != nullptr && takesBy(key))
        choice->takeOffered();
    return QTabDelegate::eventFilter(editor, event);
}

qtabdevices::qtabdevices(QSqlDatabase *db, QLoadedUser *user, QObject *receiver, setting *set,
                         QWidget *parent)
    : QTab(db, user, receiver, set, parent, new QTabDevicesDelegate(db, receiver), new QVBoxLayout)
{
    table = QStringLiteral("devices");
    query = QStringLiteral("SELECT devices.id,devices.name,type_device.name FROM devices LEFT JOIN "
                           "type_device ON devices.id_type_device=type_device.id");
    setColumns({{QString(), 5, &asNumber}, {tr("Назва пристрою"), 40}, {tr("Тип пристрою"), 16}});
    model()->setHeaderData(static_cast<int>(DeviceColumn::Id), Qt::Horizontal, tr("Код"), Qt::ToolTipRole);
    connect(inlineEditor(), &QTabDelegate::SetNextEdit, this, &qtabdevices::noteStored);
    addSearch(QStringLiteral("(devices.name LIKE %1 OR type_device.name LIKE %1)"),
              tr("назва або тип пристрою"));
    ShowData();
}

void qtabdevices::noteStored()
{
    m_withoutType = view()->currentIndex().siblingAtColumn(static_cast<int>(DeviceColumn::Type));
}

void qtabdevices::Add()
{
    const QModelIndex next = std::exchange(m_withoutType, QPersistentModelIndex());
    if (!inlineEditor()->isAdding() || !next.isValid())
        return QTab::Add();
    inlineEditor()->stopAdding();
    Edit(next);
}
