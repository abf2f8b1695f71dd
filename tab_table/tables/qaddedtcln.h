#pragma once

#include "cardrange.h"
#include "recorddialog.h"

#include <QPointer>
#include <memory>

namespace Ui {
class QAddEdtCln;
}
class Job;
class QTab;

/// The editor of a loyalty card, or the creation of a range of new blank ones.
class QAddEdtCln : public RecordDialog
{
    Q_OBJECT

public:
    /// id: the card to edit; empty to create cards.
    QAddEdtCln(QTab *tab, QSqlDatabase *db, QString *id, QObject *receiver, QWidget *parent);
    ~QAddEdtCln() override;

public slots:
    /// While cards are created, cancels that: what stands in the database by then stays.
    void reject() override;

protected:
    QString refusal() const override;
    bool takeRows(const QVector<TextRows> &more) override;
    void showField(const QString &key, const std::optional<RecordField> &value) override;
    void loaded() override;
    void save() override;

private:
    QVector<RecordInput> inputs() const;
    void buildCreation();
    void buildEditing();
    QString rangeRefusal() const;
    CardRange range() const;
    void NewRecord();
    bool mayCreate(const CardRange &wanted);
    void create(const CardRange &wanted);
    void UpdateRecord();
    void takeCreated(const JobResult &result);
    void showBlockedLevel();

    std::unique_ptr<Ui::QAddEdtCln> ui;
    QSqlDatabase *m_db;
    QObject *m_receiver;
    QPointer<Job> m_job;
    /// The level that the card has although it is not offered any more.
    QString m_blockedLevel;
};
