#include "barcodedialog.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

BarcodeDialog::BarcodeDialog(const QString &text, QWidget *parent)
    : QDialog(parent), m_edit(new QPlainTextEdit(text, this))
{
    setWindowTitle(tr("Список штрихкодів"));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    auto *label = new QLabel(tr("Вставте або відскануйте &штрихкоди, кожен в окремому рядку. Рядок таблиці "
                                "теж підходить: береться перше число з нього."),
                             this);
    label->setWordWrap(true);
    label->setBuddy(m_edit);
    m_edit->setObjectName(QStringLiteral("pteBarcodes"));
    m_edit->setTabChangesFocus(true);
    auto *take = new QPushButton(tr("В&зяти"), this);
    take->setObjectName(QStringLiteral("pbOk"));
    auto *clear = new QPushButton(tr("О&чистити"), this);
    clear->setObjectName(QStringLiteral("pbClear"));
    auto *cancel = new QPushButton(tr("&Відмінити"), this);
    cancel->setObjectName(QStringLiteral("pbCancel"));
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(clear);
    buttons->addStretch(1);
    for (QPushButton *button : {take, cancel})
        buttons->addWidget(button);
    auto *rows = new QVBoxLayout(this);
    rows->addWidget(label);
    rows->addWidget(m_edit, 1);
    rows->addLayout(buttons);
    resize(fontMetrics().averageCharWidth() * 60, fontMetrics().height() * 22);
    connect(take, &QPushButton::clicked, this, &QDialog::accept);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(clear, &QPushButton::clicked, m_edit, &QPlainTextEdit::clear);
    m_edit->setFocus();
}

std::optional<QString> BarcodeDialog::ask(QWidget *parent, const QString &text)
{
    BarcodeDialog dialog(text, parent);
    return dialog.exec() == QDialog::Accepted ? std::optional(dialog.m_edit->toPlainText()) : std::nullopt;
}
