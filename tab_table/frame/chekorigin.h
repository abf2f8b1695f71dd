#pragma once

#include "place.h"

#include <QDate>
#include <QStringList>

/// A line of another list whose receipts are wanted: by ids, since the names of registers repeat. What is 0
/// or empty limits nothing.
struct ChekOrigin : Place
{
    /// Z numbers, both ends included.
    QString zFrom;
    QString zTo;
    /// The shop groups that the line is about when no place was chosen.
    QStringList groups;
    /// Days of sale, both ends included.
    QDate firstDay;
    QDate lastDay;
    /// The code of an article that was sold, at that price in kopecks; its name for the eyes.
    QString article;
    QString price;
    QString articleName;
    /// The number of the receipt that is shown first of all; 0 for that of the first line.
    uint chek = 0;
};
