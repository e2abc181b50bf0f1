#include "metric_writer.h"

#include "label_text.h"

namespace vond_metrics {
namespace {

std::string in_braces(Labels labels) {
  std::string text;
  for (const auto& [name, value] : labels) {
    text += text.empty() ? '{' : ',';
    text += name;
    text += "=\"" + escaped(label_text(value)) + '"';
  }
  return text.empty() ? text : text + '}';
}

}  // namespace

void MetricWriter::begin(std::string_view name, std::string_view help) {
  name_ = name;
  out_ << "# HELP " << name_ << " " << help << "\n# TYPE " << name_ << " gauge\n";
}

void MetricWriter::add(Labels labels, std::int64_t value) {
  out_ << name_ + in_braces(labels) + ' ' + std::to_string(value) + '\n';
}

void MetricWriter::finish() {
  out_ << "# EOF\n";
  out_.finish();
}

}  // namespace vond_metrics
