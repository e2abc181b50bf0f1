#pragma once

#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "vond/analysis/analysis_output.h"
#include "vond/host_api.h"
#include "vond/postprocessor/severity.h"

namespace vond::postprocessor {

/// One issue: a diagnosis or an observation, collapsed over all nodes on which it was found.
/// The engine owns and fills issues; extensions read them.
struct CollapsedAnalysisOutput {
  /// What was collapsed. The first one gives the issue's identifier, category, message, remedy and
  /// row ids; every one gives its node names.
  std::vector<std::shared_ptr<analysis::AnalysisOutput>> outputs;
  /// Full names of the framework definitions that the issue belongs to.
  std::set<std::string> fwd_names;
  /// A diagnosis has the observations it is based on under Type::OBSERVATION, an observation its
  /// diagnoses under Type::DIAGNOSIS; the sets are ordered by address.
  std::map<Type, std::set<std::shared_ptr<CollapsedAnalysisOutput>>> related_issues;

  /// Returns the first output's identifier, "" without outputs.
  std::string get_id() const { return outputs.empty() ? std::string() : outputs[0]->identifier; }

  /// Returns a copy of the first output's row ids, none without outputs.
  std::vector<int> get_row_id() const {
    return outputs.empty() ? std::vector<int>() : outputs[0]->row_ids;
  }

  /// Returns `indent`, "Message: ", the message on one line and a line end; "" without a message.
  VOND_HOST_API std::string get_message_string(std::string indent) const;

  /// Returns `indent`, "Remedy: ", the remedy on one line and a line end; "" without a remedy.
  VOND_HOST_API std::string get_remedy_string(std::string indent) const;

  /// Returns `indent`, `label` (in the plural for several names), ": ", the full names of the
  /// framework definitions and a line end; "" without definitions.
  VOND_HOST_API std::string get_fwd_string(std::string indent, std::string label) const;
};

}  // namespace vond::postprocessor
