#include "workplace.h"

#include "qloadeduser.h"
#include "setting.h"

#include <QComboBox>
#include <QFile>
#include <QLineEdit>
#include <QPushButton>
#include <QSettings>

Workplace::Workplace()
{
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, m_home.path());
    m_settings = std::make_unique<setting>(m_home.path(), &m_window);
    clear();
    logIn(Permission::Shops);
}

Workplace::~Workplace() = default;

void Workplace::clear()
{
    base.exec({"DELETE FROM onoffline", "DELETE FROM kassa", "DELETE FROM goods_shop", "DELETE FROM prices",
               "DELETE FROM dk_shc", "DELETE FROM goods", "DELETE FROM shops",
               "DELETE FROM lst_group WHERE id_group>1", "DELETE FROM group_shop WHERE id>1",
               "REPLACE INTO lst_group VALUES(1,1)",
               "INSERT INTO group_shop(id,name) VALUES(2,'Захід'),(3,'Схід'),(4,'Чужа')",
               "INSERT INTO lst_group VALUES(1,2),(1,3)"});
}

void Workplace::logIn(int permission, int right)
{
    base.exec(QString("UPDATE lst_permis SET permission=%1 WHERE id_g_prem=1 AND id_prem=%2")
                  .arg(right)
                  .arg(permission));
    m_user = std::make_unique<QLoadedUser>(nullptr, &base.heard);
    if (!m_user->loadpermis(connection(), "admin", ""))
        qFatal("the administrator cannot log in");
    base.heard.forget();
}

void Workplace::writeSettings(const QByteArray &text)
{
    QFile ini(m_home.filePath("Velta.ini"));
    if (!ini.open(QIODevice::WriteOnly) || ini.write(text) != text.size())
        qFatal("the settings cannot be written");
    ini.close();
    m_settings->ReadSetting(m_home.path());
}

void enter(QWidget *window, const QString &name, const QString &text)
{
    if (auto *box = window->findChild<QComboBox *>(name))
        box->setCurrentIndex(box->findText(text));
    else
        child<QLineEdit>(window, name)->setText(text);
}

QString saveMeets(QDialog *editor)
{
    return answerQuestion([&] {
        child<QPushButton>(editor, "pbOk")->click();
        waitOutTasks();
    });
}
