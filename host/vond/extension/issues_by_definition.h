#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "vond/postprocessor/postprocessor_extension_data.h"

namespace vond::extension {

/// The record's issues sorted by the framework definitions that they name. Sorts once, when it is
/// asked for the first time: to ask every issue for every definition takes the product of the two.
/// Record and issues must neither change nor go while this lives.
class IssuesByDefinition {
 public:
  explicit IssuesByDefinition(const postprocessor::PostprocessorExtensionData& data)
      : data_(data) {}

  /// Returns the definition's own part of the issue index, null when no issue names it. Entries
  /// without an issue belong to no definition. `name` is the definition's full name.
  const postprocessor::IssuesByMask* find(const std::string& name) {
    if (!sorted_) {
      sort();
    }
    const auto found = sorted_->find(name);
    return found == sorted_->end() ? nullptr : &found->second;
  }

 private:
  /// The keys are the issues' own texts, and the lists hold the issues.
  using Sorted = std::unordered_map<std::string_view, postprocessor::IssuesByMask>;

  void sort() {
    Sorted sorted;
    if (data_.issues_by_mask) {
      for (const auto& [mask, issues] : *data_.issues_by_mask) {
        for (const auto& issue : issues) {
          if (!issue) {
            continue;
          }
          for (const std::string& name : issue->fwd_names) {
            sorted[name][mask].push_back(issue);
          }
        }
      }
    }
    sorted_ = std::move(sorted);
  }

  const postprocessor::PostprocessorExtensionData& data_;
  std::optional<Sorted> sorted_;
};

}  // namespace vond::extension
