#include "page.h"

#include "icons.h"
#include "listpane.h"
#include "qloadeduser.h"
#include "qqestion.h"

#include <QApplication>
#include <QPointer>
#include <QTabWidget>
#include <algorithm>

namespace {
const char *const entryProperty = "pageEntry";
const char *const wasInFront = "pageWasInFront";

QString titleOf(const PageEntry &entry)
{
    return QCoreApplication::translate("Page", entry.title);
}

QWidget *addPage(QTabWidget *tabs, const PageEntry &entry)
{
    QWidget *widget = entry.make();
    widget->setProperty(entryProperty, QLatin1String(entry.action));
    auto *page = dynamic_cast<Page *>(widget);
    if (page != nullptr)
        page->setPermission(entry.permission);
    if (page != nullptr && page->list() != nullptr)
        page->list()->setHeading({titleOf(entry)});
    showIcons(widget);
    tabs->addTab(widget, actionIcon(QLatin1String(entry.action)), titleOf(entry));
    return widget;
}

QWidget *firstField(QWidget *page)
{
    if (page->focusProxy() != nullptr || page->focusPolicy() != Qt::NoFocus)
        return page;
    for (QWidget *next = page->nextInFocusChain(); next != page; next = next->nextInFocusChain()) {
        if (page->isAncestorOf(next) && next->isVisibleTo(page) && next->isEnabledTo(page) &&
            (next->focusPolicy() & Qt::TabFocus) != 0)
            return next;
    }
    return page;
}
} // namespace

bool Page::isOffered(Command command) const
{
    const Commands offered = commands();
    return offered.contains(command) && offered.value(command).isEmpty();
}

void Page::export_to_csv(const QString &code, const QString &path) const
{
    if (list() != nullptr)
        list()->exportCsv(code, path);
}

void Page::exportXlsx(const QString &path) const
{
    if (list() != nullptr)
        list()->exportXlsx(path);
}

bool maySeePage(const QLoadedUser &user, const PageEntry &entry)
{
    return user.maySee(entry.permission) ||
           (entry.otherPermission >= 0 && user.maySee(entry.otherPermission));
}

const PageEntry &pageEntry(const PageTable &table, const QString &action)
{
    const auto found = std::find_if(table.begin(), table.end(), [&action](const PageEntry &entry) {
        return action == QLatin1String(entry.action);
    });
    Q_ASSERT(found != table.end());
    return *found;
}

QWidget *openPage(QTabWidget *tabs, const QLoadedUser &user, const PageEntry &entry)
{
    if (!entry.make)
        return nullptr;
    if (!maySeePage(user, entry)) {
        QQestion::question(
            tabs->window(), QCoreApplication::translate("Page", "Попередження."),
            QCoreApplication::translate("Page", "У вас немає доступу до вкладки \"%1\".").arg(titleOf(entry)),
            true);
        return nullptr;
    }
    QWidget *page = openedPage(tabs, entry);
    if (page == nullptr)
        page = addPage(tabs, entry);
    tabs->setCurrentWidget(page);
    // Whoever asks for a list begins to search in it.
    if (page->focusProxy() != nullptr)
        page->setFocus();
    else
        focusPage(tabs);
    return page;
}

QWidget *openedPage(const QTabWidget *tabs, const PageEntry &entry)
{
    for (int index = 0; index < tabs->count(); ++index) {
        if (tabs->widget(index)->property(entryProperty) == QLatin1String(entry.action))
            return tabs->widget(index);
    }
    return nullptr;
}

Page *pageAt(const QTabWidget *tabs, int index)
{
    return dynamic_cast<Page *>(tabs->widget(index));
}

Page *pageAt(const QTabWidget *tabs, int index, const PageTable &table)
{
    const bool isOfTable = std::any_of(table.begin(), table.end(), [tabs, index](const PageEntry &entry) {
        const QWidget *opened = openedPage(tabs, entry);
        return opened != nullptr && opened == tabs->widget(index);
    });
    return isOfTable ? pageAt(tabs, index) : nullptr;
}

bool closePage(QTabWidget *tabs, int index)
{
    // A question runs the event loop: meanwhile rights may be taken away and the page with them.
    const QPointer<QWidget> widget = tabs->widget(index);
    Page *page = pageAt(tabs, index);
    if (widget == nullptr || (page != nullptr && !page->mayClose()))
        return false;
    // By the widget: the tabs may have been moved, too.
    tabs->removeTab(tabs->indexOf(widget));
    delete widget;
    return true;
}

bool hasPagesToKeep(const QTabWidget *tabs)
{
    for (int index = 0; index < tabs->count(); ++index) {
        const Page *page = pageAt(tabs, index);
        if (page == nullptr || !page->isShowingOnly())
            return true;
    }
    return false;
}

void closeShowingPages(QTabWidget *tabs)
{
    if (hasPagesToKeep(tabs))
        return;
    for (int index = tabs->count() - 1; index >= 0; --index)
        closePage(tabs, index);
}

void focusPage(const QTabWidget *tabs)
{
    QWidget *page = tabs->currentWidget();
    if (page == nullptr)
        return;
    const QWidget *focus = QApplication::focusWidget();
    if (page->property(wasInFront).toBool() && focus != nullptr && page->isAncestorOf(focus))
        return;
    // At first the tabs themselves have chosen some field.
    QWidget *last = page->property(wasInFront).toBool() ? page->focusWidget() : nullptr;
    page->setProperty(wasInFront, true);
    (last == nullptr ? firstField(page) : last)->setFocus(Qt::TabFocusReason);
}
