#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "html_writer.h"

namespace vond_html {

/// In bytes, so that no text makes the page grow beyond measure.
inline constexpr std::size_t LONGEST_NAME = 300;
inline constexpr std::size_t LONGEST_TEXT = 10000;
inline constexpr std::size_t LONGEST_NODE_SET = 20000;

/// Returns "1 node", "2 nodes".
std::string count_of(std::size_t count, std::string_view singular, std::string_view plural);

/// Returns the texts that are not empty, with commas between them.
std::string listed(const std::vector<std::string>& texts);

/// Returns "2025-11-21 04:30:00 UTC". Throws std::overflow_error for times without a year of four
/// digits.
std::string readable_time(std::int64_t seconds);

/// Returns "2 minutes", in the largest unit of which there is a whole one.
std::string readable_span(std::uint64_t seconds);

/// Returns "2 minutes old" or, for less than 0, "2 minutes in the future".
std::string readable_age(std::int64_t seconds);

/// Returns a name as the page has it.
std::string shortened_name(std::string_view name);

/// Returns the names as one node set.
std::string folded(const std::vector<std::string>& names);

/// Writes a time that programs can read, too.
void write_time(HtmlWriter& page, std::int64_t seconds);

/// Writes a node set. What is too long ends in "...": the whole is in the other outputs.
void write_nodes(HtmlWriter& page, std::string_view folded, std::size_t most = LONGEST_NODE_SET);

/// Writes a name. Its writing direction is its own and changes nothing around it.
void write_name(HtmlWriter& page, std::string_view name);

}  // namespace vond_html
