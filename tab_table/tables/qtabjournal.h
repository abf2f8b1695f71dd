#pragma once

#include "chekorigin.h"
#include "qtab.h"

namespace Ui {
class QTabJournalFilter;
}
class TypingPause;

/// Which rows of a journal are wanted.
struct JournalAsked
{
    /// What was chosen; 0 for all.
    Place place;
    /// The shops that are meant where none was chosen, as a condition on `shops` with a blank before it.
    QString shops;
    /// The first and the last second as yyyyMMddhhmmss; empty for all times.
    QString from;
    QString to;
    /// The number of a receipt or shift; empty for all.
    QString number;

    /// The condition of the place. table: has id_shop and id_kass; `shops` is joined.
    QString placeCondition(const QString &table) const;
    bool hasDays() const { return !from.isEmpty(); }
};

/// The base of the tabs that list what the registers wrote: of a place, of some days, by its number; newest
/// first, a page at a time. Nobody edits here.
class QTabJournal : public QTab
{
    Q_OBJECT

public:
    QTabJournal(QSqlDatabase *db, QLoadedUser *user, QObject *receiver, setting *set, QWidget *parent);
    ~QTabJournal() override;

    bool isLoading() const override;
    void run(Command command) override;

    /// So many rows are shown when all are asked for.
    static constexpr int mostRows = 200000;

public slots:
    /// What has that number, from the newest on; all for an empty text.
    void seerch(const QString &text);
    void searchAgain() override;
    void previousPage();
    void nextPage();

signals:
    /// The receipts behind a row are to be shown.
    void cheksWanted(const ChekOrigin &origin);

protected:
    /// Behind setColumns(): the filter and the first page. numberCaption: what the number is of, with its
    /// key ("Чек &№:").
    void open(const QString &numberCaption);
    /// Asks by showRows() for the rows of a page, which begins at the key (invalid: with the newest row).
    virtual void loadPage(const JournalAsked &asked, const QVariant &start, int rows) = 0;
    /// The key behind the rows of the page that was asked for last; they stand as the server sent them.
    virtual QVariant keyBehind(const RowStore &rows) const = 0;
    /// Why not even many rows can be shown at once; empty when they can.
    virtual QString refusesAll(const JournalAsked &asked) const;
    /// The row of the surplus that tells of a next page.
    virtual int surplusRow(const RowStore &found) const { return found.rowCount() - 1; }
    /// Whether the statements of the next page may take many seconds.
    virtual void expectLongLoads(bool isLong);
    /// What loadPage() has begun beside the list is not wanted any more.
    virtual void stopLoading() {}
    /// The statement of a page asks for one row more than it has.
    void showRows(const QString &sql);
    void showNoRows();
    void rowsShown() override;
    void clearFilter() override;
    void followRights() override;
    /// The page from where it begins; the first one with all that is newer by now.
    void loadAgain() override;

private:
    void buildFilter(const QString &numberCaption);
    void connectFilter();
    void refillPlaces();
    void refillShops();
    void followPlace();
    void showPage();
    bool refuse();
    void tellEmpty();
    JournalAsked asked() const;
    RowStore takePage(RowStore &&found);

    std::unique_ptr<Ui::QTabJournalFilter> ui;
    /// The days are typed section by section.
    TypingPause *m_daysPause;
    /// Of the load that is shown or on its way.
    JournalAsked m_asked;
    QStringList m_askedHeading;
    int m_pageRows = 0;
    /// Of the rows in the list.
    bool m_hasNext = false;
    QVariant m_next;
};
