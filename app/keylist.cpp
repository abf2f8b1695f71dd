#include "keylist.h"

#include "db.h"
#include "keyteller.h"
#include "listpane.h"
#include "qntableview.h"

#include <QAbstractButton>
#include <QAction>
#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QShortcut>
#include <QTabWidget>
#include <QVBoxLayout>
#include <algorithm>

namespace {
QString withoutKey(QString caption)
{
    return caption.remove(QLatin1Char('&')).trimmed();
}

QString keyText(const QKeySequence &keys)
{
    // Both keys of that name do the same; on most of them stands this one.
    if (keys == QKeySequence(Qt::Key_Return))
        return QKeySequence(Qt::Key_Enter).toString(QKeySequence::NativeText);
    return keys.toString(QKeySequence::NativeText);
}

QString keyTexts(const QVector<QKeySequence> &keys)
{
    QStringList texts;
    for (const QKeySequence &each : keys) {
        if (!each.isEmpty())
            texts.append(keyText(each));
    }
    texts.removeDuplicates();
    return texts.join(QStringLiteral(", "));
}

/// Goes through a window from the outside to the inside and collects the keys of what is to be seen.
class KeyCollector
{
public:
    explicit KeyCollector(const QMainWindow &window) : m_tabs(window.findChild<const QTabWidget *>())
    {
        for (const QAction *menu : window.menuBar()->actions())
            takeMenu(*menu);
        takeAll(&window, KeyList::tr("Вікно програми"));
    }

    QVector<ShownKey> keys() const { return m_keys; }

private:
    void takeMenu(const QAction &menu)
    {
        if (menu.menu() == nullptr || !menu.isVisible())
            return;
        for (const QAction *action : menu.menu()->actions())
            takeAction(*action, KeyList::tr("Меню «%1»").arg(withoutKey(menu.text())));
    }

    void takeAction(const QAction &action, const QString &place)
    {
        if (action.isVisible() && !m_actions.contains(&action))
            add(place, action.shortcuts().toVector(), withoutKey(action.text()));
        m_actions.append(&action);
    }

    void takeAll(const QObject *object, const QString &place)
    {
        takeOwn(object, place);
        for (const QObject *child : object->children()) {
            const auto *widget = qobject_cast<const QWidget *>(child);
            // Menus and dialogs are windows of their own; pages that are not in front are hidden.
            if (widget != nullptr && (widget->isHidden() || widget->isWindow()))
                continue;
            const bool isPage = widget != nullptr && m_tabs != nullptr && widget == m_tabs->currentWidget();
            takeAll(child, isPage ? KeyList::tr("Вкладка «%1»").arg(m_tabs->tabText(m_tabs->currentIndex()))
                                  : place);
        }
    }

    void takeOwn(const QObject *object, const QString &place)
    {
        if (const auto *action = qobject_cast<const QAction *>(object))
            takeAction(*action, place);
        if (const auto *shortcut = qobject_cast<const QShortcut *>(object);
            shortcut != nullptr && shortcut->isEnabled())
            add(place, {shortcut->key()}, shortcut->whatsThis());
        if (const auto *button = qobject_cast<const QAbstractButton *>(object);
            button != nullptr && button->shortcut() != QKeySequence::mnemonic(button->text()))
            add(place, {button->shortcut()}, wordsOfButton(*button));
        if (const auto *teller = dynamic_cast<const KeyTeller *>(object)) {
            for (const ToldKey &told : teller->toldKeys())
                add(place, told.keys, told.words);
        }
    }

    static QString wordsOfButton(const QAbstractButton &button)
    {
        return button.whatsThis().isEmpty() ? withoutKey(button.text()) : button.whatsThis();
    }

    void add(const QString &place, const QVector<QKeySequence> &keys, const QString &words)
    {
        const ShownKey shown = {place, keyTexts(keys), words};
        const bool isKnown = std::any_of(m_keys.begin(), m_keys.end(), [&shown](const ShownKey &other) {
            return other.place == shown.place && other.keys == shown.keys && other.words == shown.words;
        });
        if (!shown.keys.isEmpty() && !isKnown)
            m_keys.append(shown);
    }

    const QTabWidget *m_tabs;
    QVector<const QAction *> m_actions;
    QVector<ShownKey> m_keys;
};

bool hasEveryWord(const ShownKey &key, const QStringList &words)
{
    const QString text = key.place + QLatin1Char(' ') + key.keys + QLatin1Char(' ') + key.words;
    return std::all_of(words.begin(), words.end(),
                       [&text](const QString &word) { return text.contains(word, Qt::CaseInsensitive); });
}
} // namespace

QVector<ShownKey> keysOf(const QMainWindow &window)
{
    QVector<ShownKey> keys = KeyCollector(window).keys();
    // What is in front is what somebody asks about.
    const QString pages = KeyList::tr("Вкладка «%1»").section(QLatin1Char('%'), 0, 0);
    std::stable_partition(keys.begin(), keys.end(),
                          [&pages](const ShownKey &key) { return key.place.startsWith(pages); });
    return keys;
}

KeyList::KeyList(const QVector<ShownKey> &keys, QSqlDatabase *db, const QLoadedUser *user, QObject *receiver,
                 QWidget *parent)
    : QDialog(parent), m_keys(keys), m_search(new QLineEdit(this)), m_list(new ListPane(this))
{
    setWindowTitle(tr("Клавіші"));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    m_list->setObjectName(QStringLiteral("keyList"));
    m_list->open(db, user, receiver);
    m_list->setColumns({{tr("Де"), 20}, {tr("Клавіші"), 13}, {tr("Що роблять"), 40}},
                       QStringLiteral("key_list"));
    m_list->setHeading({windowTitle()});
    m_list->setEmptyText(tr("Таких клавіш немає."));
    // Together stands what belongs together, until somebody wants another order.
    m_list->view()->horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
    build();
    show(QString());
    m_search->setFocus();
}

void KeyList::build()
{
    m_search->setObjectName(QStringLiteral("leSearch"));
    m_search->setPlaceholderText(tr("клавіша або що вона робить"));
    m_search->setClearButtonEnabled(true);
    connect(m_search, &QLineEdit::textChanged, this, &KeyList::show);
    connect(m_search, &QLineEdit::returnPressed, m_list, &ListPane::enter);
    auto *label = new QLabel(tr("По&шук:"), this);
    label->setBuddy(m_search);
    auto *line = new QHBoxLayout;
    line->addWidget(label);
    line->addWidget(m_search, 1);
    auto *buttons = new QDialogButtonBox(this);
    auto *close = buttons->addButton(tr("&Закрити"), QDialogButtonBox::RejectRole);
    close->setObjectName(QStringLiteral("pbClose"));
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *rows = new QVBoxLayout(this);
    rows->addLayout(line);
    rows->addWidget(m_list, 1);
    rows->addWidget(buttons);
    // Enter in the field leads into the list, and presses no button.
    for (QPushButton *button : findChildren<QPushButton *>())
        button->setAutoDefault(false);
    resize(fontMetrics().averageCharWidth() * 110, fontMetrics().height() * 30);
}

void KeyList::show(const QString &words)
{
    RowStore rows;
    for (const ShownKey &key : qAsConst(m_keys)) {
        if (!hasEveryWord(key, wordsOf(words)))
            continue;
        const std::string cells[] = {key.place.toStdString(), key.keys.toStdString(),
                                     key.words.toStdString()};
        rows.append({cells[0], cells[1], cells[2]});
    }
    m_list->showRows(std::move(rows));
}
