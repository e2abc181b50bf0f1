#include "issue_summaries.h"

#include <utility>

#include "vond/extension/related_issues.h"
#include "vond/extension/text.h"

namespace vond_output_log {

using vond::extension::join;
using vond::extension::usable_related_ids;
using vond::postprocessor::Type;

const std::string& IssueSummaries::observations_of(Issue& diagnosis) {
  std::optional<std::string>& observations = summaries_[diagnosis].observations;
  if (!observations) {
    observations = join(usable_related_ids(diagnosis, Type::OBSERVATION), ", ");
  }
  return *observations;
}

const std::string& IssueSummaries::diagnoses_of(Issue& observation) {
  std::optional<std::string>& diagnoses = summaries_[observation].diagnoses;
  if (!diagnoses) {
    std::string ids;
    for (const auto& diagnosis : observation.related_issues[Type::DIAGNOSIS]) {
      ids.append(diagnosis->get_id()).append(", ");
    }
    diagnoses = std::move(ids);
  }
  return *diagnoses;
}

}  // namespace vond_output_log
