#pragma once

#include "goodssearch.h"

#include <QStringList>
#include <QTimer>
#include <QWidget>
#include <functional>
#include <memory>
#include <optional>

namespace Ui {
class GoodsPicker;
}
class QKeyEvent;
class QLineEdit;
class QLoadedUser;
class QSqlDatabase;

/// Where goods are found: typed into a field by barcode, name or number, chosen in the list of a shop's
/// goods, or scanned wherever the focus is. Whoever owns it takes the items.
class GoodsPicker : public QWidget
{
    Q_OBJECT

public:
    /// The shop, the mode, the price priority and the time that hold now.
    using Scope = std::function<GoodsSearch()>;
    /// Takes an item over; false when it was not wanted after all.
    using Take = std::function<bool(const GoodsItem &item)>;

    explicit GoodsPicker(QWidget *parent = nullptr);
    ~GoodsPicker() override;

    /// area: the tab in which every scan is one of goods. Messages, also those of failed statements under the
    /// place of the caller, go to the receiver.
    void setUp(QSqlDatabase *db, QLoadedUser *user, QObject *receiver, QWidget *area, const Scope &scope,
               const Take &take, const char *file = __builtin_FILE(), int line = __builtin_LINE());

    /// Shows the goods that the text fits to.
    void search(const QString &text);
    /// The same with what stands in the field.
    void refresh();
    /// Empties the field and shows all goods.
    void clear();
    /// Empties the field only.
    void clearField();
    /// The item that Enter waits for, if any, is not wanted any more.
    void dropSearch();
    bool hasText() const;

    /// Waits a moment for the item that Enter asked for. False, with the reason told, when it did not come.
    bool settle();
    /// A code that was typed and not confirmed, for which no item came; else empty.
    QString codeLeft() const;

    /// Into the search field; what was scanned while a question was open is taken now.
    void focusSearch();
    /// As if that had been typed into the search field.
    void typeInto(const QString &text);
    QLineEdit *searchField() const;
    /// The other inputs.
    QWidgetList fields() const;

signals:
    void told(const QString &text);
    /// An item was asked for and did not come: to be seen until somebody looks.
    void notAdded(const QString &why);
    /// A scanned code is taken now: what the hand has begun elsewhere comes before.
    void aboutToTake();
    /// The answer to Enter is there.
    void answered();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void setUpList(QSqlDatabase *db, QLoadedUser *user, QObject *receiver);
    void connectSearch();
    GoodsSearch wanted(GoodsSearch::By by, const QString &text) const;
    void load(const QString &text);
    void showFound();
    void tellFailure();
    void enter();
    void answerEnter(int count);
    bool addScanned(const QString &barcode);
    void addListed(int row);
    void take(const GoodsItem &item);
    void goIntoList();
    void takeScans();
    bool searchKey(const QKeyEvent *key);
    bool listKey(const QKeyEvent *key);

    std::unique_ptr<Ui::GoodsPicker> ui;
    QSqlDatabase *m_db = nullptr;
    QObject *m_receiver = nullptr;
    const char *m_file = nullptr;
    int m_line = 0;
    Scope m_scope;
    Take m_take;
    QTimer m_delay;
    /// For this Enter was pressed before the list was there.
    std::optional<QString> m_waited;
    /// What Enter asked for last; empty once something else is typed.
    QString m_asked;
    int m_taken = 0;
    /// Scanned while a question was open.
    QStringList m_scans;
    bool m_isTakingScans = false;
};
