#pragma once

#include <QDialog>
#include <memory>

namespace Ui {
class ClnFilter;
}

/// Which cards are to be listed: by their kind, and whether they are blocked.
class ClnFilter : public QDialog
{
    Q_OBJECT

public:
    explicit ClnFilter(QWidget *parent = nullptr);
    ~ClnFilter() override;

    /// "clients.bonus_discount=1 AND clients.block=0"; empty when nothing is chosen.
    QString condition() const;

private:
    std::unique_ptr<Ui::ClnFilter> ui;
};
