#pragma once

#include <QFrame>

class QLabel;

/// Tells above a list to what another page has narrowed it, and offers to show everything again.
class NarrowBar : public QFrame
{
    Q_OBJECT

public:
    explicit NarrowBar(QWidget *parent);

    /// Shown with those words; hidden when there are none.
    void tell(const QString &words);

signals:
    void showAllWanted();

private:
    QLabel *m_words;
};
