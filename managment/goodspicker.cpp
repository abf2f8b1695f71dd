#include "goodspicker.h"
#include "ui_goodspicker.h"

#include "db.h"
#include "ean13.h"
#include "qntableview.h"
#include "qrowmodel.h"
#include "salekeys.h"
#include "scancatcher.h"

#include <QApplication>
#include <QEventLoop>
#include <QHeaderView>
#include <QScopedValueRollback>

namespace {
/// So long a decision waits for an item that is on its way.
constexpr int patienceMs = 2000;
/// A scanner types a barcode faster than that: its digits are not searched one by one.
constexpr int typingMs = 120;

bool isScannedCode(const QString &text)
{
    return text.size() >= ScanPace::shortestCode && isAllDigits(text);
}
} // namespace

GoodsPicker::GoodsPicker(QWidget *parent) : QWidget(parent), ui(std::make_unique<Ui::GoodsPicker>())
{
    ui->setupUi(this);
    m_delay.setSingleShot(true);
    m_delay.setInterval(typingMs);
}

GoodsPicker::~GoodsPicker() = default;

void GoodsPicker::setUp(QSqlDatabase *db, QLoadedUser *user, QObject *receiver, QWidget *area,
                        const Scope &scope, const Take &take, const char *file, int line)
{
    m_db = db;
    m_receiver = receiver;
    m_scope = scope;
    m_take = take;
    m_file = file;
    m_line = line;
    setUpList(db, user, receiver);
    connectSearch();
    connect(new ScanCatcher(area), &ScanCatcher::scanned, this, [this](const QString &code) {
        m_scans.append(code);
        takeScans();
    });
}

void GoodsPicker::setUpList(QSqlDatabase *db, QLoadedUser *user, QObject *receiver)
{
    ui->list->open(db, user, receiver);
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
            [this](const QModelIndex &index) { addListed(index.row()); });
    connect(view->horizontalHeader(), &QHeaderView::sectionClicked, this, &GoodsPicker::focusSearch);
    connect(ui->list, &ListPane::loaded, this, &GoodsPicker::showFound);
    connect(ui->list, &ListPane::failed, this, &GoodsPicker::tellFailure);
}

void GoodsPicker::connectSearch()
{
    connect(&m_delay, &QTimer::timeout, this, [this] {
        if (m_waited)
            m_delay.start();
        else
            load(ui->leSearch->text());
    });
    connect(ui->leSearch, &QLineEdit::textChanged, &m_delay, qOverload<>(&QTimer::start));
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

void GoodsPicker::search(const QString &text)
{
    settle();
    load(text);
}

void GoodsPicker::refresh()
{
    search(ui->leSearch->text());
}

void GoodsPicker::clear()
{
    clearField();
    search(QString());
}

void GoodsPicker::clearField()
{
    ui->leSearch->clear();
}

void GoodsPicker::load(const QString &text)
{
    m_delay.stop();
    const auto by = ui->rbName->isChecked() ? GoodsSearch::Name : GoodsSearch::Barcode;
    ui->list->view()->setEmptyText(tr("Пошук…"));
    ui->list->setEmptyText(text.isEmpty() ? tr("У магазині немає товарів для продажу.")
                                          : tr("За цими умовами нічого не знайдено."));
    ui->list->load(goodsListSql(wanted(by, text.trimmed())));
}

void GoodsPicker::showFound()
{
    if (m_waited)
        answerEnter(ui->list->model()->rowCount());
    emit answered();
}

void GoodsPicker::tellFailure()
{
    if (m_waited)
        emit notAdded(tr("Товар «%1» не додано: сервер не відповів.").arg(*m_waited));
    m_waited.reset();
    emit answered();
}

/// A whole barcode is looked up at once; anything else waits for the list.
void GoodsPicker::enter()
{
    emit told(QString());
    const QString text = ui->leSearch->text().trimmed();
    if (text.isEmpty() || m_waited == text)
        return;
    m_asked = text;
    settle();
    if (isScannedCode(text) && addScanned(text))
        return;
    if (m_isTakingScans)
        emit notAdded(tr("Товар «%1» не знайдено.").arg(text));
    else
        m_waited = text;
    load(text);
}

/// What was typed after Enter stays.
void GoodsPicker::answerEnter(int count)
{
    const QString waited = *m_waited;
    m_waited.reset();
    const QString text = ui->leSearch->text();
    const bool isSame = text.trimmed() == waited;
    if (count == 1) {
        addListed(0);
        if (!isSame)
            ui->leSearch->setText(text);
        return;
    }
    const QString why =
        count == 0 ? tr("Товар «%1» не знайдено.").arg(waited)
                   : tr("За «%1» знайдено кілька товарів: виберіть потрібний і натисніть Enter.").arg(waited);
    if (isScannedCode(waited) || !isSame)
        emit notAdded(why);
    else
        emit told(why);
    if (!isSame)
        return;
    if (count == 0)
        ui->leSearch->selectAll();
    else
        goIntoList();
}

/// True when the barcode is known, or the server did not tell.
bool GoodsPicker::addScanned(const QString &barcode)
{
    auto query = Db(m_db, m_receiver)
                     .run(goodsListSql(wanted(GoodsSearch::ExactBarcode, barcode)), {}, {}, m_file, m_line);
    if (!query) {
        emit notAdded(tr("Товар «%1» не додано: сервер не відповів.").arg(barcode));
        return true;
    }
    if (!query->next())
        return false;
    take(goodsItem(*query));
    return true;
}

void GoodsPicker::addListed(int row)
{
    const QRowModel *model = ui->list->model();
    if (row >= 0 && row < model->rowCount())
        take(goodsItem([=](int column) { return model->stored(row, column); }));
}

void GoodsPicker::take(const GoodsItem &item)
{
    m_taken += m_take(item) ? 1 : 0;
    focusSearch();
}

void GoodsPicker::goIntoList()
{
    ui->list->view()->setCurrentIndex(ui->list->model()->index(0, static_cast<int>(GoodsColumn::Name)));
    ui->list->view()->setFocus();
}

/// The window takes no keys meanwhile; they come after the item.
bool GoodsPicker::settle()
{
    if (!m_waited)
        return true;
    const int takenBefore = m_taken;
    QEventLoop loop;
    QTimer patience;
    patience.setSingleShot(true);
    connect(&patience, &QTimer::timeout, &loop, &QEventLoop::quit);
    connect(this, &GoodsPicker::answered, &loop, &QEventLoop::quit);
    patience.start(patienceMs);
    loop.exec(QEventLoop::ExcludeUserInputEvents);
    if (m_waited) {
        emit notAdded(tr("Товар «%1» не додано: сервер не відповів вчасно.").arg(*m_waited));
        dropSearch();
    }
    return m_taken > takenBefore;
}

void GoodsPicker::dropSearch()
{
    m_waited.reset();
    ui->list->stop();
    m_delay.start();
}

QString GoodsPicker::codeLeft() const
{
    const QString text = ui->leSearch->text().trimmed();
    return looksScanned(text) && text != m_asked ? text : QString();
}

/// In the order they were scanned; a question that one of them asks holds up the others.
void GoodsPicker::takeScans()
{
    if (m_isTakingScans || QApplication::activeModalWidget() != nullptr)
        return;
    const QScopedValueRollback<bool> taking(m_isTakingScans, true);
    while (!m_scans.isEmpty()) {
        const QString code = m_scans.takeFirst();
        emit aboutToTake();
        settle();
        ui->leSearch->setText(code);
        focusSearch();
        enter();
    }
}

void GoodsPicker::focusSearch()
{
    ui->leSearch->setFocus();
    ui->leSearch->selectAll();
    if (!m_scans.isEmpty())
        QTimer::singleShot(0, this, &GoodsPicker::takeScans);
}

void GoodsPicker::typeInto(const QString &text)
{
    focusSearch();
    ui->leSearch->insert(text);
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
        addListed(row);
        return true;
    }
    const bool isAbove = key->key() == Qt::Key_Up && row <= 0;
    if (isAbove)
        focusSearch();
    else if (isTypedKey(key))
        typeInto(key->text());
    return isAbove || isTypedKey(key);
}
