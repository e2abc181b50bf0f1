#include "vond_html.h"

#include "acknowledged.h"
#include "band_summaries.h"
#include "causes.h"
#include "changes.h"
#include "definition_tree.h"
#include "html_writer.h"
#include "issue_articles.h"
#include "node_states.h"
#include "node_strip.h"
#include "overview.h"
#include "page_frame.h"
#include "page_issues.h"
#include "page_script.h"
// The copy of the band table that all of the page reads; the other files are handed it.
#include "vond/vocabulary/severity_bands.h"

namespace vond_html {

using vond::vocabulary::SEVERITY_BANDS;

VondHtml::VondHtml(vond::postprocessor::PostprocessorExtensionData& engine_data)
    : PostprocessorExtension(engine_data) {
  data = engine_data;
}

int VondHtml::run() {
  const PageIssues issues(data, SEVERITY_BANDS);
  const auto summaries = summarize_bands(data, SEVERITY_BANDS);
  HtmlWriter page;
  write_page_start(page);
  write_overview(page, summaries);
  page.open("main");
  write_causes(page, summaries, issues);
  write_changes(page, data, SEVERITY_BANDS, issues);
  write_acknowledged(page);
  const auto groups = group_nodes(data, SEVERITY_BANDS);
  write_nodes_strip(page, groups, issues);
  write_definitions(page, data, SEVERITY_BANDS, issues);
  write_issues(page, issues, data.log_level);
  page.close();
  write_page_script(page, data, SEVERITY_BANDS, groups, issues);
  write_page_end(page);
  page.finish();
  return 0;
}

}  // namespace vond_html

vond::postprocessor::PostprocessorExtension* create(
    vond::postprocessor::PostprocessorExtensionData& data) {
  return new vond_html::VondHtml(data);
}
