#pragma once

#include <QDialog>
#include <memory>
#include <optional>

class Db;
class QSqlDatabase;

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

private:
    /// True when such a user has the stored password; nothing after a failed statement (reported).
    std::optional<bool> exists(const Db &db, const QString &condition, const QString &pass) const;
    std::optional<bool> isCurrentRight(const Db &db) const;
    bool store(const Db &db) const;
    void warn(QWidget *field, const QString &reason);

    std::unique_ptr<Ui::QChangPass> ui;
    quint32 m_idUser;
    QSqlDatabase *m_db;
};
