#pragma once

#include <cstddef>
#include <memory>
#include <sstream>
#include <string>
#include <string_view>

#include "vond/log/output_log.h"

namespace vond::extension {

namespace statement_detail {

/// To make a stream takes longer than to write most statements. No static object of a function,
/// which is built under a lock.
inline std::stringstream stream;

}  // namespace statement_detail

/// Writes one statement without colour, as `OutputLog(NONE) << text` does; an empty text reaches no
/// destination. An exception in here ends the program.
inline void write(const std::string& text) noexcept {
  std::stringstream& statement = statement_detail::stream;
  if (!log::OutputLog::singleton_obj) {
    log::OutputLog::singleton_obj = std::make_unique<log::OutputLog::OutputLogStream>();
  }
  statement.str(std::string());
  statement.clear();
  statement << text;
  log::OutputLog::singleton_obj->flush(statement);
}

/// Collects a long text and writes it in statements of a size that keeps memory small and spares
/// the cost of many. What is left is written by finish(), which has to be called: a text that a
/// fault cut short has no end.
class StatementWriter {
 public:
  StatementWriter() = default;
  StatementWriter(const StatementWriter&) = delete;
  StatementWriter& operator=(const StatementWriter&) = delete;

  StatementWriter& operator<<(std::string_view text) {
    text_ += text;
    if (text_.size() >= STATEMENT_SIZE) {
      finish();
    }
    return *this;
  }

  void finish() {
    write(text_);
    text_.clear();
  }

 private:
  /// In bytes.
  static constexpr std::size_t STATEMENT_SIZE = std::size_t{16} * 1024;

  std::string text_;
};

}  // namespace vond::extension
