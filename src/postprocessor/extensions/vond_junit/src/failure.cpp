#include "failure.h"

#include <tuple>

#include "vond/extension/issue_order.h"
#include "vond/str/string_functions.h"
#include "xml_text.h"

namespace vond_junit {
namespace {

/// Returns "2 definitions below fail".
std::string count_of_children(std::size_t children) {
  return std::to_string(children) +
         (children == 1 ? " definition below fails" : " definitions below fail");
}

/// At least one of both is to be told, unless a host has reasons of its own to fail a definition.
std::string message_of(const ContributingIssues& issues, std::size_t failing_children) {
  if (failing_children == 0) {
    return issues.count() == 0 ? "fails" : issues.text();
  }
  const std::string children = count_of_children(failing_children);
  return issues.count() == 0 ? children : issues.text() + "; " + children;
}

}  // namespace

void ContributingIssues::add(const vond::postprocessor::CollapsedAnalysisOutput& issue) {
  if (count_ < MOST_IDS) {
    ids_ += (count_ == 0 ? "" : ", ") + shortened(issue.get_id(), LONGEST_ID);
  }
  ++count_;
}

std::string ContributingIssues::text() const {
  std::string text =
      std::to_string(count_) +
      (count_ == 1 ? " issue contributes to FAIL: " : " issues contribute to FAIL: ") + ids_;
  if (count_ > MOST_IDS) {
    text += " and " + std::to_string(count_ - MOST_IDS) + " more";
  }
  return text;
}

Failure Failures::of(const TestCase& test) {
  Lines issues;
  ContributingIssues contributing;
  const auto add = [&](const vond::extension::Issue& issue,
                       const vond::vocabulary::SeverityBand& band,
                       vond::postprocessor::TypeCode type, bool fails) {
    issues.add(issues.has_room() ? line_.format(*issue, vond::vocabulary::band_name(band), type)
                                 : "");
    if (fails) {
      contributing.add(*issue);
    }
  };
  if (const auto* const own = issues_.find(test.definition->name)) {
    vond::extension::for_each_issue(*own, bands_, add);
  }
  Lines children;
  for (const std::string& child : test.failing_children) {
    children.add("FAIL " + shortened(child, LONGEST_TEXT));
  }
  return {type_of(test), message_of(contributing, test.failing_children.size()),
          issues.text() + children.text()};
}

std::string Failures::type_of(const TestCase& test) const {
  const auto descending = vond::vocabulary::descending_bands(bands_);
  return test.worst_band < descending.size()
             ? vond::str::upper(vond::vocabulary::band_name(descending[test.worst_band]))
             : "FAIL";
}

}  // namespace vond_junit
