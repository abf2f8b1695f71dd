#pragma once

#include "keyteller.h"
#include "scanpace.h"

#include <QMap>
#include <QTimer>
#include <QTreeWidget>

/// The rights of a permission group by the menus they open, each with its value in one of three columns. A
/// click into a column sets the value; 0, 1 and 2 set it for all selected rights, on a menu for the whole of
/// it, Space and Enter take the next one. What other programs know by its number is shown and never changed.
class RightsTree : public QTreeWidget, public KeyTeller
{
    Q_OBJECT

public:
    explicit RightsTree(QWidget *parent);

    QVector<ToldKey> toldKeys() const override;

    /// Values by the ids of the rights, as the database holds them. What is open, current and found stays.
    void showRights(const QMap<int, QString> &rights);
    /// Which rights were changed: they stand in bold.
    void mark(const QList<int> &changed);
    /// Looks like before, but takes no value.
    void setReadOnly(bool isReadOnly) { m_isReadOnly = isReadOnly; }
    /// Only the rights in which every word is found; all without a word.
    void searchFor(const QString &words);

signals:
    /// Somebody has chosen 0 (denied), 1 (full) or 2 (view only) for these rights.
    void chosen(const QList<int> &ids, int value);

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void build();
    void buildOthers(const QMap<int, QString> &rights);
    void showValue(QTreeWidgetItem *line, const QString &stored) const;
    void showCount(QTreeWidgetItem *area) const;
    QList<int> idsOf(const QTreeWidgetItem *item) const;
    QList<int> selectedRights() const;
    void choose(const QList<int> &ids, int value);
    void chooseNext();
    bool takeDigit(const QKeyEvent &key);
    void settleDigit();

    QMap<int, QTreeWidgetItem *> m_lines;
    QTreeWidgetItem *m_others = nullptr;
    QMap<int, QString> m_rights;
    QString m_words;
    bool m_isReadOnly = false;
    ScanPace m_pace;
    /// A value that was typed; what follows soon makes a scanned code of it.
    QString m_digit;
    /// What was selected then: a hand may be on another line already.
    QList<int> m_digitRights;
    QTimer m_hold;
};
