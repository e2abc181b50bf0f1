// The functions that a report spends its time in, each alone.
#include <benchmark/benchmark.h>

#include <memory>
#include <ostream>
#include <streambuf>
#include <string>
#include <vector>

#include "fwd_output.h"
#include "issue_printing.h"
#include "random_numbers.h"
#include "vond/log/output_log.h"
#include "vond/postprocessor/string_interface.h"
#include "vond/str/string_functions.h"

namespace {

using vond::bench::RandomNumbers;
using vond::log::OutputLog;
using vond::postprocessor::CollapsedAnalysisOutput;
using vond::postprocessor::Type;
using Issue = std::shared_ptr<CollapsedAnalysisOutput>;
using Names = std::vector<std::string>;

constexpr int WIDTH = 80;

/// Takes everything and counts it.
class CountingBuffer : public std::streambuf {
 public:
  std::int64_t bytes = 0;

 protected:
  std::streamsize xsputn(const char* /*text*/, std::streamsize size) override {
    bytes += size;
    return size;
  }
  int_type overflow(int_type character) override {
    ++bytes;
    return traits_type::not_eof(character);
  }
};

/// The output log's one destination as long as it lives; tells the bytes a second at its end.
class CountedOutputLog {
 public:
  explicit CountedOutputLog(benchmark::State& state) : state_(state) {
    OutputLog::singleton_obj = std::make_unique<OutputLog::OutputLogStream>();
    OutputLog::singleton_obj->streams.push_back({&stream_, false});
  }
  CountedOutputLog(const CountedOutputLog&) = delete;
  CountedOutputLog& operator=(const CountedOutputLog&) = delete;
  ~CountedOutputLog() {
    OutputLog::singleton_obj.reset();
    state_.SetBytesProcessed(buffer_.bytes);
  }

 private:
  benchmark::State& state_;
  CountingBuffer buffer_;
  std::ostream stream_{&buffer_};
};

std::string long_text(std::size_t size) {
  std::string text;
  while (text.size() < size) {
    text += "some words of a message that is longer than a line ";
  }
  return text;
}

/// `node000001` and so on, in no order and without gaps.
Names one_axis_names(std::size_t count) {
  Names names;
  for (std::size_t number = 1; number <= count; ++number) {
    const std::string digits = std::to_string(number);
    names.push_back(std::string("node") + std::string(6 - digits.size(), '0') + digits);
  }
  RandomNumbers(1).shuffle(names);
  return names;
}

/// Some of c<1..60>n<1..400>.
Names two_axes_names(std::size_t count) {
  RandomNumbers random(1);
  Names names;
  for (std::size_t left = count; left > 0; --left) {
    names.push_back(std::string("c") + std::to_string(random.between(1, 60)) + "n" +
                    std::to_string(random.between(1, 400)));
  }
  return names;
}

Issue make_issue(const std::string& id, const Names& nodes) {
  auto output = std::make_shared<vond::analysis::AnalysisOutput>();
  output->identifier = id;
  output->category = "memory";
  output->message = long_text(100);
  output->remedy = long_text(80);
  output->node_names = nodes;
  output->row_ids = {4711};
  Issue issue = std::make_shared<CollapsedAnalysisOutput>();
  issue->outputs.push_back(output);
  issue->fwd_names = {"hardware/memory/errors", "hardware/memory/speed"};
  return issue;
}

/// A diagnosis on `nodes` that is based on two observations.
Issue make_diagnosis(const Names& nodes) {
  Issue diagnosis = make_issue("memory-slow", nodes);
  for (const char* id : {"errors-corrected#1", "speed-below#2"}) {
    diagnosis->related_issues[Type::OBSERVATION].insert(make_issue(id, {"node000001"}));
  }
  return diagnosis;
}

std::size_t argument(const benchmark::State& state) {
  return static_cast<std::size_t>(state.range(0));
}

void word_wrap(benchmark::State& state) {
  const std::string text = long_text(argument(state));
  for (auto _ : state) {
    benchmark::DoNotOptimize(vond::str::word_wrap(text, WIDTH, "   "));
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}
BENCHMARK(word_wrap)->Arg(40)->Arg(200)->Arg(100'000);

void column_wrap(benchmark::State& state) {
  const std::string indent = "   ";
  const std::string text = indent + "Message: " + long_text(argument(state)) + "\n" + indent +
                           "Category: memory\n" + indent + "Remedy: " + long_text(80) + "\n";
  for (auto _ : state) {
    benchmark::DoNotOptimize(vond::str::column_wrap(text, WIDTH, indent, ':', false));
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}
BENCHMARK(column_wrap)->Arg(100)->Arg(100'000);

void fold(benchmark::State& state, const Names& names) {
  std::vector<Names> lists = {names};
  vond::postprocessor::StringInterface strings;
  for (auto _ : state) {
    benchmark::DoNotOptimize(strings.get_node_string(lists));
  }
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(names.size()));
}

void fold_one_axis(benchmark::State& state) { fold(state, one_axis_names(argument(state))); }
BENCHMARK(fold_one_axis)->Arg(1'000)->Arg(10'000)->Arg(100'000);

void fold_two_axes(benchmark::State& state) { fold(state, two_axes_names(argument(state))); }
BENCHMARK(fold_two_axes)->Arg(1'000)->Arg(3'000)->Arg(10'000);

void print_output(benchmark::State& state) {
  const Issue diagnosis = make_diagnosis(one_axis_names(argument(state)));
  vond::postprocessor::PostprocessorExtensionData data;
  data.line_width = WIDTH;
  vond_output_log::IssuePrinting printing;
  const CountedOutputLog log(state);
  for (auto _ : state) {
    printing.PrintOutput(diagnosis, data, 1, 2, "", true);
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(print_output)->Arg(1)->Arg(20)->Arg(1'000)->Arg(10'000)->Arg(100'000);

void print_details_by_severity(benchmark::State& state) {
  const Issue issue = make_diagnosis(one_axis_names(20));
  const std::vector<Issue> diagnoses(argument(state), issue);
  vond_output_log::FwdOutputFunctions functions;
  std::string buffer;
  const CountedOutputLog log(state);
  for (auto _ : state) {
    functions.print_details_by_severity(diagnoses, {}, "|   |  ", WIDTH, "critical", buffer);
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(print_details_by_severity)->Arg(1)->Arg(100);

void output_log_statement(benchmark::State& state) {
  const std::string text = long_text(60);
  const CountedOutputLog log(state);
  for (auto _ : state) {
    OutputLog(OutputLog::NONE) << text;
  }
}
BENCHMARK(output_log_statement);

}  // namespace

BENCHMARK_MAIN();
