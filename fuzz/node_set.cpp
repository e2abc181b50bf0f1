// A text expanded as a node set: either an error at a place in the text, or names that fold to a
// set of the same names.

#include "standalone/nodes/node_set.h"

#include <algorithm>
#include <optional>

#include "fuzz/oracle.h"
#include "fuzz/target.h"
#include "fuzz/text.h"
#include "standalone/nodes/node_folding.h"
#include "standalone/text/harmless_text.h"

namespace {

using namespace vond::fuzz;
using vond::standalone::Blanks;
using vond::standalone::expand_node_set;
using vond::standalone::fold_node_names;
using vond::standalone::is_harmless;
using vond::standalone::is_node_set;
using vond::standalone::MAX_NODE_SET_BYTES;
using vond::standalone::MAX_NODE_SET_SIZE;
using vond::standalone::NodeSetError;

// Of more names there is nothing to learn but that it takes long.
constexpr std::size_t MOST_NAMES_TO_FOLD = 4096;

/// Returns nothing for a text that is no node set, after judging the error.
std::optional<Names> expand(std::string_view text, Blanks blanks = Blanks::REFUSED) {
  try {
    return expand_node_set(text, blanks);
  } catch (const NodeSetError& error) {
    const std::string_view message = error.what();
    expect(error.offset <= text.size(), "an error at a place in the text", text);
    // Numbers may be long, and messages quote them: the text's length is what bounds them.
    expect(message.size() <= text.size() + 200, "a message that is not far longer than the text",
           message);
    expect(is_harmless(message), "a harmless message", message);
    return std::nullopt;
  }
}

void check_size(const Names& names, std::string_view text) {
  std::size_t bytes = 0;
  for (const std::string& name : names) {
    bytes += name.size();
  }
  expect(!names.empty() && names.size() <= MAX_NODE_SET_SIZE, "a number of names in its limits",
         text);
  expect(bytes <= MAX_NODE_SET_BYTES, "names of a size in its limits", text);
}

bool has_special_characters(std::string_view text) {
  return text.find_first_of("[]'") != std::string_view::npos;
}

Names split_at_commas(std::string_view text) {
  Names names;
  std::size_t comma = text.find(',');
  for (; comma != std::string_view::npos; comma = text.find(',')) {
    names.emplace_back(text.substr(0, comma));
    text.remove_prefix(comma + 1);
  }
  names.emplace_back(text);
  return names;
}

Names each_once(Names names) {
  std::sort(names.begin(), names.end());
  names.erase(std::unique(names.begin(), names.end()), names.end());
  return names;
}

void check_folding(const Names& names) {
  const std::string folded = fold_node_names({names});
  expect_same("names to be the same after folding and expanding",
              each_once(expand_node_set(folded)), each_once(names));
  expect_same("folding to be stable", fold_node_names({expand_node_set(folded)}), folded);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text = text_of(data, size);
  const std::optional<Names> names = expand(text);
  const std::optional<Names> names_between_blanks = expand(text, Blanks::SEPARATORS);
  expect(is_node_set(text) == names.has_value(), "a node set to be known as such", text);
  if (!names) {
    return 0;
  }
  check_size(*names, text);
  expect(names_between_blanks.has_value(), "blanks to be allowed, not demanded", text);
  expect_same("blanks to change nothing where there are none", *names_between_blanks, *names);
  if (!has_special_characters(text)) {
    expect_same("plain names to stand for themselves", *names, split_at_commas(text));
  }
  if (names->size() <= MOST_NAMES_TO_FOLD) {
    check_folding(*names);
  }
  return 0;
}
