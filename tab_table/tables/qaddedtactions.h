#pragma once

#include "actiontimes.h"
#include "recorddialog.h"

#include <memory>

namespace Ui {
class QAddEdtActions;
}

/// The editor of a promotion: what it does and when. Beside it stands in words what comes of that.
class QAddEdtActions : public RecordDialog
{
    Q_OBJECT

public:
    /// id: the promotion to edit; empty or null for a new one, whose id it holds after the save.
    QAddEdtActions(QSqlDatabase *db, QString *id, QObject *receiver, QWidget *parent);
    ~QAddEdtActions() override;

    /// As they stand in the editor.
    ActionTimes times() const;

protected:
    bool takeRows(const QVector<TextRows> &more) override;
    void showField(const QString &key, const std::optional<RecordField> &value) override;
    QString refusal() const override;
    QVector<UniqueValue> uniqueValues() const override;
    RecordDraft draft() const override;
    void loaded() override;
    /// Asks before prices in the shops change, or when it would never be in force.
    void save() override;

private:
    QVector<RecordInput> inputs() const;
    void connectFields();
    void followType();
    void followDates();
    void proposeEnd();
    void follow();
    QString valueRefusal() const;
    QString timesRefusal() const;
    QString doubts() const;
    bool changesPrices() const;

    std::unique_ptr<Ui::QAddEdtActions> ui;
    /// "12 товарів у 3 магазинах"; empty when no goods have it.
    QString m_usage;
};
