#include "page_frame.h"

#include <string>

#include "page_assets.h"
#include "vond/facts/run_facts.h"
#include "wording.h"

namespace vond_html {

void write_page_start(HtmlWriter& page) {
  const std::string policy = "default-src 'none'; style-src '" + std::string(PAGE_STYLE_HASH) +
                             "'; script-src '" + std::string(PAGE_SCRIPT_HASH) +
                             "'; base-uri 'none'; form-action 'none'";
  const std::string title =
      "Cluster health: " + vond::facts::verdict() + ", " + readable_time(vond::facts::written_at());
  page.verbatim("<!DOCTYPE html>\n");
  page.open("html", {{"lang", "en"}}).open("head");
  page.empty_element("meta", {{"charset", "utf-8"}});
  page.verbatim("<meta http-equiv=\"Content-Security-Policy\" content=\"" + policy + "\">\n");
  page.empty_element("meta",
                     {{"name", "viewport"}, {"content", "width=device-width, initial-scale=1"}});
  page.empty_element("meta", {{"name", "color-scheme"}, {"content", "light dark"}});
  page.empty_element("meta", {{"name", "referrer"}, {"content", "no-referrer"}});
  page.element("title", title);
  page.open("style").verbatim(PAGE_STYLE).close();
  page.close().open("body");
  // The style shows it where the end of the page is missing.
  page.element("p", {{"class", "cut-off"}, {"hidden", ""}},
               "This page was cut off: its end is missing, and what it shows is not all there is.");
}

void write_page_end(HtmlWriter& page) {
  page.open("footer").open("p");
  page.text("End of report. Verdict: " + vond::facts::verdict() + ". Written ");
  write_time(page, vond::facts::written_at());
  page.text(" by vond-report " + vond::facts::tool_version() + ".").close().close();
  page.close().close();
}

}  // namespace vond_html
