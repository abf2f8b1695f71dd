#pragma once

#include <QDialog>
#include <memory>

namespace Ui {
class QMessDlg;
}
class QPushButton;

/// A question with up to four answers of the caller's own wording. Tab and the arrows move between them,
/// Enter and Space press the one with the focus; keys count only after the time a scanner needs (ScanGuard).
class QMessDlg : public QDialog
{
    Q_OBJECT

public:
    explicit QMessDlg(QWidget *parent);
    ~QMessDlg() override;

    /// Shows the question and returns the number (0 to 3) of the button pressed, -1 when the dialog was
    /// closed without an answer. A button whose caption is empty is hidden. defaultIndex has the focus at
    /// first, escapeIndex is what Esc and the closing of the window answer.
    static int quest(QWidget *parent, const QString &title, const QString &text, const QString &caption0,
                     const QString &caption1, const QString &caption2, const QString &caption3,
                     int defaultIndex = 0, int escapeIndex = -1);

    /// Asks before something is lost, deleted, closed or overridden; true when that is to happen. The safe
    /// button has the focus and Esc presses it; the acting one takes a deliberate act: the mouse, its
    /// Alt+letter, or Tab and Enter. Captions without an "&" get their first letter as access key.
    static bool confirm(QWidget *parent, const QString &title, const QString &text, const QString &actCaption,
                        const QString &keepCaption = tr("Ні"));

private slots:
    void pb0();
    void pb1();
    void pb2();
    void pb3();

private:
    QList<QPushButton *> buttons() const;
    void showText(const QString &title, const QString &text);
    void showCaptions(const QStringList &captions);
    void answer(int number);
    /// Runs the dialog and returns the answer.
    int ask(int defaultIndex, int escapeIndex);

    std::unique_ptr<Ui::QMessDlg> ui;
    int m_answer = -1;
};
