#include "standalone/report/check_run.h"

#include <string_view>

#include "standalone/text/harmless_text.h"

namespace vond::standalone {
namespace {

std::string input_name(const std::string& path) {
  return path == "-" ? "standard input" : harmless(path);
}

/// The reader of a run's findings, and where their lines go.
class CheckRunReading : private FindingsSink {
 public:
  /// Keeps references to the last three.
  CheckRunReading(const ReadingOptions& options, Collapser& collapser, Examination& examination,
                  ReadingProgress& progress)
      : collapser_(collapser),
        examination_(examination),
        progress_(progress),
        reader_(*this, options) {}

  FindingsReader& reader() { return reader_; }

 private:
  void finding(const Finding& finding) override {
    collapser_.add(finding);
    progress_.advance(reader_.bytes_read(), collapser_.findings());
  }

  void examined(const std::vector<std::string_view>& nodes) override {
    examination_.set_known();
    for (const std::string_view node : nodes) {
      examination_.add_examined(node);
    }
  }

  Collapser& collapser_;
  Examination& examination_;
  ReadingProgress& progress_;
  FindingsReader reader_;
};

}  // namespace

CheckRun::CheckRun(const RunSources& sources, ReadingProgress& progress)
    : collapser_(sources.collapse_by) {
  for (const std::string& node : sources.examined) {
    examination_.add_examined(node);
  }
  for (const std::string& node : sources.expected) {
    examination_.add_expected(node);
  }
  CheckRunReading reading(
      {.keep_going = sources.keep_going, .definitions_are_paths = sources.definitions_are_paths},
      collapser_, examination_, progress);
  for (const std::string& path : sources.findings) {
    input_names_.push_back(input_name(path));
    reading.reader().read(path);
  }
  warnings_ = reading.reader().warnings();
  rejected_lines_ = reading.reader().rejected();
}

}  // namespace vond::standalone
