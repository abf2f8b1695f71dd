#pragma once

#include "chekwriter.h"
#include "goodssearch.h"

#include <QObject>
#include <functional>

class PlaceBar;
class QLoadedUser;
class QSqlDatabase;
class QWidget;
class ReceiptModel;

/// Takes a receipt to its end: whether it may be sold, what the user has to agree to, the payment and the
/// writing; and what became of a receipt of which the server has not told.
class SalePayment : public QObject
{
    Q_OBJECT

public:
    /// A receipt that was written; amounts in kopecks.
    struct Sold
    {
        QString kass;
        int number = 0;
        qint64 toPay = 0;
        /// Handed back in cash.
        qint64 change = 0;
    };

    /// tab: what the boxes stand before. Failed statements are reported to the receiver under the place of
    /// the caller.
    SalePayment(QSqlDatabase *db, QObject *receiver, PlaceBar *place, ReceiptModel *receipt, QWidget *tab,
                const char *file = __builtin_FILE(), int line = __builtin_LINE());

    /// The shop, mode, priority and time by which goods are searched: prices are compared by the same.
    void setScope(const std::function<GoodsSearch()> &scope) { m_scope = scope; }

    /// Checks the receipt, asks what there is to ask, takes the payment and writes it.
    void sell();
    bool isPaying() const { return m_isPaying; }
    /// Writes a receipt: its number, else -1 with the reason told.
    int write(const Receipt &receipt, const ChekPayment &payment);
    /// The number of the register's open shift, or empty. ok: false after a failure, and when the shift is
    /// another user's, which is shown.
    QString openShift(bool *ok);
    /// Another date than today's is asked about once a receipt: this is the next one.
    void beginReceipt() { m_isDateAgreed = false; }

    /// The receipt of which the server has not told whether it was written.
    const std::optional<WrittenChek> &unclear() const { return m_unclear; }
    QString unclearWords() const;
    /// Whether that one is written; nothing, with words, while the server does not tell.
    std::optional<bool> askUnclear();

signals:
    void told(const QString &text);
    void sold(const SalePayment::Sold &sold);
    /// The register's shift was looked at and may be another one than is shown.
    void shiftRead();
    /// Somebody is through with a box.
    void left();

private:
    Db db() const;
    ChekWriter writer() const;
    bool confirm(const QString &title, const QString &text, const QString &actCaption);
    void warn(const QString &title, const QString &text);
    bool tell(const QString &why);
    QString refusal() const;
    bool verify();
    bool agreeDate();
    bool agreeChanges();
    void pay();

    QSqlDatabase *m_db;
    QObject *m_receiver;
    PlaceBar *m_place;
    ReceiptModel *m_receipt;
    QWidget *m_tab;
    const char *m_file;
    int m_line;
    std::function<GoodsSearch()> m_scope;
    bool m_isPaying = false;
    bool m_isDateAgreed = false;
    std::optional<WrittenChek> m_unclear;
};
