#pragma once

#include "bench.h"

/// A chain of ten years: what the window has to bear at the largest customer. Goods and cards are
/// fillDatabase()'s.
namespace LargeChain {
constexpr int cards = 1000000;
constexpr int goods = 220000;
constexpr int shops = 200;
constexpr int registersPerShop = 3;
constexpr int registers = shops * registersPerShop;
/// Of each shop; every shop trades in other goods.
constexpr int stockPerShop = 10000;
/// Of each register, a day each up to yesterday; in most registers the last one is still open.
constexpr int shiftsPerRegister = 180;
constexpr int linesPerShift = 93;
constexpr int cheksPerShift = 30;

/// Shops, registers, stock, shifts and ten million receipt lines; tells on stderr how far it is.
bool fill(const Bench &bench);
} // namespace LargeChain
