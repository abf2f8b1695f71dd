#include "listfilter.h"

#include "listpane.h"
#include "narrowbar.h"
#include "typingpause.h"

#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QShortcut>
#include <QSignalBlocker>
#include <QVBoxLayout>

ListFilter::ListFilter(ListPane *list, QWidget *tab) : QObject(tab), m_list(list), m_tab(tab) {}

ListFilter::~ListFilter()
{
    // The search field is left on the way out.
    delete m_typing;
}

QVBoxLayout *ListFilter::rows() const
{
    return static_cast<QVBoxLayout *>(m_tab->layout());
}

QWidget *ListFilter::addBar()
{
    m_bar = new QWidget(m_tab);
    m_bar->setObjectName(QStringLiteral("filterBar"));
    rows()->insertWidget(0, m_bar);
    return m_bar;
}

QLineEdit *ListFilter::addSearchBar(const QString &what)
{
    QWidget *bar = addBar();
    auto *line = new QHBoxLayout(bar);
    line->setContentsMargins(0, 0, 0, 0);
    auto *label = new QLabel(tr("По&шук:"), bar);
    auto *field = new QLineEdit(bar);
    field->setObjectName(QStringLiteral("leSearch"));
    field->setPlaceholderText(what);
    field->setClearButtonEnabled(true);
    label->setBuddy(field);
    line->addWidget(label);
    line->addWidget(field, 1);
    return field;
}

void ListFilter::setSearchField(QLineEdit *field, const std::function<void(const QString &text)> &find)
{
    m_search = field;
    m_typing = new TypingPause(this);
    m_typing->follow(field);
    connect(m_typing, &TypingPause::ended, this, [field, find] { find(field->text()); });
    m_tab->setFocusProxy(field);
    leadIntoList();
    field->installEventFilter(this);
    auto *shortcut =
        new QShortcut(QKeySequence::Find, m_tab, nullptr, nullptr, Qt::WidgetWithChildrenShortcut);
    shortcut->setWhatsThis(tr("До поля пошуку"));
    connect(shortcut, &QShortcut::activated, field, [field] {
        field->setFocus(Qt::ShortcutFocusReason);
        field->selectAll();
    });
}

/// Tab would never get to a list that was made before the filter, as the tab itself sends the keyboard to the
/// filter: who gets a parent is the last one that Tab leads to.
void ListFilter::leadIntoList()
{
    const int place = rows()->indexOf(m_list);
    m_list->setParent(nullptr);
    rows()->insertWidget(place, m_list);
}

bool ListFilter::isSearchEmpty() const
{
    return m_search != nullptr && m_search->text().isEmpty();
}

bool ListFilter::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != m_search || event->type() != QEvent::KeyPress)
        return QObject::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent *>(event)->key();
    if (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Down)
        enterList();
    else if (key == Qt::Key_Escape)
        m_search->clear();
    else
        return false;
    return true;
}

bool ListFilter::takesScan(const QKeyEvent &key)
{
    m_pace.take(key);
    if (m_search == nullptr || ScanPace::kindOf(key) != ScanPace::End || !m_pace.isCode())
        return false;
    m_search->setText(m_pace.code());
    enterList();
    return true;
}

/// What has been typed is searched first.
void ListFilter::enterList()
{
    m_typing->end();
    m_list->enter();
}

bool ListFilter::isTyping() const
{
    return m_typing != nullptr && m_typing->isRunning();
}

void ListFilter::endTyping()
{
    if (m_typing != nullptr)
        m_typing->end();
}

void ListFilter::dropTyping()
{
    if (m_typing != nullptr)
        m_typing->drop();
}

QStringList ListFilter::words()
{
    QStringList words = m_words.of(m_bar);
    if (!m_narrowing.condition.isEmpty())
        words.prepend(m_narrowing.words);
    return words;
}

void ListFilter::clear()
{
    if (m_bar == nullptr)
        return;
    // Those within its own bars say how the list comes, not what.
    for (QLineEdit *field : m_bar->findChildren<QLineEdit *>(QString(), Qt::FindDirectChildrenOnly)) {
        const QSignalBlocker hold(field);
        field->clear();
    }
    for (QComboBox *box : m_bar->findChildren<QComboBox *>(QString(), Qt::FindDirectChildrenOnly)) {
        const QSignalBlocker hold(box);
        box->setCurrentIndex(0);
    }
}

void ListFilter::narrow(const Destination &destination)
{
    m_narrowing = destination;
    if (m_narrowBar == nullptr) {
        m_narrowBar = new NarrowBar(m_tab);
        rows()->insertWidget(0, m_narrowBar);
        connect(m_narrowBar, &NarrowBar::showAllWanted, this, &ListFilter::showAllWanted);
    }
    m_narrowBar->tell(destination.words);
}

QString ListFilter::narrowed(const QString &filter) const
{
    const QString where = QStringLiteral(" WHERE ");
    if (m_narrowing.condition.isEmpty())
        return filter;
    const QString condition = where + QLatin1Char('(') + m_narrowing.condition + QLatin1Char(')');
    return filter.startsWith(where) ? condition + QStringLiteral(" AND ") + filter.mid(where.size())
                                    : condition + filter;
}
