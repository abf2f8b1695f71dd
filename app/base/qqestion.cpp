#include "qqestion.h"

#include "messagetext.h"
#include "scanguard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

QQestion::QQestion(QWidget *parent, bool single) : QDialog(parent)
{
    setObjectName(QStringLiteral("QQestion"));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    setLayout(new QVBoxLayout);
    setMaximumWidth(MessageText::greatestWidth());
    buildLabels();
    buildButtons(single);
    installEventFilter(this);
    new ScanGuard(this);
}

void QQestion::buildLabels()
{
    m_title = new QLabel(this);
    m_title->setObjectName(QStringLiteral("labelTitle"));
    m_title->setAlignment(Qt::AlignCenter);
    m_title->setWordWrap(true);
    m_title->setTextFormat(Qt::PlainText);
    m_title->setMaximumWidth(MessageText::greatestWidth());
    QFont bold = m_title->font();
    bold.setBold(true);
    m_title->setFont(bold);
    m_text = new MessageText(this);
    layout()->addWidget(m_title);
    layout()->addWidget(m_text);
}

void QQestion::buildButtons(bool single)
{
    m_confirm = new QPushButton(single ? tr("OK") : tr("ТАК [Enter]"), this);
    m_confirm->setObjectName(QStringLiteral("pbOk"));
    m_confirm->setDefault(true);
    m_cancel = new QPushButton(tr("ВІДМІНИТИ [Bakspace]"), this);
    m_cancel->setObjectName(QStringLiteral("pbCancel"));
    m_cancel->setVisible(!single);
    connect(m_confirm, &QPushButton::clicked, this, &QDialog::accept);
    connect(m_cancel, &QPushButton::clicked, this, &QDialog::reject);
    m_buttons = new QHBoxLayout;
    m_buttons->addStretch();
    for (QPushButton *button : {m_confirm, m_cancel}) {
        button->installEventFilter(this);
        m_buttons->addWidget(button);
    }
    m_buttons->addStretch();
    static_cast<QVBoxLayout *>(layout())->addLayout(m_buttons);
}

void QQestion::addDetails(const QString &details)
{
    auto *unfold = new QPushButton(tr("&Подробиці"), this);
    unfold->setObjectName(QStringLiteral("pbDetails"));
    unfold->setCheckable(true);
    auto *copyAll = new QPushButton(tr("&Копіювати"), this);
    copyAll->setObjectName(QStringLiteral("pbCopy"));
    m_details = new QPlainTextEdit(details, this);
    m_details->setObjectName(QStringLiteral("details"));
    m_details->setAccessibleName(tr("Подробиці"));
    m_details->setReadOnly(true);
    m_details->hide();
    auto *row = new QHBoxLayout;
    row->addStretch();
    for (QPushButton *button : {unfold, copyAll}) {
        button->setAutoDefault(false);
        button->setFocusPolicy(Qt::NoFocus);
        row->addWidget(button);
    }
    static_cast<QVBoxLayout *>(layout())->addLayout(row);
    layout()->addWidget(m_details);
    connect(unfold, &QPushButton::toggled, this, &QQestion::showDetails);
    connect(copyAll, &QPushButton::clicked, this, &QQestion::copy);
}

void QQestion::showDetails(bool shown)
{
    m_details->setVisible(shown);
    adjustSize();
}

void QQestion::copy() const
{
    const auto *text = findChild<QLabel *>(QStringLiteral("labelText"));
    QGuiApplication::clipboard()->setText(text->text() + QStringLiteral("\n\n") + m_details->toPlainText());
}

int QQestion::question(QWidget *parent, const QString &title, const QString &text, bool single)
{
    QQestion dialog(parent, single);
    return dialog.exec(title, text);
}

void QQestion::tell(QWidget *parent, const QString &title, const QString &text, const QString &details)
{
    QQestion dialog(parent, true);
    if (!details.isEmpty())
        dialog.addDetails(details);
    dialog.exec(title, text);
}

int QQestion::exec(const QString &title, const QString &text)
{
    setModal(true);
    setWindowTitle(title);
    m_title->setText(title);
    m_text->setText(text);
    m_confirm->setFocus();
    fit();
    return QDialog::exec();
}

/// The layout alone would give a long text too little height.
void QQestion::fit()
{
    const QMargins margins = layout()->contentsMargins();
    fitButtons(m_buttons, maximumWidth() - margins.left() - margins.right());
    const int width = qMin(maximumWidth(), layout()->sizeHint().width());
    m_text->fitTo(width - margins.left() - margins.right());
    resize(width, layout()->heightForWidth(width));
}

bool QQestion::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress)
        return QDialog::eventFilter(watched, event);
    auto *key = static_cast<QKeyEvent *>(event);
    if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter)
        accept();
    else if (key->key() == Qt::Key_Backspace || key->key() == Qt::Key_Escape)
        reject();
    else
        key->ignore();
    return true;
}
