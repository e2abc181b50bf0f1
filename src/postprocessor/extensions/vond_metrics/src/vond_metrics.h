#pragma once

#include "metric_writer.h"
#include "vond/host_api.h"
#include "vond/postprocessor/postprocessor_extension.h"

namespace vond_metrics {

/// The report as numbers that a monitoring system collects.
class VondMetrics : public vond::postprocessor::PostprocessorExtension {
 public:
  /// Keeps a copy of `engine_data`, which shares the pointees with the engine's own.
  explicit VondMetrics(vond::postprocessor::PostprocessorExtensionData& engine_data);

  /// Writes all metrics. Returns 0; exceptions pass to the host.
  int run() override;

 private:
  void write_report(MetricWriter& out) const;
  void write_issues(MetricWriter& out) const;
  void write_definitions(MetricWriter& out) const;
  void write_nodes(MetricWriter& out) const;
  void write_issue_nodes(MetricWriter& out) const;
  static void write_changes(MetricWriter& out);
};

}  // namespace vond_metrics

/// The library's one symbol. The caller owns the new extension.
extern "C" VOND_HOST_API vond::postprocessor::PostprocessorExtension* create(
    vond::postprocessor::PostprocessorExtensionData& data);
