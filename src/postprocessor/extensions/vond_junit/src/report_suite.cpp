#include "report_suite.h"

#include <algorithm>
#include <string_view>
#include <tuple>
#include <unordered_set>

#include "vond/extension/issue_order.h"
#include "vond/extension/text.h"
#include "vond/facts/run_facts.h"
#include "vond/postprocessor/string_interface.h"
#include "vond/str/string_functions.h"
#include "xml_text.h"

namespace vond_junit {

namespace facts = vond::facts;

namespace {

constexpr char SUITE[] = "vond-report";
constexpr std::size_t LONGEST_NODE_SET = 10000;

std::unordered_set<std::string_view> failing_names(const std::vector<TestSuite>& suites) {
  std::unordered_set<std::string_view> names;
  for (const TestSuite& suite : suites) {
    for (const TestCase& test : suite.cases) {
      if (test.failed()) {
        names.insert(test.definition->name);
      }
    }
  }
  return names;
}

/// Returns the nodes that were expected in vain as a line, "" for none.
std::string line_of_missing_nodes() {
  std::vector<std::vector<std::string>> nodes = {facts::nodes_not_examined()};
  if (nodes.front().empty()) {
    return "";
  }
  const std::string folded = vond::postprocessor::StringInterface().get_node_string(nodes);
  return "nodes: " + shortened(folded, LONGEST_NODE_SET) + "\n";
}

}  // namespace

ReportSuite::ReportSuite(const vond::postprocessor::PostprocessorExtensionData& data,
                         const vond::vocabulary::SeverityBandTable& bands,
                         const std::vector<TestSuite>& suites, IssueLine& line)
    : doubts_(facts::doubts()) {
  const auto failing = failing_names(suites);
  const auto is_shown = [&failing](const vond::extension::Issue& issue) {
    return std::any_of(issue->fwd_names.begin(), issue->fwd_names.end(),
                       [&failing](const std::string& name) { return failing.contains(name); });
  };
  const auto add = [&](const vond::extension::Issue& issue,
                       const vond::vocabulary::SeverityBand& band,
                       vond::postprocessor::TypeCode type, bool fails) {
    if (!fails || is_shown(issue)) {
      return;
    }
    if (worst_band_.empty()) {
      worst_band_ = vond::str::upper(vond::vocabulary::band_name(band));
    }
    contributing_.add(*issue);
    unassigned_.add(
        unassigned_.has_room() ? line.format(*issue, vond::vocabulary::band_name(band), type) : "");
  };
  vond::extension::for_each_issue(data, bands, add);
}

void ReportSuite::write(XmlWriter& out, const std::string& timestamp) const {
  out.open("testsuite", {{"name", SUITE},
                         {"tests", std::to_string(TESTS)},
                         {"failures", std::to_string(failures())},
                         {"errors", std::to_string(errors())},
                         {"skipped", "0"},
                         {"timestamp", timestamp}});
  write_coverage(out);
  write_unassigned(out);
  out.close();
}

void ReportSuite::write_coverage(XmlWriter& out) const {
  const std::string_view name = "coverage";
  if (doubts_.empty()) {
    out.add("testcase", {{"classname", SUITE}, {"name", name}});
    return;
  }
  out.open("testcase", {{"classname", SUITE}, {"name", name}});
  out.add("error", {{"type", "doubt"}, {"message", vond::extension::join(doubts_, "; ")}},
          vond::extension::join(doubts_, "\n") + "\n" + line_of_missing_nodes());
  out.close();
}

void ReportSuite::write_unassigned(XmlWriter& out) const {
  const std::string_view name = "unassigned issues";
  if (unassigned_.count() == 0) {
    out.add("testcase", {{"classname", SUITE}, {"name", name}});
    return;
  }
  out.open("testcase", {{"classname", SUITE}, {"name", name}});
  out.add("failure", {{"type", worst_band_}, {"message", contributing_.text()}},
          unassigned_.text());
  out.close();
}

}  // namespace vond_junit
