#include "qdbf.h"

#include "qdbfmodel.h"
#include "qmessevent.h"

QDbf::QDbf(QObject *parent)
    : QObject(parent), m_model(new QDbfModel(this)), m_text(QStringLiteral("No error"))
{
}

int QDbf::Open(const QString &path)
{
    return Open(isOpen() ? DbfReading() : readDbf(path));
}

int QDbf::Open(const DbfReading &reading)
{
    if (isOpen()) {
        m_text = QStringLiteral("File is already open!");
        return DbfError::AlreadyOpen;
    }
    m_text = reading.error == DbfError::None ? QStringLiteral("No error.") : reading.text;
    m_table = reading.table;
    m_model->setTable(m_table);
    return reading.error;
}

void QDbf::Close()
{
    m_table = nullptr;
    m_model->setTable(nullptr);
}

QByteArray QDbf::dataArray(int record, int field) const
{
    return isOpen() ? m_table->data(record, field) : QByteArray();
}

qint64 QDbf::GetCountRecord(const QString &path, QObject *receiver)
{
    QString text;
    const qint64 count = dbfPromisedCount(path, &text);
    if (count < 0)
        postMessage(receiver, QStringLiteral("%1: %2").arg(path, text), QMessEvent::Warning);
    return count;
}
