#pragma once

#include "dbtasks.h"

#include <QDialog>
#include <memory>

class QSqlDatabase;
class WaitNote;

namespace Ui {
class QChangPass;
}

/// Lets the user change the own password. The parent receives the reports of failed statements.
class QChangPass : public QDialog
{
    Q_OBJECT

public:
    QChangPass(quint32 idUser, QSqlDatabase *db, QWidget *parent);
    ~QChangPass() override;

public slots:
    /// Checks the fields and stores the new password in its hashed form; the dialog closes only then.
    void chang();
    /// Refused in words while the password is being stored.
    void done(int result) override;

private:
    enum class Outcome { Stored, WrongCurrent, Taken, Failed };
    static Outcome store(const Db &db, quint32 idUser, const QString &current, const QString &next);
    void setWaiting(bool isWaiting);
    void tell(Outcome outcome);
    void warn(QWidget *field, const QString &reason);

    std::unique_ptr<Ui::QChangPass> ui;
    quint32 m_idUser;
    DbTasks m_tasks;
    WaitNote *m_note;
};
