#include "goodspicker.h"
#include "ui_goodspicker.h"

#include "dbtasks.h"
#include "ean13.h"
#include "heldacts.h"
#include "qntableview.h"
#include "qrowmodel.h"
#include "salekeys.h"
#include "salework.h"
#include "scancatcher.h"

#include <QApplication>
#include <QHeaderView>
#include <utility>

namespace {
bool isScannedCode(const QString &text)
{
    return text.size() >= ScanPace::shortestCode && isAllDigits(text);
}

QString noGoodsWords(GoodsSearch::Mode mode)
{
    switch (mode) {
    case GoodsSearch::Receive:
        return GoodsPicker::tr("Немає товарів, які можна прийняти.");
    case GoodsSearch::Move:
        return GoodsPicker::tr("У магазині немає товарів для переміщення.");
    case GoodsSearch::Transfer:
        return GoodsPicker::tr("У магазині-відправнику немає товарів.");
    default:
        return GoodsPicker::tr("У магазині немає товарів для продажу.");
    }
}
} // namespace

GoodsPicker::GoodsPicker(QWidget *parent) : QWidget(parent), ui(std::make_unique<Ui::GoodsPicker>())
{
    ui->setupUi(this);
}

GoodsPicker::~GoodsPicker() = default;

void GoodsPicker::setUp(SaleWork *work, HeldActs *acts, const Scope &scope, const Take &take)
{
    m_work = work;
    m_acts = acts;
    m_tasks = work->makeTasks(this);
    m_scope = scope;
    m_take = take;
    setUpList();
    setUpScans();
    connectSearch();
}

/// Behind the acts that are held, so that it sees every key first.
void GoodsPicker::setUpScans()
{
    auto *catcher = new ScanCatcher(m_work->tab());
    connect(m_acts, &HeldActs::sending, catcher, &ScanCatcher::setDeaf);
    connect(m_acts, &HeldActs::impatient, this, &GoodsPicker::giveUp);
    connect(catcher, &ScanCatcher::scanned, this, [this](const QString &code) {
        m_acts->forgetKeys(code.size());
        if (m_work->isIdle())
            m_work->tell(QString());
        m_scans.append(code);
        takeScans();
        emit scanned();
    });
}

void GoodsPicker::setUpList()
{
    ui->list->open(m_work->db(), m_work->user(), m_work->receiver());
    ui->list->setColumns(goodsListColumns(), QStringLiteral("QRegisterSale_viewGoods"));
    // How many there are is nothing to sell by, and the list of a search is not to be printed.
    ui->list->footer()->hide();
    QNTableView *view = ui->list->view();
    view->setObjectName(QStringLiteral("viewGoods"));
    view->setSelectionMode(QAbstractItemView::SingleSelection);
    // The best fit comes first until somebody wants another order.
    view->horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
    view->installEventFilter(this);
    connect(view, &QTableView::doubleClicked, this,
            [this](const QModelIndex &index) { addListed(index.row(), ui->leSearch->text()); });
    connect(view->horizontalHeader(), &QHeaderView::sectionClicked, this, &GoodsPicker::focusSearch);
    connect(ui->list, &ListPane::loaded, this, &GoodsPicker::showFound);
    connect(ui->list, &ListPane::failed, this, &GoodsPicker::tellFailure);
}

void GoodsPicker::connectSearch()
{
    m_pause.follow(ui->leSearch);
    connect(&m_pause, &TypingPause::ended, this, [this] {
        if (m_waited)
            m_pause.begin();
        else
            load(ui->leSearch->text());
    });
    connect(ui->leSearch, &QLineEdit::textEdited, this, [this] { m_asked.clear(); });
    connect(ui->rbName, &QRadioButton::toggled, this, [this] {
        refresh();
        focusSearch();
    });
    connect(ui->sbLimit, qOverload<int>(&QSpinBox::valueChanged), this, &GoodsPicker::refresh);
    ui->leSearch->installEventFilter(this);
}

QLineEdit *GoodsPicker::searchField() const
{
    return ui->leSearch;
}

QNTableView *GoodsPicker::view() const
{
    return ui->list->view();
}

std::optional<GoodsItem> GoodsPicker::current() const
{
    const QRowModel *model = ui->list->model();
    const QModelIndex chosen = view()->currentIndex();
    if (!chosen.isValid() && model->rowCount() != 1)
        return std::nullopt;
    return goodsItem([=](int column) { return model->stored(qMax(chosen.row(), 0), column); });
}

QWidgetList GoodsPicker::fields() const
{
    return {ui->sbLimit};
}

bool GoodsPicker::hasText() const
{
    return !ui->leSearch->text().isEmpty();
}

GoodsSearch GoodsPicker::wanted(GoodsSearch::By by, const QString &text) const
{
    GoodsSearch search = m_scope();
    search.by = by;
    search.text = text;
    search.limit = ui->sbLimit->value();
    return search;
}

/// Not before an item that is awaited out of the list.
void GoodsPicker::search(const QString &text)
{
    m_acts->then([=](bool) { load(text); });
}

void GoodsPicker::refresh()
{
    m_acts->then([this](bool) { load(ui->leSearch->text()); });
}

void GoodsPicker::clear()
{
    ui->leSearch->clear();
    search(QString());
}

void GoodsPicker::clearField()
{
    if (ui->leSearch->text() == m_takenBy)
        ui->leSearch->clear();
}

void GoodsPicker::load(const QString &text)
{
    m_pause.drop();
    const auto by = ui->rbName->isChecked() ? GoodsSearch::Name : GoodsSearch::Barcode;
    ui->list->view()->setEmptyText(tr("Пошук…"));
    const GoodsSearch search = wanted(by, text.trimmed());
    ui->list->setEmptyText(search.text.isEmpty() ? noGoodsWords(search.mode)
                                                 : tr("За цими умовами нічого не знайдено."));
    ui->list->load(goodsListSql(search));
}

void GoodsPicker::showFound()
{
    if (m_waited)
        answerEnter(ui->list->model()->rowCount());
}

void GoodsPicker::tellFailure()
{
    if (!m_waited)
        return;
    emit notAdded(tr("Товар «%1» не додано: сервер не відповів.").arg(*m_waited));
    m_waited.reset();
    m_acts->come(false);
}

/// Somebody waits behind it for too long.
void GoodsPicker::giveUp()
{
    if (!m_acts->isAwaiting())
        return;
    emit notAdded(tr("Товар «%1» не додано: сервер не відповів вчасно.").arg(m_waited.value_or(m_lookedUp)));
    m_tasks->drop();
    if (m_waited)
        dropSearch();
    else
        m_acts->come(false);
}

void GoodsPicker::enter()
{
    const QString text = ui->leSearch->text().trimmed();
    const bool isAsked = m_acts->isAwaiting() && m_asked == text;
    if (text.isEmpty() || isAsked || !m_work->isFree())
        return;
    if (m_scope().idShop == 0)
        return m_work->tell(tr("Магазин ще не вибрано."));
    m_acts->then([=](bool) { ask(text); });
}

/// A whole barcode is looked up at once; anything else waits for the list.
void GoodsPicker::ask(const QString &text)
{
    m_work->tell(QString());
    m_asked = text;
    if (isScannedCode(text))
        lookUp(text, Typed);
    else
        awaitList(text);
}

void GoodsPicker::awaitList(const QString &text)
{
    m_waited = text;
    m_acts->await();
    load(text);
}

/// What was typed after Enter stays.
void GoodsPicker::answerEnter(int count)
{
    const QString waited = *m_waited;
    m_waited.reset();
    const bool isSame = ui->leSearch->text().trimmed() == waited;
    if (count == 1) {
        const QRowModel *model = ui->list->model();
        const GoodsItem item = goodsItem([=](int column) { return model->stored(0, column); });
        return m_acts->come(take(item, isSame ? ui->leSearch->text() : waited));
    }
    const QString why =
        count == 0 ? tr("Товар «%1» не знайдено.").arg(waited)
                   : tr("За «%1» знайдено кілька товарів: виберіть потрібний і натисніть Enter.").arg(waited);
    if (isScannedCode(waited) || !isSame)
        emit notAdded(why);
    else
        m_work->tell(why);
    if (isSame && count == 0)
        ui->leSearch->selectAll();
    else if (isSame)
        goIntoList();
    m_acts->come(false);
}

void GoodsPicker::lookUp(const QString &barcode, Source source)
{
    m_lookedUp = barcode;
    m_acts->await();
    m_tasks->read(
        [sql = goodsListSql(wanted(GoodsSearch::ExactBarcode, barcode)),
         caller = m_work->caller()](const Db &db) {
            auto query = db.run(sql, {}, {}, caller.file, caller.line);
            const bool isKnown = query && query->next();
            return Found{query.has_value(), isKnown ? std::optional(goodsItem(*query)) : std::nullopt};
        },
        [=](const Found &found) { showLookedUp(barcode, source, found); });
}

/// What was typed meanwhile stays.
void GoodsPicker::showLookedUp(const QString &barcode, Source source, const Found &found)
{
    if (found.item)
        return m_acts->come(take(*found.item, source == Typed ? barcode : QString()));
    if (found.isAnswered && source == Typed)
        return awaitList(barcode);
    emit notAdded(found.isAnswered ? tr("Товар «%1» не знайдено.").arg(barcode)
                                   : tr("Товар «%1» не додано: сервер не відповів.").arg(barcode));
    m_acts->come(false);
}

void GoodsPicker::addListed(int row, const QString &asked)
{
    const QRowModel *model = ui->list->model();
    if (row < 0 || row >= model->rowCount())
        return;
    m_work->tell(QString());
    // Before, because of what is weighed its quantity may be asked for.
    focusSearch();
    take(goodsItem([=](int column) { return model->stored(row, column); }), asked);
}

/// asked: what the field showed when it was asked for.
bool GoodsPicker::take(const GoodsItem &item, const QString &asked)
{
    m_takenBy = asked;
    return m_take(item);
}

void GoodsPicker::goIntoList()
{
    ui->list->view()->setCurrentIndex(ui->list->model()->index(0, static_cast<int>(GoodsColumn::Name)));
    ui->list->view()->setFocus();
}

void GoodsPicker::dropSearch()
{
    ui->list->stop();
    m_pause.begin();
    if (std::exchange(m_waited, std::nullopt))
        m_acts->come(false);
}

QString GoodsPicker::codeLeft() const
{
    const QString text = ui->leSearch->text().trimmed();
    return looksScanned(text) && text != m_asked ? text : QString();
}

/// In the order they were scanned.
void GoodsPicker::takeScans()
{
    if (QApplication::activeModalWidget() != nullptr)
        return;
    for (const QString &code : std::exchange(m_scans, {}))
        m_acts->then([=](bool) { takeScan(code); });
}

/// A question that one of them asks holds up the others.
void GoodsPicker::takeScan(const QString &code)
{
    if (QApplication::activeModalWidget() != nullptr || (m_mayTake && !m_mayTake())) {
        m_scans.append(code);
        return;
    }
    emit aboutToTake();
    focusSearch();
    lookUp(code, Scanned);
}

/// What is being typed there stays as it is.
void GoodsPicker::focusSearch()
{
    if (window()->focusWidget() != ui->leSearch) {
        ui->leSearch->setFocus();
        ui->leSearch->selectAll();
    }
    if (!m_scans.isEmpty())
        QTimer::singleShot(0, this, &GoodsPicker::takeScans);
}

void GoodsPicker::typeInto(const QString &text)
{
    focusSearch();
    ui->leSearch->insert(text);
}

QVector<ToldKey> GoodsPicker::toldKeys() const
{
    return {{{Qt::Key_Return}, tr("Додати знайдений товар")},
            {{Qt::Key_Down}, tr("Із поля пошуку: до списку товарів")}};
}

bool GoodsPicker::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    const auto *key = static_cast<QKeyEvent *>(event);
    return watched == ui->leSearch ? searchKey(key) : listKey(key);
}

bool GoodsPicker::searchKey(const QKeyEvent *key)
{
    if (isEnterKey(key)) {
        enter();
        return true;
    }
    const bool isDown = key->key() == Qt::Key_Down && ui->list->model()->rowCount() > 0;
    if (isDown)
        goIntoList();
    return isDown;
}

/// Whatever is typed there belongs into the search field.
bool GoodsPicker::listKey(const QKeyEvent *key)
{
    const int row = ui->list->view()->currentIndex().row();
    if (isEnterKey(key)) {
        addListed(row, ui->leSearch->text());
        return true;
    }
    const bool isAbove = key->key() == Qt::Key_Up && row <= 0;
    if (isAbove)
        focusSearch();
    else if (isTypedKey(key))
        typeInto(key->text());
    return isAbove || isTypedKey(key);
}
