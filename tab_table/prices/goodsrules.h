#pragma once

#include <QString>

/// What holds for goods and their barcodes, without widgets.

/// The condition of the goods list (" WHERE ...", empty without any): the goods of a group (0: all)
/// whose barcode, name or id holds the text.
QString goodsCondition(uint group, const QString &text);

/// True for rules of which a goods group may hold one item only.
bool isExclusiveRule(uint rule);

/// The greatest price that the database holds, in kopecks.
constexpr qint64 greatestPrice = 4294967295;
/// The greatest id that the database holds.
constexpr quint64 greatestGoodsId = 4294967295;
/// The most characters of a short name: what a register prints.
constexpr int shortNameLength = 32;

/// Kopecks of a typed price, with a comma or a point; false for what is no price, too much, or scanned.
bool priceFromText(const QString &text, qint64 *kopecks);
/// Why a text is no price, for the user; empty when it is one.
QString priceRefusal(const QString &text);

/// A barcode of 13 digits, the only ones that may be typed.
bool isTypedBarcode(const QString &code);
/// A barcode of 8 or 13 digits, as they may stand in the database.
bool isStoredBarcode(const QString &code);
