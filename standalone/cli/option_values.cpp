#include "standalone/cli/option_values.h"

#include <map>
#include <optional>

#include "standalone/cli/usage_error.h"
#include "standalone/model/severity_scale.h"
#include "standalone/nodes/group_hint.h"
#include "standalone/nodes/node_set.h"
#include "standalone/text/harmless_text.h"
#include "standalone/text/messages.h"
#include "standalone/text/suggestion.h"
#include "vond/vocabulary/tables.h"

namespace vond::standalone {
namespace {

const std::map<std::string_view, ColorMode> COLOR_MODES = {
    {"auto", ColorMode::AUTO}, {"always", ColorMode::ALWAYS}, {"never", ColorMode::NEVER}};

const std::map<std::string_view, CollapseBy> COLLAPSE_MODES = {
    {"pattern", CollapseBy::PATTERN}, {"text", CollapseBy::TEXT}, {"id", CollapseBy::ID}};

/// `candidates` are words that may have been meant.
[[noreturn]] void refuse(const std::string& option, const std::string& value,
                         const std::string& expectation,
                         const std::vector<std::string_view>& candidates) {
  throw UsageError(option + " is \"" + harmless(value) + "\", expected " + expectation +
                   suggestion_for(value, candidates));
}

/// Returns what the word `text` stands for among `words`.
template <typename Value>
Value parse_word(const std::string& option, const std::string& text,
                 const std::map<std::string_view, Value>& words) {
  const auto found = words.find(text);
  if (found != words.end()) {
    return found->second;
  }
  std::vector<std::string_view> names;
  names.reserve(words.size());
  for (const auto& [name, value] : words) {
    names.push_back(name);
  }
  refuse(option, text, one_of(names), names);
}

const std::map<std::string_view, FailOn> FAIL_ON = {
    {"any", FailOn::ANY}, {"worse", FailOn::WORSE}, {"new", FailOn::NEW}};

/// Returns the number that up to nine digits say, nothing for any other text.
std::optional<int> parse_whole_number(const std::string& text) {
  constexpr std::string_view DIGITS = "0123456789";
  constexpr std::size_t MOST_DIGITS = 9;
  if (text.empty() || text.size() > MOST_DIGITS ||
      text.find_first_not_of(DIGITS) != std::string::npos) {
    return std::nullopt;
  }
  return std::stoi(text);
}

}  // namespace

int parse_threshold(const std::string& option, const std::string& text) {
  const std::optional<int> severity = parse_severity(text);
  if (!severity) {
    refuse(option, text, severity_expectation(), band_names());
  }
  return *severity;
}

int parse_width(const std::string& option, const std::string& text) {
  const std::optional<int> columns = parse_whole_number(text);
  if (!columns) {
    refuse(option, text, "a number of columns, 0 for no wrapping", {});
  }
  return *columns;
}

int parse_days(const std::string& option, const std::string& text) {
  constexpr int MOST_DAYS = 3650;
  const std::optional<int> days = parse_whole_number(text);
  if (!days || *days > MOST_DAYS) {
    refuse(option, text, "a number of days from 0 to " + std::to_string(MOST_DAYS), {});
  }
  return *days;
}

ColorMode parse_color_mode(const std::string& option, const std::string& text) {
  return parse_word(option, text, COLOR_MODES);
}

FailOn parse_fail_on(const std::string& option, const std::string& text) {
  return parse_word(option, text, FAIL_ON);
}

CollapseBy parse_collapse_mode(const std::string& option, const std::string& text) {
  return parse_word(option, text, COLLAPSE_MODES);
}

std::string parse_log_level(const std::string& option, const std::string& text) {
  parse_word<int>(option, text, {vocabulary::LOG_LEVELS.begin(), vocabulary::LOG_LEVELS.end()});
  return text;
}

std::vector<std::string> parse_node_sets(const std::string& option,
                                         const std::vector<std::string>& sets) {
  std::vector<std::string> names;
  for (const std::string& set : sets) {
    try {
      const auto expanded = expand_node_set(set, Blanks::SEPARATORS);
      names.insert(names.end(), expanded.begin(), expanded.end());
    } catch (const NodeSetError& error) {
      throw UsageError(option + " is \"" + harmless(set) + "\": " + error.what() +
                       group_hint(set, error.offset));
    }
  }
  return names;
}

ExtensionRequest parse_extension(const std::string& option, const std::string& text) {
  const std::size_t colon = text.find(':');
  const bool is_path = text.find('/') < colon;
  const std::size_t end = is_path ? text.rfind(':') : colon;
  if (text.empty() || end == 0) {
    refuse(option, text, "the name of an extension or the path of its library", {});
  }
  if (end == std::string::npos) {
    return {text, {}};
  }
  if (end + 1 == text.size()) {
    refuse(option, text, "the name of a file after \":\"", {});
  }
  return {text.substr(0, end), text.substr(end + 1)};
}

void refuse_standard_output(const std::vector<std::string>& outputs) {
  for (const std::string& output : outputs) {
    if (output == "-") {
      throw UsageError(
          "--output is \"-\", but standard output gets the report in any case; a file of that name "
          "is \"./-\"");
    }
  }
}

void refuse_empty_paths(const std::string& option, const std::vector<std::string>& paths) {
  for (const std::string& path : paths) {
    if (path.empty()) {
      refuse(option, path, "the name of a file", {});
    }
  }
}

}  // namespace vond::standalone
