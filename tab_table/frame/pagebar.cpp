#include "pagebar.h"
#include "ui_pagebar.h"

#include "typedinput.h"

#include <QEvent>

namespace {
/// How many rows a page has as long as nobody says otherwise.
const int usualPage = 100;
} // namespace

PageBar::PageBar(QWidget *parent) : QWidget(parent), ui(std::make_unique<Ui::PageBar>())
{
    ui->setupUi(this);
    limitTo(ui->lePage, "[1-9][0-9]{0,6}");
    ui->lePage->setText(QString::number(usualPage));
    ui->lePage->setMaximumWidth(fontMetrics().averageCharWidth() * 12);
    ui->lePage->installEventFilter(this);
    connect(ui->lePage, &QLineEdit::returnPressed, this, &PageBar::sizeEntered);
    connect(ui->chAll, &QCheckBox::stateChanged, this, &PageBar::allToggled);
    connect(ui->pbLoad, &QPushButton::clicked, this, &PageBar::loadWanted);
    connect(ui->pbPrevious, &QPushButton::clicked, this, &PageBar::previousWanted);
    connect(ui->pbNext, &QPushButton::clicked, this, &PageBar::nextWanted);
    setFocusProxy(ui->lePage);
}

PageBar::~PageBar() = default;

int PageBar::pageSize() const
{
    return ui->chAll->isChecked() ? 0 : qMax(1, ui->lePage->text().toInt());
}

void PageBar::restart()
{
    m_starts = {Start()};
    m_shownStarts = m_starts;
}

void PageBar::goOn(const QVariant &start, int rows)
{
    m_starts.append({start, rowsBefore() + rows});
}

bool PageBar::goBack()
{
    if (m_starts.size() < 2)
        return false;
    m_starts.removeLast();
    return true;
}

void PageBar::showPage(bool hasNext)
{
    m_shownStarts = m_starts;
    ui->labelPage->setText(tr("сторінка %1").arg(m_starts.size()));
    ui->pbPrevious->setEnabled(m_starts.size() > 1);
    ui->pbNext->setEnabled(hasNext);
}

void PageBar::stayOnPage(bool hasNext)
{
    m_starts = m_shownStarts;
    showPage(hasNext);
}

void PageBar::setCountText(const QString &text)
{
    ui->labelCount->setText(text);
}

bool PageBar::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == ui->lePage && event->type() == QEvent::FocusOut && ui->lePage->text().isEmpty()) {
        emit sizeFilled();
        ui->lePage->setText(QStringLiteral("1"));
    }
    return QWidget::eventFilter(watched, event);
}
