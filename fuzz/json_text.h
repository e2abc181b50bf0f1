#pragma once

#include <string>
#include <string_view>
#include <vector>

/// JSON as text: what the targets for readers need to write what was read, and to judge errors.
namespace vond::fuzz {

/// Returns `text`, UTF-8, as a string of JSON.
std::string json_string(std::string_view text);

/// Returns an array of values that are JSON already.
std::string json_array(const std::vector<std::string>& values);

/// Aborts unless `message` can be shown to an administrator and begins with FILE:LINE:COLUMN, a
/// place that `input` has. Returns the line.
std::size_t expect_place(std::string_view message, const std::string& file, std::string_view input);

/// Whether reading the node sets that `input` may hold takes long without telling anything new.
bool has_long_ranges(std::string_view input);

}  // namespace vond::fuzz
