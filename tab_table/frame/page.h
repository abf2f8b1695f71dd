#pragma once

#include <QMap>
#include <QString>
#include <functional>
#include <vector>

struct Destination;
class ListPane;
class QLoadedUser;
class QTabWidget;
class QWidget;

/// What the main window asks of the page in front.
enum class Command { Add, Edit, Delete, Export, Import, Reload };

/// The commands that a page offers to its user; one that is missing is hidden. The text is empty, or tells
/// why the command cannot be given in this page: it is shown, disabled, with that reason.
using Commands = QMap<Command, QString>;

/// What the main window knows of a widget that stands in its tabs.
class Page
{
public:
    Page() = default;
    virtual ~Page() = default;
    Q_DISABLE_COPY(Page)

    /// By the rights that the user has now.
    virtual Commands commands() const { return {}; }
    virtual void run(Command command) { Q_UNUSED(command) }
    /// True when the command can be given now.
    bool isOffered(Command command) const;
    /// Writes the one list into a CSV file: UTF-8, or Windows-1251 with any code. Failures are
    /// reported.
    void export_to_csv(const QString &code, const QString &path) const;
    /// The same as it is shown, with typed cells.
    void exportXlsx(const QString &path) const;
    /// True while what it lists is on its way.
    virtual bool isLoading() const { return false; }
    /// Asks about what would be lost; false when the page stays open.
    virtual bool mayClose() { return true; }
    /// True for a page that only shows what can be read again: who leaves is not asked about it.
    virtual bool isShowingOnly() const { return false; }
    /// A menu has opened the page or brought it to the front: it shows everything, whatever another page had
    /// asked it for.
    virtual void openedByMenu() {}
    /// Another page has led here: shows what that asked for, and nothing else.
    virtual void goTo(const Destination &destination) { Q_UNUSED(destination) }
    /// The one list of the page; null when it has none, or several.
    virtual ListPane *list() const { return nullptr; }

    /// The permission id that decides what the user may do here; openPage() gives it.
    void setPermission(int id) { m_permission = id; }
    int permission() const { return m_permission; }

private:
    int m_permission = -1;
};

/// One line a page; the objects that hold the lines make the pages. A page without a factory does not exist
/// yet: its action stays hidden.
struct PageEntry
{
    /// The object name of the action that opens it.
    const char *action;
    int permission;
    /// Of its tab; translated in the context "Page".
    const char *title;
    std::function<QWidget *()> make;
    /// Who has this right may see the page, too; -1 for none.
    int otherPermission = -1;
};
using PageTable = std::vector<PageEntry>;

/// By the rights that the user has now.
bool maySeePage(const QLoadedUser &user, const PageEntry &entry);
/// The line of that action; there must be one.
const PageEntry &pageEntry(const PageTable &table, const QString &action);

/// The one way to a page, whoever asks: brings it to the front, made first when it is not open. Null for a
/// page that does not exist yet, and, told to the user, for one that he may not see.
QWidget *openPage(QTabWidget *tabs, const QLoadedUser &user, const PageEntry &entry);
/// The open page of that line, or null.
QWidget *openedPage(const QTabWidget *tabs, const PageEntry &entry);
/// The page in a tab, or null.
Page *pageAt(const QTabWidget *tabs, int index);
/// The same, and null for one that is not of that table.
Page *pageAt(const QTabWidget *tabs, int index, const PageTable &table);
/// Closes a page that does not hold on to what would be lost; true when it is gone.
bool closePage(QTabWidget *tabs, int index);
/// Whether some page stands in the tabs beside those that only show.
bool hasPagesToKeep(const QTabWidget *tabs);
/// Closes the pages that only show, when no others are open.
void closeShowingPages(QTabWidget *tabs);
/// The page in front gets the focus: where it was in it, at first in its first field.
void focusPage(const QTabWidget *tabs);
