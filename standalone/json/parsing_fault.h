#pragma once

#include <simdjson.h>

#include <new>
#include <optional>
#include <string_view>

#include "standalone/json/json_fault.h"
#include "standalone/json/json_values.h"

namespace vond::standalone {

/// Returns the fault of a text that a parser has refused as no JSON; `parser_message` is for the
/// case that nothing is wrong with it.
JsonFault fault_of_broken_json(std::string_view text, std::string_view text_name,
                               std::string_view parser_message);

/// Returns where in the text a value cannot be used and why, unless the text is no JSON either:
/// then that is the first thing to tell.
JsonFault fault_of_value(std::string_view text, std::string_view text_name,
                         const ValueFault& value_fault);

/// Calls `parse`, which reads `text` and throws ValueFault, BrokenJson or simdjson::simdjson_error
/// when it cannot be used. Returns what keeps it from being used, nothing when it was read.
/// `text_name` calls the text in messages: "line", "file". Other exceptions pass; a parser that has
/// no memory is std::bad_alloc.
template <typename Parse>
std::optional<JsonFault> find_parsing_fault(std::string_view text, std::string_view text_name,
                                            const Parse& parse) {
  try {
    parse();
    return std::nullopt;
  } catch (const ValueFault& fault) {
    return fault_of_value(text, text_name, fault);
  } catch (const BrokenJson&) {
    return fault_of_broken_json(text, text_name, "unknown fault");
  } catch (const simdjson::simdjson_error& error) {
    if (error.error() == simdjson::MEMALLOC) {
      throw std::bad_alloc();
    }
    return fault_of_broken_json(text, text_name, error.what());
  }
}

}  // namespace vond::standalone
