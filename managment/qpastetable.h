#pragma once

#include "pastedtable.h"
#include "stockmode.h"
#include "typingpause.h"

#include <QDialog>
#include <functional>
#include <memory>

class DbTasks;
class WaitNote;

namespace Ui {
class QPasteTable;
}

/// A table out of a spreadsheet before it comes into a document of goods: each of its lines with what becomes
/// of it, and what is left out, which can be saved. What is shown is what is added.
class QPasteTable : public QDialog
{
    Q_OBJECT

public:
    /// shop: whose counts are shown.
    QPasteTable(SaleWork *work, const StockMode &mode, const QString &shop, QWidget *parent);
    ~QPasteTable() override;

    /// Shows the text and checks it.
    void setText(const QString &text);
    /// What was agreed to; after exec().
    const QVector<StockRow> &rows() const { return m_table.rows; }

    /// Who tells the file to write, from a suggested name; empty when none is wanted. The file dialog at
    /// first.
    using FileChooser = std::function<QString(const QString &suggested)>;
    void setFileChooser(const FileChooser &chooser) { m_fileToWrite = chooser; }

public slots:
    void accept() override;

private:
    void buildLists();
    void check(const QString &text);
    void show(const PastedTable &table);
    using QDialog::show;
    void saveRefused();

    std::unique_ptr<Ui::QPasteTable> ui;
    SaleWork *m_work;
    const GoodsSearch::Mode m_mode;
    const QString m_shop;
    DbTasks *m_tasks;
    WaitNote *m_note;
    TypingPause m_pause;
    PastedTable m_table;
    /// What stands in the field is what was checked, or is being checked.
    bool m_isCurrent = false;
    FileChooser m_fileToWrite;
};
