#include "messagelist.h"

#include "messagewords.h"
#include "qmessevent.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {
enum ColumnOf { Kind, Time, Words };
const int messageRole = Qt::UserRole;
/// Of one message: a file that somebody imports may tell of each of its lines.
const int longestText = 20000;
const int edge = 4;

/// One message, or several that are the same.
struct Told
{
    int kind = QMessEvent::Information;
    QString words;
    QString details;
    QString place;
    QDateTime first;
    QDateTime last;
    int times = 1;
};

QString kindName(int kind)
{
    switch (kind) {
    case QMessEvent::Critical:
        return MessageList::tr("Помилка");
    case QMessEvent::Warning:
        return MessageList::tr("Попередження");
    default:
        return MessageList::tr("Повідомлення");
    }
}

QStyle::StandardPixmap kindSign(int kind)
{
    switch (kind) {
    case QMessEvent::Critical:
        return QStyle::SP_MessageBoxCritical;
    case QMessEvent::Warning:
        return QStyle::SP_MessageBoxWarning;
    default:
        return QStyle::SP_MessageBoxInformation;
    }
}

QString placeOf(const QMessEvent &message)
{
    return message.file().isEmpty()
               ? QString()
               : MessageList::tr("Файл: %1, рядок: %2").arg(message.file(), message.line());
}

QString timeText(const QDateTime &time)
{
    return time.toString(QStringLiteral("dd-MM-yy hh:mm:ss"));
}

QString timesText(const Told &told)
{
    return told.times < 2 ? QString()
                          : MessageList::tr("разів: %1, уперше %2").arg(told.times).arg(timeText(told.first));
}

/// What is folded away: the words where one line does not hold them, and the rest.
QString foldedText(const Told &told)
{
    QStringList parts = {told.words, timesText(told), told.details, told.place};
    if (!told.words.contains(QLatin1Char('\n')))
        parts.first().clear();
    parts.removeAll(QString());
    return parts.join(QLatin1Char('\n'));
}

QString copiedText(const Told &told)
{
    QStringList parts = {timeText(told.last) + QStringLiteral("  ") + kindName(told.kind), timesText(told),
                         told.words, told.details, told.place};
    parts.removeAll(QString());
    return parts.join(QLatin1Char('\n')) + QLatin1Char('\n');
}
} // namespace

Q_DECLARE_METATYPE(Told)

MessageList::MessageList(QWidget *window)
    : QDockWidget(tr("Повідомлення"), window)
    , m_tree(new QTreeWidget(this))
    , m_errorsOnly(new QCheckBox(tr("Лише помилки"), this))
    , m_state(new QLabel(this))
    , m_button(new QPushButton(window))
{
    setObjectName(QStringLiteral("messages"));
    setFeatures(QDockWidget::DockWidgetClosable);
    build();
    buildButton(window);
    showState();
    hide();
}

void MessageList::build()
{
    m_tree->setObjectName(QStringLiteral("messageTree"));
    m_tree->setAccessibleName(windowTitle());
    m_tree->setHeaderLabels({tr("Що це"), tr("Час"), tr("Повідомлення")});
    m_tree->setWordWrap(true);
    m_tree->setAllColumnsShowFocus(true);
    m_tree->setAlternatingRowColors(true);
    m_tree->header()->setStretchLastSection(true);
    const int digits = fontMetrics().horizontalAdvance(QLatin1Char('0'));
    m_tree->setColumnWidth(Kind, 22 * digits);
    m_tree->setColumnWidth(Time, 20 * digits);
    m_tree->installEventFilter(this);
    auto *copy = new QAction(tr("Копіювати повідомлення"), m_tree);
    copy->setShortcut(QKeySequence::Copy);
    copy->setShortcutContext(Qt::WidgetShortcut);
    connect(copy, &QAction::triggered, this, &MessageList::copyCurrent);
    m_tree->addAction(copy);
    m_tree->setContextMenuPolicy(Qt::ActionsContextMenu);
    auto *content = new QWidget(this);
    auto *rows = new QVBoxLayout(content);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->addWidget(m_tree, 1);
    rows->addWidget(buildButtons());
    setWidget(content);
    m_tree->setMinimumHeight(3 * fontMetrics().lineSpacing());
}

QWidget *MessageList::buildButtons()
{
    auto *bar = new QWidget(this);
    auto *line = new QHBoxLayout(bar);
    line->setContentsMargins(edge, 0, edge, edge);
    m_errorsOnly->setObjectName(QStringLiteral("chErrorsOnly"));
    m_state->setObjectName(QStringLiteral("labelMessages"));
    line->addWidget(m_errorsOnly);
    line->addWidget(m_state, 1);
    connect(m_errorsOnly, &QCheckBox::toggled, this, &MessageList::filter);
    const auto add = [=](const QString &name, const QString &text, void (MessageList::*act)()) {
        auto *button = new QPushButton(text, bar);
        button->setObjectName(name);
        connect(button, &QPushButton::clicked, this, act);
        line->addWidget(button);
    };
    add(QStringLiteral("pbCopyMessage"), tr("Копіювати"), &MessageList::copyCurrent);
    add(QStringLiteral("pbCopyMessages"), tr("Копіювати все"), &MessageList::copyAll);
    return bar;
}

void MessageList::buildButton(QWidget *window)
{
    m_button->setObjectName(QStringLiteral("pbMessages"));
    m_button->setFlat(true);
    m_button->setFocusPolicy(Qt::TabFocus);
    // No higher than its neighbours: a small screen has no line to spare.
    m_button->setMaximumHeight(fontMetrics().height() + 2);
    m_button->setShortcut(Qt::CTRL + Qt::Key_M);
    connect(m_button, &QPushButton::clicked, this, &MessageList::toggle);
    connect(qApp, &QApplication::focusChanged, this, [this, window](QWidget *before, QWidget *now) {
        const bool isFromOutside =
            before != nullptr && before->window() == window && before != m_button && !isAncestorOf(before);
        if (isFromOutside && now != nullptr && (now == m_button || isAncestorOf(now)))
            m_before = before;
    });
    showCount();
}

void MessageList::add(const QMessEvent &message)
{
    if (message.kind() > QMessEvent::Information || message.text().trimmed().isEmpty())
        return;
    const QString key = QString::number(message.kind()) + message.location() + message.text();
    const QDateTime now = QDateTime::currentDateTime();
    QTreeWidgetItem *item = m_items.value(key);
    const bool isExpanded = item != nullptr && item->isExpanded();
    const bool isCurrent = item != nullptr && item == m_tree->currentItem();
    Told told;
    if (item == nullptr) {
        const MessageWords plain = plainMessage(message.text().left(longestText));
        told = {message.kind(), plain.words.trimmed(), plain.details, placeOf(message), now, now, 1};
        item = new QTreeWidgetItem;
        item->addChild(new QTreeWidgetItem);
        item->setData(Words, messageRole, key);
    } else {
        m_tree->takeTopLevelItem(m_tree->indexOfTopLevelItem(item));
        told = item->data(Kind, messageRole).value<Told>();
        ++told.times;
        told.last = now;
    }
    item->setData(Kind, messageRole, QVariant::fromValue(told));
    m_items.insert(key, item);
    m_tree->insertTopLevelItem(0, item);
    item->setExpanded(isExpanded);
    if (isCurrent)
        m_tree->setCurrentItem(item);
    showItem(item);
    dropOldest();
    count(message.kind());
}

void MessageList::showItem(QTreeWidgetItem *item)
{
    const Told told = item->data(Kind, messageRole).value<Told>();
    const QString times = told.times > 1 ? tr(" (разів: %1)").arg(told.times) : QString();
    item->setIcon(Kind, style()->standardIcon(kindSign(told.kind)));
    item->setText(Kind, kindName(told.kind));
    item->setText(Time, timeText(told.last));
    item->setText(Words, told.words.section(QLatin1Char('\n'), 0, 0) + times);
    item->setToolTip(Words, told.words);
    QTreeWidgetItem *folded = item->child(0);
    folded->setText(Kind, foldedText(told));
    folded->setFirstColumnSpanned(true);
    item->setHidden(m_errorsOnly->isChecked() && told.kind != QMessEvent::Critical);
}

void MessageList::dropOldest()
{
    while (m_tree->topLevelItemCount() > most) {
        QTreeWidgetItem *oldest = m_tree->takeTopLevelItem(m_tree->topLevelItemCount() - 1);
        m_items.remove(oldest->data(Words, messageRole).toString());
        delete oldest;
    }
    showState();
}

void MessageList::filter()
{
    for (int row = 0; row < m_tree->topLevelItemCount(); ++row)
        showItem(m_tree->topLevelItem(row));
    showState();
}

bool MessageList::isSeen() const
{
    return isVisible() && window()->isActiveWindow();
}

void MessageList::count(int kind)
{
    if (isSeen())
        return;
    ++m_new;
    m_newErrors += kind == QMessEvent::Critical ? 1 : 0;
    showCount();
}

void MessageList::see()
{
    m_new = 0;
    m_newErrors = 0;
    showCount();
}

/// New errors carry a sign of their own, and a frame.
void MessageList::showCount()
{
    const QString key = m_button->shortcut().toString(QKeySequence::NativeText);
    const QKeySequence shortcut = m_button->shortcut();
    m_button->setText(m_new == 0 ? tr("Повідомлення") : tr("Повідомлення: %1").arg(m_new));
    // A new text takes the key away.
    m_button->setShortcut(shortcut);
    m_button->setIcon(m_newErrors == 0 ? QIcon() : style()->standardIcon(QStyle::SP_MessageBoxCritical));
    m_button->setFlat(m_newErrors == 0);
    const QString words = m_new == 0
                              ? tr("Нових повідомлень немає")
                              : tr("Нових повідомлень: %1, з них помилок: %2").arg(m_new).arg(m_newErrors);
    m_button->setAccessibleName(words);
    m_button->setToolTip(words + QStringLiteral(" (%1)").arg(key));
}

void MessageList::showState()
{
    const int all = m_tree->topLevelItemCount();
    m_state->setText(all == 0 ? tr("У цьому сеансі повідомлень не було.")
                              : tr("Показано найновіші, усього: %1").arg(all));
}

bool MessageList::isInside() const
{
    const QWidget *focus = QApplication::focusWidget();
    return focus != nullptr && isAncestorOf(focus);
}

void MessageList::toggle()
{
    if (isVisible() && isInside()) {
        close();
        return;
    }
    show();
    see();
    if (m_tree->currentItem() == nullptr)
        m_tree->setCurrentItem(m_tree->topLevelItem(0));
    m_tree->setFocus(Qt::ShortcutFocusReason);
}

void MessageList::showEvent(QShowEvent *event)
{
    QDockWidget::showEvent(event);
    see();
}

/// The keyboard goes back to where it was.
void MessageList::hideEvent(QHideEvent *event)
{
    const bool wasInside = isInside() || QApplication::focusWidget() == nullptr;
    QDockWidget::hideEvent(event);
    if (wasInside && m_before != nullptr && m_before->isVisible())
        m_before->setFocus();
}

bool MessageList::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape) {
        close();
        return true;
    }
    return QDockWidget::eventFilter(watched, event);
}

void MessageList::copyCurrent()
{
    const QTreeWidgetItem *item = m_tree->currentItem();
    if (item != nullptr && item->parent() != nullptr)
        item = item->parent();
    if (item != nullptr)
        QApplication::clipboard()->setText(copiedText(item->data(Kind, messageRole).value<Told>()));
}

/// As they are shown: the filter counts.
void MessageList::copyAll()
{
    QStringList texts;
    for (int row = 0; row < m_tree->topLevelItemCount(); ++row) {
        const QTreeWidgetItem *item = m_tree->topLevelItem(row);
        if (!item->isHidden())
            texts.append(copiedText(item->data(Kind, messageRole).value<Told>()));
    }
    QApplication::clipboard()->setText(texts.join(QLatin1Char('\n')));
}
