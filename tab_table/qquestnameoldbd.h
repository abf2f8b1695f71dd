#pragma once

#include <QDialog>
#include <memory>

namespace Ui {
class QQuestNameOldBD;
}

/// Asks for the database of the previous version.
class QQuestNameOldBD : public QDialog
{
    Q_OBJECT

public:
    /// names: the databases to choose from.
    QQuestNameOldBD(const QStringList &names, QWidget *parent);
    ~QQuestNameOldBD() override;

    QString name() const;

public slots:
    void Ok();

private:
    std::unique_ptr<Ui::QQuestNameOldBD> ui;
};
