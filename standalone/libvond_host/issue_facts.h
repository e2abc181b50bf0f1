#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "vond/facts/run_facts.h"
#include "vond/host_api.h"
#include "vond/postprocessor/collapsed_analysis_output.h"

namespace vond::standalone {

/// What the issues of the report were made of, for vond::facts.
class IssueFacts {
 public:
  virtual ~IssueFacts() = default;
  virtual int severity(const postprocessor::CollapsedAnalysisOutput& issue) const = 0;
  virtual facts::Patterns patterns(const postprocessor::CollapsedAnalysisOutput& issue) const = 0;
  virtual std::vector<facts::Place> places(const postprocessor::CollapsedAnalysisOutput& issue) = 0;
  virtual std::optional<facts::Change> change(
      const postprocessor::CollapsedAnalysisOutput& issue) const = 0;
  virtual std::optional<std::int64_t> first_seen(
      const postprocessor::CollapsedAnalysisOutput& issue) const = 0;
  virtual std::optional<facts::Since> since() const = 0;
  virtual void for_each_finding(const std::function<void(const facts::Finding&)>& visit) const = 0;
};

/// While it lives, `facts`, which must live as long, are those of the process's report. There may
/// be one at a time.
class VOND_HOST_API IssueFactsConnection {
 public:
  explicit IssueFactsConnection(IssueFacts& facts);
  ~IssueFactsConnection();
  IssueFactsConnection(const IssueFactsConnection&) = delete;
  IssueFactsConnection& operator=(const IssueFactsConnection&) = delete;
};

}  // namespace vond::standalone
