#include "qtabactions.h"

#include "actionpanel.h"
#include "actiontimes.h"
#include "listpane.h"
#include "qaddedtactions.h"
#include "qmessdlg.h"
#include "qmessevent.h"
#include "qntableview.h"
#include "qqestion.h"
#include "qrowmodel.h"

#include <QItemSelectionModel>
#include <QVBoxLayout>

namespace {
const QLatin1String withoutAction("1");
const int noKind = 1;
/// At least so many lines are left to the list, its filter and its footer.
const int linesOfList = 12;

enum ActionColumn { Id, Name, Type, Value, Times, Start, End, Hours, Days, Goods, Shops };

QString ofProgramsWords()
{
    return QTabActions::tr("«Без акції» потрібна самим програмам: її мають товари, на які акції немає. "
                           "Змінити або видалити її не можна.");
}

QString textOf(std::string_view stored)
{
    return QString::fromUtf8(stored.data(), static_cast<int>(stored.size()));
}

QString hoursOf(std::string_view stored)
{
    const ActionTimes times = actionTimes(textOf(stored));
    return times.kind == noKind ? QString() : actionHoursShown(times);
}

QString daysOf(std::string_view stored)
{
    return weekDaysShown(textOf(stored));
}

/// At the moment of showing.
QString stateOf(std::string_view stored)
{
    const ActionTimes times = actionTimes(textOf(stored));
    return times.kind == noKind ? QTabActions::tr("без знижки")
                                : actionStateWords(actionState(times, QDateTime::currentDateTime()));
}

const CellFormat asHours = {hoursOf, hoursOf, false};
const CellFormat asWeekDays = {daysOf, daysOf, false};
const CellFormat asState = {stateOf, stateOf, false};

/// How many goods or shops have the promotion. Not of "Без акції", which most have. The brackets keep the
/// tracker out: every sale stamps the stock, which changes nothing here.
QString countOf(const char *column)
{
    return QStringLiteral("IF(action.id=1,NULL,(SELECT COUNT(DISTINCT %1) FROM(goods_shop) WHERE "
                          "goods_shop.id_action=action.id))")
        .arg(QLatin1String(column));
}

QString listSql()
{
    return QStringLiteral("SELECT action.id,action.name,type_action.name,"
                          "CASE action.id_type_action WHEN 1 THEN '' WHEN 2 THEN action.val ELSE "
                          "CONCAT_WS('; ',action.val,action.val_1,action.val_2) END,"
                          "%1,action.datetime_start,action.datetime_end,%1,action.week_day,%2,%3 "
                          "FROM action LEFT JOIN type_action ON type_action.id=action.id_type_action")
        .arg(actionTimesSql(), countOf("id_goods"), countOf("id_shop"));
}
} // namespace

QTabActions::QTabActions(QSqlDatabase *db, QLoadedUser *user, QObject *receiver, setting *set,
                         QWidget *parent)
    : QTab(db, user, receiver, set, parent, nullptr, new QVBoxLayout)
    , m_removal(db->connectionName(), receiver, nullptr)
    , m_panel(new ActionPanel(db->connectionName(), receiver, this))
{
    table = QStringLiteral("action");
    query = listSql();
    list()->breakCaptions();
    setColumns({{QString(), 0, &asNumber, true},
                {tr("Назва"), 25},
                {tr("Тип"), 8},
                {tr("Знижка, %"), 5, &asRate},
                {tr("Стан"), 15, &asState},
                {tr("Початок"), 8, &asDate},
                {tr("Закінчення"), 8, &asDate},
                {tr("Щоденні години"), 9, &asHours},
                {tr("Дні тижня"), 10, &asWeekDays},
                {tr("Товарів"), 5, &asNumber},
                {tr("Магазинів"), 5, &asNumber}});
    layout()->addWidget(m_panel);
    connect(view()->selectionModel(), &QItemSelectionModel::currentRowChanged, this, &QTabActions::followRow);
    addSearch(QStringLiteral("(action.name LIKE %1 OR type_action.name LIKE %1)"), tr("Назва або тип"));
    ShowData();
}

bool QTabActions::isOfPrograms(int row) const
{
    return model()->stored(row, Id) == withoutAction;
}

void QTabActions::tell(const QString &words)
{
    QQestion::question(window(), tr("Попередження."), words, true);
}

void QTabActions::Edit(const QModelIndex &index)
{
    if (index.isValid() && isOfPrograms(index.row()))
        tell(ofProgramsWords());
    else
        QTab::Edit(index);
}

void QTabActions::run(Command command)
{
    if (command != Command::Delete)
        QTab::run(command);
    else if (mayEdit())
        Del();
}

void QTabActions::Del()
{
    const QModelIndex current = view()->currentIndex();
    if (!mayEdit() || m_removal.isWaiting())
        return;
    if (!current.isValid())
        return tell(tr("Виберіть у списку акцію, яку треба видалити."));
    if (isOfPrograms(current.row()))
        return tell(ofProgramsWords());
    const QString id = model()->stored(current.row(), Id);
    m_removal.read([id](const Db &db) { return readActionUse(db, id); },
                   [this, id](const std::optional<ActionUse> &use) {
                       if (use)
                           askAboutRemoval(id, *use);
                   });
}

void QTabActions::askAboutRemoval(const QString &id, const ActionUse &use)
{
    const QString name = use.identity.value(0).section(QLatin1Char('\t'), 0, 0);
    if (use.identity.isEmpty())
        return tellRemoval(name, {ActionRemoved::Gone});
    if (!use.usage.isEmpty())
        return tellRemoval(name, {ActionRemoved::InUse, use.usage});
    const QPointer<QTabActions> open = this;
    if (!QMessDlg::confirm(window(), tr("Видалення акції"),
                           tr("Видалити акцію «%1»? Повернути її буде не можна.").arg(name),
                           tr("Видалити")) ||
        !open)
        return;
    // The right may go while the question is open.
    if (mayEdit())
        remove(id, use.identity);
    else
        tell(tr("Акцію не видалено: у вас тепер є право лише переглядати."));
}

void QTabActions::remove(const QString &id, const QStringList &asked)
{
    m_removal.write([id, asked](const Db &db) { return deleteAction(db, id, asked); },
                    [this, name = asked.value(0).section(QLatin1Char('\t'), 0, 0)](
                        const ActionRemoved &removed) { tellRemoval(name, removed); });
}

void QTabActions::tellRemoval(const QString &name, const ActionRemoved &removed)
{
    switch (removed.outcome) {
    case ActionRemoved::Removed:
        postMessage(receiver(), tr("Акцію «%1» видалено.").arg(name), QMessEvent::Information);
        break;
    case ActionRemoved::Failed:
        break;
    case ActionRemoved::InUse:
        return tell(
            tr("Акцію «%1» видалити не можна: її призначено (%2).\n\n%3\n\nСпершу зніміть її з товарів "
               "у вкладці \"Управління акціями\".")
                .arg(name, actionUsageWords(removed.usage), actionUsageList(removed.usage)));
    case ActionRemoved::Gone:
        tell(tr("Цю акцію вже видалив хтось інший."));
        break;
    case ActionRemoved::Changed:
        tell(tr("Поки ви вирішували, акцію змінив хтось інший. Її не видалено: перегляньте її ще раз."));
        break;
    }
    reload();
}

void QTabActions::rowsShown()
{
    followRow();
}

void QTabActions::rowShown(int row)
{
    if (row == view()->currentIndex().row())
        followRow();
}

void QTabActions::resizeEvent(QResizeEvent *event)
{
    QTab::resizeEvent(event);
    m_panel->setVisible(height() >= m_panel->sizeHint().height() + fontMetrics().height() * linesOfList);
}

void QTabActions::followRow()
{
    const int row = view()->currentIndex().row();
    if (row < 0)
        m_panel->clear();
    else
        m_panel->showAction(model()->stored(row, Id), actionTimes(model()->stored(row, Times)));
}

std::unique_ptr<RecordDialog> QTabActions::makeEditor(QString *id)
{
    return std::make_unique<QAddEdtActions>(db().connection(), id, receiver(), this);
}
