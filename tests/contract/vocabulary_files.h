#pragma once

#include <string>
#include <utility>
#include <vector>

#include "vond/vocabulary/severity_bands.h"

/// Two source files with the vocabulary, of which each has its own copy.
namespace vond::test {

vocabulary::SeverityBandTable& bands_of_first_file();
vocabulary::SeverityBandTable& bands_of_second_file();

/// Returns the names and addresses of the first file's objects that need memory of their own to be
/// built, in the order in which they are to be built.
std::vector<std::pair<std::string, const void*>> memory_of_first_file();

}  // namespace vond::test
