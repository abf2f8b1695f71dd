#include "qmessdlg.h"
#include "ui_qmessdlg.h"

#include "scanguard.h"

#include <QGuiApplication>
#include <QScreen>

namespace {
QString withAccessKey(const QString &caption)
{
    return caption.contains(QLatin1Char('&')) ? caption : QLatin1Char('&') + caption;
}
} // namespace

QMessDlg::QMessDlg(QWidget *parent) : QDialog(parent), ui(std::make_unique<Ui::QMessDlg>())
{
    ui->setupUi(this);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    connect(ui->pb0, &QPushButton::clicked, this, &QMessDlg::pb0);
    connect(ui->pb1, &QPushButton::clicked, this, &QMessDlg::pb1);
    connect(ui->pb2, &QPushButton::clicked, this, &QMessDlg::pb2);
    connect(ui->pb3, &QPushButton::clicked, this, &QMessDlg::pb3);
    new ScanGuard(this);
}

QMessDlg::~QMessDlg() = default;

int QMessDlg::quest(QWidget *parent, const QString &title, const QString &text, const QString &caption0,
                    const QString &caption1, const QString &caption2, const QString &caption3,
                    int defaultIndex, int escapeIndex)
{
    QMessDlg dialog(parent);
    dialog.showText(title, text);
    dialog.showCaptions({caption0, caption1, caption2, caption3});
    return dialog.ask(defaultIndex, escapeIndex);
}

bool QMessDlg::confirm(QWidget *parent, const QString &title, const QString &text, const QString &actCaption,
                       const QString &keepCaption)
{
    enum { Act, Keep };
    QMessDlg dialog(parent);
    dialog.showText(title, text);
    dialog.showCaptions({withAccessKey(actCaption), withAccessKey(keepCaption), QString(), QString()});
    return dialog.ask(Keep, Keep) == Act;
}

QList<QPushButton *> QMessDlg::buttons() const
{
    return {ui->pb0, ui->pb1, ui->pb2, ui->pb3};
}

void QMessDlg::showText(const QString &title, const QString &text)
{
    setWindowTitle(title);
    ui->messageText->setText(text);
}

void QMessDlg::showCaptions(const QStringList &captions)
{
    const QList<QPushButton *> list = buttons();
    for (int i = 0; i < list.size(); ++i) {
        list.at(i)->setText(captions.at(i));
        list.at(i)->setHidden(captions.at(i).isEmpty());
    }
}

int QMessDlg::ask(int defaultIndex, int escapeIndex)
{
    m_answer = escapeIndex;
    fitButtons(ui->buttonRow, QGuiApplication::primaryScreen()->availableGeometry().width() * 9 / 10);
    buttons().at(defaultIndex)->setDefault(true);
    buttons().at(defaultIndex)->setFocus();
    exec();
    return m_answer;
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
