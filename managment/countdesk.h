#pragma once

#include "countmodel.h"

#include <QHash>
#include <QStringList>
#include <functional>

class EditDialog;
class QKeyEvent;
class QLabel;
class QLineEdit;
class QNTableView;
class QPushButton;
class QuantityGrid;
class ScanCatcher;

/// How the goods in a dialog are counted: by a scanner wherever the focus is, by the field, and in the grid.
/// A scanned piece counts one more, of all else the quantity is asked. What was scanned while a question was
/// open is counted behind it.
class CountDesk : public QObject
{
    Q_OBJECT

public:
    /// Scanned codes count; what is typed by hand shows its row.
    enum Source { Scanned, Typed };

    struct Parts
    {
        QNTableView *view;
        QLineEdit *field;
        QLabel *sums;
        QLabel *told;
        /// Takes what nobody has counted as it is expected.
        QPushButton *rest;
    };
    /// The questions of a dialog, and the buttons that agree.
    struct Words
    {
        /// %1: how many are not counted.
        QString rest;
        QString takeRest;
        QString differ;
        QString agree;
    };

    CountDesk(EditDialog *window, CountModel *model, const Parts &parts, const Words &words);
    /// For the destructor of the window: an editor that loses the focus on the way out would still tell of
    /// it.
    void leave();
    /// Scans are heard from now on; when the window is shown.
    void listen();
    /// While something that was typed is still looked for, Enter looks for nothing else.
    void setIsAsking(const std::function<bool()> &isAsking) { m_isAsking = isAsking; }

    void setBarcodes(const QHash<QString, DbId> &barcodes) { m_barcodes = barcodes; }
    void addBarcode(const QString &code, DbId goods) { m_barcodes.insert(code, goods); }
    void tell(const QString &text);
    QString told() const;
    void focusField();
    /// What was typed before counts first.
    void count(int row, Source source);
    void takeScans();
    bool hasScans() const { return !m_scans.isEmpty(); }
    void showSums();
    /// Nothing can be counted any more: what nobody knows to be written stays as it was sent.
    void freeze();

    /// Something was counted since setChanged(false).
    bool isChanged() const { return m_isChanged; }
    void setChanged(bool isChanged) { m_isChanged = isChanged; }
    /// Ends a quantity that is being typed. False, with the reason told, when it did not come into the rows.
    bool settle();
    /// Why it is not through; empty when all is counted.
    QString refusal() const;
    void goToUncounted();
    /// Asks about the rows that differ; true without any.
    bool agreesToDifferences();

signals:
    /// None of the goods here.
    void unknown(const QString &text, Source source);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void buildGrid();
    void scan(const QString &code);
    void find(const QString &text, Source source);
    bool findHere(const QString &text, Source source);
    int rowOfName(const QString &text) const;
    int nextRow(const std::function<bool(const InvoiceLine &)> &isWanted) const;
    void countNext();
    bool setCounted(int row, const std::optional<qint64> &thousandths);
    void takeRest();
    bool fieldKey(const QKeyEvent *key);

    EditDialog *m_window;
    CountModel *m_model;
    Parts m_parts;
    Words m_words;
    QuantityGrid *m_grid;
    ScanCatcher *m_scanner = nullptr;
    std::function<bool()> m_isAsking;
    QHash<QString, DbId> m_barcodes;
    bool m_isChanged = false;
    bool m_isFrozen = false;
    /// Scanned while a question was open.
    QStringList m_scans;
};
