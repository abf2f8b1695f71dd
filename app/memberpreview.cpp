#include "memberpreview.h"

#include "menurights.h"
#include "permissionareas.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {
QString withoutKey(QString caption)
{
    return caption.remove(QLatin1Char('&'));
}

/// A user whom nobody has logged in, but whose menus are those of one who is.
UserRights asMember(UserRights rights)
{
    rights.idUser = QStringLiteral("0");
    return rights;
}
} // namespace

MemberPreview::MemberPreview(const QString &group, const UserRights &rights, const PageTable &pages,
                             QMenuBar *menus, QWidget *parent)
    : QDialog(parent), m_member(nullptr, this), m_tree(new QTreeWidget(this))
{
    m_member.take(asMember(rights));
    setWindowTitle(tr("Показати як: %1").arg(group));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    build(group);
    showMenus(pages, menus);
}

void MemberPreview::build(const QString &group)
{
    auto *text = new QLabel(this);
    text->setObjectName(QStringLiteral("labelText"));
    text->setWordWrap(true);
    text->setText(
        m_member.maySee(Permission::BackOffice)
            ? tr("Меню і команди, які бачить користувач групи \"%1\". Груп магазинів: %2, магазинів "
                 "для передачі: %3. Експорт списків: %4.")
                  .arg(group)
                  .arg(m_member.groups().size())
                  .arg(m_member.shopsTransmit().size())
                  .arg(m_member.maySee(Permission::ExportCsv) ? tr("так") : tr("ні"))
            : tr("Користувач групи \"%1\" не увійде: \"У вас немає доступу до бекофісу.\"").arg(group));
    m_tree->setObjectName(QStringLiteral("menus"));
    m_tree->setAccessibleName(tr("Меню"));
    m_tree->setHeaderLabels({tr("Меню"), tr("Команди")});
    m_tree->setAlternatingRowColors(true);
    auto *buttons = new QDialogButtonBox(this);
    auto *close = buttons->addButton(tr("&Закрити"), QDialogButtonBox::RejectRole);
    close->setObjectName(QStringLiteral("pbClose"));
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *rows = new QVBoxLayout(this);
    rows->addWidget(text);
    rows->addWidget(m_tree, 1);
    rows->addWidget(buttons);
    resize(fontMetrics().averageCharWidth() * 80, fontMetrics().height() * 32);
}

void MemberPreview::showMenus(const PageTable &pages, QMenuBar *menus)
{
    const MenuState state = {&m_member, true, false, true, false};
    const QMap<QString, bool> shown = shownActions(pages, state);
    for (const QMenu *menu : menus->findChildren<QMenu *>(QString(), Qt::FindDirectChildrenOnly)) {
        auto *top = new QTreeWidgetItem(QStringList(withoutKey(menu->title())));
        for (const QAction *action : menu->actions()) {
            if (shown.value(action->objectName()))
                new QTreeWidgetItem(top,
                                    {withoutKey(action->text()), commandsOf(pages, action->objectName())});
        }
        // One without a title holds what a narrow window leaves out of its menu bar.
        if (top->childCount() == 0 || menu->title().isEmpty()) {
            delete top;
            continue;
        }
        m_tree->addTopLevelItem(top);
        top->setExpanded(true);
    }
    m_tree->header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
}

/// What the right of a page lets its commands do; empty for what is no page.
QString MemberPreview::commandsOf(const PageTable &pages, const QString &action) const
{
    for (const PageEntry &entry : pages) {
        if (action == QLatin1String(entry.action))
            return permissionValueText(m_member.permission(
                m_member.maySee(entry.permission) || entry.otherPermission < 0 ? entry.permission
                                                                               : entry.otherPermission));
    }
    return {};
}
