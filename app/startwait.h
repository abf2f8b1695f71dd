#pragma once

class InstanceLimit;

/// Waits for this copy's turn to start. When that takes longer than noticeMs, a window tells so and lets the
/// user go on waiting, or leave: false then.
bool waitForTurn(InstanceLimit *limit, int noticeMs = 3000);
