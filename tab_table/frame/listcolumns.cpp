#include "listcolumns.h"

#include "qntableview.h"
#include "userstate.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMenu>
#include <algorithm>
#include <numeric>

namespace {
/// Widths are remembered in hundredths of a digit, so that they hold for letters of another size.
const int widthUnit = 100;

QVector<int> numbersOf(const QString &text)
{
    QVector<int> numbers;
    const QStringList parts = text.split(QLatin1Char(' '));
    for (const QString &part : parts)
        numbers.append(part.toInt());
    return numbers;
}

bool isShiftF10(const QEvent *event)
{
    if (event->type() != QEvent::KeyPress)
        return false;
    const auto *key = static_cast<const QKeyEvent *>(event);
    return QKeySequence(static_cast<int>(key->modifiers()) | key->key()) == ListColumns::menuKey();
}

/// Whether captions may take several lines, as where there are too many columns for the page.
bool isBroken(const QHeaderView *header)
{
    return header->defaultAlignment().testFlag(Qt::AlignmentFlag(Qt::TextWordWrap));
}
} // namespace

ListColumns::ListColumns(QNTableView *view) : m_view(view)
{
    QHeaderView *header = view->horizontalHeader();
    header->setSectionsMovable(true);
    header->setToolTip(
        tr("Клацніть, щоб відсортувати. Стовпці списку: права кнопка миші або Shift+F10 у списку."));
    header->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(header, &QWidget::customContextMenuRequested, this,
            [this, header](const QPoint &place) { openMenu(header->mapToGlobal(place)); });
    view->installEventFilter(this);
}

void ListColumns::openMenu(const QPoint &place)
{
    // Of a grid whose columns come and go there is nothing to choose.
    if (m_columns.isEmpty())
        return;
    QMenu menu(m_view);
    menu.setAccessibleName(tr("Стовпці списку"));
    fillMenu(&menu);
    menu.exec(place);
}

/// The keyboard has the menu too: under the captions.
bool ListColumns::eventFilter(QObject *watched, QEvent *event)
{
    const bool isMenuKey = event->type() == QEvent::ContextMenu &&
                           static_cast<QContextMenuEvent *>(event)->reason() == QContextMenuEvent::Keyboard;
    if (watched != m_view || !(isMenuKey || isShiftF10(event)))
        return QObject::eventFilter(watched, event);
    const QHeaderView *header = m_view->horizontalHeader();
    openMenu(header->mapToGlobal(header->rect().bottomLeft()));
    return true;
}

ListColumns::~ListColumns()
{
    remember();
}

void ListColumns::set(const QVector<Column> &columns, const QString &idUser, const QString &key)
{
    m_columns = columns;
    m_idUser = idUser;
    m_key = QStringLiteral("list/") + key;
    setWidths();
    restore(rememberedState(m_idUser, m_key).toStringList());
}

int ListColumns::digitWidth() const
{
    return m_view->fontMetrics().horizontalAdvance(QLatin1Char('0'));
}

/// Captions that may be broken need no more than their longest word, or what stands before a stroke.
int ListColumns::captionWidth(int column) const
{
    const QHeaderView *header = m_view->horizontalHeader();
    const int width = header->sectionSizeHint(column);
    if (!isBroken(header))
        return width + m_view->fontMetrics().height();
    const QFontMetrics letters = header->fontMetrics();
    int word = 0;
    QString caption = m_columns.at(column).caption;
    const QStringList words = caption.replace(QLatin1Char('/'), QLatin1String("/ ")).split(QLatin1Char(' '));
    for (const QString &each : words)
        word = qMax(word, letters.horizontalAdvance(each));
    return width - letters.horizontalAdvance(m_columns.at(column).caption) + word;
}

void ListColumns::setWidths()
{
    const int edges = m_view->fontMetrics().height();
    for (int i = 0; i < m_columns.size(); ++i) {
        m_view->setColumnHidden(i, m_columns.at(i).hidden);
        m_view->setColumnWidth(i, qMax(m_columns.at(i).digits * digitWidth() + edges, captionWidth(i)));
    }
    const auto widest =
        std::max_element(m_columns.constBegin(), m_columns.constEnd(),
                         [](const Column &one, const Column &other) { return one.digits < other.digits; });
    const int main = static_cast<int>(widest - m_columns.constBegin());
    m_view->setMainColumn(main, isBroken(m_view->horizontalHeader()) ? m_view->columnWidth(main) / 2 : 0);
}

QStringList ListColumns::state() const
{
    const QHeaderView *header = m_view->horizontalHeader();
    QStringList state = {
        QStringLiteral("%1 %2").arg(header->sortIndicatorSection()).arg(header->sortIndicatorOrder())};
    for (int i = 0; i < m_columns.size(); ++i) {
        const bool isHidden = header->isSectionHidden(i);
        // A hidden section has no width of its own to tell.
        const int width = isHidden ? 0 : qRound(double(header->sectionSize(i)) * widthUnit / digitWidth());
        state.append(QStringLiteral("%1 %2 %3").arg(width).arg(header->visualIndex(i)).arg(int(isHidden)));
    }
    return state;
}

/// False when the list has other columns by now.
bool ListColumns::restore(const QStringList &state)
{
    if (state.size() != m_columns.size() + 1)
        return false;
    QHeaderView *header = m_view->horizontalHeader();
    QVector<int> order(m_columns.size());
    for (int i = 0; i < m_columns.size(); ++i) {
        const QVector<int> numbers = numbersOf(state.at(i + 1));
        if (numbers.value(0) > 0)
            m_view->setColumnWidth(i, qRound(double(numbers.at(0)) * digitWidth() / widthUnit));
        if (numbers.value(2) != 0)
            showColumn(i, false);
        order[qBound(0, numbers.value(1), order.size() - 1)] = i;
    }
    for (int place = 0; place < order.size(); ++place)
        header->moveSection(header->visualIndex(order.at(place)), place);
    const QVector<int> sorting = numbersOf(state.constFirst());
    if (m_view->isSortingEnabled() && sorting.value(0) < m_columns.size())
        header->setSortIndicator(sorting.value(0), Qt::SortOrder(sorting.value(1)));
    return true;
}

void ListColumns::remember() const
{
    // Writing takes the disk some 20 ms, which every closing would wait for.
    if (!m_key.isEmpty() && m_view && state() != rememberedState(m_idUser, m_key).toStringList())
        rememberState(m_idUser, m_key, state());
}

void ListColumns::showColumn(int column, bool isShown)
{
    // One has to stay: the menu would be out of reach.
    if (m_columns.at(column).hidden || (!isShown && shown().size() < 2))
        return;
    m_view->setColumnHidden(column, !isShown);
    m_view->fillWidth();
}

void ListColumns::clearSorting()
{
    m_view->horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
}

void ListColumns::reset()
{
    QHeaderView *header = m_view->horizontalHeader();
    for (int i = 0; i < m_columns.size(); ++i)
        header->moveSection(header->visualIndex(i), i);
    setWidths();
    m_view->fillWidth();
}

QVector<int> ListColumns::shown() const
{
    return shownColumns(m_view);
}

/// A column without a caption goes by its tool tip.
QString ListColumns::nameOf(int column) const
{
    const auto header = [this, column](int role) {
        return m_view->model()->headerData(column, Qt::Horizontal, role).toString();
    };
    const QString caption = header(Qt::DisplayRole);
    return caption.isEmpty() ? header(Qt::ToolTipRole) : caption;
}

void ListColumns::fillMenu(QMenu *menu)
{
    for (int i = 0; i < m_columns.size(); ++i) {
        if (m_columns.at(i).hidden)
            continue;
        QAction *column = menu->addAction(nameOf(i));
        column->setCheckable(true);
        column->setChecked(!m_view->isColumnHidden(i));
        connect(column, &QAction::toggled, this, [this, i](bool on) { showColumn(i, on); });
    }
    menu->addSeparator();
    if (m_view->isSortingEnabled())
        connect(menu->addAction(tr("Без &сортування")), &QAction::triggered, this,
                &ListColumns::clearSorting);
    connect(menu->addAction(tr("Стовпці як с&початку")), &QAction::triggered, this, &ListColumns::reset);
}

QVector<int> shownColumns(const QTableView *view)
{
    const QHeaderView *header = view->horizontalHeader();
    QVector<int> columns;
    for (int place = 0; place < header->count(); ++place) {
        if (const int column = header->logicalIndex(place); !header->isSectionHidden(column))
            columns.append(column);
    }
    return columns;
}
