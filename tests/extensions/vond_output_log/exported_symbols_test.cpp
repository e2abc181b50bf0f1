#include <elf.h>
#include <gtest/gtest.h>

#include <cstring>
#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <vector>

namespace {

/// The dynamic symbol table of an ELF file of 64 bits.
class SymbolTable {
 public:
  explicit SymbolTable(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    content_.assign(std::istreambuf_iterator<char>(file), {});
  }

  /// Returns the names that other programs can see.
  std::set<std::string> defined_names() const {
    std::set<std::string> names;
    const auto header = at<Elf64_Ehdr>(0);
    for (std::size_t index = 0; index < header.e_shnum; ++index) {
      const Elf64_Shdr section = section_header(header, index);
      if (section.sh_type != SHT_DYNSYM) {
        continue;
      }
      const Elf64_Shdr strings = section_header(header, section.sh_link);
      for (std::size_t offset = 0; offset < section.sh_size; offset += sizeof(Elf64_Sym)) {
        const auto symbol = at<Elf64_Sym>(section.sh_offset + offset);
        const bool is_local = ELF64_ST_BIND(symbol.st_info) == STB_LOCAL;
        if (symbol.st_shndx == SHN_UNDEF || is_local) {
          continue;
        }
        names.insert(content_.data() + strings.sh_offset + symbol.st_name);
      }
    }
    return names;
  }

 private:
  template <typename Record>
  Record at(std::size_t offset) const {
    Record record;
    std::memcpy(&record, content_.data() + offset, sizeof record);
    return record;
  }

  Elf64_Shdr section_header(const Elf64_Ehdr& header, std::size_t index) const {
    return at<Elf64_Shdr>(header.e_shoff + index * sizeof(Elf64_Shdr));
  }

  std::vector<char> content_;
};

TEST(ExportedSymbols, OfTheReportAreItsFactoryAlone) {
  EXPECT_EQ(SymbolTable(VOND_OUTPUT_LOG_PATH).defined_names(), std::set<std::string>{"create"});
}

TEST(ExportedSymbols, AreFoundByThisTestWhereThereAreOthers) {
  EXPECT_EQ(SymbolTable(EXTENSION_WITHOUT_FACTORY_PATH).defined_names().count("created"), 1U);
}

}  // namespace
