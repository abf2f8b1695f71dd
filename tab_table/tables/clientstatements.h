#pragma once

#include <QString>

/// What is shown of a card, in the order of the list's columns.
QString clientColumns();
/// The tables that it comes from: `clients` and what its ids name. Every card has one row.
QString clientTables();
