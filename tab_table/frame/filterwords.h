#pragma once

#include <QHash>
#include <QStringList>

class QWidget;

/// What somebody has set in a row of filter widgets, in words: "Група: Сири". Every input has a label as its
/// buddy, or an accessible name.
class FilterWords
{
public:
    /// bar: may be null. The texts that its fields have when they are asked first are no filter.
    QStringList of(const QWidget *bar);

private:
    QHash<const QWidget *, QString> m_first;
    bool m_isAsked = false;
};
