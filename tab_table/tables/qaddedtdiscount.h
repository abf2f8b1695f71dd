#pragma once

#include "recorddialog.h"

#include <memory>

namespace Ui {
class QAddEdtDiscount;
}
class QTab;

/// The editor of a discount level.
class QAddEdtDiscount : public RecordDialog
{
    Q_OBJECT

public:
    /// id: the level to edit; empty or null for a new one, whose id it holds after the save.
    QAddEdtDiscount(QTab *tab, QSqlDatabase *db, QString *id, QObject *receiver, QWidget *parent);
    ~QAddEdtDiscount() override;

protected:
    /// A percentage that is left names a level that has no name yet.
    bool eventFilter(QObject *watched, QEvent *event) override;
    QString refusal() const override;
    QVector<UniqueValue> uniqueValues() const override;
    RecordDraft draft() const override;
    void loaded() override;

private:
    QVector<RecordInput> inputs() const;
    void connectFields();
    bool isAsRead(const QLineEdit *field, const QString &column) const;
    qint64 threshold() const;
    static QString roundingWords(qint64 kopecks);
    void showRounding();

    std::unique_ptr<Ui::QAddEdtDiscount> ui;
};
