#include "combos.h"

#include "qchekedcombobox.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QEvent>
#include <QListView>
#include <QScreen>
#include <QScrollBar>
#include <QSet>
#include <QSignalBlocker>
#include <QSqlRecord>
#include <QStandardItemModel>
#include <QStyleOptionComboBox>
#include <QStylePainter>

namespace {
/// The chosen item as long as it fits, then dots.
void paintCut(QComboBox *box)
{
    QStyleOptionComboBox option;
    option.initFrom(box);
    option.subControls = QStyle::SC_All;
    option.frame = box->hasFrame();
    if (box->view()->isVisible())
        option.state |= QStyle::State_On;
    const QRect field =
        box->style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, box);
    option.currentText = box->fontMetrics().elidedText(box->currentText(), Qt::ElideRight, field.width() - 2);
    QStylePainter painter(box);
    painter.drawComplexControl(QStyle::CC_ComboBox, option);
    painter.drawControl(QStyle::CE_ComboBoxLabel, option);
}

/// Widens the list of a box, before it is opened, to what the items need, and cuts the box's own text.
class ItemKeeper : public QObject
{
public:
    explicit ItemKeeper(QComboBox *box) : QObject(box)
    {
        const auto forget = [this] { m_needed = 0; };
        connect(box->model(), &QAbstractItemModel::rowsInserted, this, forget);
        connect(box->model(), &QAbstractItemModel::dataChanged, this, forget);
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        // What is being destroyed is no box any more, but still has events.
        auto *box = qobject_cast<QComboBox *>(watched);
        if (box == nullptr)
            return QObject::eventFilter(watched, event);
        const QEvent::Type type = event->type();
        // What is checked in a list it paints and tells itself.
        const bool paintsItself = qobject_cast<QChekedComboBox *>(box) != nullptr;
        if (type == QEvent::Paint && !paintsItself) {
            paintCut(box);
            return true;
        }
        if (type == QEvent::MouseButtonPress || type == QEvent::KeyPress || type == QEvent::FocusIn)
            box->view()->setMinimumWidth(
                qMin(needed(box), box->screen()->availableGeometry().width() * 2 / 3));
        else if (type == QEvent::ToolTip && !paintsItself)
            box->setToolTip(box->currentText());
        return QObject::eventFilter(watched, event);
    }

private:
    int needed(const QComboBox *box)
    {
        if (m_needed > 0)
            return m_needed;
        const QFontMetrics letters = box->view()->fontMetrics();
        for (int i = 0; i < box->count(); ++i)
            m_needed = qMax(m_needed, letters.horizontalAdvance(box->itemText(i)));
        // What stands beside the text is the same in every line.
        const int beside = box->view()->sizeHintForIndex(box->model()->index(0, 0)).width() -
                           letters.horizontalAdvance(box->itemText(0));
        return m_needed += beside + box->view()->verticalScrollBar()->sizeHint().width();
    }

    /// 0: the items have changed since.
    int m_needed = 0;
};

/// The place of the entry of that data, or of that text where there is none; -1 for none.
int placeOf(const ListEntries &entries, const QString &text, const QVariant &data)
{
    const QString id = toText(data);
    for (int i = 0; i < entries.size(); ++i) {
        if (id.isEmpty() ? entries.at(i).first == text : toText(entries.at(i).second) == id)
            return i;
    }
    return -1;
}

void putEntries(QComboBox *box, const ListEntries &entries, int chosen)
{
    const QSignalBlocker hold(box);
    const bool isOpen = QApplication::activePopupWidget() != nullptr && box->view()->isVisible();
    box->clear();
    QList<QStandardItem *> items;
    items.reserve(entries.size());
    for (const auto &[text, data] : entries) {
        items.append(new QStandardItem(text));
        items.constLast()->setData(data, Qt::UserRole);
    }
    // All at once: the box looks at itself after each insertion.
    qobject_cast<QStandardItemModel *>(box->model())->invisibleRootItem()->appendRows(items);
    box->setCurrentIndex(chosen);
    if (isOpen) {
        // As long as its items are now.
        box->hidePopup();
        box->showPopup();
    }
}
} // namespace

std::optional<ListEntries> readEntries(const Db &db, const QString &sql, const Db::Values &values)
{
    auto query = db.run(sql, values);
    if (!query)
        return std::nullopt;
    const bool hasData = query->record().count() > 1;
    ListEntries entries;
    while (query->next())
        entries.append({toText(query->value(0)), hasData ? query->value(1) : QVariant()});
    return entries;
}

ListEntries eachOnce(const ListEntries &entries)
{
    QSet<QString> known;
    ListEntries once;
    for (const auto &entry : entries) {
        const QString key = entry.second.isNull() ? entry.first : toText(entry.second);
        if (!known.contains(key))
            once.append(entry);
        known.insert(key);
    }
    return once;
}

void showEntries(QComboBox *box, const ListEntries &entries)
{
    putEntries(box, entries, entries.isEmpty() ? -1 : 0);
}

bool showEntriesAgain(QComboBox *box, const ListEntries &entries)
{
    const int place = placeOf(entries, box->currentText(), box->currentData());
    putEntries(box, entries, place < 0 && !entries.isEmpty() ? 0 : place);
    return place >= 0;
}

bool fillCombo(QComboBox *box, const Db &db, const QString &sql)
{
    const auto entries = readEntries(db, sql);
    showEntries(box, entries.value_or(ListEntries()));
    return entries.has_value();
}

void chooseText(QComboBox *box, const QString &text)
{
    box->setCurrentIndex(box->findText(text));
}

void stopOffering(QComboBox *box, int row)
{
    if (auto *list = qobject_cast<QListView *>(box->view()))
        list->setRowHidden(row, true);
    // Below the box: over it, another item would lie under the mouse, and the click that closes takes it.
    box->setStyleSheet(QStringLiteral("QComboBox { combobox-popup: 0; }"));
}

NamedId chosenItem(const QComboBox *box)
{
    return {box->currentText(), toText(box->currentData())};
}

void chooseId(QComboBox *box, const QString &id)
{
    int found = -1;
    for (int i = 0; i < box->count() && found < 0 && !id.isEmpty(); ++i) {
        if (toText(box->itemData(i)) == id)
            found = i;
    }
    box->setCurrentIndex(found);
}

void chooseOnlyItem(QComboBox *box)
{
    box->setCurrentIndex(box->count() == 1 ? 0 : -1);
}

QString noGroupsHint()
{
    return QCoreApplication::translate("Combos",
                                       "Спершу додайте групу магазинів і дозвольте її у правах користувача.");
}

void keepNarrow(QComboBox *box, int letters)
{
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box->setMinimumContentsLength(letters);
    box->view()->setTextElideMode(Qt::ElideMiddle);
    // All lines are alike: thousands of them are not measured one by one.
    if (auto *list = qobject_cast<QListView *>(box->view()))
        list->setUniformItemSizes(true);
    box->installEventFilter(new ItemKeeper(box));
}
