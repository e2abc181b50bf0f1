#include "detail_body.h"

#include <utility>

#include "layout.h"
#include "vond/extension/related_issues.h"
#include "vond/str/string_functions.h"

namespace vond_output_log {

using vond::extension::usable_related_ids;
using vond::postprocessor::CollapsedAnalysisOutput;
using vond::postprocessor::Type;

namespace {

/// The longest label of either kind.
constexpr std::string_view DIAGNOSIS_REFERENCE = "Based on Observations:";
constexpr std::string_view OBSERVATION_REFERENCE = "Diagnoses:";

constexpr std::string_view reference_label(bool is_diagnosis) {
  return is_diagnosis ? DIAGNOSIS_REFERENCE : OBSERVATION_REFERENCE;
}

/// Returns the ids of what an issue is related to, one string, empty if there is none.
std::string related_ids(CollapsedAnalysisOutput& issue, bool is_diagnosis) {
  std::string ids;
  if (is_diagnosis) {
    for (const std::string& id : usable_related_ids(issue, Type::OBSERVATION)) {
      ids.append(id).append(", ");
    }
  } else {
    // As they are and in the order of the set, neither made presentable nor sorted, unlike the
    // observations of a diagnosis; that is wanted.
    for (const auto& diagnosis : issue.related_issues[Type::DIAGNOSIS]) {
      ids.append(diagnosis->get_id()).append(", ");
    }
  }
  return vond::str::rstrip(std::move(ids), ", ");
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
  if (has_outputs && append("Nodes:", nodes_.text(issue, strings_)) == 1) {
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
  buffer_ += "\n" + segment;
  return 0;
}

int DetailBody::append_related(CollapsedAnalysisOutput& issue, bool is_diagnosis) {
  if (issue.related_issues[is_diagnosis ? Type::OBSERVATION : Type::DIAGNOSIS].empty()) {
    return 0;
  }
  return append(reference_label(is_diagnosis), related_ids(issue, is_diagnosis));
}

}  // namespace vond_output_log
