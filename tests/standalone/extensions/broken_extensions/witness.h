#pragma once

#include <memory>
#include <string>
#include <vector>

#include "vond/postprocessor/postprocessor_extension.h"

/// What extension libraries tell the test that loads them: what happens to them, in order. The list
/// comes in a field of the record that is the host's own.
namespace witness {

using Events = std::vector<std::string>;
using Data = vond::postprocessor::PostprocessorExtensionData;

/// As static object of a library, it tells when the library is closed.
class Library {
 public:
  Library() = default;
  Library(const Library&) = delete;
  Library& operator=(const Library&) = delete;
  ~Library() { tell("library closed"); }

  void open(const Data& record) {
    events_ = std::static_pointer_cast<Events>(record.host_shared_1);
  }
  void tell(const std::string& event) {
    if (events_) {
      events_->push_back(event);
    }
  }

 private:
  std::shared_ptr<Events> events_;
};

static Library library;

/// An extension that tells what is done with it, and does nothing else.
class Extension : public vond::postprocessor::PostprocessorExtension {
 public:
  explicit Extension(Data& record) : PostprocessorExtension(record) {
    data = record;
    library.open(record);
    library.tell("created");
  }
  Extension(const Extension&) = delete;
  Extension& operator=(const Extension&) = delete;
  ~Extension() override { library.tell("deleted"); }

  int run() override {
    library.tell("run");
    return 0;
  }
};

}  // namespace witness
