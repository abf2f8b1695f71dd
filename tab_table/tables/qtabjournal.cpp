#include "qtabjournal.h"
#include "ui_qtabjournalfilter.h"

#include "combos.h"
#include "listpane.h"
#include "permittedlists.h"
#include "qloadeduser.h"
#include "qmessevent.h"
#include "qntableview.h"
#include "qrowmodel.h"
#include "typedinput.h"
#include "typingpause.h"

#include <QSignalBlocker>
#include <QVBoxLayout>

QString JournalAsked::placeCondition(const QString &table) const
{
    QString condition = shops;
    if (place.shop != 0)
        condition += QStringLiteral(" AND %1.id_shop=%2").arg(table).arg(place.shop);
    if (place.kass != 0)
        condition += QStringLiteral(" AND %1.id_kass=%2").arg(table).arg(place.kass);
    return condition;
}

QTabJournal::QTabJournal(QSqlDatabase *db, QLoadedUser *user, QObject *receiver, setting *set,
                         QWidget *parent)
    : QTab(db, user, receiver, set, parent, nullptr, new QVBoxLayout)
    , ui(std::make_unique<Ui::QTabJournalFilter>())
    , m_daysPause(new TypingPause(this))
{
    recordRefusal = tr("Це записи кас: їх не додають і не змінюють.");
    list()->breakCaptions();
    list()->setArranging([this](RowStore &&found) { return takePage(std::move(found)); });
}

QTabJournal::~QTabJournal()
{
    // The fields are left on the way out.
    delete m_daysPause;
}

void QTabJournal::open(const QString &numberCaption)
{
    buildFilter(numberCaption);
    connectFilter();
    refillPlaces();
    searchAgain();
}

void QTabJournal::buildFilter(const QString &numberCaption)
{
    ui->setupUi(addFilterBar());
    ui->label_leSearch->setText(numberCaption);
    ui->range->hideNumbers();
    ui->range->setEnabled(false);
    ui->place->open(db().connection()->connectionName(), receiver());
    list()->setButtons(nullptr, ui->pbStop);
    connect(ui->pbStop, &QPushButton::clicked, this, [this] {
        stopLoading();
        ui->pages->stayOnPage(m_hasNext);
    });
    limitTo(ui->leSearch, "[0-9]{0,10}");
    setSearchField(ui->leSearch, [this](const QString &text) { seerch(text); });
}

void QTabJournal::connectFilter()
{
    connect(ui->place, &PlaceSelector::groupChanged, this, &QTabJournal::refillShops);
    connect(ui->place, &PlaceSelector::shopChanged, this, [this] {
        ui->place->refillRegisters(
            QStringLiteral("SELECT IFNULL(advertising_str,CONCAT('№ ',id)),id FROM kassa WHERE id_shop=") +
            QString::number(ui->place->place().shop) + QStringLiteral(" ORDER BY advertising_str,id"));
    });
    connect(ui->place, &PlaceSelector::chosen, this, &QTabJournal::followPlace);
    connect(ui->chDays, &QCheckBox::toggled, ui->range, &QWidget::setEnabled);
    connect(ui->chDays, &QCheckBox::toggled, this, &QTabJournal::searchAgain);
    connect(ui->range, &RangeSelector::changed, m_daysPause, &TypingPause::begin);
    connect(m_daysPause, &TypingPause::ended, this, &QTabJournal::searchAgain);
    connect(ui->pages, &PageBar::loadWanted, this, &QTabJournal::searchAgain);
    connect(ui->pages, &PageBar::sizeEntered, this, &QTabJournal::searchAgain);
    connect(ui->pages, &PageBar::previousWanted, this, &QTabJournal::previousPage);
    connect(ui->pages, &PageBar::nextWanted, this, &QTabJournal::nextPage);
}

void QTabJournal::refillPlaces()
{
    ui->place->refillGroups(permittedGroupsSql(*user(), true));
    refillShops();
}

/// Blocked shops and registers too: what they have sold stays.
void QTabJournal::refillShops()
{
    ui->place->refillShops(QStringLiteral("SELECT address,id FROM shops WHERE") + asked().shops +
                           QStringLiteral(" ORDER BY address,id"));
}

void QTabJournal::followRights()
{
    if (!user()->isLoaded())
        return;
    ui->place->keepChoice();
    refillPlaces();
}

/// Also when the boxes have been filled for the first time, which changes nothing.
void QTabJournal::followPlace()
{
    const JournalAsked now = asked();
    if (now.place.shop != m_asked.place.shop || now.place.kass != m_asked.place.kass ||
        now.shops != m_asked.shops)
        searchAgain();
}

bool QTabJournal::isLoading() const
{
    return QTab::isLoading() || ui->place->isReading() || m_daysPause->isRunning();
}

void QTabJournal::clearFilter()
{
    const QSignalBlocker holdField(ui->leSearch);
    const QSignalBlocker holdDays(ui->chDays);
    ui->leSearch->clear();
    ui->chDays->setChecked(false);
    ui->range->setEnabled(false);
    if (ui->place->narrowest() != PlaceSelector::Everywhere)
        ui->place->showPlace(0, QString(), QString());
}

void QTabJournal::run(Command command)
{
    if (command != Command::Add && command != Command::Edit)
        QTab::run(command);
}

JournalAsked QTabJournal::asked() const
{
    JournalAsked asked;
    asked.place = ui->place->place();
    const QString field = QStringLiteral("shops.group_shop");
    asked.shops = asked.place.group == 0 ? GetStrLstGroupFromPermis(user(), field, true)
                                         : QStringLiteral(" %1=%2").arg(field).arg(asked.place.group);
    if (ui->chDays->isChecked()) {
        asked.from = ui->range->from();
        asked.to = ui->range->to();
    }
    asked.number = ui->leSearch->text();
    if (!narrowing().isEmpty())
        asked.shops += QStringLiteral(" AND (%1)").arg(narrowing());
    return asked;
}

void QTabJournal::searchAgain()
{
    seerch(ui->leSearch->text());
}

void QTabJournal::seerch(const QString &text)
{
    postTrace(receiver(),
              QLatin1String(metaObject()->className()) + QStringLiteral("::seerch(QString)=") + text);
    m_daysPause->drop();
    m_asked = asked();
    m_asked.number = text;
    m_askedHeading = QStringList(ui->place->description());
    if (!narrowing().isEmpty())
        m_askedHeading.append(narrowingWords());
    if (m_asked.hasDays())
        m_askedHeading.append(ui->range->description());
    if (!text.isEmpty())
        m_askedHeading.append(QStringLiteral("№ ") + text);
    ui->pages->restart();
    // The rows of another search do not go on with those of this one, should it be stopped.
    m_hasNext = false;
    showPage();
}

void QTabJournal::showPage()
{
    if (refuse())
        return;
    const int size = ui->pages->pageSize();
    m_pageRows = size == 0 ? mostRows : qMin(size, mostRows);
    expectLongLoads(size == 0 || m_asked.hasDays());
    loadPage(m_asked, ui->pages->start(), m_pageRows);
}

void QTabJournal::expectLongLoads(bool isLong)
{
    list()->expectLongLoads(isLong);
}

QString QTabJournal::refusesAll(const JournalAsked &asked) const
{
    Q_UNUSED(asked)
    return {};
}

/// In the list, where the rows would stand.
bool QTabJournal::refuse()
{
    QString why;
    if (m_asked.hasDays())
        why = ui->range->refusal();
    if (why.isEmpty() && ui->pages->pageSize() == 0)
        why = refusesAll(m_asked);
    if (why.isEmpty())
        return false;
    stopLoading();
    list()->clear();
    view()->setEmptyText(why);
    emit loaded();
    return true;
}

/// What is being typed meanwhile will be asked for: search() would drop it.
void QTabJournal::showRows(const QString &sql)
{
    query = sql;
    tellEmpty();
    list()->load(sql);
}

void QTabJournal::showNoRows()
{
    tellEmpty();
    list()->showRows({});
}

void QTabJournal::tellEmpty()
{
    const bool isNarrowed = !narrowing().isEmpty() || m_asked.hasDays() || !m_asked.number.isEmpty() ||
                            m_asked.place.group + m_asked.place.shop + m_asked.place.kass != 0;
    if (user()->groups().isEmpty())
        list()->setEmptyText(noGroupsHint());
    else
        list()->setEmptyText(isNarrowed ? QTab::tr("За цими умовами нічого не знайдено.")
                                        : QTab::tr("Немає записів"));
}

namespace {
RowStore without(const RowStore &rows, int left, int columns)
{
    RowStore others;
    std::vector<std::string_view> cells(static_cast<size_t>(columns));
    for (int row = 0; row < rows.rowCount(); ++row) {
        for (int column = 0; column < columns; ++column)
            cells[static_cast<size_t>(column)] = rows.cell(row, column);
        if (row != left)
            others.append(cells);
    }
    return others;
}
} // namespace

RowStore QTabJournal::takePage(RowStore &&found)
{
    m_hasNext = found.rowCount() > m_pageRows;
    RowStore page = m_hasNext ? without(found, surplusRow(found), model()->columnCount()) : std::move(found);
    m_next = keyBehind(page);
    return page;
}

/// The title of the page stands first in the heading already.
void QTabJournal::rowsShown()
{
    list()->setHeading(list()->heading().mid(0, 1) + m_askedHeading);
    ui->pages->showPage(m_hasNext);
    const bool isCut = m_hasNext && m_pageRows == mostRows;
    ui->pages->setCountText(isCut ? tr("По %1 рядків: більше в один список не вміщається.").arg(mostRows)
                                  : QString());
}

void QTabJournal::loadAgain()
{
    showPage();
}

void QTabJournal::previousPage()
{
    if (!list()->isLoading() && ui->pages->goBack())
        showPage();
}

void QTabJournal::nextPage()
{
    if (list()->isLoading() || !m_hasNext)
        return;
    ui->pages->goOn(m_next, model()->rowCount());
    showPage();
}
