#include "standalone/cli/options.h"

#include <CLI/CLI.hpp>
#include <map>
#include <string_view>

#include "standalone/model/severity_scale.h"
#include "standalone/nodes/node_set.h"
#include "standalone/text/harmless_text.h"
#include "standalone/text/messages.h"
#include "standalone/text/suggestion.h"
#include "standalone/version.h"
#include "vond/vocabulary/tables.h"

namespace vond::standalone {
namespace {

constexpr char EXIT_STATUSES[] =
    "Exit status:\n"
    "  0  report written, nothing fails\n"
    "  1  report written, something fails, or expected nodes were not examined\n"
    "  2  usage or input error\n"
    "  3  the report could not be completed\n";

const std::map<std::string_view, ColorMode> COLOR_MODES = {
    {"auto", ColorMode::AUTO}, {"always", ColorMode::ALWAYS}, {"never", ColorMode::NEVER}};

const std::map<std::string_view, CollapseBy> COLLAPSE_MODES = {{"text", CollapseBy::TEXT},
                                                               {"id", CollapseBy::ID}};

[[noreturn]] void reject(const std::string& option, const std::string& value,
                         const std::string& expectation,
                         const std::vector<std::string_view>& candidates) {
  throw UsageError(option + " is \"" + harmless(value) + "\", expected " + expectation +
                   suggestion_for(value, candidates));
}

int parse_threshold(const std::string& text) {
  const std::optional<int> severity = parse_severity(text);
  if (!severity) {
    reject("--fail-threshold", text, severity_expectation(), band_names());
  }
  return *severity;
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
  reject(option, text, one_of(names), names);
}

/// Returns the names that node sets on the command line stand for.
std::vector<std::string> parse_node_sets(const std::string& option,
                                         const std::vector<std::string>& sets) {
  std::vector<std::string> names;
  for (const std::string& set : sets) {
    try {
      const auto expanded = expand_node_set(set);
      names.insert(names.end(), expanded.begin(), expanded.end());
    } catch (const NodeSetError& error) {
      throw UsageError(option + " is \"" + harmless(set) + "\": " + error.what());
    }
  }
  return names;
}

int parse_width(const std::string& text) {
  constexpr std::string_view DIGITS = "0123456789";
  constexpr std::size_t MOST_DIGITS = 9;
  if (text.empty() || text.size() > MOST_DIGITS ||
      text.find_first_not_of(DIGITS) != std::string::npos) {
    reject("--width", text, "a number of columns, 0 for no wrapping", {});
  }
  return std::stoi(text);
}

/// Returns the message for arguments that no option takes.
std::string unknown_argument(const std::string& argument, const CLI::App& app) {
  std::vector<std::string> names;
  for (const CLI::Option* option : app.get_options()) {
    for (const std::string& name : option->get_lnames()) {
      names.push_back("--" + name);
    }
  }
  const std::string option = argument.substr(0, argument.find('='));
  return "unknown option \"" + harmless(option) + "\"" +
         suggestion_for(option, std::vector<std::string_view>(names.begin(), names.end()));
}

/// Returns the message for an option that is given too often or lacks its value.
std::string argument_mismatch(const CLI::ArgumentMismatch& error, const CLI::App& app) {
  const std::string_view message = error.what();
  for (const CLI::Option* option : app.get_options()) {
    const std::string name = option->get_name();
    if (option->get_expected_max() == 0 && message.substr(0, name.size() - 2) == name.substr(2)) {
      return name + " takes no value";
    }
    if (message.substr(0, name.size()) != name) {
      continue;
    }
    if (option->count() > 1) {
      return name + " is given " + std::to_string(option->count()) + " times, expected it once";
    }
    return name + " has no value, expected " + name + " " + option->get_type_name();
  }
  return error.what();
}

/// CLI11 takes the next word for the value of "--output=", so that an empty variable in a script
/// would make the report replace the findings.
void refuse_empty_values(int argc, const char* const* argv) {
  for (int i = 1; i < argc && std::string_view(argv[i]) != "--"; ++i) {
    const std::string_view word = argv[i];
    if (word.substr(0, 2) == "--" && word.find('=') == word.size() - 1) {
      throw UsageError(harmless(word.substr(0, word.size() - 1)) + " has no value after \"=\"");
    }
  }
}

void refuse_empty_names(const std::string& option, const std::vector<std::string>& files) {
  for (const std::string& file : files) {
    if (file.empty()) {
      reject(option, file, "the name of a file", {});
    }
  }
}

/// The command line as CLI11 sees it: words, which are understood once all of them are there.
struct CommandLine {
  CommandLine();
  Options options() const;

  void add_flag(const std::string& name, bool& flag, const std::string& description);
  void add_list(const std::string& name, const std::string& type, std::vector<std::string>& values,
                const std::string& description);

  CLI::App app{"Reports on the health of a cluster from findings about its nodes.", "vond-report"};
  Options parsed;
  std::string definitions, fail_threshold, width, log_level, color, collapse;
  std::vector<std::string> examined, expected;
};

CommandLine::CommandLine() {
  app.set_version_flag("--version", std::string("vond-report ") + VERSION,
                       "Print the version and exit");
  app.set_help_flag("-h,--help", "Print this text and exit");
  app.footer(EXIT_STATUSES);
  app.add_option("FINDINGS", parsed.inputs,
                 "Files of findings, JSON Lines; \"-\" or nothing:\nstandard input")
      ->type_name("");
  app.add_option("-d,--definitions", definitions, "Framework definitions, JSON")->type_name("FILE");
  app.add_option("-t,--fail-threshold", fail_threshold,
                 "Issues of bands that reach up to N contribute\nto FAIL: 0 to 100, or a band's "
                 "name for its\nupper bound (default: 75)")
      ->type_name("N");
  app.add_option("--collapse", collapse,
                 "What makes findings one issue: equal texts, or\nan equal id: text or id "
                 "(default: text)")
      ->type_name("WHAT");
  add_flag("--keep-going", parsed.keep_going,
           "Report on the rest of the input when lines of\nit cannot be used");
  add_list("--examined", "NODESET", examined, "Nodes that were looked at; may be repeated");
  add_list("--expect", "NODESET", expected,
           "Nodes that should have been looked at; may be\nrepeated");
  app.add_option("-w,--width", width,
                 "Columns of the report, 0: no wrapping (default:\nthe terminal's, else 80)")
      ->type_name("N");
  app.add_option("--log-level", log_level,
                 "Level of error reports; \"info\" and \"debug\" show\ndatabase row ids (default: "
                 "warning)")
      ->type_name("NAME");
  add_flag("--syslog", parsed.syslog, "Send error reports to the system log");
  app.add_option("--color", color, "Colours: auto, always or never (default: auto)")
      ->type_name("WHEN");
  add_list("-o,--output", "FILE", parsed.outputs, "A further destination; may be repeated");
  add_list("-e,--extension", "FILE", parsed.extensions,
           "An output extension to run; may be repeated\n(default: the text report)");
}

void CommandLine::add_flag(const std::string& name, bool& flag, const std::string& description) {
  app.add_flag(name, flag, description)->disable_flag_override();
}

/// Adds an option that may be repeated and takes one value each time, so that none of them takes
/// the operands too.
void CommandLine::add_list(const std::string& name, const std::string& type,
                           std::vector<std::string>& values, const std::string& description) {
  app.add_option(name, values, description)
      ->type_name(type)
      ->expected(1)
      ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll)
      ->allow_extra_args(false);
}

Options CommandLine::options() const {
  Options options = parsed;
  refuse_empty_names("FINDINGS", options.inputs);
  refuse_empty_names("--output", options.outputs);
  refuse_empty_names("--extension", options.extensions);
  if (app.count("--definitions") != 0) {
    refuse_empty_names("--definitions", {definitions});
    options.definitions = definitions;
  }
  if (app.count("--fail-threshold") != 0) {
    options.fail_threshold = parse_threshold(fail_threshold);
  }
  if (app.count("--width") != 0) {
    options.width = parse_width(width);
  }
  if (app.count("--log-level") != 0) {
    const std::map<std::string_view, int> levels(vocabulary::LOG_LEVELS.begin(),
                                                 vocabulary::LOG_LEVELS.end());
    parse_word<int>("--log-level", log_level, levels);
    options.log_level = log_level;
  }
  if (app.count("--color") != 0) {
    options.color = parse_word<ColorMode>("--color", color, COLOR_MODES);
  }
  if (app.count("--collapse") != 0) {
    options.collapse_by = parse_word<CollapseBy>("--collapse", collapse, COLLAPSE_MODES);
  }
  options.examined = parse_node_sets("--examined", examined);
  options.expected = parse_node_sets("--expect", expected);
  return options;
}

}  // namespace

std::variant<Options, Information> parse_options(int argc, const char* const* argv,
                                                 bool input_is_terminal) {
  CommandLine line;
  refuse_empty_values(argc, argv);
  try {
    line.app.parse(argc, argv);
  } catch (const CLI::CallForHelp&) {
    return Information{line.app.help()};
  } catch (const CLI::CallForVersion& version) {
    return Information{std::string(version.what()) + "\n"};
  } catch (const CLI::ExtrasError&) {
    throw UsageError(unknown_argument(line.app.remaining().front(), line.app));
  } catch (const CLI::ArgumentMismatch& error) {
    throw UsageError(argument_mismatch(error, line.app));
  } catch (const CLI::ParseError& error) {
    throw UsageError(error.what());
  }
  Options options = line.options();
  if (options.inputs.empty() && input_is_terminal) {
    throw UsageError("no findings: name files of them, or pipe them in");
  }
  if (options.inputs.empty()) {
    options.inputs.emplace_back("-");
  }
  return options;
}

}  // namespace vond::standalone
