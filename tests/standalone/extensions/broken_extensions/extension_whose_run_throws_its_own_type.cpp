#include <exception>
#include <string>

#include "witness.h"

using vond::postprocessor::PostprocessorExtension;

namespace {

/// Its code and its text go with the library.
class OwnError : public std::exception {
 public:
  OwnError() = default;
  OwnError(const OwnError&) = default;
  OwnError& operator=(const OwnError&) = default;
  ~OwnError() override { witness::library.tell("exception destroyed"); }
  const char* what() const noexcept override { return text_.c_str(); }

 private:
  std::string text_ = "a text that only this library could have made";
};

class Failing : public witness::Extension {
 public:
  using Extension::Extension;
  int run() override {
    Extension::run();
    throw OwnError();
  }
};

}  // namespace

extern "C" VOND_HOST_API PostprocessorExtension* create(witness::Data& record) {
  return new Failing(record);
}
