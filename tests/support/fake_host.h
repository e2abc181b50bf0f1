#pragma once

#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "vond/postprocessor/postprocessor_extension_data.h"

namespace vond::test {

/// A host whose operations do the simplest thing that shows in the text, note that they were
/// called, and fail where a test wants them to. Linked in place of a real host.
struct FakeHost {
  /// What format_header() returns.
  std::string header = "<header>\n";
  /// What Summarize() returns.
  int summarize_result = 0;
  /// What PrintEnd() returns.
  int print_end_result = 0;
  /// The first call of this operation throws std::runtime_error("<operation> failed").
  std::string failing_operation;
  /// The first wrapping of a text that contains this throws std::runtime_error("wrapping failed").
  std::string unwrappable_text;
  /// The first wrapping of a text that contains this throws an int.
  std::string text_that_throws_an_int;
  /// Is called by every operation, with its name.
  std::function<void(const std::string&)> on_call;

  /// The names of the report's blocks, in the order of the calls, each followed by the text that
  /// had reached the destinations by then.
  std::vector<std::pair<std::string, std::string>> blocks;
  /// Number of calls of every operation.
  std::map<std::string, int> calls;
  /// The records that the blocks were called with.
  std::vector<const postprocessor::PostprocessorExtensionData*> records;
  /// The objects that the blocks were called on.
  std::vector<const void*> objects;
  /// Arguments of the wrapping operations, as "operation(text, width, indent)".
  std::vector<std::string> wraps;
};

/// The one fake host of the program; tests put a fresh one in its place.
FakeHost& fake_host();

}  // namespace vond::test
