// Reads findings, visits the value of every field and does nothing else: the least time that a
// program takes that reads them.
#include <simdjson.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <exception>
#include <iostream>
#include <memory>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace vond::bench {
namespace {

namespace ondemand = simdjson::ondemand;

/// Small enough for the second-level cache: the text is read, indexed and visited while it is
/// there.
constexpr std::size_t BLOCK_SIZE = 256UL * 1024;

/// Something that depends on every value, so that no visit can be left out.
std::uint64_t visit(ondemand::value value) {
  switch (value.type()) {
    case ondemand::json_type::string: {
      const std::string_view text = value.get_string();
      return text.size() + static_cast<unsigned char>(text.empty() ? '\0' : text.back());
    }
    case ondemand::json_type::number:
      return static_cast<std::uint64_t>(value.get_int64().value());
    case ondemand::json_type::boolean:
      return value.get_bool() ? 1 : 0;
    case ondemand::json_type::null:
      return 0;
    case ondemand::json_type::array: {
      std::uint64_t sum = 0;
      for (auto element : value.get_array()) {
        sum += visit(element.value());
      }
      return sum;
    }
    case ondemand::json_type::object: {
      std::uint64_t sum = 0;
      for (auto field : value.get_object()) {
        sum += visit(field.value());
      }
      return sum;
    }
  }
  return 0;
}

struct Totals {
  std::uint64_t findings = 0;
  std::uint64_t checksum = 0;
};

void visit_lines(ondemand::parser& parser, const char* text, std::size_t size, Totals& totals) {
  ondemand::document_stream stream = parser.iterate_many(text, size, BLOCK_SIZE + 1);
  for (auto finding : stream) {
    for (auto field : finding.get_object()) {
      totals.checksum += visit(field.value());
    }
    ++totals.findings;
  }
}

/// Returns how much of the block are whole lines.
std::size_t whole_lines(std::string_view block) { return block.rfind('\n') + 1; }

class FileCloser {
 public:
  void operator()(std::FILE* file) const { std::fclose(file); }
};

Totals visit_file(const std::string& path) {
  const std::unique_ptr<std::FILE, FileCloser> file(std::fopen(path.c_str(), "r"));
  if (!file) {
    throw std::system_error(errno, std::generic_category(), path);
  }
  std::setvbuf(file.get(), nullptr, _IONBF, 0);

  ondemand::parser parser;
  // A second thread is no part of a floor: what it may use, the program may use as well.
  parser.threaded = false;
  Totals totals;
  std::vector<char> block(BLOCK_SIZE + simdjson::SIMDJSON_PADDING);
  std::size_t kept = 0;
  while (true) {
    const std::size_t read = std::fread(block.data() + kept, 1, BLOCK_SIZE - kept, file.get());
    const std::size_t size = kept + read;
    const std::size_t complete = read == 0 ? size : whole_lines({block.data(), size});
    visit_lines(parser, block.data(), complete, totals);
    if (read == 0) {
      return totals;
    }
    kept = size - complete;
    std::copy_n(block.data() + complete, kept, block.data());
  }
}

}  // namespace
}  // namespace vond::bench

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: parse_only FINDINGS\n";
    return 2;
  }
  try {
    const auto [findings, checksum] = vond::bench::visit_file(argv[1]);
    std::cout << std::to_string(findings) + " findings, checksum " + std::to_string(checksum) +
                     "\n";
    return 0;
  } catch (const std::exception& error) {
    std::cerr << std::string("parse_only: error: ") + error.what() + "\n";
    return 1;
  }
}
