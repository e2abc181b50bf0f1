#include "tests/extensions/vond_output_log/fake_host_test.h"

#include "vond/log/error_log.h"
#include "vond_output_log.h"

namespace vond::test {

FakeHostTest::FakeHostTest() {
  fake_host() = FakeHost();
  log::LOG_LEVEL = 4;
  log::LOG_OUTPUT = 0;
}

FakeHostTest::~FakeHostTest() { fake_host() = FakeHost(); }

int FakeHostTest::run(Data data) { return vond_output_log::VondOutputLog(data).run(); }

Data make_record_with_issues() {
  Data data = make_record();
  const Issue diagnosis = make_issue({.id = "D",
                                      .message = "message of D",
                                      .remedy = "remedy of D",
                                      .nodes = {"n1", "n2"},
                                      .definitions = {"root"}});
  const Issue observation = make_issue({.id = "O", .nodes = {"n1"}, .definitions = {"root"}});
  // One way only: two issues that hold each other are never released.
  diagnosis->related_issues[postprocessor::Type::OBSERVATION] = {observation};
  add_issue(data, 24, diagnosis);
  add_issue(data, 25, observation);
  data.fwd_root->roots = {
      make_definition({.name = "root", .passed = false, .counts = {{24, 1}, {27, 1}}})};
  return data;
}

}  // namespace vond::test
