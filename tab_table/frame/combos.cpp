#include "combos.h"

#include "db.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QCoreApplication>
#include <QEvent>
#include <QScreen>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QSqlRecord>
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
    using QObject::QObject;

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        // What is being destroyed is no box any more, but still has events.
        auto *box = qobject_cast<QComboBox *>(watched);
        if (box == nullptr)
            return QObject::eventFilter(watched, event);
        const QEvent::Type type = event->type();
        if (type == QEvent::Paint) {
            paintCut(box);
            return true;
        }
        if (type == QEvent::MouseButtonPress || type == QEvent::KeyPress || type == QEvent::FocusIn) {
            const int needed =
                box->view()->sizeHintForColumn(0) + box->view()->verticalScrollBar()->sizeHint().width();
            box->view()->setMinimumWidth(qMin(needed, box->screen()->availableGeometry().width() * 2 / 3));
        } else if (type == QEvent::ToolTip) {
            box->setToolTip(box->currentText());
        }
        return QObject::eventFilter(watched, event);
    }
};
} // namespace

std::optional<ListEntries> readEntries(const Db &db, const QString &sql)
{
    auto query = db.run(sql);
    if (!query)
        return std::nullopt;
    const bool hasData = query->record().count() > 1;
    ListEntries entries;
    while (query->next())
        entries.append({toText(query->value(0)), hasData ? query->value(1) : QVariant()});
    return entries;
}

void showEntries(QComboBox *box, const ListEntries &entries)
{
    const QSignalBlocker hold(box);
    box->clear();
    for (const auto &[text, data] : entries)
        box->addItem(text, data);
    box->setCurrentIndex(entries.isEmpty() ? -1 : 0);
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
    box->installEventFilter(new ItemKeeper(box));
}
