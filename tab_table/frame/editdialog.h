#pragma once

#include "db.h"

#include <QDialog>

/// The base of every editor: why not? then save, then close. Adding and editing are one dialog that
/// differs in the id being empty.
class EditDialog : public QDialog
{
    Q_OBJECT

public:
    using QDialog::QDialog;

    /// Everything can be read and nothing changed or saved; for users who may only look.
    void setReadOnly(bool readOnly);
    bool isReadOnly() const { return m_isReadOnly; }

public slots:
    void btok();
    void btcancel();

protected:
    /// The first rule that the fields break, in the user's words; empty when they may be saved.
    virtual QString refusal() const = 0;
    /// Writes the record; false after a failure, which is reported already.
    virtual bool save() = 0;

    /// True when the statement finds no row. Otherwise the user is told that something is `taken`; a
    /// failure, which is reported, leaves it open and answers false.
    bool isFree(const Db &db, const QString &sql, const Db::Values &values, const QString &taken);

    /// "Редагування запису №12", or "Додавання нового запису" without an id.
    void setRecordTitle(const QString &id);

private:
    bool m_isReadOnly = false;
};
