#include "qseluser.h"
#include "ui_qseluser.h"

#include "ean13.h"
#include "qmessevent.h"
#include "qqestion.h"
#include "settingfile.h"
#include "waitnote.h"

#include <QKeyEvent>
#include <utility>

namespace {
const int keyLength = 10;
const int prefixLength = 3;
const int cardLength = 13;
const int longestTypedInCardMode = 9;
/// Nobody types digits so fast one after the other; a scanner is several times faster.
const int scannerPauseMs = 60;
/// So many digits at such a pace are a scanner's, with or without its Enter.
const int shortestScan = 8;

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
    m_note = new WaitNote(ui->labelWait, this);
    ui->chbCard->setChecked(cardMode);
    ui->chbRemember->setVisible(mayRemember);
    ui->leLogin->setMinimumWidth(fontMetrics().averageCharWidth() * 24);
    ui->labelHint->hide();
    readlogin();
    connectButtons();
    listenForScanner();
}

QSelUser::~QSelUser() = default;

void QSelUser::connectButtons()
{
    connect(ui->pbOk, &QPushButton::clicked, this, &QSelUser::ok);
    connect(ui->pbCancel, &QPushButton::clicked, this, &QSelUser::canc);
    connect(ui->chbCard, &QCheckBox::clicked, ui->lePass, qOverload<>(&QWidget::setFocus));
    connect(ui->chbCard, &QCheckBox::clicked, this, &QSelUser::abandon);
    for (const QLineEdit *edit : {ui->leLogin, ui->lePass})
        connect(edit, &QLineEdit::textChanged, this, &QSelUser::abandon);
}

void QSelUser::suggestLogin(const QString &name)
{
    if (!login().isEmpty() || !m_digits.isEmpty() || name.isEmpty())
        return;
    ui->leLogin->setText(name);
    if (ui->leLogin->hasFocus())
        beginEntry();
}

void QSelUser::showHint(const QString &text)
{
    ui->labelHint->setText(text);
    ui->labelHint->setVisible(!text.isEmpty());
}

void QSelUser::listenForScanner()
{
    m_digitsPause.setSingleShot(true);
    m_digitsPause.setInterval(scannerPauseMs);
    connect(&m_digitsPause, &QTimer::timeout, this, &QSelUser::giveBackDigits);
    installEventFilter(this);
    for (QWidget *widget : findChildren<QWidget *>()) {
        if (widget != ui->lePass)
            widget->installEventFilter(this);
    }
}

/// Digits are held back for a moment: those of a card must not be seen in the login field.
bool QSelUser::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress)
        return QDialog::eventFilter(watched, event);
    const auto *key = static_cast<QKeyEvent *>(event);
    const QString text = key->text();
    if (text.size() == 1 && text.at(0) >= QLatin1Char('0') && text.at(0) <= QLatin1Char('9'))
        return keepDigit(watched, text);
    const bool isEnter = key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter;
    const bool isScan = isEnter && m_digits.size() >= shortestScan;
    giveBackDigits();
    if (isScan)
        ok();
    return isScan || QDialog::eventFilter(watched, event);
}

bool QSelUser::keepDigit(QObject *field, const QString &text)
{
    m_digitsField = field;
    m_digits += text;
    m_digitsPause.start();
    return true;
}

/// Nothing followed: many digits are a scan, a few were typed by hand where they are wanted.
void QSelUser::giveBackDigits()
{
    m_digitsPause.stop();
    const QString digits = std::exchange(m_digits, QString());
    if (digits.size() >= shortestScan) {
        ui->lePass->setText(digits);
        ui->lePass->setFocus();
    } else if (auto *edit = qobject_cast<QLineEdit *>(m_digitsField); edit != nullptr && !digits.isEmpty()) {
        edit->insert(digits);
    }
}

/// The hand goes to what is still to be typed.
void QSelUser::beginEntry()
{
    if (login().isEmpty())
        ui->leLogin->setFocus();
    else
        ui->lePass->setFocus();
    ui->lePass->selectAll();
}

int QSelUser::exec()
{
    beginEntry();
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
    giveBackDigits();
    if (m_isWaiting)
        return;
    if (login().isEmpty()) {
        QQestion::question(this, tr("Попередження"), tr("Імя користувача не може бути пустим"), true);
        ui->leLogin->setFocus();
        return;
    }
    rememberLogin();
    const QString text = ui->lePass->text();
    if (ui->chbCard->isChecked() ? takeInCardMode(text) : takeCard(text) || take(text, false))
        beginCheck();
}

void QSelUser::setCheck(const std::function<void()> &begin, const std::function<void()> &drop)
{
    m_begin = begin;
    m_drop = drop;
}

/// What is typed now takes the place of the password, as after a refusal.
void QSelUser::beginCheck()
{
    if (!m_begin)
        return accept();
    m_isWaiting = true;
    m_note->begin(tr("Читається…"));
    ui->lePass->selectAll();
    m_begin();
}

void QSelUser::answer(bool isFound)
{
    stopWaiting();
    if (isFound)
        accept();
    else
        beginEntry();
}

void QSelUser::stopWaiting()
{
    m_isWaiting = false;
    m_note->end();
}

/// Whoever types on means something else than what is being looked for.
void QSelUser::abandon()
{
    if (!m_isWaiting)
        return;
    stopWaiting();
    m_drop();
}

void QSelUser::done(int result)
{
    abandon();
    QDialog::done(result);
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
