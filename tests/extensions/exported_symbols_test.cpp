#include <elf.h>
#include <gtest/gtest.h>

#include <cstring>
#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <vector>

namespace {

/// Has its program import the lock of static objects, to compare with.
std::string& static_object() {
  static std::string text;
  return text;
}

/// The dynamic symbol table of an ELF file of 64 bits.
class SymbolTable {
 public:
  explicit SymbolTable(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    content_.assign(std::istreambuf_iterator<char>(file), {});
  }

  /// Returns the names that other programs can see.
  std::set<std::string> defined_names() const {
    return names_of([](const Elf64_Sym& symbol) {
      return symbol.st_shndx != SHN_UNDEF && ELF64_ST_BIND(symbol.st_info) != STB_LOCAL;
    });
  }

  /// Returns the names that other programs have to define.
  std::set<std::string> undefined_names() const {
    return names_of([](const Elf64_Sym& symbol) { return symbol.st_shndx == SHN_UNDEF; });
  }

 private:
  template <typename IsMeant>
  std::set<std::string> names_of(IsMeant is_meant) const {
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
        if (is_meant(symbol)) {
          names.insert(content_.data() + strings.sh_offset + symbol.st_name);
        }
      }
    }
    return names;
  }

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

class ExtensionSymbols : public ::testing::TestWithParam<const char*> {};

TEST_P(ExtensionSymbols, ExportedAreTheFactoryAlone) {
  EXPECT_EQ(SymbolTable(GetParam()).defined_names(), std::set<std::string>{"create"});
}

// A static object inside a function is built under a lock, and extensions take none.
TEST_P(ExtensionSymbols, ImportedAreNoLocksOfStaticObjects) {
  const std::set<std::string> names = SymbolTable(GetParam()).undefined_names();
  EXPECT_FALSE(names.empty());
  EXPECT_EQ(names.count("__cxa_guard_acquire"), 0U);
}

INSTANTIATE_TEST_SUITE_P(Of, ExtensionSymbols, ::testing::Values(EXTENSION_PATHS),
                         [](const auto& test) {
                           const std::string path = test.param;
                           const std::size_t name = path.rfind('/') + 1;
                           return path.substr(name, path.rfind('.') - name);
                         });

TEST(SymbolTable, HasTheNamesOfALibraryThatExportsOthers) {
  EXPECT_EQ(SymbolTable(EXTENSION_WITHOUT_FACTORY_PATH).defined_names().count("created"), 1U);
}

TEST(SymbolTable, HasTheNamesThatAProgramImports) {
  static_object() = THIS_PROGRAM_PATH;
  EXPECT_EQ(SymbolTable(static_object()).undefined_names().count("__cxa_guard_acquire"), 1U);
}

}  // namespace
