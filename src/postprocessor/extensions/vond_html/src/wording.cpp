#include "wording.h"

#include "vond/extension/markup_text.h"
#include "vond/extension/utc_time.h"
#include "vond/postprocessor/string_interface.h"

namespace vond_html {

std::string count_of(std::size_t count, std::string_view singular, std::string_view plural) {
  return std::to_string(count).append(" ").append(count == 1 ? singular : plural);
}

std::string listed(const std::vector<std::string>& texts) {
  std::string list;
  for (const std::string& text : texts) {
    list.append(list.empty() || text.empty() ? "" : ", ").append(text);
  }
  return list;
}

std::string readable_time(std::int64_t seconds) {
  const std::string time = vond::extension::utc_time(seconds);
  const std::size_t between = time.find('T');
  return time.substr(0, between) + " " + time.substr(between + 1, time.size() - between - 2) +
         " UTC";
}

std::string readable_span(std::uint64_t seconds) {
  constexpr std::uint64_t MINUTE = 60;
  constexpr std::uint64_t HOUR = 60 * MINUTE;
  constexpr std::uint64_t DAY = 24 * HOUR;
  if (seconds >= DAY) {
    return count_of(seconds / DAY, "day", "days");
  }
  if (seconds >= HOUR) {
    return count_of(seconds / HOUR, "hour", "hours");
  }
  return seconds >= MINUTE ? count_of(seconds / MINUTE, "minute", "minutes")
                           : count_of(seconds, "second", "seconds");
}

std::string readable_age(std::int64_t seconds) {
  // Unsigned, for the lowest age has no opposite.
  const auto age = static_cast<std::uint64_t>(seconds);
  return seconds < 0 ? readable_span(0 - age) + " in the future" : readable_span(age) + " old";
}

std::string shortened_name(std::string_view name) {
  return vond::extension::shortened(name, LONGEST_NAME);
}

std::string folded(const std::vector<std::string>& names) {
  std::vector<std::vector<std::string>> lists = {names};
  return vond::postprocessor::StringInterface().get_node_string(lists);
}

void write_time(HtmlWriter& page, std::int64_t seconds) {
  page.element("time", {{"datetime", vond::extension::utc_time(seconds)}}, readable_time(seconds));
}

void write_nodes(HtmlWriter& page, std::string_view folded, std::size_t most) {
  page.element("code", {{"class", "nodes"}, {"dir", "ltr"}},
               vond::extension::shortened(folded, most));
}

void write_name(HtmlWriter& page, std::string_view name) {
  page.element("bdi", shortened_name(name));
}

}  // namespace vond_html
