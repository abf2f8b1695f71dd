#pragma once

#include "qtab.h"

namespace Ui {
class QTabClientsFilter;
}
class TypingPause;
class CardReceipts;
class QSplitter;
class QueryOwner;
struct QueryAnswer;

/// The loyalty cards, found by their code, the client's name or telephone, a page at a time or all of them.
class QTabClients : public QTab
{
    Q_OBJECT

public:
    QTabClients(QSqlDatabase *db, QLoadedUser *user, QObject *receiver, setting *set, QWidget *parent);
    ~QTabClients() override;
    using QTab::Edit;

    /// In the order of the list's SELECT.
    static QVector<Column> columns();

    bool isLoading() const override;

public slots:
    /// All cards, from the first page on.
    void load();
    /// The cards in whose code the text stands, and of the client that is searched for besides.
    void seerch(const QString &text);
    /// "Всі записи" was ticked or not: the next load goes by it.
    void CheckState(int state);
    /// So many cards from where the page begins; 0 for all that there are.
    void ShowData(int n);
    void Edit(const QModelIndex &index) override;
    void previousPage();
    void nextPage();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    std::unique_ptr<RecordDialog> makeEditor(QString *id) override;
    /// A range of new cards changes the whole list.
    void refreshRecord(const QString &id, bool isNew) override;
    void rowsShown() override;
    void rowShown(int row) override;
    void followRights() override;
    /// The page that is shown; the cards are counted again.
    void loadAgain() override;

private:
    void buildFilter();
    void connectFilter();
    void showReceipts(bool show);
    void followCard();
    void searchAgain() override;
    void showPage();
    QString personCondition() const;
    bool clientKey(int key);
    void countCards();
    void takeCount(const std::shared_ptr<QueryAnswer> &answer);
    void setTotal(qint64 total);
    void showPaging();
    qint64 lastCode() const;

    std::unique_ptr<Ui::QTabClientsFilter> ui;
    QSplitter *m_splitter;
    /// The receipts of the current card; made when they are first wanted.
    CardReceipts *m_receipts = nullptr;
    TypingPause *m_personTyping;
    /// The hand rests on a card.
    TypingPause *m_cardPause;
    /// Counts the cards when more are found than a page shows.
    QueryOwner *m_counter;
    /// What every list of this tab is narrowed by (" WHERE ..."); empty for none.
    QString m_base;
    /// What is searched for, behind it.
    QString m_condition;
    /// Of the load that is shown or on its way; 0 for all.
    int m_limit = 0;
    /// -1 while it is not known.
    qint64 m_total = -1;
};
