#pragma once

#include <QDialog>

class MessageText;
class QHBoxLayout;
class QLabel;
class QPlainTextEdit;
class QPushButton;
class ScanGuard;

/// A warning, or a question that loses nothing, answered from the keyboard: Enter confirms, Backspace and
/// Esc cancel, and every other key is swallowed. Keys count only after the time a scanner needs (ScanGuard).
/// What loses, deletes, closes or overrides something is asked by QMessDlg::confirm.
class QQestion : public QDialog
{
    Q_OBJECT

public:
    /// single: a warning with one button "OK".
    explicit QQestion(QWidget *parent, bool single = false);

    /// Asks and returns QDialog::Accepted or QDialog::Rejected.
    static int question(QWidget *parent, const QString &title, const QString &text, bool single = false);
    /// A warning in plain words, with what only an administrator can read folded away: a button shows the
    /// details, another one copies text and details. Without details it is a warning like any other.
    static void tell(QWidget *parent, const QString &title, const QString &text, const QString &details);

    using QDialog::exec;
    int exec(const QString &title, const QString &text);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void buildLabels();
    void buildButtons(bool single);
    void addDetails(const QString &details);
    void showDetails(bool shown);
    void copy() const;
    void fit();

    QLabel *m_title = nullptr;
    MessageText *m_text = nullptr;
    QPlainTextEdit *m_details = nullptr;
    QPushButton *m_confirm = nullptr;
    QPushButton *m_cancel = nullptr;
    QHBoxLayout *m_buttons = nullptr;
};
