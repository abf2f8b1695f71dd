#include "setting.h"
#include "ui_setting.h"

#include "qmessdlg.h"
#include "qmessevent.h"
#include "qqestion.h"
#include "settingfile.h"
#include "version.h"

#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QFileDialog>
#include <QLibrary>
#include <QLineEdit>
#include <QScrollArea>
#include <QSpinBox>
#include <QStyleFactory>

namespace {
const char *const passwordKey = "QMYSQL/PASSWORD";
const char *const tlsKey = "QMYSQL_TLS/MODE";
const char *const styleKey = "INTERFACE/STYLE";
const char *const languageKey = "INTERFACE/PATH_LANGUAGE";
const char *const autoUpdateKey = "M_UPDATER/IS_AUTOUPDATE";
const char *const versionKey = "VERSION/VERSION";

/// A box whose items carry the value to store shows their captions; what it does not know is its last item.
void showInCombo(QComboBox *combo, const QString &text)
{
    if (combo->itemData(0).isValid())
        return combo->setCurrentIndex(combo->findData(text) < 0 ? combo->count() - 1 : combo->findData(text));
    if (combo->findText(text) < 0)
        combo->addItem(text);
    combo->setCurrentText(text);
}

void showIn(QWidget *widget, const QVariant &value)
{
    if (auto *edit = qobject_cast<QLineEdit *>(widget))
        edit->setText(value.toString());
    else if (auto *spin = qobject_cast<QSpinBox *>(widget))
        spin->setValue(value.toInt());
    else if (auto *box = qobject_cast<QCheckBox *>(widget))
        box->setChecked(value.toBool());
    else if (auto *combo = qobject_cast<QComboBox *>(widget))
        showInCombo(combo, value.toString());
}

QVariant shownIn(const QWidget *widget)
{
    if (const auto *edit = qobject_cast<const QLineEdit *>(widget))
        return edit->text();
    if (const auto *spin = qobject_cast<const QSpinBox *>(widget))
        return spin->value();
    if (const auto *box = qobject_cast<const QCheckBox *>(widget))
        return box->isChecked();
    const auto *combo = qobject_cast<const QComboBox *>(widget);
    return combo->currentData().isValid() ? combo->currentData() : combo->currentText();
}
} // namespace

setting::setting(const QString &directory, QWidget *parent)
    : QDialog(parent), ui(std::make_unique<Ui::setting>()), m_directory(directory)
{
    ui->setupUi(this);
    chooseFile = [this](const QString &title, const QString &filter, const QString &path) {
        return filter == programFilter ? chooseProgram(this, title, filter, path)
                                       : QFileDialog::getOpenFileName(this, title, path, filter);
    };
    makePagesScroll();
    fillTls();
    ui->cbStyle->addItems(QStringList(QString()) + QStyleFactory::keys());
    loadPasswordLibrary();
    ReadSetting(directory);
    showValues();
    connectButtons();
}

setting::~setting() = default;

/// The pages are higher than a small screen with large letters.
void setting::makePagesScroll()
{
    for (int i = 0; i < ui->tabs->count(); ++i) {
        const QString title = ui->tabs->tabText(i);
        QWidget *page = ui->tabs->widget(i);
        auto *area = new QScrollArea(ui->tabs);
        area->setFrameShape(QFrame::NoFrame);
        area->setWidgetResizable(true);
        area->setFocusPolicy(Qt::NoFocus);
        ui->tabs->removeTab(i);
        area->setWidget(page);
        ui->tabs->insertTab(i, area, title);
    }
    ui->tabs->setCurrentIndex(0);
}

void setting::fillTls()
{
    ui->cbTls->addItem(tr("ні"), QStringLiteral("off"));
    ui->cbTls->addItem(tr("якщо сервер уміє"), QStringLiteral("wanted"));
    ui->cbTls->addItem(tr("лише захищене"), QStringLiteral("required"));
}

void setting::loadPasswordLibrary()
{
    postTrace(parent(), QStringLiteral("In constructor setting load library"));
    QLibrary library(QCoreApplication::applicationDirPath() + QStringLiteral("/libpasscrypt"));
    if (library.load()) {
        m_encrypt = reinterpret_cast<Crypt>(library.resolve("mcrypt"));
        m_decrypt = reinterpret_cast<Crypt>(library.resolve("mucrypt"));
    } else {
        // A warning is for the log; the user reads it beside the password, not at every start.
        const QString text = tr("Не вдалося завантажити криптографічну бібліотеку.") + QLatin1Char('\n') +
                             tr("Це означає що пароль буде збережено без шифрування") + QLatin1Char('\n') +
                             tr("та не вдасться розшифрувати вже зашифрований пароль в налаштуваннях!");
        postMessage(parent(), text, QMessEvent::Warning);
        ui->labelLibrary->setText(text);
    }
    ui->labelLibrary->setVisible(!library.isLoaded());
}

void setting::connectButtons()
{
    connect(ui->pbOk, &QPushButton::clicked, this, &setting::save);
    connect(ui->pbCancel, &QPushButton::clicked, this, &setting::cancel);
    connect(ui->pbPathLang, &QPushButton::clicked, this, &setting::DialogPathLang);
    connect(ui->pbTlsCa, &QPushButton::clicked, this, [this] {
        choose(ui->leTlsCa, tr("Вибрати файл сертифікатів"), tr("Сертифікати (*.pem *.crt)"));
    });
    connect(ui->pbShopRMousPath, &QPushButton::clicked, this, &setting::DialogShopRMousPathPrg);
    connect(ui->pbKassRMousPath, &QPushButton::clicked, this, &setting::DialogKassRMousPathPrg);
    connect(ui->pbKassLMovePath, &QPushButton::clicked, this, &setting::DialogKassLMoveMousPathPrg);
    connect(ui->cbTypeDevice, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            &setting::ChangeTypeDevice);
    ChangeTypeDevice(ui->cbTypeDevice->currentIndex());
}

QVariant setting::decoded(const QString &path, const QVariant &stored) const
{
    const bool isSecret = path == QLatin1String(passwordKey) && m_decrypt != nullptr;
    return isSecret ? m_decrypt(stored.toString()) : stored;
}

QVariant setting::encoded(const QString &path, const QVariant &value) const
{
    const bool isSecret = path == QLatin1String(passwordKey) && m_encrypt != nullptr;
    return isSecret ? m_encrypt(value.toString()) : value;
}

void setting::readKey(const SettingFile &file, const SettingKey &key)
{
    const QString path = QLatin1String(key.path);
    const QVariant stored = file.typed(path, key.fallback);
    if (m_stored.contains(path) && m_stored.value(path) == stored)
        return;
    m_stored.insert(path, stored);
    m_read.insert(path, decoded(path, stored));
    m_values.insert(path, m_read.value(path));
}

void setting::ReadSetting(const QString &directory)
{
    const SettingFile file(directory);
    m_problem = SettingFile::problem(directory);
    m_origin = directory;
    m_stored.clear();
    for (const SettingKey &key : settingKeys())
        readKey(file, key);
    if (m_decrypt == nullptr)
        postMessage(parent(), tr("Помилка виклику фунції розшифровки паолю"), QMessEvent::Warning);
}

bool setting::WriteSetting(const QString &directory)
{
    SettingFile file(directory);
    for (const SettingKey &key : settingKeys()) {
        const QString path = QLatin1String(key.path);
        if (directory == m_origin && value(path) == m_read.value(path) && file.contains(path))
            continue;
        m_stored.insert(path, encoded(path, value(path)));
        m_read.insert(path, value(path));
        file.setValue(path, m_stored.value(path));
    }
    m_origin = directory;
    if (m_encrypt == nullptr)
        postMessage(parent(), tr("Помилка виклику фунції шифрування паолю"), QMessEvent::Warning);
    return file.store();
}

/// What other copies have written since; what was given here and could not be written stays.
void setting::readChangedKeys()
{
    const SettingFile file(m_directory);
    if (!SettingFile::problem(m_directory).isEmpty())
        return;
    for (const SettingKey &key : settingKeys()) {
        if (file.contains(QLatin1String(key.path)))
            readKey(file, key);
    }
}

void setting::showValues()
{
    for (const SettingKey &key : settingKeys())
        showIn(findChild<QWidget *>(QLatin1String(key.widget)), value(QLatin1String(key.path)));
}

void setting::takeValues()
{
    for (const SettingKey &key : settingKeys())
        m_values.insert(QLatin1String(key.path), shownIn(findChild<QWidget *>(QLatin1String(key.widget))));
}

QVariantList setting::shownValues() const
{
    QVariantList values;
    for (const SettingKey &key : settingKeys())
        values.append(shownIn(findChild<QWidget *>(QLatin1String(key.widget))));
    return values;
}

int setting::exec()
{
    readChangedKeys();
    showValues();
    m_opened = shownValues();
    ui->leHost->setFocus();
    return QDialog::exec();
}

void setting::save()
{
    postTrace(parent(), QStringLiteral("In setting::save()"));
    takeValues();
    const bool written = WriteSetting(m_directory);
    m_loginAt = value(QStringLiteral("QMYSQL/DEFLOGIN")).toString() + QLatin1Char('@');
    if (!written)
        QQestion::question(this, tr("Попередження."),
                           tr("Не вдалося записати файл налаштувань:\n%1\nЗміни діятимуть лише до закриття "
                              "програми. Щоб зберегти їх, дозвольте запис у цей каталог і збережіть "
                              "налаштування ще раз.")
                               .arg(SettingFile::path(m_directory)),
                           true);
    m_problem.clear();
    accept();
    emit saved();
}

void setting::cancel()
{
    reject();
}

void setting::reject()
{
    if (!isVisible() || shownValues() == m_opened ||
        QMessDlg::confirm(this, tr("Попередження."), tr("Зміни не збережено."), tr("Закрити без збереження"),
                          tr("Продовжити редагування")))
        QDialog::reject();
}

void setting::choose(QLineEdit *target, const QString &title, const QString &filter)
{
    const QString path = chooseFile(title, filter, target->text());
    if (!path.isEmpty())
        target->setText(path);
}

void setting::DialogPathLang()
{
    choose(ui->lePathLang, tr("Вибрати файл мови."), tr("Файл перекладу (*.qm)"));
}

void setting::DialogShopRMousPathPrg()
{
    choose(ui->leShopRMousPath, tr("Вибрати програму."), programFilter);
}

void setting::DialogKassRMousPathPrg()
{
    choose(ui->leKassRMousPath, tr("Вибрати програму."), programFilter);
}

void setting::DialogKassLMoveMousPathPrg()
{
    choose(ui->leKassLMovePath, tr("Вибрати файл мови."), programFilter);
}

void setting::ChangeTypeDevice(int type)
{
    static const QStringList samples = {QStringLiteral("http://[{IP}]/"), QStringLiteral("smb://[{IP}]/"),
                                        QStringLiteral("rtsp://[{IP}]:554/"), QStringLiteral("[{IP}]")};
    for (QLineEdit *edit : {ui->leShopRMousParam, ui->leKassRMousParam, ui->leKassLMoveParam})
        edit->setPlaceholderText(samples.value(type));
}

QVariant setting::value(const QString &path) const
{
    return m_values.value(path);
}

LaunchCommand setting::command(const QString &group) const
{
    return {value(group + QStringLiteral("/PATH_PROGRAM")).toString(),
            value(group + QStringLiteral("/PARAM_PRG")).toString()};
}

DatabaseAddress setting::databaseAddress() const
{
    DatabaseAddress address;
    address.driver = value(QStringLiteral("QMYSQL/DRIVER")).toString();
    address.host = value(QStringLiteral("QMYSQL/IP")).toString();
    address.port = value(QStringLiteral("QMYSQL/PORT")).toInt();
    address.user = value(QStringLiteral("QMYSQL/DEFLOGIN")).toString();
    address.password = value(QLatin1String(passwordKey)).toString();
    address.name = value(QStringLiteral("QMYSQL/NAMEBASE")).toString();
    const QString mode = value(QLatin1String(tlsKey)).toString();
    // A word that is not understood must not open what was meant to be closed.
    address.tls = mode == QLatin1String("off")      ? DatabaseAddress::Tls::Off
                  : mode == QLatin1String("wanted") ? DatabaseAddress::Tls::Wanted
                                                    : DatabaseAddress::Tls::Required;
    address.caFile = value(QStringLiteral("QMYSQL_TLS/CA_FILE")).toString();
    return address;
}

QString setting::prefIdentify() const
{
    return value(QStringLiteral("INTERFACE/PREF_IDENTIFY")).toString();
}

int setting::countMsg() const
{
    return value(QStringLiteral("INTERFACE/COUNT_MSG")).toInt();
}

QString setting::style() const
{
    return value(QLatin1String(styleKey)).toString();
}

QString setting::pathLanguage() const
{
    return value(QLatin1String(languageKey)).toString();
}

bool setting::isAutoUpdate() const
{
    return value(QLatin1String(autoUpdateKey)).toBool();
}

bool setting::isTransferMode() const
{
    return value(QStringLiteral("M_UPDATER/TRANSFER_MODE")).toBool();
}

QString setting::version() const
{
    return value(QLatin1String(versionKey)).toString();
}

QString setting::GetStyle(const QString &directory)
{
    return SettingFile(directory).typed(QLatin1String(styleKey), QString("")).toString();
}

void setting::SetStyle(const QString &directory, const QString &style)
{
    SettingFile file(directory);
    file.setValue(QLatin1String(styleKey), style);
    file.store();
}

QString setting::GetPathLanguage(const QString &directory)
{
    return SettingFile(directory).typed(QLatin1String(languageKey), QString("")).toString();
}

bool setting::GetAutoupdate(const QString &directory)
{
    return SettingFile(directory).typed(QLatin1String(autoUpdateKey), false).toBool();
}

QString setting::GetVersion(const QString &directory)
{
    return SettingFile(directory).typed(QLatin1String(versionKey), QString("")).toString();
}

void setting::SetCurVersion(const QString &directory)
{
    SettingFile file(directory);
    file.setValue(QLatin1String(versionKey), QLatin1String(programVersion));
    file.store();
}
