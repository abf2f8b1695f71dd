#include "changesdialog.h"

#include "messagetext.h"
#include "scanguard.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QTableWidget>
#include <QVBoxLayout>
#include <algorithm>

namespace {
enum Column { Caption, Before, Mine, Theirs, ColumnCount };

QString shownValue(const std::optional<RecordField> &field)
{
    if (!field)
        return ChangesDialog::tr("(немає)");
    return field->shown.isEmpty() ? ChangesDialog::tr("(порожньо)") : field->shown;
}

/// What the longest word of the first column needs: words are not broken.
int widthOfWords(const QTableWidget *table)
{
    int widest = 0;
    for (int row = 0; row < table->rowCount(); ++row) {
        const QTableWidgetItem *cell = table->item(row, Caption);
        const QFontMetrics letters(cell->font());
        for (const QString &word : cell->text().split(QLatin1Char(' ')))
            widest = qMax(widest, letters.horizontalAdvance(word) + letters.averageCharWidth() * 2);
    }
    return widest;
}

bool hasConflict(const QVector<RecordChange> &changes)
{
    for (const RecordChange &change : changes) {
        if (change.isConflict)
            return true;
    }
    return false;
}
} // namespace

ChangesDialog::ChangesDialog(QWidget *parent, const QVector<RecordChange> &changes)
    : QDialog(parent)
    , m_table(new QTableWidget(changes.size(), ColumnCount, this))
    , m_text(new QLabel(this))
    , m_buttons(new QHBoxLayout)
{
    setWindowTitle(tr("Запис змінено іншою програмою"));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    const bool mustChoose = hasConflict(changes);
    m_text->setObjectName(QStringLiteral("labelText"));
    m_text->setWordWrap(true);
    m_text->setText(mustChoose
                        ? tr("Поки редактор був відкритий, цей запис змінила інша програма. Виділене жирним "
                             "змінили і ви, і вона: виберіть, чиї значення залишити. Решта її змін "
                             "збережеться разом із вашими. Поки що нічого не збережено.")
                        : tr("Поки редактор був відкритий, цей запис змінила інша програма, але не те, що "
                             "змінили ви. Її зміни можна зберегти разом із вашими. Поки що нічого не "
                             "збережено."));
    buildTable(changes);
    buildButtons(mustChoose);
    auto *rows = new QVBoxLayout(this);
    rows->addWidget(m_text);
    rows->addWidget(m_table, 1);
    rows->addLayout(m_buttons);
    fit();
    new ScanGuard(this);
}

void ChangesDialog::buildTable(const QVector<RecordChange> &changes)
{
    m_table->setObjectName(QStringLiteral("twChanges"));
    m_table->setAccessibleName(windowTitle());
    m_table->setHorizontalHeaderLabels({tr("Поле"), tr("Було"), tr("У вас"), tr("У неї")});
    m_table->horizontalHeaderItem(Theirs)->setToolTip(tr("В іншої програми"));
    m_table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setTabKeyNavigation(false);
    m_table->setWordWrap(true);
    m_table->verticalHeader()->hide();
    m_table->horizontalHeader()->setHighlightSections(false);
    for (int row = 0; row < changes.size(); ++row) {
        const RecordChange &change = changes.at(row);
        const QStringList texts = {change.any().caption, shownValue(change.before), shownValue(change.mine),
                                   shownValue(change.theirs)};
        for (int column = 0; column < ColumnCount; ++column) {
            auto *cell = new QTableWidgetItem(texts.at(column));
            cell->setToolTip(texts.at(column));
            QFont font = m_table->font();
            font.setBold(change.isConflict);
            cell->setFont(font);
            m_table->setItem(row, column, cell);
        }
    }
}

void ChangesDialog::buildButtons(bool mustChoose)
{
    m_buttons->addStretch();
    if (mustChoose) {
        addButton(QStringLiteral("pbTheirs"), tr("&Взяти її значення"), TakeTheirs);
        addButton(QStringLiteral("pbMine"), tr("&Залишити мої"), KeepMine);
    } else {
        addButton(QStringLiteral("pbMine"), tr("&Зберегти разом"), KeepMine);
    }
    auto *back = addButton(QStringLiteral("pbBack"), tr("&Повернутися до редактора"), BackToEditor);
    back->setDefault(true);
    back->setFocus();
}

QPushButton *ChangesDialog::addButton(const QString &name, const QString &caption, Answer answer)
{
    auto *button = new QPushButton(caption, this);
    button->setObjectName(name);
    connect(button, &QPushButton::clicked, this, [this, answer] {
        m_answer = answer;
        accept();
    });
    m_buttons->addWidget(button);
    return button;
}

/// Wide enough for four columns, high enough for the rows, as far as the screen allows.
void ChangesDialog::fit()
{
    const QSize greatest = screen()->availableGeometry().size() * 9 / 10;
    const int width = qMin(fontMetrics().averageCharWidth() * 130, greatest.width());
    fitButtons(m_buttons, width);
    const int rowHeight = m_table->verticalHeader()->defaultSectionSize();
    // The rows are as high as their texts need in columns of that width.
    const int room = width - rowHeight * 2;
    const int captionWidth = qMax(room / ColumnCount, qMin(widthOfWords(m_table), room / 2));
    m_table->setColumnWidth(Caption, captionWidth);
    for (int column = Before; column < ColumnCount; ++column)
        m_table->setColumnWidth(column, (room - captionWidth) / (ColumnCount - 1));
    m_table->resizeRowsToContents();
    const int rows = m_table->verticalHeader()->length() + rowHeight * 2;
    m_table->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    m_table->horizontalHeader()->setSectionResizeMode(Caption, QHeaderView::Fixed);
    m_table->verticalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    m_table->setMinimumHeight(rowHeight * 3);
    const int others = m_text->heightForWidth(width) + m_buttons->sizeHint().height() + rowHeight +
                       m_table->horizontalHeader()->sizeHint().height();
    resize(width, qMin(rows + others, greatest.height()));
}

ChangesDialog::Answer ChangesDialog::ask(QWidget *parent, const QVector<RecordChange> &changes)
{
    // What has to be decided stands first.
    QVector<RecordChange> sorted = changes;
    std::stable_partition(sorted.begin(), sorted.end(),
                          [](const RecordChange &change) { return change.isConflict; });
    ChangesDialog dialog(parent, sorted);
    dialog.exec();
    return dialog.m_answer;
}
