#pragma once

#include <QString>
#include <functional>

class QAbstractButton;
class QNTableView;
class QWidget;

/// The key that asks why an item costs what it costs.
constexpr Qt::Key whyPriceKey = Qt::Key_F3;

/// What it asks, in words.
QString whyPriceWords();

/// Offers that question in the menu of a right click on a row.
void addWhyPriceMenu(QNTableView *list, const std::function<void(int row)> &ask);
/// The same, by the key anywhere in the page and by the button, of the list's current row; without one that
/// is said.
void offerWhyPrice(QWidget *page, QNTableView *list, QAbstractButton *button,
                   const std::function<void(int row)> &ask);
