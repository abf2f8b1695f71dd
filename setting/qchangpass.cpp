#include "qchangpass.h"
#include "ui_qchangpass.h"

#include "qloadeduser.h"
#include "qqestion.h"
#include "secretquery.h"
#include "waitnote.h"

namespace {
/// True when such a user has the stored password; nothing after a failed statement (reported).
std::optional<bool> exists(const Db &db, const QString &condition, quint32 idUser, const QString &pass)
{
    const auto count = db.firstText(
        QStringLiteral("SELECT COUNT(*) FROM users WHERE ") + condition + QStringLiteral(" AND pass=:pass"),
        {{QStringLiteral(":id"), idUser}, {QStringLiteral(":pass"), pass}}, QChangPass::tr("Помилка запиту"));
    if (!count)
        return std::nullopt;
    return *count != QLatin1String("0");
}

std::optional<bool> isCurrentRight(const Db &db, quint32 idUser, const QString &pass)
{
    const QString own = QStringLiteral("id=:id");
    const auto hashed = exists(db, own, idUser, passwordHash(pass));
    if (!hashed || *hashed)
        return hashed;
    // In clear, as the seeded administrator's.
    return exists(db, own, idUser, pass);
}
} // namespace

QChangPass::QChangPass(quint32 idUser, QSqlDatabase *db, QWidget *parent)
    : QDialog(parent)
    , ui(std::make_unique<Ui::QChangPass>())
    , m_idUser(idUser)
    , m_tasks(db->connectionName(), parent, nullptr)
{
    ui->setupUi(this);
    ui->leCurrent->setMinimumWidth(fontMetrics().averageCharWidth() * 24);
    m_note = new WaitNote(ui->labelWait, this);
    connect(ui->pbChang, &QPushButton::clicked, this, &QChangPass::chang);
    connect(ui->pbClose, &QPushButton::clicked, this, &QChangPass::close);
}

QChangPass::~QChangPass() = default;

void QChangPass::warn(QWidget *field, const QString &reason)
{
    QQestion::question(this, tr("Попередження"), reason, true);
    field->setFocus();
}

QChangPass::Outcome QChangPass::store(const Db &db, quint32 idUser, const QString &current,
                                      const QString &next)
{
    const QString hash = passwordHash(next);
    const auto right = isCurrentRight(db, idUser, current);
    if (!right || !*right)
        return right ? Outcome::WrongCurrent : Outcome::Failed;
    // The database allows a password only once; whose it is stays untold.
    const auto taken = exists(db, QStringLiteral("id<>:id"), idUser, hash);
    if (!taken || *taken)
        return taken ? Outcome::Taken : Outcome::Failed;
    // Another program may have stored the same password meanwhile: the server's words would quote it.
    const auto stored = runSecret(db,
                                  QStringLiteral("UPDATE users SET pass=") + lit(hash) +
                                      QStringLiteral(" WHERE id=") + QString::number(idUser),
                                  {hash}, tr("Помилка запиту"));
    return stored ? Outcome::Stored : Outcome::Failed;
}

void QChangPass::chang()
{
    if (m_tasks.isWaiting())
        return;
    if (ui->leNew->text() != ui->leRepeat->text())
        return warn(ui->leNew, tr("Нові паролі не співпадають!"));
    if (ui->leNew->text().isEmpty())
        return warn(ui->leNew, tr("Новий пароль не може бути пустим!"));
    setWaiting(true);
    m_tasks.write([idUser = m_idUser, current = ui->leCurrent->text(),
                   next = ui->leNew->text()](const Db &db) { return store(db, idUser, current, next); },
                  [this](Outcome outcome) { tell(outcome); });
}

void QChangPass::setWaiting(bool isWaiting)
{
    for (QLineEdit *edit : {ui->leCurrent, ui->leNew, ui->leRepeat})
        edit->setReadOnly(isWaiting);
    if (isWaiting)
        m_note->begin(tr("Записується…"));
    else
        m_note->end();
}

/// A failure has reported itself, a lost server only once: what came of it is said here.
void QChangPass::tell(Outcome outcome)
{
    setWaiting(false);
    if (outcome == Outcome::Stored)
        accept();
    else if (outcome == Outcome::Failed)
        m_note->say(tr("Пароль не змінено."));
    else if (outcome == Outcome::WrongCurrent)
        warn(ui->leCurrent, tr("Поточний пароль не вірний!"));
    else if (outcome == Outcome::Taken)
        warn(ui->leNew, tr("Цей пароль використати не можна. Оберіть інший пароль."));
}

void QChangPass::done(int result)
{
    if (m_tasks.isWaiting())
        m_note->say(tr("Пароль ще записується. Зачекайте."));
    else
        QDialog::done(result);
}
