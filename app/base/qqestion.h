#pragma once

#include <QDialog>

class QLabel;
class QPushButton;

/// A question or a warning that is answered from the keyboard: Enter confirms, Backspace cancels and
/// every other key is swallowed, so that the stray input of a scanner cannot answer it.
class QQestion : public QDialog
{
    Q_OBJECT

public:
    /// single: a warning with one button "OK".
    explicit QQestion(QWidget *parent, bool single = false);

    /// Asks and returns QDialog::Accepted or QDialog::Rejected.
    static int question(QWidget *parent, const QString &title, const QString &text, bool single = false);

    using QDialog::exec;
    int exec(const QString &title, const QString &text);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void buildLabels();
    void buildButtons(bool single);
    void limitWidth();

    QLabel *m_title = nullptr;
    QLabel *m_text = nullptr;
    QPushButton *m_confirm = nullptr;
    QPushButton *m_cancel = nullptr;
};
