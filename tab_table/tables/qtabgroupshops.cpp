#include "qtabgroupshops.h"

#include "listpane.h"
#include "qloadeduser.h"
#include "qntableview.h"
#include "qtabdelegate.h"
#include "qupdatebd.h"

#include <QAccessible>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <algorithm>

namespace {
/// What is there already stays.
bool showToGroup(const Db &db, const QString &idGroupPremission, const QStringList &shopGroups)
{
    QStringList rows;
    for (const QString &id : shopGroups)
        rows.append(QStringLiteral("(%1,%2)").arg(idGroupPremission, id));
    Transaction t(db);
    return t &&
           db.run(QStringLiteral("INSERT INTO lst_group(id_g_prem,id_group) VALUES") +
                  rows.join(QLatin1Char(',')) +
                  QStringLiteral(" ON DUPLICATE KEY UPDATE id_group=VALUES(id_group)")) &&
           QUpdateBD().update(QStringLiteral("lst_group"), *db.connection(), db.receiver()) && t.commit();
}
} // namespace

QTabGroup_Shops::QTabGroup_Shops(QSqlDatabase *db, QLoadedUser *user, QObject *receiver, setting *set,
                                 QWidget *parent)
    : QTabNames(shopGroupNames, db, user, receiver, set, parent)
    , m_showing(db->connectionName(), receiver, nullptr)
{
    buildOffer();
    connect(inlineEditor(), &QTabDelegate::added, this, &QTabGroup_Shops::offer);
    connect(user, &QLoadedUser::rightsChanged, this, &QTabGroup_Shops::showOffer);
}

/// Not a question: names are added one after the other, and none of the keys is its answer.
void QTabGroup_Shops::buildOffer()
{
    m_bar = new QFrame(this);
    m_bar->setObjectName(QStringLiteral("offerBar"));
    m_bar->setAccessibleName(tr("Повідомлення"));
    m_bar->setFrameShape(QFrame::StyledPanel);
    m_bar->setAutoFillBackground(true);
    m_bar->setBackgroundRole(QPalette::ToolTipBase);
    m_text = new QLabel(m_bar);
    m_text->setObjectName(QStringLiteral("labelUnseen"));
    m_text->setForegroundRole(QPalette::ToolTipText);
    m_text->setWordWrap(true);
    auto *show = new QPushButton(tr("Показати &нам"), m_bar);
    show->setObjectName(QStringLiteral("pbShow"));
    connect(show, &QPushButton::clicked, this, &QTabGroup_Shops::showToOwnGroup);
    auto *later = new QPushButton(tr("Не за&раз"), m_bar);
    later->setObjectName(QStringLiteral("pbLater"));
    connect(later, &QPushButton::clicked, this, [this] {
        m_unseen.clear();
        showOffer();
    });
    auto *line = new QHBoxLayout(m_bar);
    line->addWidget(m_text, 1);
    line->addWidget(show);
    line->addWidget(later);
    layout()->addWidget(m_bar);
    m_bar->hide();
}

void QTabGroup_Shops::offer(const QString &id, const QString &name)
{
    m_unseen.append({id, name});
    showOffer();
    QAccessibleEvent event(m_bar, QAccessible::Alert);
    QAccessible::updateAccessibility(&event);
}

/// What has become seen meanwhile is not offered any more.
void QTabGroup_Shops::showOffer()
{
    m_unseen.erase(
        std::remove_if(m_unseen.begin(), m_unseen.end(),
                       [this](const auto &group) { return user()->groups().contains(group.first); }),
        m_unseen.end());
    QStringList names;
    for (const auto &group : qAsConst(m_unseen))
        names.append(group.second);
    m_text->setText(tr("Нових груп магазинів (%1) ще ніхто не бачить. Показати їх вашій групі прав?")
                        .arg(names.join(QStringLiteral(", "))));
    // The button that hides is not to leave the keyboard nowhere.
    const bool hadFocus = m_bar->isAncestorOf(focusWidget());
    m_bar->setVisible(!names.isEmpty() && user()->isLoaded());
    if (hadFocus && m_bar->isHidden())
        view()->setFocus();
}

void QTabGroup_Shops::showToOwnGroup()
{
    QStringList ids;
    for (const auto &group : qAsConst(m_unseen))
        ids.append(group.first);
    if (ids.isEmpty() || m_showing.isWaiting())
        return;
    m_showing.write(
        [group = user()->idGroupPremission(), ids](const Db &db) { return showToGroup(db, group, ids); },
        [this](bool isShown) {
            // The rights that follow take the offer away.
            if (isShown)
                user()->beginAct();
        });
}
