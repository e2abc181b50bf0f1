#pragma once

#include <string>

#include "standalone/cli/output/listed.h"

namespace vond::standalone {

/// A file that is still being written, under a temporary name beside its final one. It is removed
/// with this object unless it has got its final name.
class UnfinishedFile : private Listed<UnfinishedFile> {
 public:
  UnfinishedFile() = default;
  ~UnfinishedFile();

  /// Makes the file, which is to become `final_path`; to be called once. Returns its descriptor,
  /// which the caller owns, or -1 and sets errno when it cannot be made.
  int create(const std::string& final_path);

  /// Whether there is a file under a temporary name.
  bool exists() const { return !temporary_path_.empty(); }

  /// Gives the file its final name. Returns false and sets errno when that fails.
  bool rename_to(const std::string& final_path);

  /// Removes all files of the process that are not finished; for ends of the process that run no
  /// destructors. A handler of signals may call it.
  static void remove_all() noexcept;

 private:
  friend Listed<UnfinishedFile>;

  std::string temporary_path_;
};

}  // namespace vond::standalone
