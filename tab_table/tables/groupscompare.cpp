#include "groupscompare.h"

#include "accessrows.h"
#include "listpane.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QSqlDatabase>

GroupsCompare::GroupsCompare(QSqlDatabase *db, QLoadedUser *user, QObject *receiver,
                             const QVector<PermissionGroup> &groups, const QString &idGroup, QWidget *parent)
    : QDialog(parent)
    , m_one(addBox(QStringLiteral("cbOne"), tr("П&ерша група:"), groups))
    , m_other(addBox(QStringLiteral("cbOther"), tr("&Друга група:"), groups))
    , m_list(new ListPane(this))
    , m_tasks(db->connectionName(), receiver, nullptr)
{
    setWindowTitle(tr("Порівняння груп прав"));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    m_list->setObjectName(QStringLiteral("list"));
    m_list->open(db, user, receiver);
    m_list->setEmptyText(tr("Групи не відрізняються."));
    buildRows();
    m_one->setCurrentIndex(m_one->findData(idGroup));
    m_other->setCurrentIndex(m_one->currentIndex() == 0 ? 1 : 0);
    for (QComboBox *box : {m_one, m_other})
        connect(box, qOverload<int>(&QComboBox::currentIndexChanged), this, &GroupsCompare::compare);
    m_other->setFocus();
    compare();
}

QComboBox *GroupsCompare::addBox(const QString &name, const QString &caption,
                                 const QVector<PermissionGroup> &groups)
{
    auto *box = new QComboBox(this);
    box->setObjectName(name);
    for (const PermissionGroup &group : groups)
        box->addItem(group.name, group.id);
    auto *label = new QLabel(caption, this);
    label->setObjectName(QStringLiteral("label_") + name);
    label->setBuddy(box);
    return box;
}

void GroupsCompare::buildRows()
{
    auto *rows = new QGridLayout(this);
    rows->addWidget(findChild<QLabel *>(QStringLiteral("label_cbOne")), 0, 0);
    rows->addWidget(m_one, 0, 1);
    rows->addWidget(findChild<QLabel *>(QStringLiteral("label_cbOther")), 0, 2);
    rows->addWidget(m_other, 0, 3);
    rows->setColumnStretch(1, 1);
    rows->setColumnStretch(3, 1);
    rows->addWidget(m_list, 1, 0, 1, 4);
    auto *buttons = new QDialogButtonBox(this);
    auto *close = buttons->addButton(tr("&Закрити"), QDialogButtonBox::RejectRole);
    close->setObjectName(QStringLiteral("pbClose"));
    close->setDefault(true);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    rows->addWidget(buttons, 2, 0, 1, 4);
    resize(fontMetrics().averageCharWidth() * 110, fontMetrics().height() * 28);
}

void GroupsCompare::compare()
{
    m_tasks.drop();
    using Two = std::optional<QPair<RecordFields, RecordFields>>;
    const auto read = [one = m_one->currentData().toString(),
                       other = m_other->currentData().toString()](const Db &db) -> Two {
        const auto first = readRecord(db, permissionGroup(), one);
        const auto second = first ? readRecord(db, permissionGroup(), other) : std::nullopt;
        return second ? Two({*first, *second}) : std::nullopt;
    };
    m_tasks.read(read, [this](const Two &two) {
        if (two)
            showDifferences(two->first, two->second);
        else
            m_list->clearAfterFailure();
    });
}

void GroupsCompare::showDifferences(const RecordFields &one, const RecordFields &other)
{
    m_list->setColumns(differenceColumns(m_one->currentText(), m_other->currentText()),
                       QStringLiteral("premis_compare"));
    m_list->setHeading({windowTitle(), tr("%1 і %2").arg(m_one->currentText(), m_other->currentText())});
    m_list->showRows(differenceRows(one, other));
}
