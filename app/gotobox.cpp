#include "gotobox.h"

#include "db.h"
#include "qloadeduser.h"
#include "qmessevent.h"
#include "queryservice.h"
#include "salekeys.h"
#include "typingpause.h"
#include "waitnote.h"

#include <QAction>
#include <QCoreApplication>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QSqlDatabase>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <algorithm>

namespace {
enum ColumnOf { Name, Where };
const int hitRole = Qt::UserRole;
const int silenceMs = 5000;
/// In letters and lines.
const int widthLetters = 110;
const int heightLines = 24;
/// Between the box and the edges of the window above which it stands.
const int edge = 40;

QString withoutKey(QString caption)
{
    return caption.remove(QLatin1Char('&')).remove(QChar(0x2026)).trimmed();
}

bool hasEveryWord(const QString &text, const QStringList &words)
{
    return std::all_of(words.begin(), words.end(),
                       [&text](const QString &word) { return text.contains(word, Qt::CaseInsensitive); });
}

/// A sign beside the colour of nothing: the icon of the page where it has one.
QString signOf(GotoKind kind)
{
    switch (kind) {
    case GotoKind::Action:
        return QStringLiteral("\u2192");
    case GotoKind::Shop:
        return QStringLiteral("\u2302");
    case GotoKind::Register:
        return QStringLiteral("\u25A3");
    case GotoKind::Goods:
        return QStringLiteral("\u25CF");
    case GotoKind::Card:
        return QStringLiteral("\u25AC");
    case GotoKind::Chek:
        return QStringLiteral("\u2261");
    case GotoKind::Shift:
        break;
    }
    return QStringLiteral("Z");
}

bool isSame(const GotoHit &one, const GotoHit &other)
{
    return one.kind == other.kind && one.name == other.name && one.place == other.place;
}
} // namespace

Q_DECLARE_METATYPE(GotoHit)

QVector<GotoHit> gotoActions(const QMenuBar &menus, const QString &text)
{
    const QStringList words = wordsOf(text);
    QVector<GotoHit> hits;
    for (const QAction *top : menus.actions()) {
        if (words.isEmpty() || top->menu() == nullptr || !top->isVisible())
            continue;
        const QString menu = withoutKey(top->text());
        for (const QAction *action : top->menu()->actions()) {
            const QString name = withoutKey(action->text());
            if (action->isSeparator() || !action->isVisible() || !action->isEnabled() ||
                !hasEveryWord(name + QLatin1Char(' ') + menu, words))
                continue;
            GotoHit hit;
            hit.name = name;
            hit.place = menu;
            if (!action->shortcut().isEmpty())
                hit.place += QStringLiteral(", ") + action->shortcut().toString(QKeySequence::NativeText);
            hit.isExact = name.compare(text.simplified(), Qt::CaseInsensitive) == 0;
            hit.destination.action = action->objectName();
            hits.append(hit);
        }
    }
    // What is called so stands before what only stands in a menu that is.
    std::stable_partition(hits.begin(), hits.end(),
                          [&words](const GotoHit &hit) { return hasEveryWord(hit.name, words); });
    return hits;
}

GotoBox::GotoBox(QSqlDatabase *db, QLoadedUser *user, QObject *receiver, const QMenuBar *menus,
                 QWidget *parent)
    : QDialog(parent)
    , m_user(user)
    , m_receiver(receiver)
    , m_menus(menus)
    , m_field(new QLineEdit(this))
    , m_list(new QTreeWidget(this))
    , m_state(new QLabel(this))
    , m_note(new WaitNote(m_state, this))
    , m_pause(new TypingPause(this))
    , m_queries(new QueryOwner(db->connectionName(), this))
{
    setAttribute(Qt::WA_DeleteOnClose);
    setModal(true);
    setWindowTitle(tr("Перейти до…"));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    build();
    connectParts();
    follow();
}

GotoBox::~GotoBox()
{
    // The field is left on the way out.
    delete m_pause;
}

void GotoBox::build()
{
    auto *label = new QLabel(tr("&Знайти:"), this);
    label->setBuddy(m_field);
    m_field->setObjectName(QStringLiteral("leGoto"));
    m_field->setPlaceholderText(tr("команда, магазин, каса, товар, штрихкод, картка, чек, зміна"));
    m_field->setClearButtonEnabled(true);
    m_list->setObjectName(QStringLiteral("gotoList"));
    m_list->setAccessibleName(tr("Знайдене"));
    m_list->setColumnCount(2);
    m_list->setHeaderHidden(true);
    m_list->setRootIsDecorated(false);
    m_list->setUniformRowHeights(true);
    m_list->setAllColumnsShowFocus(true);
    m_list->header()->setStretchLastSection(true);
    m_state->setObjectName(QStringLiteral("labelGoto"));
    m_state->setWordWrap(true);
    auto *line = new QHBoxLayout;
    line->addWidget(label);
    line->addWidget(m_field, 1);
    auto *rows = new QVBoxLayout(this);
    rows->addLayout(line);
    rows->addWidget(m_list, 1);
    rows->addWidget(m_state);
}

void GotoBox::connectParts()
{
    m_field->installEventFilter(this);
    m_list->installEventFilter(this);
    m_pause->follow(m_field);
    m_silence.setSingleShot(true);
    m_silence.setInterval(silenceMs);
    connect(&m_silence, &QTimer::timeout, this,
            [this] { m_note->say(tr("Сервер довго не відповідає. Команди меню працюють і без нього.")); });
    connect(m_field, &QLineEdit::textChanged, this, &GotoBox::follow);
    connect(m_pause, &TypingPause::ended, this, &GotoBox::ask);
    connect(m_queries, &QueryOwner::answered, this, &GotoBox::takeAnswer);
    connect(m_list, &QTreeWidget::itemClicked, this, &GotoBox::choose);
    connect(m_user, &QLoadedUser::rightsChanged, this, &GotoBox::follow);
}

/// Above the middle of the window that it leads through, as large as there is room.
void GotoBox::showEvent(QShowEvent *event)
{
    QDialog::showEvent(event);
    const QWidget *window = parentWidget()->window();
    const QSize wanted(fontMetrics().averageCharWidth() * widthLetters,
                       fontMetrics().lineSpacing() * heightLines);
    resize(wanted.boundedTo(window->size() - QSize(2 * edge, 2 * edge)));
    move(window->mapToGlobal(QPoint((window->width() - width()) / 2, edge)));
    m_field->setFocus();
}

/// What is typed is another question: nothing answers the one before any more. Menus answer at once.
void GotoBox::follow()
{
    m_queries->cancel();
    m_silence.stop();
    m_opensAnswer = false;
    m_hasFailed = false;
    const QString text = m_field->text();
    m_actions = gotoActions(*m_menus, text);
    const bool isAsked = !gotoQuestion(text, *m_user).statements.isEmpty();
    m_isAnswered = !isAsked;
    if (isAsked) {
        m_pause->begin();
    } else {
        m_pause->drop();
        m_found.clear();
    }
    showHits();
    tellCount();
}

void GotoBox::ask()
{
    const GotoQuestion question = gotoQuestion(m_field->text(), *m_user);
    m_askedKinds = question.kinds;
    if (m_isAnswered || question.statements.isEmpty())
        return;
    m_note->begin(tr("Шукається…"));
    m_silence.start();
    m_queries->ask(question.statements);
}

void GotoBox::takeAnswer(const std::shared_ptr<QueryAnswer> &answer)
{
    m_silence.stop();
    m_isAnswered = true;
    m_hasFailed = !answer->error.isEmpty();
    takeHits(*answer);
    showHits();
    tellCount();
    if (!answer->error.isEmpty()) {
        postMessage(m_receiver, tr("Помилка запиту:") + QLatin1Char('\n') + answer->error, answer->kind);
        m_note->say(tr("База даних не відповіла, знайдено лише команди меню. Enter шукає ще раз."));
    } else if (m_opensAnswer) {
        openBest();
    }
}

void GotoBox::takeHits(const QueryAnswer &answer)
{
    m_found.clear();
    for (int i = 0; i < m_askedKinds.size() && answer.error.isEmpty(); ++i)
        m_found += gotoHits(m_askedKinds.at(i), answer.results.at(static_cast<size_t>(i)), *m_user);
}

void GotoBox::tellCount()
{
    const int count = choosable().size();
    if (m_field->text().trimmed().isEmpty())
        m_note->say(tr("Enter відкриває, стрілки обирають, Esc закриває. «чек 1205 хрещатик» шукає чеки 1205 "
                       "лише там."));
    else if (!m_isAnswered)
        m_note->begin(tr("Шукається…"));
    else
        m_note->say(count == 0 ? tr("Нічого не знайдено.") : tr("Знайдено: %1").arg(count));
}

/// Never an answer to what was typed before: until the one to this text is there Enter waits for it.
void GotoBox::enter()
{
    // The next code of a scanner takes the place of this one.
    if (m_pace.isCode())
        m_field->selectAll();
    // What the server has not answered is asked again.
    if (m_hasFailed && best() == nullptr)
        follow();
    m_pause->end();
    if (m_isAnswered)
        openBest();
    else
        m_opensAnswer = true;
}

/// Where there is a choice it is left to the user.
void GotoBox::openBest()
{
    m_opensAnswer = false;
    if (const QTreeWidgetItem *item = best())
        choose(item);
    else
        goIntoList();
}

void GotoBox::choose(const QTreeWidgetItem *item)
{
    if (item == nullptr || (item->flags() & Qt::ItemIsEnabled) == 0)
        return;
    const GotoHit hit = item->data(Name, hitRole).value<GotoHit>();
    accept();
    emit chosen(hit);
}

void GotoBox::showHits()
{
    const QTreeWidgetItem *before = m_list->currentItem();
    const GotoHit current = before == nullptr ? GotoHit() : before->data(Name, hitRole).value<GotoHit>();
    m_list->clear();
    addHits(m_actions, true);
    addHits(m_found, m_isAnswered);
    QTreeWidgetItem *chosen = m_isAnswered ? best() : nullptr;
    for (QTreeWidgetItem *item : choosable()) {
        if (m_list->hasFocus() && !current.name.isEmpty() &&
            isSame(item->data(Name, hitRole).value<GotoHit>(), current))
            chosen = item;
    }
    m_list->setCurrentItem(chosen);
    // As wide as the names are; the places have to be read as well.
    m_list->resizeColumnToContents(Name);
    m_list->setColumnWidth(Name, qMin(m_list->columnWidth(Name), width() * 3 / 5));
}

void GotoBox::addHits(const QVector<GotoHit> &hits, bool isChoosable)
{
    int shown = 0;
    for (int i = 0; i < hits.size(); ++i) {
        const GotoHit &hit = hits.at(i);
        const bool isFirst = i == 0 || hits.at(i - 1).kind != hit.kind;
        if (isFirst) {
            const auto ofKind = [&hit](const GotoHit &other) { return other.kind == hit.kind; };
            const bool isMore = std::count_if(hits.begin(), hits.end(), ofKind) > mostGotoHits;
            addHeading(isMore
                           ? tr("%1 (перші %2, уточніть пошук)").arg(gotoKindName(hit.kind)).arg(mostGotoHits)
                           : gotoKindName(hit.kind));
        }
        shown = isFirst ? 1 : shown + 1;
        if (shown > mostGotoHits)
            continue;
        auto *item =
            new QTreeWidgetItem(m_list, {signOf(hit.kind) + QStringLiteral("  ") + hit.name, hit.place});
        item->setData(Name, hitRole, QVariant::fromValue(hit));
        item->setData(Name, Qt::AccessibleTextRole, gotoKindName(hit.kind) + QStringLiteral(": ") + hit.name);
        for (const int column : {Name, Where})
            item->setToolTip(column, item->text(column));
        if (!isChoosable)
            item->setFlags(Qt::NoItemFlags);
    }
}

void GotoBox::addHeading(const QString &text)
{
    auto *item = new QTreeWidgetItem(m_list, {text});
    item->setFlags(Qt::NoItemFlags);
    QFont bold = m_list->font();
    bold.setBold(true);
    item->setFont(Name, bold);
    item->setForeground(Name, palette().color(QPalette::Active, QPalette::Text));
    item->setFirstColumnSpanned(true);
}

QVector<QTreeWidgetItem *> GotoBox::choosable() const
{
    QVector<QTreeWidgetItem *> items;
    for (int row = 0; row < m_list->topLevelItemCount(); ++row) {
        if ((m_list->topLevelItem(row)->flags() & Qt::ItemIsEnabled) != 0)
            items.append(m_list->topLevelItem(row));
    }
    return items;
}

/// What the text means beyond doubt: all that was found, or all that fits exactly; null for a choice.
QTreeWidgetItem *GotoBox::best() const
{
    const QVector<QTreeWidgetItem *> all = choosable();
    if (all.size() == 1)
        return all.first();
    QVector<QTreeWidgetItem *> exact;
    std::copy_if(all.begin(), all.end(), std::back_inserter(exact), [](const QTreeWidgetItem *item) {
        return item->data(Name, hitRole).value<GotoHit>().isExact;
    });
    return exact.size() == 1 ? exact.first() : nullptr;
}

bool GotoBox::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress)
        return QDialog::eventFilter(watched, event);
    const auto &key = *static_cast<QKeyEvent *>(event);
    return watched == m_field ? searchKey(key) : listKey(key);
}

bool GotoBox::searchKey(const QKeyEvent &key)
{
    m_pace.take(key);
    const bool isDown = key.key() == Qt::Key_Down || key.key() == Qt::Key_PageDown;
    if (isEnterKey(&key))
        enter();
    else if (isDown)
        goIntoList();
    return isEnterKey(&key) || isDown;
}

/// Whatever is typed there belongs into the field.
bool GotoBox::listKey(const QKeyEvent &key)
{
    const QVector<QTreeWidgetItem *> items = choosable();
    const bool isAtTop = items.isEmpty() || m_list->currentItem() == items.first();
    const bool isAbove = key.key() == Qt::Key_Up && isAtTop;
    const bool isTyped = isTypedKey(&key) || key.key() == Qt::Key_Backspace;
    if (isEnterKey(&key)) {
        choose(m_list->currentItem());
    } else if (isAbove) {
        goIntoField();
    } else if (isTyped) {
        goIntoField();
        QKeyEvent again(QEvent::KeyPress, key.key(), key.modifiers(), key.text());
        QCoreApplication::sendEvent(m_field, &again);
    }
    return isEnterKey(&key) || isAbove || isTyped;
}

void GotoBox::goIntoList()
{
    const QVector<QTreeWidgetItem *> items = choosable();
    if (items.isEmpty())
        return;
    m_list->setFocus();
    if (m_list->currentItem() == nullptr)
        m_list->setCurrentItem(items.first());
}

/// What a scanner has left selected stays so: the next code takes its place.
void GotoBox::goIntoField()
{
    const int start = m_field->selectionStart();
    const int length = m_field->selectionLength();
    m_field->setFocus(Qt::OtherFocusReason);
    if (start >= 0)
        m_field->setSelection(start, length);
}
