// Bytes read as a file of acknowledgements: either an error at a place in the file, or entries that
// keep their promises and read the same when they are written down again.

#include "standalone/acknowledged/acknowledgements_reader.h"

#include <algorithm>
#include <ctime>
#include <optional>

#include "fuzz/json_text.h"
#include "fuzz/memory_file.h"
#include "fuzz/oracle.h"
#include "fuzz/target.h"
#include "fuzz/text.h"
#include "standalone/acknowledged/acknowledgement_coverage.h"
#include "standalone/input/input_error.h"
#include "standalone/nodes/node_folding.h"
#include "standalone/text/harmless_text.h"
#include "standalone/text/utc_time.h"

namespace {

using namespace vond::fuzz;
using namespace vond::standalone;

/// 2025-11-21 04:30 UTC.
constexpr LongestAcknowledgement LONGEST = {.now = 1763699400, .days = 90};
constexpr std::time_t DAY = 86400;

std::optional<std::vector<Acknowledgement>> read(std::string_view input) {
  static MemoryFile file;
  const std::string& path = file.holding(input);
  try {
    return read_acknowledgements(path, LONGEST).entries;
  } catch (const InputError& error) {
    expect_place(error.what(), path, input);
    return std::nullopt;
  }
}

void check_text(std::string_view text) {
  expect(is_utf8(text) && is_harmless(text), "a harmless text", text);
}

void check_entry(const Acknowledgement& entry, std::string_view input) {
  check_text(entry.id);
  check_text(entry.reason);
  check_text(entry.by);
  expect(!entry.id.empty() && !entry.reason.empty(), "texts that are not empty", input);
  expect(entry.nodes.empty() == entry.is_everywhere, "nodes, or every node", input);
  expect(std::is_sorted(entry.nodes.begin(), entry.nodes.end()), "sorted nodes", input);
  const std::vector<Acknowledgement> entries = {entry};
  const AcknowledgementCoverage coverage(entries, entry.until);
  const auto covers = [&](int severity, std::string_view node) {
    return coverage.covers(entry.id, severity, node);
  };
  for (const std::string& node : entry.nodes) {
    check_text(node);
    expect(!node.empty() && covers(0, node), "nodes that are covered", input);
  }
  expect(covers(entry.up_to, "") == entry.is_everywhere, "no node to be none of some", input);
  expect(!covers(entry.up_to + 1, entry.nodes.empty() ? "n" : entry.nodes.front()),
         "nothing above the limit", input);
  expect(entry.until >= 0 && entry.until < LONGEST.now + (LONGEST.days + 1) * DAY,
         "an end that is not too far ahead", input);
}

std::string json_of(const Acknowledgement& entry) {
  const std::string band = entry.up_to == 24   ? "informational"
                           : entry.up_to == 74 ? "warning"
                                               : "critical";
  return R"({"id":)" + json_string(entry.id) + R"(,"nodes":)" +
         json_string(entry.is_everywhere ? "*" : fold_node_names({entry.nodes})) + R"(,"until":")" +
         format_utc_time(entry.until, "%Y-%m-%dT%H:%M:%SZ") + R"(","reason":)" +
         json_string(entry.reason) + (entry.by.empty() ? "" : ",\"by\":" + json_string(entry.by)) +
         R"(,"up_to":")" + band + R"(","with_observations":)" +
         (entry.with_observations ? "true" : "false") + "}\n";
}

/// An end of a day may lie behind the longest time when it is written as a time.
bool can_be_written(const Acknowledgement& entry) {
  return entry.until <= LONGEST.now + LONGEST.days * DAY;
}

void check_second_reading(const std::vector<Acknowledgement>& first) {
  std::string text;
  for (const Acknowledgement& entry : first) {
    if (!can_be_written(entry)) {
      return;
    }
    text += json_of(entry);
  }
  const std::optional<std::vector<Acknowledgement>> second = read(text);
  if (!second) {
    fail("what was written to be read again", text);
  }
  expect(*second == first, "what was read to be what is read again", text);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view input = text_of(data, size);
  if (has_long_ranges(input)) {
    return 0;
  }
  const std::optional<std::vector<Acknowledgement>> entries = read(input);
  if (!entries) {
    return 0;
  }
  for (const Acknowledgement& entry : *entries) {
    check_entry(entry, input);
  }
  check_second_reading(*entries);
  return 0;
}
