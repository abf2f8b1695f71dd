#include "qmessdlg.h"
#include "ui_qmessdlg.h"

QMessDlg::QMessDlg(QWidget *parent) : QDialog(parent), ui(std::make_unique<Ui::QMessDlg>())
{
    ui->setupUi(this);
    connect(ui->pb0, &QPushButton::clicked, this, &QMessDlg::pb0);
    connect(ui->pb1, &QPushButton::clicked, this, &QMessDlg::pb1);
    connect(ui->pb2, &QPushButton::clicked, this, &QMessDlg::pb2);
    connect(ui->pb3, &QPushButton::clicked, this, &QMessDlg::pb3);
}

QMessDlg::~QMessDlg() = default;

int QMessDlg::quest(QWidget *parent, const QString &title, const QString &text, const QString &caption0,
                    const QString &caption1, const QString &caption2, const QString &caption3)
{
    QMessDlg dialog(parent);
    dialog.setWindowTitle(title);
    dialog.ui->labelText->setText(text);
    dialog.showCaptions({caption0, caption1, caption2, caption3});
    dialog.exec();
    return dialog.m_answer;
}

void QMessDlg::showCaptions(const QStringList &captions)
{
    const QList<QPushButton *> buttons = {ui->pb0, ui->pb1, ui->pb2, ui->pb3};
    for (int i = 0; i < buttons.size(); ++i) {
        buttons.at(i)->setText(captions.at(i));
        buttons.at(i)->setHidden(captions.at(i).isEmpty());
    }
}

void QMessDlg::answer(int number)
{
    m_answer = number;
    accept();
}

void QMessDlg::pb0()
{
    answer(0);
}

void QMessDlg::pb1()
{
    answer(1);
}

void QMessDlg::pb2()
{
    answer(2);
}

void QMessDlg::pb3()
{
    answer(3);
}
