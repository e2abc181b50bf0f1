#include "vond_junit.h"

#include <cstddef>
#include <string>
#include <vector>

#include "failure.h"
#include "issue_lines.h"
#include "report_suite.h"
#include "test_cases.h"
#include "vond/extension/issues_by_definition.h"
#include "vond/extension/utc_time.h"
#include "vond/facts/run_facts.h"
#include "vond/vocabulary/severity_bands.h"
#include "xml_writer.h"

namespace vond_junit {

using vond::extension::IssuesByDefinition;
using vond::vocabulary::SEVERITY_BANDS;

namespace {

/// Writes the tag of the document, with what all suites together have.
void open_document(XmlWriter& out, const std::vector<TestSuite>& suites,
                   const ReportSuite& report) {
  std::size_t tests = ReportSuite::TESTS;
  std::size_t failures = report.failures();
  std::size_t skipped = 0;
  for (const TestSuite& suite : suites) {
    tests += suite.cases.size();
    failures += suite.failures();
    skipped += suite.skipped();
  }
  out.open("testsuites", {{"name", "vond-report"},
                          {"tests", std::to_string(tests)},
                          {"failures", std::to_string(failures)},
                          {"errors", std::to_string(report.errors())},
                          {"skipped", std::to_string(skipped)}});
}

void write_case(XmlWriter& out, const TestCase& test, Failures& failures) {
  const Attributes attributes = {{"classname", test.class_name}, {"name", test.name}};
  if (!test.failed() && !test.definition->skipped) {
    out.add("testcase", attributes);
    return;
  }
  out.open("testcase", attributes);
  if (test.failed()) {
    const Failure failure = failures.of(test);
    out.add("failure", {{"type", failure.type}, {"message", failure.message}}, failure.content);
  } else {
    out.add("skipped", {});
  }
  out.close();
}

void write_suite(XmlWriter& out, const TestSuite& suite, const std::string& timestamp,
                 Failures& failures) {
  out.open("testsuite", {{"name", suite.name},
                         {"tests", std::to_string(suite.cases.size())},
                         {"failures", std::to_string(suite.failures())},
                         {"errors", "0"},
                         {"skipped", std::to_string(suite.skipped())},
                         {"timestamp", timestamp}});
  for (const TestCase& test : suite.cases) {
    write_case(out, test, failures);
  }
  out.close();
}

}  // namespace

VondJunit::VondJunit(vond::postprocessor::PostprocessorExtensionData& engine_data)
    : PostprocessorExtension(engine_data) {
  data = engine_data;
}

int VondJunit::run() {
  const std::string timestamp = vond::extension::utc_time(vond::facts::written_at());
  IssuesByDefinition issues(data);
  IssueLine line;
  const TestSuites definitions(data.fwd_root ? *data.fwd_root : vond::FwdHierarchy(), issues,
                               SEVERITY_BANDS);
  const ReportSuite report(data, SEVERITY_BANDS, definitions.suites(), line);
  Failures failures(issues, SEVERITY_BANDS, line);
  XmlWriter out;
  open_document(out, definitions.suites(), report);
  for (const TestSuite& suite : definitions.suites()) {
    write_suite(out, suite, timestamp, failures);
  }
  report.write(out, timestamp);
  out.close();
  out.finish();
  return 0;
}

}  // namespace vond_junit

vond::postprocessor::PostprocessorExtension* create(
    vond::postprocessor::PostprocessorExtensionData& data) {
  return new vond_junit::VondJunit(data);
}
