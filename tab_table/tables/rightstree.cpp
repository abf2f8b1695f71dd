#include "rightstree.h"

#include "permissionareas.h"
#include "permissions.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <algorithm>

namespace {
enum Column { Caption, Denied, Look, Full, ColumnCount };
constexpr int idRole = Qt::UserRole;
constexpr int viewOnly = 2;
const QChar dot(0x25CF);

Column columnOf(qlonglong value)
{
    if (value == Permission::Denied)
        return Denied;
    return value == Permission::Full ? Full : Look;
}

int valueOf(int column)
{
    if (column == Denied)
        return Permission::Denied;
    return column == Full ? static_cast<int>(Permission::Full) : viewOnly;
}
} // namespace

RightsTree::RightsTree(QWidget *parent) : QTreeWidget(parent)
{
    setColumnCount(ColumnCount);
    setHeaderLabels({tr("Право"), permissionValueText(Permission::Denied), permissionValueText(viewOnly),
                     permissionValueText(Permission::Full)});
    setSelectionMode(ExtendedSelection);
    setAlternatingRowColors(true);
    setUniformRowHeights(true);
    header()->setStretchLastSection(false);
    header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    header()->setSectionResizeMode(Caption, QHeaderView::Stretch);
    header()->setSectionsMovable(false);
    for (int column = Denied; column < ColumnCount; ++column)
        headerItem()->setTextAlignment(column, Qt::AlignCenter);
    build();
    m_hold.setSingleShot(true);
    m_hold.setInterval(ScanPace::gapMs);
    connect(&m_hold, &QTimer::timeout, this, &RightsTree::settleDigit);
    connect(this, &QTreeWidget::itemClicked, this, [this](const QTreeWidgetItem *item, int column) {
        if (column != Caption && item->parent() != nullptr)
            choose(idsOf(item), valueOf(column));
    });
}

void RightsTree::build()
{
    for (const PermissionArea &area : permissionAreas()) {
        auto *top = new QTreeWidgetItem(this, {area.caption});
        QFont bold = font();
        bold.setBold(true);
        top->setFont(Caption, bold);
        for (const PermissionLine &line : area.lines) {
            auto *item = new QTreeWidgetItem(top, {line.caption});
            item->setData(Caption, idRole, line.id);
            m_lines.insert(line.id, item);
        }
        top->setExpanded(true);
    }
    m_others = new QTreeWidgetItem(this, {tr("Інші програми (не змінюються тут)")});
    setCurrentItem(topLevelItem(0)->child(0));
}

void RightsTree::showRights(const QMap<int, QString> &rights)
{
    m_rights = rights;
    for (auto line = m_lines.begin(); line != m_lines.end(); ++line)
        showValue(line.value(), rights.value(line.key(), QStringLiteral("0")));
    buildOthers(rights);
    for (int i = 0; i < topLevelItemCount(); ++i)
        showCount(topLevelItem(i));
    searchFor(m_words);
}

void RightsTree::buildOthers(const QMap<int, QString> &rights)
{
    qDeleteAll(m_others->takeChildren());
    QList<QTreeWidgetItem *> lines;
    for (auto right = rights.begin(); right != rights.end(); ++right) {
        if (m_lines.contains(right.key()))
            continue;
        auto *line = new QTreeWidgetItem(QStringList(tr("Право №%1").arg(right.key())));
        line->setForeground(Caption, palette().brush(QPalette::PlaceholderText));
        showValue(line, right.value());
        lines.append(line);
    }
    m_others->addChildren(lines);
}

void RightsTree::showValue(QTreeWidgetItem *line, const QString &stored) const
{
    const Column shown = columnOf(stored.toLongLong());
    for (int column = Denied; column < ColumnCount; ++column) {
        // A value that only other programs tell from "view only".
        const bool isOdd = shown == Look && stored != QString::number(viewOnly);
        const QString text = isOdd ? QStringLiteral("%1 (%2)").arg(dot).arg(stored) : QString(dot);
        line->setText(column, column == shown ? text : QString());
        line->setTextAlignment(column, Qt::AlignCenter);
    }
    line->setData(Caption, Qt::AccessibleTextRole,
                  line->text(Caption) + QStringLiteral(": ") + permissionValueText(stored.toLongLong()));
}

/// How many rights of a menu have each value.
void RightsTree::showCount(QTreeWidgetItem *area) const
{
    area->setHidden(area->childCount() == 0);
    for (int column = Denied; column < ColumnCount; ++column) {
        int count = 0;
        for (int i = 0; i < area->childCount(); ++i)
            count += area->child(i)->text(column).isEmpty() ? 0 : 1;
        area->setText(column, count == 0 ? QString() : QString::number(count));
        area->setTextAlignment(column, Qt::AlignCenter);
        area->setForeground(column, palette().brush(QPalette::PlaceholderText));
    }
}

void RightsTree::mark(const QList<int> &changed)
{
    for (auto line = m_lines.begin(); line != m_lines.end(); ++line) {
        QFont letters = font();
        letters.setBold(changed.contains(line.key()));
        line.value()->setFont(Caption, letters);
    }
}

void RightsTree::searchFor(const QString &words)
{
    m_words = words;
    const QStringList wanted = words.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    for (int i = 0; i < topLevelItemCount(); ++i) {
        QTreeWidgetItem *area = topLevelItem(i);
        bool isAnyFound = false;
        for (int j = 0; j < area->childCount(); ++j) {
            const QString text = area->text(Caption) + QLatin1Char(' ') + area->child(j)->text(Caption);
            const bool isFound = std::all_of(wanted.begin(), wanted.end(), [&text](const QString &word) {
                return text.contains(word, Qt::CaseInsensitive);
            });
            area->child(j)->setHidden(!isFound);
            isAnyFound = isAnyFound || isFound;
        }
        area->setHidden(!isAnyFound);
    }
}

QList<int> RightsTree::idsOf(const QTreeWidgetItem *item) const
{
    QList<int> ids;
    if (item->data(Caption, idRole).isValid() && !item->isHidden())
        ids.append(item->data(Caption, idRole).toInt());
    for (int i = 0; i < item->childCount(); ++i)
        ids += idsOf(item->child(i));
    return ids;
}

QList<int> RightsTree::selectedRights() const
{
    QList<int> ids;
    for (const QTreeWidgetItem *item : selectedItems()) {
        for (const int id : idsOf(item)) {
            if (!ids.contains(id))
                ids.append(id);
        }
    }
    return ids;
}

void RightsTree::choose(const QList<int> &ids, int value)
{
    if (!m_isReadOnly && !ids.isEmpty())
        emit chosen(ids, value);
}

/// Denied, view only, full, and again; what is selected gets one value.
void RightsTree::chooseNext()
{
    const QList<int> ids = selectedRights();
    if (ids.isEmpty())
        return;
    const Column now = columnOf(m_rights.value(ids.first()).toLongLong());
    choose(ids, valueOf(now == Full ? Denied : now + 1));
}

/// A scanner's digits are no values: one counts when no other follows as soon as a scanner's would.
bool RightsTree::takeDigit(const QKeyEvent &key)
{
    const bool isNext = m_pace.take(key);
    const ScanPace::Kind kind = ScanPace::kindOf(key);
    const bool isOfCode = isNext && m_pace.code().size() > (kind == ScanPace::Digit ? 1 : 0);
    if (isOfCode) {
        m_hold.stop();
        m_digit.clear();
    } else if (kind == ScanPace::Digit) {
        settleDigit();
        m_digit = key.text();
        m_digitRights = selectedRights();
        m_hold.start();
    }
    return isOfCode || kind == ScanPace::Digit;
}

void RightsTree::settleDigit()
{
    m_hold.stop();
    const QString digit = m_digit;
    m_digit.clear();
    if (!digit.isEmpty() && digit <= QString::number(viewOnly))
        choose(m_digitRights, digit.toInt());
}

QVector<ToldKey> RightsTree::toldKeys() const
{
    return {{{Qt::Key_Space, Qt::Key_Return}, tr("Наступне значення виділених прав")},
            {{Qt::Key_0, Qt::Key_1, Qt::Key_2}, tr("Заборона, повний дозвіл, тільки перегляд")}};
}

void RightsTree::keyPressEvent(QKeyEvent *event)
{
    if (takeDigit(*event))
        return;
    settleDigit();
    const int key = event->key();
    const bool isPlain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    if (isPlain && (key == Qt::Key_Space || key == Qt::Key_Return || key == Qt::Key_Enter))
        chooseNext();
    else
        QTreeWidget::keyPressEvent(event);
}
