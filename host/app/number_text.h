// Numbers typed on the command line: plain decimals, with a `k` suffix for
// frequencies. Empty text, trailing characters, NaN and infinities are refused.
#pragma once

#include <string>

// Throws UsageError naming `what` when `text` is not a finite number.
double parseNumber(const std::string& text, const std::string& what);

// Like parseNumber, and "2.5k" means 2500.
double parseFrequency(const std::string& text, const std::string& what);

// Throws UsageError naming `what` when `text` is not an integer (0x... allowed).
long long parseInteger(const std::string& text, const std::string& what);
