#pragma once

#include "chekstreams.h"

class QueryOwner;
struct QueryAnswer;

/// The lines of the receipts, the newest first.
class QTabTransaction : public QTabJournal
{
    Q_OBJECT

public:
    QTabTransaction(QSqlDatabase *db, QLoadedUser *user, QObject *receiver, setting *set, QWidget *parent);
    ~QTabTransaction() override;

    using QTab::Edit;

    bool isLoading() const override;

public slots:
    /// Leads to the receipt.
    void Edit(const QModelIndex &index) override;

protected:
    void loadPage(const JournalAsked &asked, const QVariant &start, int rows) override;
    QVariant keyBehind(const RowStore &rows, const QVariant &start) const override;
    int surplusRow(const RowStore &found) const override;
    QString refusesAll(const JournalAsked &asked) const override;
    void stopLoading() override;
    void rowsShown() override;

private:
    void takeStreams(const std::shared_ptr<QueryAnswer> &answer);
    void loadLines(const ChekStreams &streams);

    /// Finds the streams of the place before its first page.
    QueryOwner *m_finder;
    JournalAsked m_askedLines;
    int m_lines = 0;
    /// Those of the first page, of the place that is shown.
    ChekStreams m_streams;
};
