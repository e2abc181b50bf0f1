#pragma once

#include <string_view>

#include "vond/fwd.h"
#include "vond/postprocessor/severity.h"

namespace vond::extension {

/// Returns the word of findings for a type of issues.
inline std::string_view type_word(postprocessor::TypeCode type) {
  switch (type) {
    case postprocessor::DIAGNOSES:
      return "diagnosis";
    case postprocessor::MISSING_DATA:
      return "missing_data";
    default:
      return "observation";
  }
}

/// Returns "PASS", "FAIL" or "SKIPPED".
inline std::string_view status_word(const Fwd& definition) {
  if (definition.skipped) {
    return "SKIPPED";
  }
  return definition.passed ? "PASS" : "FAIL";
}

}  // namespace vond::extension
