#include "standalone/findings/run_mark_values.h"

#include <set>
#include <string>
#include <string_view>

namespace vond::standalone {

namespace ondemand = simdjson::ondemand;

namespace {

constexpr std::int64_t FORMAT = 1;

void read_format(ondemand::value& value) {
  const std::string_view source = source_of(value);
  std::int64_t format = 0;
  if (value.get_int64().get(format) != simdjson::SUCCESS || format != FORMAT) {
    refuse(source, {"begin.format"}, std::to_string(FORMAT) + ", the one that this program knows");
  }
}

}  // namespace

template <typename Read>
void RunMarkValues::read_object(Value& value, std::string_view key, Read read) {
  const std::string_view source = source_of(value);
  ondemand::object object;
  if (value.get_object().get(object) != simdjson::SUCCESS) {
    refuse(source, {key}, "an object");
  }
  std::set<std::string_view> names;
  for (auto result : object) {
    ondemand::field& field = checked(result);
    const char* const where = field.key().raw() - 1;
    const std::string_view name = strings_.key(field);
    if (!names.insert(name).second) {
      refuse_duplicate_key(name, where);
    }
    if (!read(name, field.value())) {
      check_unused(field.value());
    }
  }
}

RunBegin RunMarkValues::read_begin(Value& value) {
  RunBegin begin;
  bool has_format = false;
  bool has_time = false;
  const char* const where = source_of(value).data();
  read_object(value, "begin", [&](std::string_view name, Value& member) {
    if (name == "format") {
      read_format(member);
      has_format = true;
    } else if (name == "written") {
      begin.written_at = strings_.read_time(member, {"begin.written"});
      has_time = true;
    } else if (name == "parts") {
      read_parts(member, begin.parts);
    } else {
      return false;
    }
    return true;
  });
  if (!has_format || !has_time) {
    refuse_missing_key(has_format ? "written" : "format", where, "in every \"begin\"", "");
  }
  return begin;
}

void RunMarkValues::read_parts(Value& value, std::vector<std::string>& parts) {
  for (auto result : open_array(value, {"begin.parts"}, "an array of strings")) {
    const ValueName name{"begin.parts", parts.size()};
    parts.emplace_back(strings_.read_not_empty(checked(result), name));
  }
}

RunEnd RunMarkValues::read_end(Value& value) {
  RunEnd end;
  bool has_findings = false;
  bool has_complete = false;
  const char* const where = source_of(value).data();
  read_object(value, "end", [&](std::string_view name, Value& member) {
    if (name == "findings") {
      end.findings = read_count(member, {"end.findings"});
      has_findings = true;
    } else if (name == "examined") {
      if (!is_null(member)) {
        end.examined = read_count(member, {"end.examined"});
      }
    } else if (name == "lines_rejected") {
      end.lines_rejected = read_count(member, {"end.lines_rejected"});
    } else if (name == "complete") {
      end.is_complete = read_truth(member, {"end.complete"});
      has_complete = true;
    } else {
      return false;
    }
    return true;
  });
  if (!has_findings || !has_complete) {
    refuse_missing_key(has_findings ? "complete" : "findings", where, "in every \"end\"", "");
  }
  return end;
}

}  // namespace vond::standalone
