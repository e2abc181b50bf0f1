#include "page_issues.h"

#include "vond/extension/issue_order.h"
#include "wording.h"

namespace vond_html {

using vond::postprocessor::CollapsedAnalysisOutput;

PageIssues::PageIssues(const vond::postprocessor::PostprocessorExtensionData& data,
                       const vond::vocabulary::SeverityBandTable& bands)
    : numbers_(data, bands) {
  issues_.reserve(MOST_ISSUES);
  vond::extension::for_each_issue(
      data, bands,
      [this](const vond::extension::Issue& issue, const auto& band, auto type, bool fails) {
        // An issue that is filed twice has one number, and one place.
        if (issues_.size() < MOST_ISSUES && number_of(*issue) > issues_.size()) {
          issues_.push_back({issue.get(), band, type, fails});
        }
      });
}

const PageIssue* PageIssues::find(const CollapsedAnalysisOutput& issue) const {
  const std::size_t number = number_of(issue);
  return number == 0 || number > issues_.size() ? nullptr : &issues_[number - 1];
}

void PageIssues::write_link(HtmlWriter& page, const CollapsedAnalysisOutput& issue) const {
  if (find(issue) == nullptr) {
    write_name(page, issue.get_id());
    return;
  }
  page.open("a", {{"href", "#" + anchor_of(issue)}});
  write_name(page, issue.get_id());
  page.close();
}

}  // namespace vond_html
