#pragma once

#include <QDialog>
#include <QHash>
#include <optional>

class QLineEdit;

/// What came of a save.
struct Saved
{
    /// Failed: reported. Refused: `why` is for the user. Unclear: the answer to COMMIT was lost. Changed: by
    /// somebody else since it was read; nothing was written.
    enum Outcome { Written, Failed, Refused, Unclear, Changed };
    Outcome outcome = Failed;
    QString why;
};

/// The base of every editor: why not? then save, then close. Adding and editing are one dialog that
/// differs in the id being empty. What is still being typed counts: it is taken over before anything is
/// judged, saved or thrown away.
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
    /// True while it is not known whether the last save has arrived at the server.
    bool isUnclear() const { return m_isUnclear; }

public slots:
    void btok();
    void btcancel();
    /// Closes at once when nothing was changed, else after a question.
    void reject() override;

protected:
    void showEvent(QShowEvent *event) override;

    /// The first rule that the fields break, in the user's words; empty when they may be saved.
    virtual QString refusal() const = 0;
    /// Writes the record; false after a failure, which is reported already.
    virtual bool save() = 0;

    /// Whether what was sent last is in the database; nothing while the server does not answer.
    virtual std::optional<bool> hasArrived() { return false; }
    /// It is: the record counts as saved, and what is saved next changes it.
    virtual void takeOver() {}
    /// Tells the user why a save was refused. When its answer was lost it asks the server; what has arrived
    /// is taken over, and when nobody knows, the user is told and the next save asks again first. True when
    /// the record is saved.
    bool isSaved(const Saved &saved);
    /// Tells the user why something cannot be done.
    void warn(const QString &why);

    /// "Редагування запису №12", or "Додавання нового запису" without an id.
    void setRecordTitle(const QString &id);

private:
    void fitOnScreen();
    bool askWhetherArrived();
    QString linesRefusal() const;

    bool m_isReadOnly = false;
    bool m_isUnclear = false;
    bool m_wasShown = false;
    QStringList m_shown;
    QHash<const QLineEdit *, QString> m_shownTexts;
};
