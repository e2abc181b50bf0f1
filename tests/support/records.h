#pragma once

#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "vond/fwd.h"
#include "vond/postprocessor/postprocessor_extension_data.h"

namespace vond::test {

using Data = postprocessor::PostprocessorExtensionData;
using Issue = std::shared_ptr<postprocessor::CollapsedAnalysisOutput>;
using Node = std::shared_ptr<FwdNode>;

/// One issue with one output.
struct IssueParts {
  std::string id = {};
  std::string category = {};
  std::string message = {};
  std::string remedy = {};
  std::vector<std::string> nodes = {};
  std::vector<int> row_ids = {};
  std::set<std::string> definitions = {};
};

Issue make_issue(const IssueParts& parts);

/// Returns an issue that has no outputs at all.
Issue make_issue_without_outputs();

/// Adds one more output, of which only the nodes count.
void add_output(const Issue& issue, const std::vector<std::string>& nodes);

/// Relates both issues to each other, as the engine does.
void relate(const Issue& diagnosis, const Issue& observation);

/// Issues that are related to each other hold each other; this lets go of them.
void forget_relations(const std::vector<Issue>& issues);

/// One definition. Its counts are keyed by the mask's value.
struct DefinitionParts {
  std::string name = {};
  bool passed = true;
  bool skipped = false;
  std::map<unsigned, int> counts = {};
};

Node make_definition(const DefinitionParts& parts,
                     const std::vector<std::vector<Node>>& child_groups = {});

/// Returns a record as the engine makes it for a cluster without findings: threshold 75, no
/// wrapping, log level "warning", all four counts 0, no issues, no definitions.
Data make_record();

/// Files an issue under a mask, and counts it in the record's counts.
void add_issue(Data& data, unsigned mask, const Issue& issue);

/// Files `count` issues, with the ids "<stem>1", "<stem>2" and so on, on no nodes, under a mask.
void add_issues(Data& data, unsigned mask, const std::string& stem, int count);

}  // namespace vond::test
