#pragma once

#include <ostream>
#include <string>

#include "standalone/cli/output/descriptor_buffer.h"
#include "standalone/cli/output/owned_descriptor.h"
#include "standalone/cli/output/unfinished_file.h"

namespace vond::standalone {

/// A file as a destination of the report: complete, or not there. It is written under another name
/// beside its own, and removed unless it is committed; what is no regular file, a device or a pipe,
/// is written as it is.
class OutputFile {
 public:
  /// Throws OutputError when the file cannot be made.
  explicit OutputFile(const std::string& path);

  std::ostream& stream() { return stream_; }

  /// Writes what is held back, which keeps the file unfinished.
  void drain() noexcept { buffer_.drain(); }

  /// Completes the file and gives it its name. Throws OutputError when it is not complete.
  void commit();

 private:
  int open();
  int open_device() const;
  int create(unsigned permissions);
  [[noreturn]] void fail(int error) const;

  /// As the user named it, for messages.
  std::string name_;
  /// Where the report is to stand, behind all links.
  std::string path_;
  /// Does not exist when `path_` itself is written.
  UnfinishedFile unfinished_;
  OwnedDescriptor descriptor_;
  DescriptorBuffer buffer_;
  std::ostream stream_{&buffer_};
};

}  // namespace vond::standalone
