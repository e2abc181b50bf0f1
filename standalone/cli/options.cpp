#include "standalone/cli/options.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <string_view>

#include "standalone/cli/option_values.h"
#include "standalone/cli/usage_error.h"
#include "standalone/text/harmless_text.h"
#include "standalone/text/suggestion.h"
#include "standalone/version.h"

namespace vond::standalone {
namespace {

constexpr char EXIT_STATUSES[] =
    "Exit status:\n"
    "  0  report written, PASS\n"
    "  1  report written, FAIL (see --fail-on) or UNKNOWN\n"
    "  2  usage or input error, nothing reported\n"
    "  3  the report could not be completed\n";

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

/// Whether `message` begins with the option `name`, not with a longer one.
bool begins_with_option(std::string_view message, std::string_view name) {
  return message.substr(0, name.size()) == name && message.substr(name.size(), 1) != "-";
}

/// Returns the message for an option that is given too often or lacks its value.
std::string argument_mismatch(const CLI::ArgumentMismatch& error, const CLI::App& app) {
  const std::string_view message = error.what();
  for (const CLI::Option* option : app.get_options()) {
    const std::string name = option->get_name();
    if (option->get_expected_max() == 0 && message.substr(0, name.size() - 2) == name.substr(2)) {
      return name + " takes no value";
    }
    if (!begins_with_option(message, name)) {
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

/// Whoever reads standard input first leaves nothing of it to the others.
void refuse_to_share_standard_input(const Options& options) {
  const auto count_in = [](const std::vector<std::string>& paths) {
    return std::count(paths.begin(), paths.end(), "-");
  };
  const auto is_in = [](const std::optional<std::string>& path) {
    return std::ptrdiff_t{path == "-" ? 1 : 0};
  };
  const auto readers = {std::pair("--expect-file", count_in(options.expect_files)),
                        std::pair("--since", count_in(options.since)),
                        std::pair("--acknowledged", is_in(options.acknowledged)),
                        std::pair("--racks", is_in(options.racks))};
  std::ptrdiff_t all = count_in(options.inputs);
  for (const auto& [option, count] : readers) {
    all += count;
  }
  for (const auto& [option, count] : readers) {
    if (count != 0 && all > 1) {
      throw UsageError(std::string(option) +
                       " is \"-\", but standard input is read by something else, too");
    }
  }
}

/// The command line as CLI11 sees it: words, which are understood once all of them are there.
class CommandLine {
 public:
  CommandLine();

  /// Throws UsageError.
  Request parse(int argc, const char* const* argv);

 private:
  void add_informing_options();
  void add_input_options();
  void add_acknowledged_options();
  void add_report_options();
  void add_output_options();
  void add_value(const std::string& name, const std::string& type, std::string& word,
                 const std::string& description);
  void add_flag(const std::string& name, bool& flag, const std::string& description);
  void add_list(const std::string& name, const std::string& type, std::vector<std::string>& words,
                const std::string& description);
  bool is_given(const std::string& name) const { return app_.count(name) != 0; }
  void understand_acknowledged(Options& options) const;
  Options understand() const;

  CLI::App app_{"Reports on the health of a cluster from findings about its nodes.", "vond-report"};
  /// What needs no understanding.
  Options taken_as_is_;
  std::string definitions_, fail_threshold_, width_, log_level_, color_, collapse_, fail_on_, part_;
  std::string acknowledged_, acknowledge_at_most_, racks_;
  std::vector<std::string> examined_, expected_, expected_parts_, extensions_;
  bool lists_extensions_ = false;
};

/// In the order of the help.
CommandLine::CommandLine() {
  add_informing_options();
  add_input_options();
  add_report_options();
  add_output_options();
}

void CommandLine::add_informing_options() {
  app_.set_version_flag("--version", std::string("vond-report ") + VERSION,
                        "Print the version and exit");
  app_.set_help_flag("-h,--help", "Print this text and exit");
  add_flag("--list-extensions", lists_extensions_, "Print the names of all extensions and exit");
  app_.footer(EXIT_STATUSES);
}

void CommandLine::add_input_options() {
  app_.add_option("FINDINGS", taken_as_is_.inputs,
                  "Files of findings, JSON Lines; \"-\" or nothing:\nstandard input")
      ->type_name("");
  add_value("-d,--definitions", "FILE", definitions_, "Framework definitions, JSON");
  add_value("-t,--fail-threshold", "N", fail_threshold_,
            "Issues of bands that reach up to N contribute\nto FAIL: 0 to 100, or a band's name "
            "for its\nupper bound (default: 75)");
  add_value(
      "--fail-on", "WHAT", fail_on_,
      "With --since: which issues that contribute to\nFAIL make the exit status 1: any, worse "
      "or new\n(default: any)");
  add_value("--collapse", "WHAT", collapse_,
            "What makes findings one issue: texts that are\nequal but for numbers and the node's "
            "name, equal\ntexts, or an equal id: pattern, text or id\n(default: pattern)");
  add_flag("--strict", taken_as_is_.is_strict,
           "End at the first line that cannot be used, in\nplace of leaving it out");
  add_list("--examined", "NODESET", examined_, "Nodes that were looked at; may be repeated");
  add_list("--expect", "NODESET", expected_,
           "Nodes that should have been looked at; may be\nrepeated");
  add_list("--expect-file", "FILE", taken_as_is_.expect_files,
           "The same from a file: node sets a line, #\nbegins a comment; may be repeated");
  add_value("--part", "NAME", part_,
            "The part of the cluster that the findings come\nfrom, for the output \"findings\"");
  add_list("--expect-parts", "SET", expected_parts_,
           "Parts of the cluster whose collapsed findings\nshould be there; may be repeated");
  add_list("--since", "EARLIER", taken_as_is_.since,
           "Findings of an earlier run, to tell what has\nchanged; may be repeated");
  add_acknowledged_options();
}

void CommandLine::add_acknowledged_options() {
  add_value("--acknowledged", "FILE", acknowledged_,
            "What is known and not to be told until some day,\nJSON Lines");
  add_value("--acknowledge-at-most", "DAYS", acknowledge_at_most_,
            "How far such a day may lie ahead (default: 90)");
  add_flag("--ignore-acknowledged", taken_as_is_.ignores_acknowledged,
           "Tell what is acknowledged all the same; errors\nin its file become warnings");
}

void CommandLine::add_report_options() {
  add_value(
      "-w,--width", "N", width_,
      "Columns of the report, 0: no wrapping (default:\nthe terminal's, else COLUMNS, else 80)");
  add_value("--log-level", "NAME", log_level_,
            "Level of error reports; \"info\" and \"debug\" show\ndatabase row ids (default: "
            "warning)");
  add_flag("--syslog", taken_as_is_.syslog,
           "Send messages and the verdict to the system log,\ntoo");
  add_value("--color", "WHEN", color_, "Colours: auto, always or never (default: auto)");
  add_value(
      "--racks", "FILE", racks_,
      "Which nodes stand together, for the output\n\"html\": a rack's name and a node set a line");
}

void CommandLine::add_output_options() {
  add_list("-o,--output", "FILE", taken_as_is_.outputs, "A further destination; may be repeated");
  add_list("-e,--extension", "NAME[:FILE]", extensions_,
           "An output extension to run, a name of\n--list-extensions or a library's path; its "
           "output\ngoes to FILE alone; may be repeated (default:\ntext)");
}

void CommandLine::add_value(const std::string& name, const std::string& type, std::string& word,
                            const std::string& description) {
  app_.add_option(name, word, description)->type_name(type);
}

void CommandLine::add_flag(const std::string& name, bool& flag, const std::string& description) {
  app_.add_flag(name, flag, description)->disable_flag_override();
}

/// Adds an option that may be repeated and takes one value each time, so that none of them takes
/// the operands too.
void CommandLine::add_list(const std::string& name, const std::string& type,
                           std::vector<std::string>& words, const std::string& description) {
  app_.add_option(name, words, description)
      ->type_name(type)
      ->expected(1)
      ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll)
      ->allow_extra_args(false);
}

Options CommandLine::understand() const {
  Options options = taken_as_is_;
  refuse_empty_paths("FINDINGS", options.inputs);
  refuse_empty_paths("--expect-file", options.expect_files);
  refuse_empty_paths("--since", options.since);
  refuse_empty_paths("--output", options.outputs);
  refuse_standard_output(options.outputs);
  if (is_given("--definitions")) {
    refuse_empty_paths("--definitions", {definitions_});
    options.definitions = definitions_;
  }
  if (is_given("--fail-threshold")) {
    options.fail_threshold = parse_threshold("--fail-threshold", fail_threshold_);
  }
  if (is_given("--width")) {
    options.width = parse_width("--width", width_);
  }
  if (is_given("--log-level")) {
    options.log_level = parse_log_level("--log-level", log_level_);
  }
  if (is_given("--color")) {
    options.color = parse_color_mode("--color", color_);
  }
  if (is_given("--collapse")) {
    options.collapse_by = parse_collapse_mode("--collapse", collapse_);
  }
  if (is_given("--fail-on")) {
    options.fail_on = parse_fail_on("--fail-on", fail_on_);
    if (options.since.empty()) {
      throw UsageError("--fail-on needs --since: without an earlier run nothing is new or worse");
    }
  }
  if (is_given("--part")) {
    refuse_empty_paths("--part", {part_});
    options.part = part_;
  }
  if (is_given("--racks")) {
    refuse_empty_paths("--racks", {racks_});
    options.racks = racks_;
  }
  understand_acknowledged(options);
  options.examined = parse_node_sets("--examined", examined_);
  options.expected = parse_node_sets("--expect", expected_);
  options.expected_parts = parse_node_sets("--expect-parts", expected_parts_);
  for (const std::string& extension : extensions_) {
    options.extensions.push_back(parse_extension("--extension", extension));
  }
  return options;
}

void CommandLine::understand_acknowledged(Options& options) const {
  if (is_given("--acknowledged")) {
    refuse_empty_paths("--acknowledged", {acknowledged_});
    options.acknowledged = acknowledged_;
  }
  for (const std::string option : {"--acknowledge-at-most", "--ignore-acknowledged"}) {
    if (is_given(option) && !options.acknowledged) {
      throw UsageError(option + " is given without --acknowledged FILE");
    }
  }
  if (is_given("--acknowledge-at-most")) {
    options.acknowledge_at_most = parse_days("--acknowledge-at-most", acknowledge_at_most_);
  }
}

Request CommandLine::parse(int argc, const char* const* argv) {
  try {
    app_.parse(argc, argv);
  } catch (const CLI::CallForHelp&) {
    return Information{app_.help()};
  } catch (const CLI::CallForVersion& version) {
    return Information{std::string(version.what()) + "\n"};
  } catch (const CLI::ExtrasError&) {
    throw UsageError(unknown_argument(app_.remaining().front(), app_));
  } catch (const CLI::ArgumentMismatch& error) {
    throw UsageError(argument_mismatch(error, app_));
  } catch (const CLI::ParseError& error) {
    throw UsageError(error.what());
  }
  if (lists_extensions_) {
    return ExtensionListing{};
  }
  return understand();
}

}  // namespace

Request parse_options(int argc, const char* const* argv, bool input_is_terminal) {
  refuse_empty_values(argc, argv);
  Request request = CommandLine().parse(argc, argv);
  if (auto* const options = std::get_if<Options>(&request); options && options->inputs.empty()) {
    if (input_is_terminal) {
      throw UsageError("no findings: name files of them, or pipe them in");
    }
    options->inputs.emplace_back("-");
  }
  if (const auto* const options = std::get_if<Options>(&request)) {
    refuse_to_share_standard_input(*options);
  }
  return request;
}

}  // namespace vond::standalone
