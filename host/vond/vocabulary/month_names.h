#pragma once

#include <string>
#include <vector>

#include "vond/vocabulary/severity_bands.h"

namespace vond::vocabulary {

/// In calendar order. "Febuary" is spelled so on purpose: readers of the host's files expect it.
const std::vector<std::string> MONTH_NAMES = {"January",   "Febuary", "March",    "April",
                                              "May",       "June",    "July",     "August",
                                              "September", "October", "November", "December"};

}  // namespace vond::vocabulary
