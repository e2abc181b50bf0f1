#pragma once

#include <csignal>
#include <cstddef>
#include <ostream>
#include <stdexcept>
#include <streambuf>
#include <string>
#include <vector>

namespace vond::standalone {

/// An output that cannot be written. what() names it.
class OutputError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Writes to a file descriptor, which it does not own, and remembers the first error.
class DescriptorBuffer : public std::streambuf {
 public:
  enum class Flushing {
    /// Somebody is watching: a flush of the stream writes at once.
    AT_ONCE,
    /// A flush of the stream only makes sure that drain() will write; blocks are large.
    IN_BLOCKS,
  };

  DescriptorBuffer(int descriptor, Flushing flushing);
  ~DescriptorBuffer() override;
  DescriptorBuffer(const DescriptorBuffer&) = delete;
  DescriptorBuffer& operator=(const DescriptorBuffer&) = delete;

  /// Writes what is held back. After an error nothing is written any more. Returns error().
  int drain() noexcept;

  /// The errno of the first write that failed, 0 if none has.
  int error() const { return error_; }

  /// Writes what all buffers of the process hold back; for the end that std::terminate makes.
  static void drain_all() noexcept;

 protected:
  int_type overflow(int_type character) override;
  int sync() override;

 private:
  static std::vector<DescriptorBuffer*>& all();

  int descriptor_;
  Flushing flushing_;
  int error_ = 0;
  std::vector<char> block_;
};

/// Standard output as a destination of the report.
class StandardOutput {
 public:
  StandardOutput();

  std::ostream& stream() { return stream_; }
  bool is_terminal() const { return is_terminal_; }

  /// Writes what is held back. Returns the errno of the first write that failed, 0 if none has.
  int finish() noexcept { return buffer_.drain(); }

  /// Says what kept the text from being written.
  std::string error_message() const;

 private:
  bool is_terminal_;
  DescriptorBuffer buffer_;
  std::ostream stream_{&buffer_};
};

/// The signals by which users and systems end a program.
inline constexpr int ENDING_SIGNALS[] = {SIGHUP, SIGINT, SIGTERM};

/// A file as a destination of the report: complete, or not there. It is written under another name
/// beside its own, and removed unless it is committed; what is no regular file, a device or a pipe,
/// is written as it is.
class OutputFile {
 public:
  /// Throws OutputError when the file cannot be made.
  explicit OutputFile(const std::string& path);
  OutputFile(const OutputFile&) = delete;
  OutputFile& operator=(const OutputFile&) = delete;

  std::ostream& stream() { return stream_; }

  /// Completes the file and gives it its name. Throws OutputError when it is not complete.
  void commit();

  /// Removes what there is of all files that are not complete; for ends of the process that run no
  /// destructors. A handler of one of ENDING_SIGNALS may call it.
  static void remove_unfinished() noexcept;

 private:
  /// The name beside the file's own under which it is written. The file goes with this object
  /// unless it has been given its own name.
  class UnfinishedName {
   public:
    UnfinishedName() = default;
    ~UnfinishedName();
    UnfinishedName(const UnfinishedName&) = delete;
    UnfinishedName& operator=(const UnfinishedName&) = delete;

    bool exists() const { return !path_.empty(); }
    /// Makes a file beside `path` and returns its descriptor, -1 and errno if it cannot be made.
    int make_beside(const std::string& path);
    /// Returns false and sets errno when the file cannot be renamed.
    bool rename_to(const std::string& path);
    static void unlink_all() noexcept;

   private:
    static std::vector<const UnfinishedName*>& all();

    std::string path_;
  };

  /// A descriptor that closes itself.
  class Descriptor {
   public:
    explicit Descriptor(int number) : number_(number) {}
    ~Descriptor() { close(); }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    int number() const { return number_; }
    /// Returns the errno of closing, 0 if it went well.
    int close() noexcept;

   private:
    int number_;
  };

  int open();
  [[noreturn]] void fail(int error) const;

  /// As the user named it, for messages.
  std::string name_;
  /// Where the report is to stand, behind all links.
  std::string path_;
  /// Where it is being written; no name when that is `path_` itself.
  UnfinishedName unfinished_name_;
  Descriptor descriptor_;
  DescriptorBuffer buffer_;
  std::ostream stream_{&buffer_};
};

/// Makes sure that descriptors 0 to 2 are open, so that no file opened later takes the place of a
/// closed standard stream and gets text that was meant for it.
void occupy_standard_descriptors();

}  // namespace vond::standalone
