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

    /// The statement of so many lines of the streams, of which there must be one.
    static QString pageSql(const ChekStreams &streams, const JournalAsked &asked, int lines);
    /// Where the streams go on behind the lines that it has found.
    static ChekStreams behind(const RowStore &rows, ChekStreams streams);

    bool isLoading() const override;

public slots:
    /// Leads to the receipt.
    void Edit(const QModelIndex &index) override;

protected:
    void loadPage(const JournalAsked &asked, const QVariant &start, int rows) override;
    QVariant keyBehind(const RowStore &rows) const override;
    int surplusRow(const RowStore &found) const override;
    QString refusesAll(const JournalAsked &asked) const override;
    void expectLongLoads(bool isLong) override;
    void stopLoading() override;
    void rowsShown() override;

private:
    void takeStreams(const std::shared_ptr<QueryAnswer> &answer);
    void loadLines();

    /// Finds where the streams go on before each page.
    QueryOwner *m_finder;
    JournalAsked m_askedLines;
    int m_lines = 0;
    /// Those of the page that is shown or on its way; none while the place's are looked for.
    ChekStreams m_streams;
};
