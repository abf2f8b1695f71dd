#pragma once

#include <QFrame>
#include <QStringList>
#include <memory>
#include <optional>

namespace Ui {
class NoticeBar;
}

/// What a tab tells without asking: the newest words, and above them what stays until somebody has looked,
/// because the next scan would cover it at once. Hidden while there is nothing to tell.
class NoticeBar : public QFrame
{
    Q_OBJECT

public:
    /// A receipt whose slip can be looked at: its register's id and its number there. Without a register: the
    /// number of an invoice.
    struct Slip
    {
        QString kass;
        int chek;
    };

    explicit NoticeBar(QWidget *parent = nullptr);
    ~NoticeBar() override;

    /// Takes the place of the words before; slip: offers that one beside them.
    void tell(const QString &text, const std::optional<Slip> &slip = {});
    QString text() const;
    /// Beeps, and stays until forget().
    void keep(const QString &text);
    bool isKeeping() const { return !m_kept.isEmpty(); }
    /// What is kept goes with the next words.
    void forget() { m_kept.clear(); }

signals:
    void slipWanted(const QString &kass, int chek, bool print);

private:
    void wantSlip(bool print);

    std::unique_ptr<Ui::NoticeBar> ui;
    QStringList m_kept;
    std::optional<Slip> m_slip;
};
