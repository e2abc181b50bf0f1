#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>

#include "vond/extension/statement.h"

namespace vond_metrics {

/// Names and values of labels, in the order in which they are written.
using Labels = std::initializer_list<std::pair<std::string_view, std::string_view>>;

/// Writes gauges in the text form that Prometheus and OpenMetrics have in common: no time stamps,
/// and an end that is a comment to the one and required by the other.
class MetricWriter {
 public:
  /// Begins a gauge. `help` is a sentence without line ends and backslashes.
  void begin(std::string_view name, std::string_view help);

  /// Writes one series of the gauge that was begun last. No two may have the same labels, since
  /// readers drop the second without a word.
  void add(Labels labels, std::int64_t value);

  /// The same for a value that is true or false.
  void add_flag(Labels labels, bool value) { add(labels, value ? 1 : 0); }

  /// Writes the end. Without it readers know that something is missing.
  void finish();

 private:
  vond::extension::StatementWriter out_;
  std::string name_;
};

}  // namespace vond_metrics
