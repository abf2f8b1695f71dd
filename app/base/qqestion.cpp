#include "qqestion.h"

#include <QGuiApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

QQestion::QQestion(QWidget *parent, bool single) : QDialog(parent)
{
    setObjectName(QStringLiteral("QQestion"));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    setLayout(new QVBoxLayout);
    buildLabels();
    buildButtons(single);
    limitWidth();
    installEventFilter(this);
}

void QQestion::buildLabels()
{
    m_title = new QLabel(this);
    m_title->setObjectName(QStringLiteral("labelTitle"));
    m_title->setAlignment(Qt::AlignCenter);
    QFont bold = m_title->font();
    bold.setBold(true);
    m_title->setFont(bold);
    m_text = new QLabel(this);
    m_text->setObjectName(QStringLiteral("labelText"));
    m_text->setAlignment(Qt::AlignHCenter | Qt::AlignVCenter);
    for (QLabel *label : {m_title, m_text}) {
        label->setWordWrap(true);
        label->setTextFormat(Qt::PlainText);
        layout()->addWidget(label);
    }
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
    auto *row = new QHBoxLayout;
    row->addStretch();
    for (QPushButton *button : {m_confirm, m_cancel}) {
        button->installEventFilter(this);
        row->addWidget(button);
    }
    row->addStretch();
    static_cast<QVBoxLayout *>(layout())->addLayout(row);
}

void QQestion::limitWidth()
{
    const int half = QGuiApplication::primaryScreen()->virtualGeometry().width() / 2;
    setMaximumWidth(half);
    m_title->setMaximumWidth(half);
    m_text->setMaximumWidth(half);
}

int QQestion::question(QWidget *parent, const QString &title, const QString &text, bool single)
{
    QQestion dialog(parent, single);
    return dialog.exec(title, text);
}

int QQestion::exec(const QString &title, const QString &text)
{
    setModal(true);
    setWindowTitle(title);
    m_title->setText(title);
    m_text->setText(text);
    m_confirm->setFocus();
    // The layout alone would give a long text too little height.
    const int width = qMin(maximumWidth(), layout()->sizeHint().width());
    resize(width, layout()->heightForWidth(width));
    return QDialog::exec();
}

bool QQestion::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress)
        return QDialog::eventFilter(watched, event);
    auto *key = static_cast<QKeyEvent *>(event);
    if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter)
        accept();
    else if (key->key() == Qt::Key_Backspace)
        reject();
    else
        key->ignore();
    return true;
}
