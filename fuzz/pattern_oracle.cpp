#include "fuzz/pattern_oracle.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <regex>
#include <tuple>
#include <utility>

namespace vond::fuzz {
namespace {

/// A byte, or one of those below.
using Symbol = int;
using Symbols = std::vector<Symbol>;

enum Special : Symbol { FULL_NAME = 256, SHORT_NAME, ANY_NAME, PLACE, TEXT_END };

bool is_letter(Symbol c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
bool is_digit(Symbol c) { return c >= '0' && c <= '9'; }
bool is_name_character(Symbol c) { return is_letter(c) || is_digit(c) || c == '_'; }
bool is_separator(Symbol c) {
  return c < 256 && c > 0 &&
         std::string_view(" \t\r\n()[]{}<>,;=\"'|@").find(static_cast<char>(c)) !=
             std::string_view::npos;
}
bool is_kept_off(Symbol c) { return c == '.' || c == ':' || c == '!' || c == '?'; }
bool is_name(Symbol c) { return c == FULL_NAME || c == SHORT_NAME || c == ANY_NAME; }

Symbol byte(char c) { return static_cast<unsigned char>(c); }

/// Whether `name` stands at `at`, as something of its own.
bool stands_at(const std::string& text, std::size_t at, const std::string& name) {
  if (std::none_of(name.begin(), name.end(), [](char c) { return is_letter(byte(c)); }) ||
      text.substr(at, name.size()) != name) {
    return false;
  }
  const std::string around =
      (at == 0 ? " " : text.substr(at - 1, 1)) + (text + " ").substr(at + name.size(), 1);
  return !is_name_character(byte(around[0])) && !is_name_character(byte(around[1]));
}

Symbols with_names(const std::string& text, const std::string& name) {
  const std::string before_dot = name.substr(0, name.find('.'));
  Symbols symbols;
  for (std::size_t at = 0; at < text.size();) {
    if (stands_at(text, at, name)) {
      symbols.push_back(FULL_NAME);
      at += name.size();
    } else if (stands_at(text, at, before_dot)) {
      symbols.push_back(SHORT_NAME);
      at += before_dot.size();
    } else {
      symbols.push_back(byte(text[at++]));
    }
  }
  return symbols;
}

/// A run between separators, and the word in it.
struct Word {
  std::size_t run_begin, begin, end, run_end;
};

/// Whether the number at `begin` is a fraction, whose one point stands at the end of what was kept
/// off since `run_begin`.
bool lacks_point(const Symbols& text, std::size_t run_begin, std::size_t begin) {
  std::size_t points = 0;
  while (begin - points > run_begin && text[begin - points - 1] == '.') {
    ++points;
  }
  return points == 1 && begin < text.size() && is_digit(text[begin]);
}

std::vector<Word> find_words(const Symbols& text) {
  std::vector<bool> separates;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool in_number = text[i] == ',' && i > 0 && is_digit(text[i - 1]) &&
                           i + 1 < text.size() && is_digit(text[i + 1]);
    separates.push_back(is_separator(text[i]) && !in_number);
  }
  separates.push_back(true);
  std::vector<Word> words;
  std::size_t run_begin = 0;
  for (std::size_t i = 0; i < separates.size(); ++i) {
    if (!separates[i]) {
      continue;
    }
    Word word{run_begin, run_begin, i, i};
    while (word.begin < word.end && is_kept_off(text[word.begin])) {
      ++word.begin;
    }
    if (lacks_point(text, word.run_begin, word.begin)) {
      --word.begin;
    }
    while (word.end > word.begin && is_kept_off(text[word.end - 1])) {
      --word.end;
    }
    words.push_back(word);
    run_begin = i + 1;
  }
  return words;
}

/// Finds words that are one with those behind them.
class DateFinder {
 public:
  DateFinder(const Symbols& text, const std::vector<Word>& words) : text_(text), words_(words) {}

  /// Returns how many words are one, from the `first` on.
  std::size_t size_at(std::size_t first) const {
    static const std::string month = "(Jan|Feb|Mar|Apr|May|Jun|Jul|Aug|Sep|Oct|Nov|Dec)";
    static const std::string weekday = "(Mon|Tue|Wed|Thu|Fri|Sat|Sun)";
    static const std::string day = R"(( \d\d|  ?\d) \d\d:\d\d:\d\d)";
    // Two blanks have an empty run between them.
    static const std::array<std::pair<std::size_t, std::regex>, 5> dates = {{
        {2, std::regex(R"(\d{4}-\d\d-\d\d \d\d:\d\d:\d\d([.,]\d+)?(Z|[+-]\d\d(:?\d\d)?)?)")},
        {3, std::regex(month + day)},
        {4, std::regex(month + day)},
        {4, std::regex(weekday + " " + month + day)},
        {5, std::regex(weekday + " " + month + day)},
    }};
    for (const auto& [size, date] : dates) {
      const std::string text = text_of(first, size);
      // Regular expressions are slow.
      if (text.find(':') != std::string::npos && std::regex_match(text, date)) {
        return size;
      }
    }
    return 1;
  }

 private:
  /// What is to be one word of several, "" for what cannot be.
  std::string text_of(std::size_t first, std::size_t count) const {
    if (first + count > words_.size()) {
      return "";
    }
    const std::size_t begin = words_[first].begin;
    const std::size_t end = words_[first + count - 1].end;
    if (end < begin || end - begin > 80) {
      return "";
    }
    std::string text;
    for (std::size_t i = begin; i < end; ++i) {
      text += text_[i] < 256 ? static_cast<char>(text_[i]) : '*';
    }
    return text;
  }

  const Symbols& text_;
  const std::vector<Word>& words_;
};

/// Some texts taken apart.
struct Parsed {
  Symbols pattern;
  std::vector<Symbols> values;
};

void parse(const Symbols& text, Parsed& parsed) {
  const std::vector<Word> words = find_words(text);
  const DateFinder dates(text, words);
  std::size_t done = 0;
  for (std::size_t i = 0; i < words.size();) {
    const std::size_t size = dates.size_at(i);
    const auto begin = text.begin() + static_cast<std::ptrdiff_t>(words[i].begin);
    const auto end = text.begin() + static_cast<std::ptrdiff_t>(words[i + size - 1].end);
    if (begin < end && std::any_of(begin, end, is_digit)) {
      parsed.pattern.insert(parsed.pattern.end(), text.begin() + static_cast<std::ptrdiff_t>(done),
                            begin);
      parsed.pattern.push_back(PLACE);
      parsed.values.emplace_back(begin, end);
      done = words[i + size - 1].end;
    }
    i += size;
  }
  parsed.pattern.insert(parsed.pattern.end(), text.begin() + static_cast<std::ptrdiff_t>(done),
                        text.end());
  parsed.pattern.push_back(TEXT_END);
}

Symbols with_one_name(Symbols symbols) {
  std::replace_if(symbols.begin(), symbols.end(), is_name, ANY_NAME);
  return symbols;
}

/// Puts the text that a name was back in place of it.
Symbols with_text(const Symbols& symbols, const std::string& name) {
  Symbols text;
  for (const Symbol symbol : symbols) {
    const std::string part = symbol == FULL_NAME    ? name
                             : symbol == SHORT_NAME ? name.substr(0, name.find('.'))
                                                    : "";
    std::transform(part.begin(), part.end(), std::back_inserter(text), byte);
    if (part.empty()) {
      text.push_back(symbol);
    }
  }
  return text;
}

std::string shown(const Symbols& symbols) {
  std::string text;
  for (const Symbol symbol : symbols) {
    text += symbol < 256 ? std::string(1, static_cast<char>(symbol)) : "NODE";
  }
  return text;
}

struct Taken {
  const PatternFinding* finding;
  Parsed parsed;
  /// As written, with FULL_NAME and SHORT_NAME.
  std::vector<Symbol> names;
};

/// An issue: a pattern, and what the findings say at its places.
struct Issue {
  std::vector<PlaceUse> places;
};
using Issues = std::map<Symbols, Issue>;

/// Adds the findings of one pattern to the issues.
class Resolver {
 public:
  explicit Resolver(const std::vector<Taken>& group) : group_(group) {}

  void add_to(Issues& issues) {
    Symbols key;
    std::size_t place = 0;
    std::size_t name = 0;
    std::vector<PlaceUse> open;
    for (const Symbol symbol : group_[0].parsed.pattern) {
      if (symbol == PLACE) {
        append(key, resolve_place(place++, open));
      } else if (is_name(symbol)) {
        append(key, resolve_name(name++));
      } else {
        key.push_back(symbol);
      }
    }
    Issue& issue = issues[key];
    issue.places.resize(open.size());
    for (std::size_t i = 0; i < open.size(); ++i) {
      for (const auto& [value, use] : open[i]) {
        issue.places[i][value].findings += use.findings;
        issue.places[i][value].nodes.insert(use.nodes.begin(), use.nodes.end());
      }
    }
  }

 private:
  static void append(Symbols& symbols, const Symbols& more) {
    symbols.insert(symbols.end(), more.begin(), more.end());
  }

  Symbols resolve_name(std::size_t number) const {
    std::set<std::string> nodes;
    std::set<Symbol> written;
    for (const Taken& taken : group_) {
      nodes.insert(taken.finding->nodes[0]);
      written.insert(taken.names[number]);
    }
    if (nodes.size() > 1) {
      return {ANY_NAME};
    }
    return with_text({written.contains(FULL_NAME) ? FULL_NAME : SHORT_NAME}, *nodes.begin());
  }

  Symbols resolve_place(std::size_t place, std::vector<PlaceUse>& open) const {
    std::set<std::string> owners;
    for (const Taken& taken : group_) {
      const Symbols& value = taken.parsed.values[place];
      if (std::any_of(value.begin(), value.end(), is_name)) {
        owners.insert(taken.finding->nodes[0]);
      }
    }
    std::set<Symbols> values;
    PlaceUse use;
    for (const Taken& taken : group_) {
      const Symbols& written = taken.parsed.values[place];
      const Symbols value =
          owners.size() == 1 ? with_text(written, *owners.begin()) : with_one_name(written);
      values.insert(value);
      ValueUse& used = use[shown(value)];
      ++used.findings;
      used.nodes.insert(taken.finding->nodes.begin(), taken.finding->nodes.end());
    }
    if (values.size() == 1) {
      return *values.begin();
    }
    open.push_back(use);
    return {PLACE};
  }

  const std::vector<Taken>& group_;
};

Taken take(const PatternFinding& finding) {
  const std::set<std::string> nodes(finding.nodes.begin(), finding.nodes.end());
  const std::string own = nodes.size() == 1 ? *nodes.begin() : "";
  Taken taken{&finding, {}, {}};
  for (const std::string& text : finding.texts) {
    parse(with_names(text, own), taken.parsed);
  }
  std::copy_if(taken.parsed.pattern.begin(), taken.parsed.pattern.end(),
               std::back_inserter(taken.names), is_name);
  taken.parsed.pattern = with_one_name(taken.parsed.pattern);
  return taken;
}

std::string write(const Symbols& key, const Issue& issue) {
  IssueWriter writer;
  std::size_t place = 0;
  for (const Symbol symbol : key) {
    if (symbol == PLACE) {
      writer.place(issue.places[place++]);
    } else if (symbol == TEXT_END) {
      writer.end_of_text();
    } else if (is_name(symbol)) {
      writer.node();
    } else {
      writer.literal(std::string(1, static_cast<char>(symbol)));
    }
  }
  return writer.written();
}

}  // namespace

void IssueWriter::literal(std::string_view bytes) {
  for (const char c : bytes) {
    if ((c >= ' ' && c <= '~') && c != '<' && c != '>' && c != '\\') {
      written_ += c;
    } else {
      constexpr std::string_view DIGITS = "0123456789abcdef";
      const auto code = static_cast<unsigned>(byte(c));
      written_ += {'\\', 'x', DIGITS[code / 16], DIGITS[code % 16]};
    }
  }
}

void IssueWriter::node() { written_ += "<NODE>"; }

void IssueWriter::place(const PlaceUse& values) {
  written_ += "<";
  for (const auto& [value, use] : values) {
    literal(value);
    written_ += "<" + std::to_string(use.findings) + ">";
    for (const std::string& node : use.nodes) {
      literal(node);
      written_ += "<,>";
    }
  }
  written_ += ">";
}

void IssueWriter::end_of_text() { written_ += "<END>"; }

std::vector<std::string> expected_issues(const std::vector<PatternFinding>& findings) {
  std::map<Symbols, std::vector<Taken>> groups;
  for (const PatternFinding& finding : findings) {
    Taken taken = take(finding);
    const Symbols pattern = taken.parsed.pattern;
    groups[pattern].push_back(std::move(taken));
  }
  Issues issues;
  for (const auto& [pattern, group] : groups) {
    Resolver(group).add_to(issues);
  }
  std::vector<std::string> written;
  for (const auto& [key, issue] : issues) {
    written.push_back(write(key, issue));
  }
  std::sort(written.begin(), written.end());
  return written;
}

TextSources expected_sources(const std::vector<PatternFinding>& findings) {
  TextSources sources;
  for (const PatternFinding& finding : findings) {
    TextSource& source = sources[finding.texts];
    source.nodes.insert(finding.nodes.begin(), finding.nodes.end());
    source.row_ids.insert(finding.row_id);
  }
  return sources;
}

}  // namespace vond::fuzz
