#pragma once

#include <QDialog>
#include <QPointer>
#include <QTimer>
#include <functional>
#include <memory>

namespace Ui {
class QSelUser;
}
class WaitNote;

/// The login dialog: a login name, and a password or the barcode of a user card.
///
/// A barcode is thirteen digits: the prefix of the settings and the user's key of ten, whose last digit is
/// the check digit of the whole. In card mode (the tick box) nothing else is taken but texts of up to nine
/// characters; without it any text is, and a sound barcode counts as a card all the same. What a scanner
/// types goes into the hidden field wherever the focus is.
class QSelUser : public QDialog
{
    Q_OBJECT

public:
    /// directory: of the settings file that keeps the remembered login; prefix: of the user cards.
    /// cardMode: starts in card mode. mayRemember: offers to remember the login.
    QSelUser(const QString &directory, const QString &prefix, QWidget *parent, bool cardMode = false,
             bool mayRemember = true);
    ~QSelUser() override;

    /// Puts a name into an empty login field.
    void suggestLogin(const QString &name);
    /// Shows a line above the buttons; none at first.
    void showHint(const QString &text);

    /// Who looks for the user that was entered. begin: is to call answer() later, from the event loop; the
    /// dialog stays open until then. drop: nobody waits for that any more, because something else is being
    /// entered or the dialog is over. Without this everything well formed is accepted at once.
    void setCheck(const std::function<void()> &begin, const std::function<void()> &drop);
    /// Somebody was found, or nobody: then another try may be made.
    void answer(bool isFound);
    bool isWaiting() const { return m_isWaiting; }

    /// What was entered, valid from begin on and after acceptance. identifier: the key of a card, else the
    /// typed text.
    QString login() const;
    QString identifier() const { return m_identifier; }
    /// True when the identifier is a card's key, which finds the user alone: the login does not count.
    bool isCard() const { return m_isCard; }

    /// The check digit of a code's first twelve digits; a null character for a shorter code.
    static QChar CSEAN13(const QString &code);

public slots:
    int exec() override;
    void ok();
    void canc();
    void done(int result) override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void connectButtons();
    void beginEntry();
    void beginCheck();
    void stopWaiting();
    void abandon();
    void listenForScanner();
    bool keepDigit(QObject *field, const QString &text);
    void giveBackDigits();
    void readlogin();
    void savelogin();
    void clrsavinglogin();
    void rememberLogin();
    bool takeCard(const QString &text);
    bool takeInCardMode(const QString &text);
    bool refuse(const QString &reason);
    bool take(const QString &identifier, bool isCard);

    std::unique_ptr<Ui::QSelUser> ui;
    QString m_directory;
    QString m_prefix;
    QString m_identifier;
    bool m_isCard = false;
    /// Digits typed outside of the hidden field that may still turn out to be a scan, and where.
    QString m_digits;
    QPointer<QObject> m_digitsField;
    QTimer m_digitsPause;
    std::function<void()> m_begin;
    std::function<void()> m_drop;
    WaitNote *m_note;
    bool m_isWaiting = false;
};
