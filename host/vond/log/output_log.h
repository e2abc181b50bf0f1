#pragma once

#include <cstddef>
#include <exception>
#include <iostream>
#include <locale>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "vond/host_api.h"
#include "vond/log/output_stream.h"

namespace vond::log {

/// The host's log files; only the host knows what they are.
class StreamFileType;

/// A statement of console output: collects text and emits it, to every destination that the host
/// has registered, when it is destroyed. Not for concurrent use.
///
///     OutputLog(OutputLog::NONE) << "Diagnoses\n";
class OutputLog {
 public:
  /// Values below 0 are no colour, values of 3 and more are invalid.
  enum Colors : int { NONE = -1, RED = 0, YELLOW = 1, GREEN = 2 };

  /// The destinations that all statements of the process share.
  class OutputLogStream {
   public:
    /// Begins a colour on every destination that may be coloured. Throws std::exception for an
    /// invalid colour. Without destinations nothing is checked and an invalid colour passes; that
    /// is wanted.
    void set_color(Colors color) {
      for (const OutputStream& destination : streams) {
        if (color < 0) {
          continue;
        }
        const auto index = static_cast<std::size_t>(color);
        if (index >= color_codes.size()) {
          std::cerr << "invalid color " + std::to_string(index) + "\n";
          throw std::exception();
        }
        if (destination.colored) {
          current_color = color;
          *destination.stream << color_codes[index];
        }
      }
    }

    /// Writes the whole of `statement` to every destination of singleton_obj and flushes it. The
    /// colour in force ends with the first destination, so that only that one gets the reset code;
    /// that is wanted. Errors of the destinations are not checked here.
    void flush(std::stringstream& statement) {
      for (const OutputStream& destination : singleton_obj->streams) {
        const std::string content = statement.str();
        if (!content.empty()) {
          destination.stream->write(content.data(), static_cast<std::streamsize>(content.size()));
          if (current_color >= 0 && destination.colored) {
            *destination.stream << reset_code;
          }
          destination.stream->flush();
        }
        current_color = NONE;
      }
    }

    std::vector<std::string> color_codes{"\033[0;31m", "\033[0;33m", "\033[0;32m"};
    std::string reset_code{"\033[0m"};
    /// Filled by the host.
    std::vector<OutputStream> streams;
    /// Filled by the host.
    std::vector<std::shared_ptr<StreamFileType>> files;
    int current_color = NONE;
  };

  /// A statement that leaves the colour in force as it is.
  OutputLog() { prepare(); }

  /// A statement in a colour, which begins at once. Throws std::exception for an invalid colour.
  explicit OutputLog(Colors color) {
    prepare();
    singleton_obj->set_color(color);
  }

  OutputLog(const OutputLog&) = delete;
  OutputLog& operator=(const OutputLog&) = delete;

  /// Emits the text. An exception in here ends the program.
  ~OutputLog() {
    if (singleton_obj) {
      singleton_obj->flush(text);
    }
  }

  template <typename Value>
  OutputLog& operator<<(const Value& value) {
    text << value;
    return *this;
  }

  /// The statement's text so far.
  std::stringstream text;

  /// The one shared object; defined by the host, made by the first statement if the host has not.
  VOND_HOST_API static std::unique_ptr<OutputLogStream> singleton_obj;

 private:
  void prepare() {
    // Numbers must read the same whatever locale the host has set; to look costs less than to set.
    if (text.getloc() != std::locale::classic()) {
      text.imbue(std::locale::classic());
    }
    if (!singleton_obj) {
      singleton_obj = std::make_unique<OutputLogStream>();
    }
  }
};

}  // namespace vond::log
