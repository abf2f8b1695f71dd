#pragma once

#include "invoicedialog.h"
#include "invoicereader.h"
#include "listcolumns.h"

#include <memory>

namespace Ui {
class QAcceptInvoice;
}
class CountModel;
class QKeyEvent;
class QLoadedUser;
class QuantityGrid;
class ScanCatcher;

/// The receiver counts what has come. A scanned piece counts one more wherever the focus is, of weighed goods
/// the quantity is asked; what was not sent is added. All has to be counted before it is accepted; what
/// differs is shown as it is typed, and once more as a question.
class QAcceptInvoice : public InvoiceDialog
{
    Q_OBJECT

public:
    QAcceptInvoice(QSqlDatabase *db, const QLoadedUser *user, QObject *receiver, DbId invoice,
                   QWidget *parent);
    ~QAcceptInvoice() override;

    const CountModel *model() const { return m_model; }

public slots:
    /// Asks when something was counted.
    void reject() override;

protected:
    QString refusal() const override;
    void save() override;
    void notWritten() override;
    void showEvent(QShowEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    /// Scanned codes count; what is typed by hand shows its row.
    enum Source { Scanned, Typed };

    void buildGrid(const QLoadedUser *user);
    void connectParts();
    void show(const std::optional<ReadInvoice> &invoice);
    void showSums();
    void tell(const QString &text);
    void scan(const QString &code);
    void takeScans();
    void find(const QString &text, Source source);
    bool findHere(const QString &text, Source source);
    void lookUp(const QString &text, Source source);
    void showFound(const QString &text, Source source, const std::optional<QVector<InvoiceLine>> &found);
    void count(int row, Source source);
    bool setCounted(int row, const std::optional<qint64> &thousandths);
    void takeRest();
    void focusField();
    AcceptDraft draft() const;
    bool agreesToDifferences();

    std::unique_ptr<Ui::QAcceptInvoice> ui;
    CountModel *m_model;
    ListColumns m_columns;
    QuantityGrid *m_grid = nullptr;
    ScanCatcher *m_scanner = nullptr;
    ReadInvoice m_invoice;
    DbId m_user;
    bool m_isChanged = false;
    /// Scanned while a question was open.
    QStringList m_scans;
};
