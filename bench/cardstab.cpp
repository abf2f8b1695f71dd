#include "cardstab.h"

#include <QCheckBox>
#include <QLineEdit>

CardsWindow::CardsWindow(const Bench &bench) : TabWindow<QTabClients>(bench)
{
    tab()->findChild<QCheckBox *>(QStringLiteral("chAll"))->setChecked(true);
    search(QString());
}

void CardsWindow::searchPerson(const QString &name)
{
    tab()->findChild<QLineEdit *>(QStringLiteral("lePerson"))->setText(name);
    awaitRows();
}
