#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "standalone/cli/options.h"
#include "standalone/cli/progress.h"
#include "standalone/findings/findings_reader.h"
#include "standalone/report/collapser.h"
#include "standalone/report/examination.h"

namespace vond::standalone {

/// What all inputs together tell.
class Input : public FindingsSink {
 public:
  /// Reads all inputs, with progress, warnings and lines that are left out on standard error.
  /// Throws InputError.
  explicit Input(const Options& options);

  void finding(const Finding& finding) override;
  void examined(const std::vector<std::string_view>& nodes) override;

  Collapser& collapser() { return collapser_; }
  const Examination& examination() const { return examination_; }
  std::size_t lines_rejected() const { return lines_rejected_; }

 private:
  void read(const Options& options);
  void print_rejected(const RejectedLines& rejected);

  // Only while reading.
  const FindingsReader* reader_ = nullptr;
  Progress* progress_ = nullptr;
  Collapser collapser_;
  Examination examination_;
  std::size_t lines_rejected_ = 0;
};

}  // namespace vond::standalone
