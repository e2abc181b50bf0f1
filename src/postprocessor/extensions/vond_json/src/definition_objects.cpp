#include "definition_objects.h"

#include <algorithm>
#include <cstddef>
#include <vector>

#include "vond/extension/issue_index.h"
#include "vond/extension/issues_by_definition.h"
#include "vond/extension/words.h"
#include "vond/postprocessor/severity.h"

namespace vond_json {

using vond::extension::count_issues;
using vond::extension::IssueNumbers;
using vond::extension::IssuesByDefinition;
using vond::extension::JsonWriter;
using vond::postprocessor::FAIL_BIT;
using vond::postprocessor::IssuesByMask;
using vond::postprocessor::PostprocessorExtensionData;
using vond::postprocessor::Severity;
using vond::postprocessor::TypeCode;
using vond::vocabulary::SeverityBandTable;

namespace {

/// Returns how many issues of a type a band has, those that contribute to FAIL and the others.
std::size_t count(const IssuesByMask& issues, Severity severity, TypeCode type) {
  const unsigned mask = static_cast<unsigned>(severity) | type;
  return count_issues(issues, mask | FAIL_BIT) + count_issues(issues, mask);
}

void write_counts_of(JsonWriter& json, const IssuesByMask& issues, const SeverityBandTable& bands) {
  json.key("counts").begin_object();
  for (const auto& [lower, upper, severity, name] : vond::vocabulary::descending_bands(bands)) {
    json.key(name).begin_object();
    json.key("diagnoses").value(count(issues, severity, vond::postprocessor::DIAGNOSES));
    json.key("observations").value(count(issues, severity, vond::postprocessor::OBSERVATIONS));
    json.key("missing_data").value(count(issues, severity, vond::postprocessor::MISSING_DATA));
    json.end_object();
  }
  json.end_object();
}

/// Writes definitions with what is below them.
class DefinitionObjects {
 public:
  DefinitionObjects(JsonWriter& json, const PostprocessorExtensionData& data,
                    const SeverityBandTable& bands, const IssueNumbers& numbers)
      : json_(json), bands_(bands), numbers_(numbers), issues_(data) {}

  void write(const vond::FwdNode& node) {
    const vond::Fwd& definition = *node.fwd;
    const IssuesByMask* const found = issues_.find(definition.name);
    const IssuesByMask& issues = found == nullptr ? none_ : *found;
    json_.begin_object();
    json_.key("name").value(definition.name);
    json_.key("status").value(vond::extension::status_word(definition));
    write_counts_of(json_, issues, bands_);
    json_.key("issues").array(numbers_of(issues));
    json_.key("children").begin_array();
    for (const auto& group : node.child_groups) {
      for (const auto& child : group.children) {
        json_.break_line();
        write(*child);
      }
    }
    json_.end_array();
    json_.end_object();
  }

 private:
  std::vector<std::size_t> numbers_of(const IssuesByMask& issues) const {
    std::vector<std::size_t> numbers;
    for (const auto& [mask, list] : issues) {
      for (const auto& issue : list) {
        numbers.push_back(numbers_.of(issue.get()));
      }
    }
    std::sort(numbers.begin(), numbers.end());
    numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());
    return numbers;
  }

  JsonWriter& json_;
  const SeverityBandTable& bands_;
  const IssueNumbers& numbers_;
  IssuesByDefinition issues_;
  /// Those of a definition that no issue names.
  const IssuesByMask none_;
};

}  // namespace

void write_counts(JsonWriter& json, const PostprocessorExtensionData& data,
                  const SeverityBandTable& bands) {
  json.break_line();
  write_counts_of(json, data.issues_by_mask ? *data.issues_by_mask : IssuesByMask(), bands);
}

void write_definitions(JsonWriter& json, const PostprocessorExtensionData& data,
                       const SeverityBandTable& bands, const IssueNumbers& numbers) {
  DefinitionObjects definitions(json, data, bands, numbers);
  json.break_line();
  json.key("definitions").begin_array();
  if (data.fwd_root) {
    for (const auto& root : data.fwd_root->roots) {
      json.break_line();
      definitions.write(*root);
    }
  }
  json.break_line();
  json.end_array();
}

}  // namespace vond_json
