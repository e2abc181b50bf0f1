#include "standalone/json/parsing_fault.h"

#include <cstddef>
#include <string>

namespace vond::standalone {

JsonFault fault_of_broken_json(std::string_view text, std::string_view text_name,
                               std::string_view parser_message) {
  if (const std::optional<JsonFault> fault = find_json_fault(text, text_name)) {
    return *fault;
  }
  return {0, std::string("the ")
                 .append(text_name)
                 .append(" cannot be read (")
                 .append(parser_message)
                 .append("), expected a JSON object")};
}

JsonFault fault_of_value(std::string_view text, std::string_view text_name,
                         const ValueFault& value_fault) {
  if (const std::optional<JsonFault> fault = find_json_fault(text, text_name)) {
    return *fault;
  }
  return {static_cast<std::size_t>(value_fault.where - text.data()), value_fault.message};
}

}  // namespace vond::standalone
