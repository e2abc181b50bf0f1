#pragma once

namespace vond::standalone {

/// A file descriptor that is closed with this object.
class OwnedDescriptor {
 public:
  explicit OwnedDescriptor(int number) : number_(number) {}
  ~OwnedDescriptor() { close(); }
  OwnedDescriptor(const OwnedDescriptor&) = delete;
  OwnedDescriptor& operator=(const OwnedDescriptor&) = delete;

  int number() const { return number_; }

  /// Returns the errno of closing, 0 if it went well or was done before.
  int close() noexcept;

 private:
  int number_;
};

}  // namespace vond::standalone
