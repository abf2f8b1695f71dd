#pragma once

#include "recorddialog.h"

#include <functional>
#include <memory>

namespace Ui {
class QAddEdtComands;
}
class QTab;

/// The editor of a launch command. Below the parameters it shows what would be started for a sample address.
class QAddEdtComands : public RecordDialog
{
    Q_OBJECT

public:
    /// id: the command to edit; empty or null for a new one, whose id it holds after the save.
    QAddEdtComands(QTab *tab, QSqlDatabase *db, QString *id, QObject *receiver, QWidget *parent);
    ~QAddEdtComands() override;

    /// How the program is chosen: from the title, the filter and the path so far to the path, empty when
    /// cancelled. Tests replace it.
    std::function<QString(const QString &title, const QString &filter, const QString &path)> chooseFile;

public slots:
    void selPath();
    void textChangPath();
    void textChangParam();

protected:
    QString refusal() const override;
    QVector<UniqueValue> uniqueValues() const override;
    void loaded() override;

private:
    QVector<RecordInput> inputs() const;
    void connectFields();
    void showLine();

    std::unique_ptr<Ui::QAddEdtComands> ui;
};
