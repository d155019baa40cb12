/// @file ClassChoice.h
/// The class that an option names.
#pragma once

#include "Options.h"

#include "VDicomIOD.h"

#include <string>

namespace program {

/// The one class that a number, a SOP class UID, a keyword, a name or a part of them means.
/// @return null: it has been said why there is none, and `status` is the exit status
DICOMIOD* ChooseClass(const std::string& text, const Options& options, int& status);

} // namespace program
