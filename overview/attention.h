#pragma once

#include "destination.h"
#include "overviewsql.h"
#include "scanpace.h"

#include <QListWidget>

/// Something that may need a hand: how often there is such a thing, and where it is shown.
struct AttentionEntry
{
    QString words;
    /// -1 as long as it is not known.
    qint64 count = -1;
    Destination destination;
};

/// What the overview looks after, as far as the user may open the list that shows it.
QVector<AttentionEntry> attentionOf(const QLoadedUser &user, const ChainState &chain, const Counted &counted,
                                    const QDateTime &now);

/// The entries as a list: a click or Enter opens what there is.
class AttentionList : public QListWidget
{
    Q_OBJECT

public:
    explicit AttentionList(QWidget *parent = nullptr);

    void setEntries(const QVector<AttentionEntry> &entries);

signals:
    void wanted(const Destination &destination);

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void open(int row);

    QVector<AttentionEntry> m_entries;
    ScanPace m_pace;
};
