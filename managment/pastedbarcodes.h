#pragma once

#include "db.h"
#include "place.h"

/// The barcodes that goods are chosen by, pasted or scanned one after the other.
class PastedBarcodes
{
public:
    /// Of each line the first thing that is a number of up to 13 digits, each once.
    void setText(const QString &text);
    /// One more line.
    void add(const QString &code);

    /// As it was pasted.
    const QString &text() const { return m_text; }
    const QStringList &codes() const { return m_codes; }
    /// "Лише зі списку: 3 (рядків без штрихкоду: 1)"; empty without any.
    QString words() const;
    /// Why a text is no list; empty when it is one, and when there is none. A list that is none would mean
    /// all goods.
    QString refusal() const;

private:
    QString m_text;
    QStringList m_codes;
    int m_ignored = 0;
};

/// The barcodes of a pasted text: of each line the first thing that is a number of up to 13 digits, each
/// once. ignored: how many lines have none.
QStringList barcodesIn(const QString &text, int *ignored);
/// The goods that have the barcodes, and the barcodes that none has. False after a reported failure.
bool findBarcodes(const Db &db, const QStringList &codes, QVector<DbId> *goods, QStringList *unknown);
/// "Невідомі штрихкоди: 2 (4820000000017, …).", for the user.
QString unknownBarcodesWords(const QStringList &unknown);
/// For IN (…), also of none.
QString idList(const QVector<DbId> &ids);
