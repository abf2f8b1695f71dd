#include "editdialog.h"

#include "qqestion.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>

void EditDialog::btok()
{
    if (m_isReadOnly)
        return;
    const QString why = refusal();
    if (!why.isEmpty())
        QQestion::question(this, tr("Попередження."), why, true);
    else if (save())
        accept();
}

void EditDialog::btcancel()
{
    reject();
}

bool EditDialog::isFree(const Db &db, const QString &sql, const Db::Values &values, const QString &taken)
{
    auto query = db.run(sql, values);
    if (!query || !query->next())
        return query.has_value();
    QQestion::question(this, tr("Попередження."), taken, true);
    return false;
}

void EditDialog::setRecordTitle(const QString &id)
{
    setWindowTitle(id.isEmpty() ? tr("Додавання нового запису") : tr("Редагування запису №") + id);
}

void EditDialog::setReadOnly(bool readOnly)
{
    m_isReadOnly = readOnly;
    for (auto *edit : findChildren<QLineEdit *>())
        edit->setReadOnly(readOnly);
    for (auto *edit : findChildren<QPlainTextEdit *>())
        edit->setReadOnly(readOnly);
    for (auto *box : findChildren<QComboBox *>())
        box->setDisabled(readOnly);
    for (auto *spin : findChildren<QAbstractSpinBox *>())
        spin->setReadOnly(readOnly);
    for (auto *view : findChildren<QAbstractItemView *>())
        view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    for (auto *button : findChildren<QAbstractButton *>()) {
        if (button->objectName() != QLatin1String("pbCancel"))
            button->setDisabled(readOnly);
    }
}
