#include "overview.h"

#include <algorithm>
#include <cstdint>
#include <string>

#include "acknowledged.h"
#include "band_mark.h"
#include "changes.h"
#include "vond/facts/run_facts.h"
#include "vond/str/string_functions.h"
#include "wording.h"

namespace vond_html {

namespace facts = vond::facts;

namespace {

constexpr std::size_t MOST_INPUTS = 10;
/// In bytes, so that what is below has a place on the first screen.
constexpr std::size_t LONGEST_NODES = 1000;

/// Returns the class that gives a verdict its colour.
std::string class_of_verdict(const std::string& verdict) {
  return verdict == "PASS" ? "pass" : verdict == "FAIL" ? "fail" : "unknown";
}

std::string_view shape_of_verdict(const std::string& verdict) {
  return verdict == "PASS" ? "✔" : verdict == "FAIL" ? "✖" : "?";
}

/// Returns "13 nodes with CRITICAL issues".
std::string reason_to_fail(const BandSummary& summary) {
  const std::string band = vond::str::upper(std::get<std::string>(summary.band));
  return summary.failing_nodes.empty() ? band + " issues that name no node"
                                       : count_of(summary.failing_nodes.size(), "node", "nodes") +
                                             " with " + band + " issues";
}

void write_reasons(HtmlWriter& page, const std::vector<BandSummary>& summaries) {
  bool is_first = true;
  for (const BandSummary& summary : summaries) {
    if (!summary.fails) {
      continue;
    }
    page.open("p", {{"class", "reason"}}).text(reason_to_fail(summary));
    if (is_first && !summary.failing_nodes.empty()) {
      page.text(": ");
      write_nodes(page, folded({summary.failing_nodes.begin(), summary.failing_nodes.end()}),
                  LONGEST_NODES);
    }
    page.close();
    is_first = false;
  }
}

void write_verdict(HtmlWriter& page, const std::vector<BandSummary>& summaries) {
  const std::string verdict = facts::verdict();
  page.open("div", {{"class", "verdict " + class_of_verdict(verdict)}});
  page.open("h1").text("Cluster health: ").open("strong");
  write_shape(page, shape_of_verdict(verdict));
  page.text(" " + verdict).close().close();
  write_reasons(page, summaries);
  page.close();
}

void open_fact(HtmlWriter& page, std::string_view label) {
  page.open("div").element("dt", label).open("dd");
}

void close_fact(HtmlWriter& page) { page.close().close(); }

/// Writes an age, and so that it is seen when what is so old may be true no more.
void write_age(HtmlWriter& page, std::int64_t seconds) {
  const std::string age = "(" + readable_age(seconds) + ")";
  if (seconds < -facts::CLOCK_DIFFERENCE || seconds > facts::OLD_AGE) {
    page.element("strong", {{"class", "remark"}}, age);
  } else {
    page.text(age);
  }
}

void write_inputs(HtmlWriter& page) {
  const auto inputs = facts::inputs();
  open_fact(page, inputs.size() == 1 ? "Input" : "Inputs");
  const std::size_t shown = std::min(inputs.size(), MOST_INPUTS);
  for (std::size_t i = 0; i < shown; ++i) {
    page.text(i == 0 ? "" : "; ");
    write_name(page, inputs[i].name);
    if (inputs[i].age_seconds) {
      page.text(" ");
      write_age(page, *inputs[i].age_seconds);
    }
  }
  page.text(shown < inputs.size() ? " and " + std::to_string(inputs.size() - shown) + " more" : "");
  close_fact(page);
}

std::string coverage() {
  const auto examined = facts::nodes_examined();
  const auto expected = facts::nodes_expected();
  const std::string seen = std::to_string(facts::nodes_seen());
  const std::size_t acknowledged = facts::acknowledged_nodes().size();
  // A node whose issues are all acknowledged is not healthy.
  const std::string with_acknowledged =
      acknowledged == 0 ? "" : ", " + std::to_string(acknowledged) + " with acknowledged ones";
  const std::string of_expected = expected ? ", " + std::to_string(*expected) + " expected" : "";
  return examined ? std::to_string(*examined) + " examined, " + seen + " with issues" +
                        with_acknowledged + of_expected
                  : seen + " seen" + of_expected + "; which were examined is not known";
}

/// Writes what stands further down, in short.
void write_links(HtmlWriter& page) {
  if (const auto since = facts::since()) {
    open_fact(page, "Changes");
    page.element("a", {{"href", "#changes"}}, change_counts(*since));
    close_fact(page);
  }
  if (is_anything_acknowledged()) {
    open_fact(page, "Acknowledged");
    page.element("a", {{"href", "#acknowledged"}},
                 count_of(*facts::issues_acknowledged(), "issue", "issues"));
    close_fact(page);
  }
}

void write_facts(HtmlWriter& page) {
  page.open("dl", {{"class", "facts"}});
  open_fact(page, "Written");
  write_time(page, facts::written_at());
  close_fact(page);
  // The age of one input says the same.
  const std::int64_t age = facts::written_at() - facts::collected_at();
  if (facts::inputs().size() > 1 && age > facts::CLOCK_DIFFERENCE) {
    open_fact(page, "Collected");
    write_time(page, facts::collected_at());
    page.text(" ");
    write_age(page, age);
    close_fact(page);
  }
  write_inputs(page);
  open_fact(page, "Nodes");
  page.text(coverage());
  close_fact(page);
  open_fact(page, "Findings");
  page.text(std::to_string(facts::findings_read()) + " read, " +
            (facts::lines_rejected() == 0
                 ? "no line left out"
                 : count_of(facts::lines_rejected(), "line", "lines") + " left out"));
  close_fact(page);
  write_links(page);
  page.close();
}

/// Writes a line of what is in doubt, with the nodes that it is about.
void write_doubtful_nodes(HtmlWriter& page, const std::string& text,
                          const std::vector<std::string>& nodes) {
  if (!nodes.empty()) {
    page.open("li").text(text + ": ");
    write_nodes(page, folded(nodes), LONGEST_NODES);
    page.close();
  }
}

void write_doubts(HtmlWriter& page) {
  const auto doubts = facts::doubts();
  const auto not_examined = facts::nodes_not_examined();
  const auto not_expected = facts::nodes_not_expected();
  if (doubts.empty() && not_examined.empty() && not_expected.empty()) {
    return;
  }
  page.open("section", {{"id", "doubts"}, {"class", "doubts"}});
  page.element("h2", "What is in doubt").open("ul");
  for (const std::string& doubt : doubts) {
    page.element("li", vond::str::upper(doubt.substr(0, 1)) + doubt.substr(1));
  }
  const bool knows_examined = facts::nodes_examined().has_value();
  write_doubtful_nodes(page, knows_examined ? "Not examined" : "Expected and without findings",
                       not_examined);
  write_doubtful_nodes(
      page, knows_examined ? "Examined and not expected" : "With findings and not expected",
      not_expected);
  page.close().close();
}

/// Writes a tile for each band, which leads to its issues.
void write_tiles(HtmlWriter& page, const std::vector<BandSummary>& summaries) {
  page.open("nav", {{"class", "tiles"}, {"aria-label", "Bands"}});
  for (const BandSummary& summary : summaries) {
    const std::string name(band_class(summary.band));
    if (summary.issues() == 0) {
      page.open("div", {{"class", "tile " + name}});
    } else {
      page.open("a", {{"class", "tile " + name}, {"href", "#band-" + name}});
    }
    page.open("span", {{"class", "count"}});
    page.text(std::to_string(summary.issues())).close().text(" ");
    write_band_mark(page, summary.band);
    page.text(" ").element("span", {{"class", "kinds"}}, summary.counts());
    page.close().verbatim("\n");
  }
  page.close();
}

}  // namespace

void write_overview(HtmlWriter& page, const std::vector<BandSummary>& summaries) {
  page.open("header");
  write_verdict(page, summaries);
  write_facts(page);
  write_doubts(page);
  write_tiles(page, summaries);
  page.close();
}

}  // namespace vond_html
