#include "qtabtax.h"

#include "listpane.h"
#include "money.h"
#include "numberfield.h"
#include "qmessdlg.h"
#include "qmessevent.h"
#include "qqestion.h"
#include "qrowmodel.h"
#include "typedinput.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QTimer>
#include <QToolTip>
#include <QVBoxLayout>

namespace {
TaxColumn columnOf(const QModelIndex &index)
{
    return static_cast<TaxColumn>(index.column());
}

QString storedText(const QModelIndex &cell)
{
    return cell.data(QRowModel::StoredRole).toString();
}

QString fiveGroups()
{
    return QTabTax::tr("Податкових груп завжди п'ять: їх не додають і не вилучають, змінюють лише ставки та "
                       "назви зборів.");
}

/// A mask skips what does not fit it: of the comma in "7,5" it would make 75. So nothing goes in but by keys,
/// and what is pasted is read as a number.
class RateEdit : public QLineEdit
{
public:
    explicit RateEdit(QWidget *parent) : QLineEdit(parent)
    {
        setInputMask(QStringLiteral("00.00"));
        setAcceptDrops(false);
        setContextMenuPolicy(Qt::NoContextMenu);
    }

protected:
    void keyPressEvent(QKeyEvent *event) override
    {
        if (event->matches(QKeySequence::Paste))
            return takePasted(QGuiApplication::clipboard()->text());
        const bool isComma = event->text() == QLatin1String(",");
        QKeyEvent point(event->type(), Qt::Key_Period, event->modifiers(), QStringLiteral("."));
        QLineEdit::keyPressEvent(isComma ? &point : event);
    }
    void mouseReleaseEvent(QMouseEvent *event) override
    {
        if (event->button() != Qt::MiddleButton)
            QLineEdit::mouseReleaseEvent(event);
    }

private:
    void takePasted(const QString &text)
    {
        qint64 hundredths = 0;
        const QString why = readNumber(text, NumberKind::Rate, 0, largestRate, &hundredths);
        if (why.isEmpty() && !isReadOnly())
            setText(maskedRate(QString::number(hundredths)));
        else
            QToolTip::showText(mapToGlobal(QPoint(0, height())), why, this);
    }
};
} // namespace

QTabTaxDelegate::QTabTaxDelegate(QSqlDatabase *db, QObject *parent)
    : QTabDelegate(QStringLiteral("tax"), db, parent)
{
    readLength(static_cast<int>(TaxColumn::LevyName), QStringLiteral("dod_name"));
    connect(this, &QTabDelegate::update, this, [this] { emit update(true); });
}

QWidget *QTabTaxDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                                       const QModelIndex &index) const
{
    Q_UNUSED(option)
    if (columnOf(index) == TaxColumn::Id)
        return nullptr;
    const bool isOfRate = isRate(columnOf(index));
    QLineEdit *edit = isOfRate ? new RateEdit(parent) : new QLineEdit(parent);
    edit->setObjectName(isOfRate ? QStringLiteral("editRate") : QStringLiteral("editName"));
    edit->setAccessibleName(index.model()->headerData(index.column(), Qt::Horizontal).toString());
    if (!isOfRate)
        limitLength(edit, index.column());
    return takeEditor(edit, index);
}

void QTabTaxDelegate::drawFocus(QPainter *painter, const QStyleOptionViewItem &option,
                                const QRect &rect) const
{
    Q_UNUSED(rect)
    if (!option.state.testFlag(QStyle::State_HasFocus))
        return;
    const bool isSelected = option.state.testFlag(QStyle::State_Selected);
    painter->save();
    painter->setPen(option.palette.color(isSelected ? QPalette::HighlightedText : QPalette::Highlight));
    painter->drawRect(option.rect.adjusted(1, 1, -2, -2));
    painter->restore();
}

QModelIndex QTabTaxDelegate::cellFor(const QModelIndex &index) const
{
    return columnOf(index) == TaxColumn::Id ? index.sibling(index.row(), static_cast<int>(TaxColumn::Rate))
                                            : index;
}

QString QTabTaxDelegate::beginningText(const QModelIndex &index) const
{
    return isRate(columnOf(index)) ? maskedRate(storedText(index)) : storedText(index);
}

QString QTabTaxDelegate::typedText(const QLineEdit &edit, int column) const
{
    // Where a digit stands decides what it means.
    return isRate(static_cast<TaxColumn>(column)) ? edit.displayText() : edit.text().trimmed();
}

QString QTabTaxDelegate::refusal(int column, const QString &text, QString *value) const
{
    *value = text;
    if (!isRate(static_cast<TaxColumn>(column)))
        return hasControlCharacters(text) ? controlCharactersRefusal(tr("Назва")) : QString();
    qint64 hundredths = 0;
    QString why = readMaskedRate(text, &hundredths);
    *value = QString::number(hundredths);
    return why;
}

bool QTabTaxDelegate::isConfirmed(QWidget *window, const QModelIndex &cell, const QString &value) const
{
    if (!isRate(columnOf(cell)) || value == storedText(cell))
        return true;
    const QPointer<QWidget> open = window;
    const QString name = storedText(cell.sibling(cell.row(), cell.column() - 1));
    const bool isWanted = QMessDlg::confirm(
        window, tr("Змінити ставку?"),
        tr("%1: %2 → %3.\nЗа новою ставкою рахуватимуться касові зміни, відкриті після цього. Уже відкриті "
           "зберігають попередню.")
            .arg(name, rateText(storedText(cell).toLongLong()) + QStringLiteral(" %"),
                 rateText(value.toLongLong()) + QStringLiteral(" %")),
        tr("Змінити ставку"), tr("Продовжити редагування"));
    // A question that has closed leaves some window managers without an active window.
    if (open)
        QTimer::singleShot(0, open, [window] { window->activateWindow(); });
    return isWanted;
}

QTabTax::QTabTax(QSqlDatabase *db, QLoadedUser *user, QObject *receiver, setting *set, QWidget *parent)
    : QTab(db, user, receiver, set, parent, new QTabTaxDelegate(db, receiver), new QVBoxLayout)
    , m_tasks(db->connectionName(), receiver, nullptr)
{
    table = QStringLiteral("tax");
    query = QStringLiteral("SELECT id,name,pdv_proc,dod_name,dod_proc FROM tax");
    list()->breakCaptions();
    setColumns({{QString(), 5, &asNumber},
                {tr("Назва податку"), 20},
                {tr("Ставка податку %"), 8, &asRate},
                {tr("Назва додаткового збору"), 20},
                {tr("Ставка додаткового збору %"), 18, &asRate}});
    model()->setHeaderData(static_cast<int>(TaxColumn::Id), Qt::Horizontal, tr("Код"), Qt::ToolTipRole);
    connect(static_cast<QTabTaxDelegate *>(inlineEditor()), &QTabTaxDelegate::update, this,
            qOverload<bool>(&QTabTax::ShowData));
    addSearch(QStringLiteral("(tax.name LIKE %1 OR tax.dod_name LIKE %1)"), tr("назва податку або збору"));
    list()->setEmptyText(tr("Податкових груп немає. Їх створює команда \"Створити таблиці\"."));
    ShowData(false);
}

/// The trace reads as it always has.
QTabTax::~QTabTax()
{
    postTrace(receiver(), QStringLiteral("In destructor ~QTabSlujbOp"));
}

Commands QTabTax::commands() const
{
    Commands offered = QTab::commands();
    for (const Command command : {Command::Add, Command::Delete}) {
        if (offered.contains(command))
            offered[command] = fiveGroups();
    }
    return offered;
}

void QTabTax::Add()
{
    if (mayEdit())
        QQestion::question(window(), tr("Попередження."), fiveGroups(), true);
}

void QTabTax::loadAgain()
{
    ShowData(false);
}

/// The first load may still be waiting for its task.
void QTabTax::searchAgain()
{
    m_tasks.drop();
    QTab::searchAgain();
}

void QTabTax::ShowData(bool isWritten)
{
    if (isWritten) {
        m_tasks.read([sql = query + narrowed(filter)](const Db &db) { return readTaxes(db, sql); },
                     [this](const std::optional<RowStore> &taxes) {
                         if (taxes)
                             refresh(*taxes);
                     });
        return;
    }
    list()->expectLoad();
    m_tasks.read(&canCountTaxes, [this](bool canCount) {
        if (canCount)
            list()->load(query + narrowed(filter), {}, tr("Помилка запиту"));
        else
            list()->clearAfterFailure();
    });
}

void QTabTax::refresh(const RowStore &taxes)
{
    for (int tax = 0; tax < taxes.rowCount(); ++tax) {
        const std::string_view id = taxes.cell(tax, 0);
        const QModelIndex row = list()->indexOf(QString::fromUtf8(id.data(), static_cast<int>(id.size())));
        if (row.isValid() && row.row() != inlineEditor()->edited().row())
            list()->refreshRow(taxes, tax, row.row(), 1);
    }
}
