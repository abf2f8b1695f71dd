#pragma once

#include <QDialog>
#include <optional>

class QPlainTextEdit;

/// Takes a pasted list of barcodes, a line each.
class BarcodeDialog : public QDialog
{
    Q_OBJECT

public:
    BarcodeDialog(const QString &text, QWidget *parent);

    /// text: what it begins with. Nothing when it was cancelled.
    static std::optional<QString> ask(QWidget *parent, const QString &text);

private:
    QPlainTextEdit *m_edit;
};
