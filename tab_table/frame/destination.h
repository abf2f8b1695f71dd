#pragma once

#include "chekorigin.h"

#include <QMetaType>

/// Where something leads: a page and what it is to show there. What is empty or 0 limits nothing.
struct Destination
{
    /// The object name of the action that opens the page.
    QString action;
    /// Of a table tab: a condition on the tables of its query ("goods.id IN (1,2)") that narrows the list
    /// beside what the user may see; texts of people come in by lit().
    QString condition;
    /// What the list is narrowed to, for people: "Товари без ціни".
    QString words;
    /// Of the receipts, the Z-reports and the on-line statistics: place, shifts, days.
    ChekOrigin origin;
    /// Of the transfers: the invoice.
    DbId id = 0;
};
Q_DECLARE_METATYPE(Destination)
