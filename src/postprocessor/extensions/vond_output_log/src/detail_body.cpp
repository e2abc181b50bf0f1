#include "detail_body.h"

#include "layout.h"
#include "vond/str/string_functions.h"

namespace vond_output_log {

using vond::postprocessor::CollapsedAnalysisOutput;
using vond::postprocessor::Type;

namespace {

/// The longest label of either kind.
constexpr std::string_view DIAGNOSIS_REFERENCE = "Based on Observations:";
constexpr std::string_view OBSERVATION_REFERENCE = "Diagnoses:";

constexpr std::string_view reference_label(bool is_diagnosis) {
  return is_diagnosis ? DIAGNOSIS_REFERENCE : OBSERVATION_REFERENCE;
}

}  // namespace

std::string label_spacer(bool is_diagnosis) {
  return blanks(reference_label(is_diagnosis).size() + 1);
}

int DetailBody::format(CollapsedAnalysisOutput& issue, bool is_diagnosis) {
  const bool has_outputs = !issue.outputs.empty();
  if (begin_with_message(strings_.remove_endl(has_outputs ? issue.outputs[0]->message : "")) == 1) {
    return 1;
  }
  const std::string remedy = strings_.remove_endl(has_outputs ? issue.outputs[0]->remedy : "");
  if (!remedy.empty() && append("Remedy:", remedy) == 1) {
    return 1;
  }
  // An issue on no nodes has this line too; that is wanted.
  if (has_outputs && append("Nodes:", summaries_.nodes(issue, strings_)) == 1) {
    return 1;
  }
  return append_related(issue, is_diagnosis);
}

int DetailBody::begin_with_message(const std::string& message) {
  std::string segment;
  if (!message.empty() && column_.format(segment, "Message:", message) == 1) {
    return 1;
  }
  // Without a message the body begins with an empty line, or is empty; that is wanted.
  buffer_ = segment;
  return 0;
}

int DetailBody::append(std::string_view label, const std::string& text) {
  std::string segment;
  if (column_.format(segment, std::string(label), text) == 1) {
    return 1;
  }
  buffer_ += '\n';
  buffer_ += segment;
  return 0;
}

int DetailBody::append_related(CollapsedAnalysisOutput& issue, bool is_diagnosis) {
  if (issue.related_issues[is_diagnosis ? Type::OBSERVATION : Type::DIAGNOSIS].empty()) {
    return 0;
  }
  // The diagnoses of an observation are neither made presentable nor sorted, unlike the
  // observations of a diagnosis; that is wanted.
  return append(
      reference_label(is_diagnosis),
      vond::str::rstrip(
          is_diagnosis ? summaries_.observations_of(issue) : summaries_.diagnoses_of(issue), ", "));
}

}  // namespace vond_output_log
