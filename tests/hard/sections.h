/// The sections of the hard mode.
#pragma once

#include "tests/hard/cases.h"

namespace hard {

/// Every operation of the plug-in and every command of the host, with each call of the platform
/// failing once, and failing from there on, with several codes.
[[nodiscard]] Tally SweepFailures(const Choice& choice);

/// Every bit of a stored list and of a devmode block the other way round, under a page and an
/// editor that is left with OK.
[[nodiscard]] Tally FlipBits(const Choice& choice);

/// Printers whose answers end early, drip or are something else, asked on both ways.
[[nodiscard]] Tally CutReplies(const Choice& choice);

}  // namespace hard
