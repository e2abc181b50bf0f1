#pragma once

#include <gtest/gtest.h>

#include <string>

#include "standalone/libvond_host/current_facts.h"
#include "tests/support/captured_output_log.h"
#include "tests/support/records.h"
#include "vond_html.h"

namespace vond::test {

/// A record and the page of it.
class PageTest : public ::testing::Test {
 protected:
  PageTest() {
    facts() = {};
    facts().written_at = 1763699400;
    facts().collected_at = 1763699400;
    facts().findings_read = 1;
  }
  ~PageTest() override { facts() = {}; }

  /// What the host tells beside the record.
  static standalone::ReportFacts& facts() { return standalone::report_facts(); }

  /// Returns what the extension writes.
  std::string written() {
    CapturedOutputLog output;
    EXPECT_EQ(vond_html::VondHtml(data).run(), 0);
    return output.text();
  }

  /// Returns what is between `begin` and the `end` behind it, "" where they are not.
  static std::string between(const std::string& text, const std::string& begin,
                             const std::string& end) {
    const std::size_t first = text.find(begin);
    if (first == std::string::npos) {
      return "";
    }
    const std::size_t last = text.find(end, first);
    return last == std::string::npos ? "" : text.substr(first, last - first);
  }

  /// Returns the section of the page with this id, up to the next one.
  std::string section(const std::string& id) {
    return between(written(), "<section id=\"" + id + "\"", "</section>");
  }

  Data data = make_record();
};

}  // namespace vond::test
