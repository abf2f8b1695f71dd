#pragma once

#include "dbftable.h"

#include <QObject>

class QDbfModel;

/// A DBF file of another system, read whole into memory and shown by a model. Nothing is ever written to it.
class QDbf : public QObject
{
    Q_OBJECT

public:
    explicit QDbf(QObject *parent = nullptr);

    /// Reads a file; returns 0 or the code of the error, whose text GetStrError() tells.
    int Open(const QString &path);
    /// The same with a file that readDbf() has read in another thread.
    int Open(const DbfReading &reading);
    void Close();
    bool isOpen() const { return m_table != nullptr; }
    /// "No error" at first, "No error." after an Open that has worked.
    const QString &GetStrError() const { return m_text; }
    QDbfModel *GetModel() const { return m_model; }
    /// What was read; null while no file is open.
    const std::shared_ptr<const DbfTable> &table() const { return m_table; }

    /// The bytes of one field of one record, not trimmed, not converted; field 0 is the deletion flag.
    QByteArray dataArray(int record, int field) const;
    /// How many records the header of a file promises; -1 for what cannot be opened or is no such file: the
    /// reason is posted to the receiver as a warning.
    static qint64 GetCountRecord(const QString &path, QObject *receiver);

private:
    QDbfModel *m_model;
    std::shared_ptr<const DbfTable> m_table;
    QString m_text;
};
