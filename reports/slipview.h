#pragma once

#include "slip.h"
#include "waitnote.h"

#include <QWidget>
#include <memory>

namespace Ui {
class SlipView;
}

/// A document as a slip, with the ways to the printer and into a PDF file.
class SlipView : public QWidget
{
    Q_OBJECT

public:
    explicit SlipView(QWidget *parent = nullptr);
    ~SlipView() override;

    /// Who hears where a file was saved, or why not.
    void setReceiver(QObject *receiver) { m_receiver = receiver; }
    void showSlip(const Slip &slip);
    /// Another document is on its way; until showSlip(), keep() or clear() the one shown stays.
    void expect();
    void keep() { m_note->end(); }
    void clear();
    /// The page shown; empty for none.
    const QString &html() const { return m_html; }

public slots:
    void print();
    void savePdf();

private:
    void setPage(const QString &html);

    std::unique_ptr<Ui::SlipView> ui;
    WaitNote *m_note;
    QObject *m_receiver = nullptr;
    QString m_html;
    QString m_fileName;
};
