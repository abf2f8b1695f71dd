#include "qseluser.h"
#include "ui_qseluser.h"

#include "ean13.h"
#include "qmessevent.h"
#include "qqestion.h"
#include "settingfile.h"

namespace {
const int keyLength = 10;
const int prefixLength = 3;
const int cardLength = 13;
const int longestTypedInCardMode = 9;

QString loginKey()
{
    return QStringLiteral("DEFLOGIN/DEFLOGIN");
}

QString passKey()
{
    return QStringLiteral("DEFLOGIN/PASS");
}
} // namespace

QSelUser::QSelUser(const QString &directory, const QString &prefix, QWidget *parent, bool cardMode,
                   bool mayRemember)
    : QDialog(parent), ui(std::make_unique<Ui::QSelUser>()), m_directory(directory), m_prefix(prefix)
{
    ui->setupUi(this);
    ui->chbCard->setChecked(cardMode);
    ui->chbRemember->setVisible(mayRemember);
    ui->leLogin->setMinimumWidth(fontMetrics().averageCharWidth() * 24);
    readlogin();
    connectButtons();
}

QSelUser::~QSelUser() = default;

void QSelUser::connectButtons()
{
    connect(ui->pbOk, &QPushButton::clicked, this, &QSelUser::ok);
    connect(ui->pbCancel, &QPushButton::clicked, this, &QSelUser::canc);
    connect(ui->chbCard, &QCheckBox::clicked, ui->lePass, qOverload<>(&QWidget::setFocus));
}

int QSelUser::exec()
{
    if (login().isEmpty())
        ui->leLogin->setFocus();
    else
        ui->lePass->setFocus();
    ui->lePass->selectAll();
    return QDialog::exec();
}

QString QSelUser::login() const
{
    return ui->leLogin->text();
}

void QSelUser::readlogin()
{
    const SettingFile file(m_directory);
    ui->leLogin->setText(file.typed(loginKey(), QString("")).toString());
    ui->lePass->setText(file.typed(passKey(), QString("")).toString());
    ui->chbRemember->setChecked(!login().isEmpty());
}

void QSelUser::savelogin()
{
    SettingFile file(m_directory);
    file.setValue(loginKey(), login());
    file.setValue(passKey(), ui->lePass->text());
    if (!file.store())
        postMessage(parent(),
                    tr("Не вдалося записати файл налаштувань:\n%1").arg(SettingFile::path(m_directory)),
                    QMessEvent::Warning);
}

void QSelUser::clrsavinglogin()
{
    SettingFile file(m_directory);
    for (const QString &key : {loginKey(), passKey()}) {
        if (file.contains(key))
            file.setValue(key, QString());
    }
    file.store();
}

void QSelUser::rememberLogin()
{
    if (ui->chbRemember->isHidden())
        return;
    if (ui->chbRemember->isChecked())
        savelogin();
    else
        clrsavinglogin();
}

QChar QSelUser::CSEAN13(const QString &code)
{
    return code.size() < cardLength - 1 ? QChar() : eanCheckDigit(code, cardLength - 1);
}

void QSelUser::ok()
{
    if (login().isEmpty()) {
        QQestion::question(this, tr("Попередження"), tr("Імя користувача не може бути пустим"), true);
        ui->leLogin->setFocus();
        return;
    }
    rememberLogin();
    const QString text = ui->lePass->text();
    if (ui->chbCard->isChecked() ? takeInCardMode(text) : takeCard(text) || take(text, false))
        accept();
}

void QSelUser::canc()
{
    reject();
}

bool QSelUser::takeCard(const QString &text)
{
    return text.size() == cardLength && isSoundEan(text) && text.left(prefixLength) == m_prefix &&
           take(text.mid(prefixLength, keyLength), true);
}

bool QSelUser::takeInCardMode(const QString &text)
{
    if (takeCard(text))
        return true;
    if (text.size() == cardLength)
        return refuse(text.left(prefixLength) != m_prefix ? QStringLiteral(" error prefics")
                                                          : QStringLiteral(" error rcr"));
    return text.size() > longestTypedInCardMode ? refuse(QStringLiteral(" >9")) : take(text, false);
}

bool QSelUser::refuse(const QString &reason)
{
    QQestion::question(this, tr("Попередження") + reason, tr("Невірний ідентифікатор"), true);
    ui->lePass->setFocus();
    ui->lePass->selectAll();
    return false;
}

bool QSelUser::take(const QString &identifier, bool isCard)
{
    m_identifier = identifier;
    m_isCard = isCard;
    return true;
}
