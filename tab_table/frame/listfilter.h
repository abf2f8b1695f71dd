#pragma once

#include "destination.h"
#include "filterwords.h"
#include "scanpace.h"

#include <QObject>
#include <functional>

class ListPane;
class NarrowBar;
class QKeyEvent;
class QLineEdit;
class QVBoxLayout;
class QWidget;
class TypingPause;

/// What stands above the list of a tab and says which rows it has: a bar of filter widgets, the field that
/// searches, and the bar that tells to what another page has narrowed it.
class ListFilter : public QObject
{
    Q_OBJECT

public:
    /// tab: has the list in its vertical layout, unless it puts it elsewhere later.
    ListFilter(ListPane *list, QWidget *tab);
    ~ListFilter() override;

    /// A row of filter widgets above the grid.
    QWidget *addBar();
    /// Such a row with nothing but a field that searches. what: for what, shown while it is empty.
    QLineEdit *addSearchBar(const QString &what);
    /// The field that searches the list, and what searches for its text: it has the focus when the tab is
    /// opened, Ctrl+F goes to it, Esc clears it, Enter and Down go on into the list.
    void setSearchField(QLineEdit *field, const std::function<void(const QString &text)> &find);
    bool hasSearchField() const { return m_search != nullptr; }
    /// True for a tab with a search field in which nothing stands.
    bool isSearchEmpty() const;
    /// For keys in the list: the search has led there, and the next code comes there. True for the end of a
    /// code, which is searched for, too, instead of opening the record of the one before.
    bool takesScan(const QKeyEvent &key);

    /// While the hand rests from typing into the field, before its text is searched for.
    bool isTyping() const;
    void endTyping();
    void dropTyping();

    /// What has been set, in words; what the list is narrowed to comes first.
    QStringList words();
    /// Empties search field, texts and boxes, without a search.
    void clear();

    /// What another page asked for; an empty one for nothing.
    void narrow(const Destination &destination);
    const Destination &narrowing() const { return m_narrowing; }
    /// A filter (" WHERE …", " GROUP BY …" or empty) that admits only what the list is narrowed to.
    QString narrowed(const QString &filter) const;

    bool eventFilter(QObject *watched, QEvent *event) override;

signals:
    void showAllWanted();

private:
    QVBoxLayout *rows() const;
    void leadIntoList();
    void enterList();

    ListPane *m_list;
    QWidget *m_tab;
    QWidget *m_bar = nullptr;
    FilterWords m_words;
    QLineEdit *m_search = nullptr;
    TypingPause *m_typing = nullptr;
    /// Of the keys in the list.
    ScanPace m_pace;
    Destination m_narrowing;
    NarrowBar *m_narrowBar = nullptr;
};
