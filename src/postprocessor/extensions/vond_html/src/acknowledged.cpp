#include "acknowledged.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "vond/extension/markup_text.h"
#include "vond/facts/run_facts.h"
#include "wording.h"

namespace vond_html {

using vond::facts::Acknowledgement;

namespace {

/// Of one state.
constexpr std::size_t MOST_ENTRIES = 50;

/// Returns what there is to say of an entry beside what it says itself.
std::string remark_on(const Acknowledgement& entry) {
  constexpr std::int64_t DAY = std::int64_t{24} * 60 * 60;
  if (entry.state == "expired") {
    return "expired";
  }
  if (entry.state == "unused") {
    return "covers nothing";
  }
  // What held when the report was begun holds for all of it.
  if (entry.until < vond::facts::written_at()) {
    return "ended meanwhile";
  }
  const std::int64_t days = (entry.until - vond::facts::written_at()) / DAY;
  if (days > vond::facts::ACKNOWLEDGEMENT_WARNING_DAYS) {
    return "";
  }
  return days == 0 ? "ends within a day"
                   : "ends in " + count_of(static_cast<std::size_t>(days), "day", "days");
}

void write_entry(HtmlWriter& page, const Acknowledgement& entry) {
  page.open("li");
  if (const std::string remark = remark_on(entry); !remark.empty()) {
    page.element("strong", {{"class", "remark"}}, remark).text(" ");
  }
  page.open("b");
  write_name(page, entry.id);
  page.close().text(" on ");
  if (entry.nodes.empty()) {
    page.text("every node");
  } else {
    write_nodes(page, folded(entry.nodes));
  }
  page.text(" until ");
  write_time(page, entry.until);
  page.text(": ").open("bdi");
  page.text(vond::extension::shortened(entry.reason, LONGEST_TEXT)).close();
  if (!entry.by.empty()) {
    page.text(" (");
    write_name(page, entry.by);
    page.text(")");
  }
  page.close();
}

/// Writes the entries of one state, those that end first before the others.
void write_entries(HtmlWriter& page, const std::vector<Acknowledgement>& entries,
                   std::string_view state) {
  std::vector<const Acknowledgement*> chosen;
  for (const Acknowledgement& entry : entries) {
    if (entry.state == state) {
      chosen.push_back(&entry);
    }
  }
  std::stable_sort(chosen.begin(), chosen.end(),
                   [](const auto* left, const auto* right) { return left->until < right->until; });
  const std::size_t shown = std::min(chosen.size(), MOST_ENTRIES);
  for (std::size_t i = 0; i < shown; ++i) {
    write_entry(page, *chosen[i]);
  }
  if (shown < chosen.size()) {
    page.element("li",
                 "and " + std::to_string(chosen.size() - shown) + " more, " + std::string(state));
  }
}

}  // namespace

bool is_anything_acknowledged() {
  return vond::facts::issues_acknowledged() && !vond::facts::acknowledgements().empty();
}

void write_acknowledged(HtmlWriter& page) {
  if (!is_anything_acknowledged()) {
    return;
  }
  const auto entries = vond::facts::acknowledgements();
  page.open("section", {{"id", "acknowledged"}});
  page.element("h2",
               "Acknowledged: " + count_of(*vond::facts::issues_acknowledged(), "issue", "issues"))
      .open("ul");
  // What holds comes first: old entries stay in files for years.
  for (const std::string_view state : {"active", "unused", "expired"}) {
    write_entries(page, entries, state);
  }
  page.close().close();
}

}  // namespace vond_html
