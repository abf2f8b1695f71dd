#include "countdesk.h"

#include "editdialog.h"
#include "qmessdlg.h"
#include "qntableview.h"
#include "quantitygrid.h"
#include "salekeys.h"
#include "scancatcher.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <algorithm>
#include <utility>

namespace {
constexpr qint64 one = 1000;

bool holdsWords(const QString &name, const QStringList &words)
{
    return std::all_of(words.begin(), words.end(),
                       [&](const QString &word) { return name.contains(word, Qt::CaseInsensitive); });
}
} // namespace

CountDesk::CountDesk(EditDialog *window, CountModel *model, const Parts &parts, const Words &words)
    : QObject(window), m_window(window), m_model(model), m_parts(parts), m_words(words)
{
    buildGrid();
    connect(m_model, &CountModel::countsChanged, this, &CountDesk::showSums);
    connect(m_parts.rest, &QPushButton::clicked, this, &CountDesk::takeRest);
    m_parts.field->installEventFilter(this);
    showSums();
}

void CountDesk::buildGrid()
{
    m_parts.view->setModel(m_model);
    m_grid = new QuantityGrid(m_parts.view, CountModel::Counted,
                              {[this](int row) { return m_model->lines().at(row).counted.value_or(0); },
                               [this](int row, qint64 quantity) { return setCounted(row, quantity); },
                               [this](int row) { setCounted(row, std::nullopt); },
                               [this] { return m_grid->settle(); }});
    m_grid->setUp([this](const QuantityGrid::Act &) { return !m_window->isBusy(); },
                  [](const QuantityGrid::Act &act) { act(); });
    connect(m_model, &CountModel::countTyped, m_grid, &QuantityGrid::typed);
    connect(m_grid, &QuantityGrid::told, this, &CountDesk::tell);
    connect(m_grid, &QuantityGrid::left, this, &CountDesk::focusField);
    connect(m_grid, &QuantityGrid::lettersTyped, this, [this](const QString &letters) {
        focusField();
        m_parts.field->insert(letters);
    });
}

void CountDesk::leave()
{
    m_grid->drop();
    m_grid->disconnect(this);
}

/// Behind what the window listens by: of an Enter on a button that would see a scan first, and end it.
void CountDesk::listen()
{
    if (m_scanner != nullptr)
        return;
    m_scanner = new ScanCatcher(m_window);
    connect(m_scanner, &ScanCatcher::scanned, this, &CountDesk::scan);
}

void CountDesk::showSums()
{
    m_parts.sums->setText(m_model->sums());
    m_parts.rest->setEnabled(m_model->uncounted() > 0 && !m_isFrozen);
}

void CountDesk::freeze()
{
    m_isFrozen = true;
    m_model->freeze();
    showSums();
}

void CountDesk::tell(const QString &text)
{
    m_parts.told->setText(text);
    m_parts.told->setAccessibleDescription(text);
}

QString CountDesk::told() const
{
    return m_parts.told->text();
}

/// Into the field; what is being typed there stays as it is.
void CountDesk::focusField()
{
    if (m_window->focusWidget() != m_parts.field)
        m_parts.field->setFocus();
    m_parts.field->selectAll();
}

/// Behind a question a scan waits: what is asked about does not change meanwhile.
void CountDesk::scan(const QString &code)
{
    if (m_window->isBusy())
        return tell(tr("Код «%1» не враховано: пораховане вже записується.").arg(code));
    m_scans.append(code);
    takeScans();
}

void CountDesk::takeScans()
{
    const QWidget *asking = QApplication::activeModalWidget();
    if (asking != nullptr && asking != m_window)
        return;
    for (const QString &code : std::exchange(m_scans, {})) {
        m_grid->settle();
        tell(QString());
        find(code, Scanned);
    }
}

void CountDesk::find(const QString &text, Source source)
{
    if (!findHere(text, source))
        emit unknown(text, source);
}

/// A barcode, a number, or the next name that holds all the words.
bool CountDesk::findHere(const QString &text, Source source)
{
    const int ofCode = m_model->rowOf(m_barcodes.value(text, 0));
    if (ofCode >= 0) {
        count(ofCode, Scanned);
        return true;
    }
    if (source == Scanned)
        return false;
    const int ofNumber = m_model->rowOf(text.toUInt());
    const int row = ofNumber >= 0 ? ofNumber : rowOfName(text);
    if (row >= 0)
        count(row, Typed);
    return row >= 0;
}

int CountDesk::rowOfName(const QString &text) const
{
    const QStringList words = text.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    return nextRow([&](const InvoiceLine &line) { return holdsWords(line.name, words); });
}

/// Behind the current row, and on from the first one.
int CountDesk::nextRow(const std::function<bool(const InvoiceLine &)> &isWanted) const
{
    const int rows = m_model->rowCount();
    for (int i = 1; i <= rows; ++i) {
        const int next = (qMax(m_grid->currentRow(), -1) + i) % rows;
        if (isWanted(m_model->lines().at(next)))
            return next;
    }
    return -1;
}

void CountDesk::countNext()
{
    const int row = nextRow([](const InvoiceLine &line) { return !line.counted; });
    if (row >= 0 && !m_isFrozen)
        count(row, Typed);
}

void CountDesk::count(int row, Source source)
{
    m_grid->settle();
    m_parts.field->clear();
    const InvoiceLine &line = m_model->lines().at(row);
    if (source == Scanned && line.isPiece) {
        m_grid->goToRow(row);
        setCounted(row, line.counted.value_or(0) + one);
        focusField();
    } else {
        m_grid->edit(row);
    }
}

bool CountDesk::setCounted(int row, const std::optional<qint64> &thousandths)
{
    const QString why = m_model->setCounted(row, thousandths);
    if (!why.isEmpty())
        tell(why);
    m_isChanged = m_isChanged || why.isEmpty();
    return why.isEmpty();
}

/// The whole point of counting is given up: only by a deliberate act.
void CountDesk::takeRest()
{
    m_grid->settle();
    const int rest = m_model->uncounted();
    if (rest > 0 && QMessDlg::confirm(m_window, m_window->windowTitle(), m_words.rest.arg(rest),
                                      m_words.takeRest, tr("&Рахувати далі"))) {
        m_model->takeRestAsSent();
        m_isChanged = true;
    }
    focusField();
    takeScans();
}

bool CountDesk::eventFilter(QObject *watched, QEvent *event)
{
    return watched == m_parts.field && event->type() == QEvent::KeyPress
               ? fieldKey(static_cast<QKeyEvent *>(event))
               : QObject::eventFilter(watched, event);
}

bool CountDesk::fieldKey(const QKeyEvent *key)
{
    const QString text = m_parts.field->text().trimmed();
    if (text.isEmpty() && m_grid->rowKey(key))
        return true;
    if (isEnterKey(key) && !text.isEmpty() && !(m_isAsking && m_isAsking())) {
        tell(QString());
        find(text, Typed);
    } else if (isEnterKey(key) && text.isEmpty()) {
        countNext();
    } else if (key->key() == Qt::Key_Down) {
        m_parts.view->setFocus();
    }
    return isEnterKey(key) || key->key() == Qt::Key_Down;
}

bool CountDesk::settle()
{
    return m_grid->settle();
}

QString CountDesk::refusal() const
{
    const QString text = m_parts.field->text().trimmed();
    if (!text.isEmpty())
        return tr("Товар «%1» ще не пораховано. Натисніть Enter або очистіть поле.").arg(text);
    const int rest = m_model->uncounted();
    return rest == 0 ? QString()
                     : tr("Не пораховано позицій: %1. Введіть кількість; 0 — коли товару немає.").arg(rest);
}

void CountDesk::goToUncounted()
{
    if (m_model->firstUncounted() >= 0)
        m_grid->goToRow(m_model->firstUncounted());
}

bool CountDesk::agreesToDifferences()
{
    const QStringList differences = m_model->differences();
    return differences.isEmpty() ||
           QMessDlg::confirm(m_window, m_window->windowTitle(),
                             m_words.differ + QLatin1Char('\n') + differences.join(QLatin1Char('\n')),
                             m_words.agree, tr("&Рахувати далі"));
}
