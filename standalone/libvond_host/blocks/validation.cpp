#include "standalone/libvond_host/blocks/validation.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "standalone/facts/counts.h"
#include "standalone/libvond_host/blocks/ages.h"
#include "standalone/libvond_host/blocks/block_writing.h"
#include "standalone/libvond_host/blocks/input_list.h"
#include "standalone/libvond_host/blocks/limited_text.h"
#include "standalone/libvond_host/blocks/severity_bands.h"
#include "standalone/nodes/node_folding.h"
#include "standalone/text/messages.h"
#include "vond/facts/run_facts.h"

namespace vond::standalone {
namespace {

using log::OutputLog;

using Inputs = std::vector<ReportFacts::Input>;

/// Adds the parts of an input as inputs of their own: the age of an input alone does not tell which
/// of its parts is old.
void add_parts(const ReportFacts::Input& input, Inputs& parts) {
  for (const ReportFacts::Input::Part& part : input.parts) {
    const std::string name =
        part.names.empty() ? "a part of " + input.name : fold_node_names({part.names});
    parts.push_back({.name = name, .age = part.age});
  }
}

Inputs older_than_a_day(Inputs inputs) {
  std::erase_if(inputs, [](const auto& input) { return input.age.value_or(0) <= facts::OLD_AGE; });
  return inputs;
}

Inputs from_the_future(Inputs inputs) {
  std::erase_if(
      inputs, [](const auto& input) { return input.age.value_or(0) >= -facts::CLOCK_DIFFERENCE; });
  return inputs;
}

/// Writes the lines of the block one by one; each knows whether it has something to say.
class ValidationWriter {
 public:
  ValidationWriter(const ReportFacts& facts, const PostprocessorExtensionData& data)
      : facts_(facts), data_(data) {}

  void write() const {
    write_findings_read();
    write_rejections();
    write_warnings();
    write_unknown_names();
    write_useless_inputs();
    write_parts();
    write_ages();
    write_examination();
    write_expectation();
    write_checks_without_data();
  }

 private:
  void write_findings_read() const {
    std::string text = "  Findings read: " + std::to_string(facts_.findings_read);
    if (facts_.lines_rejected == 0) {
      text += ", no line left out";
    }
    const bool knows_names = facts_.unknown_definitions.empty() && facts_.unknown_based_on.empty();
    if (facts_.findings_read != 0 && knows_names) {
      text += ", every name known";
    }
    write_line(OutputLog::NONE, text, data_.line_width);
  }

  void write_rejections() const {
    if (facts_.lines_rejected != 0) {
      write_messages(count_of_rejected_lines(facts_), facts_.first_rejections,
                     facts_.lines_rejected);
    }
  }

  void write_warnings() const {
    if (!facts_.warnings.empty()) {
      write_messages(count_of(facts_.warnings.size(), "warning", "warnings"), facts_.warnings,
                     facts_.warnings.size());
    }
  }

  void write_unknown_names() const {
    write_list(facts_.unknown_definitions, {"name that findings use is no definition",
                                            "names that findings use are no definitions"});
    write_list(facts_.unknown_based_on, {"id that findings are based on was not reported",
                                         "ids that findings are based on were not reported"});
  }

  void write_useless_inputs() const {
    write_list(names_of_useless_inputs(facts_), {"input without a line that could be used",
                                                 "inputs without a line that could be used"});
  }

  void write_parts() const {
    write_list(names_of_inputs(facts_, &ReportFacts::Input::is_cut_off),
               {"input is cut off, its findings are not complete",
                "inputs are cut off, their findings are not complete"});
    write_list(facts_.parts_missing,
               {"part was expected and did not come", "parts were expected and did not come"});
    write_list(facts_.parts_twice, {"part came twice, its findings count double",
                                    "parts came twice, their findings count double"});
  }

  void write_ages() const {
    Inputs inputs;
    Inputs parts;
    for (const ReportFacts::Input& input : facts_.inputs) {
      if (input.parts.size() > 1) {
        add_parts(input, parts);
      } else {
        inputs.push_back(input);
      }
    }
    write_inputs(older_than_a_day(inputs),
                 {"input is older than a day", "inputs are older than a day"});
    write_inputs(older_than_a_day(parts),
                 {"part is older than a day", "parts are older than a day"});
    write_inputs(from_the_future(inputs),
                 {"input is from the future", "inputs are from the future"});
    write_inputs(from_the_future(parts), {"part is from the future", "parts are from the future"});
  }

  void write_examination() const {
    if (facts_.examination) {
      write_nodes(
          facts_.examination->not_examined_with_findings,
          {"node has findings and was not examined", "nodes have findings and were not examined"});
    }
  }

  void write_expectation() const {
    if (!facts_.expectation) {
      return;
    }
    const ReportFacts::Expectation& expectation = *facts_.expectation;
    if (!facts_.examination) {
      write_doubt("The input does not tell who was examined; nodes with findings count as seen");
    }
    if (!expectation.silent.empty()) {
      write_node_set(count_of_silent_nodes(facts_), expectation.silent);
    }
    if (facts_.examination) {
      write_nodes(expectation.not_expected,
                  {"node was examined and not expected", "nodes were examined and not expected"});
    } else {
      write_nodes(expectation.not_expected, {"node has findings and was not expected",
                                             "nodes have findings and were not expected"});
    }
    write_alike_names(expectation);
  }

  /// Such pairs come in crowds, all for the same reason: one of them tells it.
  void write_alike_names(const ReportFacts::Expectation& expectation) const {
    if (expectation.alike.empty()) {
      return;
    }
    const auto& [expected, seen] = expectation.alike.front();
    const std::size_t others = expectation.alike.size() - 1;
    write_doubt(
        expected + " is expected, " + seen +
        (facts_.examination ? " was examined" : " has findings") + ": the same node?" +
        (others == 0 ? "" : " And " + count_of(others, "more such pair", "more such pairs")));
  }

  void write_checks_without_data() const {
    std::size_t checks = 0;
    NodeViews nodes;
    for (const SeverityBand& band : severity_bands(data_)) {
      checks += band.checks_without_data->size();
      add_nodes(*band.checks_without_data, nodes);
    }
    if (checks == 0) {
      return;
    }
    const std::string count = "  Checks without data: " + std::to_string(checks);
    if (nodes.empty()) {
      write_line(OutputLog::NONE, count, data_.line_width);
      return;
    }
    const std::string lead = count + " on " + count_of(nodes.size(), "node", "nodes") + ": ";
    write_unwrapped_line(OutputLog::NONE, limited_node_set(layout(lead), sorted_names(nodes)));
  }

  // How lines are written.

  struct Noun {
    std::string_view singular;
    std::string_view plural;
  };

  ListLayout layout(const std::string& lead) const {
    return {.lead = lead, .width = data_.line_width};
  }

  void write_doubt(const std::string& text) const {
    write_unwrapped_line(OutputLog::YELLOW, limited_list(layout("  "), {text}));
  }

  void write_list(const std::vector<std::string>& items, const Noun& noun) const {
    if (!items.empty()) {
      const std::string lead = "  " + count_of(items.size(), noun.singular, noun.plural) + ": ";
      write_unwrapped_line(OutputLog::YELLOW, limited_list(layout(lead), items));
    }
  }

  void write_inputs(const Inputs& inputs, const Noun& noun) const {
    if (!inputs.empty()) {
      const std::string lead = "  " + count_of(inputs.size(), noun.singular, noun.plural) + ": ";
      write_unwrapped_line(OutputLog::YELLOW, limited_input_list(layout(lead), inputs));
    }
  }

  void write_nodes(const std::vector<std::string>& nodes, const Noun& noun) const {
    if (!nodes.empty()) {
      write_node_set(count_of(nodes.size(), noun.singular, noun.plural), nodes);
    }
  }

  void write_node_set(const std::string& label, const std::vector<std::string>& nodes) const {
    write_unwrapped_line(OutputLog::YELLOW, limited_node_set(layout("  " + label + ": "), nodes));
  }

  /// Writes the first messages below a label, and how many more there are of `count` in all.
  void write_messages(const std::string& label, const std::vector<std::string>& messages,
                      std::size_t count) const {
    constexpr std::size_t MOST_MESSAGES = 5;
    const std::size_t shown = std::min(messages.size(), MOST_MESSAGES);
    write_line(OutputLog::YELLOW, "  " + label + (shown == 0 ? "" : ":"), data_.line_width);
    for (std::size_t i = 0; i < shown; ++i) {
      const ListLayout message{.lead = "    ", .indent = "      ", .width = data_.line_width};
      write_unwrapped_line(OutputLog::YELLOW, limited_list(message, {messages[i]}));
    }
    if (shown != 0 && shown < count) {
      write_line(OutputLog::YELLOW, "    and " + std::to_string(count - shown) + " more",
                 data_.line_width);
    }
  }

  const ReportFacts& facts_;
  const PostprocessorExtensionData& data_;
};

}  // namespace

void write_validation(const ReportFacts& facts, const PostprocessorExtensionData& data) {
  write_unwrapped_line(OutputLog::NONE, "Validation");
  ValidationWriter(facts, data).write();
  write_empty_line();
}

}  // namespace vond::standalone
