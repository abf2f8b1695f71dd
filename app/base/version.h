#pragma once

/// The program's version as it is shown, logged and remembered in the settings; the build reads it
/// here too.
constexpr char programVersion[] = "3. 0. 0. 17";
