#pragma once

#include <QDialog>
#include <memory>

namespace Ui {
class QMessDlg;
}

/// A question with up to four answers of the caller's own wording.
class QMessDlg : public QDialog
{
    Q_OBJECT

public:
    explicit QMessDlg(QWidget *parent);
    ~QMessDlg() override;

    /// Shows the question and returns the number (0 to 3) of the button pressed, -1 when the dialog was
    /// closed without an answer. A button whose caption is empty is hidden.
    static int quest(QWidget *parent, const QString &title, const QString &text, const QString &caption0,
                     const QString &caption1, const QString &caption2, const QString &caption3);

private slots:
    void pb0();
    void pb1();
    void pb2();
    void pb3();

private:
    void showCaptions(const QStringList &captions);
    void answer(int number);

    std::unique_ptr<Ui::QMessDlg> ui;
    int m_answer = -1;
};
