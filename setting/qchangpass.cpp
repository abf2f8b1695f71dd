#include "qchangpass.h"
#include "ui_qchangpass.h"

#include "db.h"
#include "qloadeduser.h"
#include "qqestion.h"
#include "secretquery.h"

QChangPass::QChangPass(quint32 idUser, QSqlDatabase *db, QWidget *parent)
    : QDialog(parent), ui(std::make_unique<Ui::QChangPass>()), m_idUser(idUser), m_db(db)
{
    ui->setupUi(this);
    ui->leCurrent->setMinimumWidth(fontMetrics().averageCharWidth() * 24);
    connect(ui->pbChang, &QPushButton::clicked, this, &QChangPass::chang);
    connect(ui->pbClose, &QPushButton::clicked, this, &QChangPass::close);
}

QChangPass::~QChangPass() = default;

void QChangPass::warn(QWidget *field, const QString &reason)
{
    QQestion::question(this, tr("Попередження"), reason, true);
    field->setFocus();
}

std::optional<bool> QChangPass::exists(const Db &db, const QString &condition, const QString &pass) const
{
    const auto count = db.firstText(
        QStringLiteral("SELECT COUNT(*) FROM users WHERE ") + condition + QStringLiteral(" AND pass=:pass"),
        {{QStringLiteral(":id"), m_idUser}, {QStringLiteral(":pass"), pass}}, tr("Помилка запиту"));
    if (!count)
        return std::nullopt;
    return *count != QLatin1String("0");
}

std::optional<bool> QChangPass::isCurrentRight(const Db &db) const
{
    const QString own = QStringLiteral("id=:id");
    const auto hashed = exists(db, own, passwordHash(ui->leCurrent->text()));
    if (!hashed || *hashed)
        return hashed;
    // In clear, as the seeded administrator's.
    return exists(db, own, ui->leCurrent->text());
}

bool QChangPass::store(const Db &db) const
{
    // Another program may have stored the same password meanwhile: the server's words would quote it.
    const QString hash = passwordHash(ui->leNew->text());
    return runSecret(db,
                     QStringLiteral("UPDATE users SET pass=") + lit(hash) + QStringLiteral(" WHERE id=") +
                         QString::number(m_idUser),
                     {hash}, tr("Помилка запиту"))
        .has_value();
}

void QChangPass::chang()
{
    if (ui->leNew->text() != ui->leRepeat->text())
        return warn(ui->leNew, tr("Нові паролі не співпадають!"));
    if (ui->leNew->text().isEmpty())
        return warn(ui->leNew, tr("Новий пароль не може бути пустим!"));
    const Db db(m_db, parent());
    const auto right = isCurrentRight(db);
    if (right && !*right)
        return warn(ui->leCurrent, tr("Поточний пароль не вірний!"));
    if (!right)
        return;
    // The database allows a password only once; whose it is stays untold.
    const auto taken = exists(db, QStringLiteral("id<>:id"), passwordHash(ui->leNew->text()));
    if (taken && *taken)
        return warn(ui->leNew, tr("Цей пароль використати не можна. Оберіть інший пароль."));
    if (taken && store(db))
        accept();
}
