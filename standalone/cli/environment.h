#pragma once

#include <ctime>
#include <filesystem>
#include <string_view>

#include "standalone/cli/options.h"

/// What the surroundings of the process decide where the command line does not.
namespace vond::standalone {

bool input_is_terminal();
bool errors_go_to_terminal();

/// Returns the columns of the terminal that standard output is. If it is none or knows no size: the
/// value of COLUMNS if that is a number of columns, 80 otherwise.
int default_width();

/// Whether standard output is to be coloured. ColorMode::AUTO colours terminals, unless NO_COLOR
/// is set to something.
bool wants_color(ColorMode mode);

/// Returns the report's time: now, or what SOURCE_DATE_EPOCH says, for reports that can be
/// reproduced. Throws UsageError when that is no time.
std::time_t report_time();

/// Returns VOND_EXTENSION_PATH, "" when it is not set: further folders of extensions with ":"
/// between them.
std::string_view extension_search_path();

/// Returns the folder that the program's file is in.
std::filesystem::path program_folder();

}  // namespace vond::standalone
