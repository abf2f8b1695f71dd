#pragma once

#include "goodssearch.h"
#include "keyteller.h"
#include "typingpause.h"

#include <QStringList>
#include <QWidget>
#include <functional>
#include <memory>
#include <optional>

namespace Ui {
class GoodsPicker;
}
class DbTasks;
class HeldActs;
class QKeyEvent;
class QLineEdit;
class QNTableView;
class SaleWork;

/// Where goods are found: typed into a field by barcode, name or number, chosen in the list of a shop's
/// goods, or scanned wherever the focus is. Whoever owns it takes the items.
class GoodsPicker : public QWidget, public KeyTeller
{
    Q_OBJECT

public:
    /// The shop, the mode, the price priority and the time that hold now.
    using Scope = std::function<GoodsSearch()>;
    /// Takes an item over; false when it was not wanted after all.
    using Take = std::function<bool(const GoodsItem &item)>;

    explicit GoodsPicker(QWidget *parent = nullptr);
    ~GoodsPicker() override;

    QVector<ToldKey> toldKeys() const override;

    /// Every scan in the tab is one of goods. acts: hold what is done there while an item is on its way.
    void setUp(SaleWork *work, HeldActs *acts, const Scope &scope, const Take &take);
    /// Asked before a scan is looked up: false keeps it until takeScans().
    void setGuard(const std::function<bool()> &mayTake) { m_mayTake = mayTake; }

    /// Shows the goods that the text fits to.
    void search(const QString &text);
    /// The same with what stands in the field.
    void refresh();
    /// Empties the field and shows all goods.
    void clear();
    /// Empties the field if it shows what the item was asked for by, not what was typed since.
    void clearField();
    /// The item that Enter waits for, if any, is not wanted any more.
    void dropSearch();
    bool hasText() const;

    /// A code that was typed and not confirmed, for which no item came; else empty.
    QString codeLeft() const;

    /// What was scanned while a question was open or something was under way is taken now, in its order.
    void takeScans();
    bool hasScans() const { return !m_scans.isEmpty(); }

    /// Into the search field.
    void focusSearch();
    /// As if that had been typed into the search field.
    void typeInto(const QString &text);
    QLineEdit *searchField() const;
    QNTableView *view() const;
    /// The item of the list's current row, or the only one there is.
    std::optional<GoodsItem> current() const;
    /// The other inputs.
    QWidgetList fields() const;

signals:
    /// An item was asked for and did not come: to be seen until somebody looks.
    void notAdded(const QString &why);
    /// A code was scanned; it is taken now or kept.
    void scanned();
    /// A scanned code is taken now: what the hand has begun elsewhere comes before.
    void aboutToTake();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    /// What the server says of a barcode.
    struct Found
    {
        bool isAnswered = false;
        std::optional<GoodsItem> item;
    };
    enum Source { Scanned, Typed };

    void setUpList();
    void setUpScans();
    void connectSearch();
    GoodsSearch wanted(GoodsSearch::By by, const QString &text) const;
    void load(const QString &text);
    void showFound();
    void tellFailure();
    void giveUp();
    void enter();
    void ask(const QString &text);
    void answerEnter(int count);
    void takeScan(const QString &code);
    void lookUp(const QString &barcode, Source source);
    void showLookedUp(const QString &barcode, Source source, const Found &found);
    void awaitList(const QString &text);
    void addListed(int row, const QString &asked);
    bool take(const GoodsItem &item, const QString &asked);
    void goIntoList();
    bool searchKey(const QKeyEvent *key);
    bool listKey(const QKeyEvent *key);

    std::unique_ptr<Ui::GoodsPicker> ui;
    SaleWork *m_work = nullptr;
    HeldActs *m_acts = nullptr;
    DbTasks *m_tasks = nullptr;
    Scope m_scope;
    Take m_take;
    std::function<bool()> m_mayTake;
    TypingPause m_pause;
    /// For this the list is awaited.
    std::optional<QString> m_waited;
    /// The barcode that is being looked up.
    QString m_lookedUp;
    /// What was asked for last; empty once something else is typed.
    QString m_asked;
    /// What the field showed when the item that is being taken was asked for.
    QString m_takenBy;
    /// Scanned and not taken yet.
    QStringList m_scans;
};
