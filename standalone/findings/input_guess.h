#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace vond::standalone {

/// Returns what to tell the user about a file of findings of whose `lines` lines not one could be
/// used: "FILE: none of its 12 lines can be used", and what the file seems to be and how to turn it
/// into findings, where its `beginning` tells that. `name` is how messages call the file.
std::string complaint_about_useless(const std::string& name, std::size_t lines,
                                    std::string_view beginning);

}  // namespace vond::standalone
