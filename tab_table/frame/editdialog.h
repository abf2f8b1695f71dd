#pragma once

#include <QDialog>
#include <QHash>

class BusyWindow;
class ScanWatch;
class QLineEdit;

/// The base of every editor: it opens at once, and what it shows comes; why not? then save, then close.
/// Adding and editing are one dialog that differs in the id being empty. What is still being typed counts: it
/// is taken over before anything is judged, saved or thrown away.
class EditDialog : public QDialog
{
    Q_OBJECT

public:
    using QDialog::QDialog;

    /// Everything can be read and nothing changed or saved; for users who may only look.
    void setReadOnly(bool readOnly);
    bool isReadOnly() const { return m_isReadOnly; }
    /// True when a field holds something else than when the dialog was shown.
    bool isChanged() const;
    /// True while what it shows is read, or what was entered is written.
    bool isBusy() const;

public slots:
    void btok();
    void btcancel();
    /// Closes at once when nothing was changed, else after a question. Not while it writes, which is said.
    void reject() override;

protected:
    void showEvent(QShowEvent *event) override;
    /// The Enter of a scanner decides nothing, whatever field it was in.
    void keyPressEvent(QKeyEvent *event) override;

    /// The first rule that the fields break, in the user's words; empty when they may be saved.
    virtual QString refusal() const = 0;
    /// The same, with what holds for every text.
    QString firstRefusal() const;
    /// Begins to save what is entered; accept() follows when it is written.
    virtual void save() = 0;

    /// Nothing can be entered from now on; keys are kept until the fields have been read.
    void beginReading();
    void endReading();
    /// What the fields hold now is what was read, and what was typed meanwhile goes into them.
    void takeKeys();
    void beginWriting();
    void endWriting();
    /// Tells the user why something cannot be done.
    void warn(const QString &why);

    /// "Редагування запису №12", or "Додавання нового запису" without an id.
    void setRecordTitle(const QString &id);

private:
    void fitOnScreen();
    void rememberTexts();
    void begin(const QString &words, bool isReading);
    QString linesRefusal() const;

    BusyWindow *m_busy = nullptr;
    ScanWatch *m_scans = nullptr;
    bool m_isReadOnly = false;
    bool m_isReading = false;
    bool m_wasShown = false;
    QStringList m_shown;
    QHash<const QLineEdit *, QString> m_shownTexts;
};
