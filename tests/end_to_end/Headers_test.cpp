// The released file read as bytes: what the system will make of it when it loads it.
#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <cstring>
#include <fstream>
#include <iterator>
#include <set>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace tests {
namespace {

constexpr std::string_view mark = "\xF3\x0F\x1E\xFA";  // the instruction endbr64

class HeadersTest : public ::testing::Test {
  protected:
    void SetUp() override {
        std::ifstream file("build/windows/brisgate.exe", std::ios::binary);
        bytes_.assign(std::istreambuf_iterator<char>(file), {});
        const auto dos = At<IMAGE_DOS_HEADER>(0);
        ASSERT_EQ(dos.e_magic, IMAGE_DOS_SIGNATURE);
        const auto start = static_cast<size_t>(dos.e_lfanew);
        headers_ = At<IMAGE_NT_HEADERS64>(start);
        ASSERT_EQ(headers_.Signature, static_cast<DWORD>(IMAGE_NT_SIGNATURE));
        const size_t table =
            start + offsetof(IMAGE_NT_HEADERS64, OptionalHeader) + headers_.FileHeader.SizeOfOptionalHeader;
        for (size_t i = 0; i < headers_.FileHeader.NumberOfSections; ++i)
            sections_.push_back(At<IMAGE_SECTION_HEADER>(table + i * sizeof(IMAGE_SECTION_HEADER)));
    }

    template <typename T>
    T At(size_t offset) const {
        T value{};
        if (offset + sizeof value > bytes_.size()) throw std::out_of_range("beyond the end of the file");
        std::memcpy(&value, bytes_.data() + offset, sizeof value);
        return value;
    }

    // The place in the file of what is loaded at an address.
    size_t OffsetOf(DWORD address) const {
        for (const IMAGE_SECTION_HEADER& section : sections_)
            if (address >= section.VirtualAddress && address - section.VirtualAddress < section.SizeOfRawData)
                return address - section.VirtualAddress + section.PointerToRawData;
        throw std::out_of_range("an address outside every section");
    }

    std::set<std::string> ImportedLibraries() const {
        std::set<std::string> names;
        size_t offset = OffsetOf(Directory(IMAGE_DIRECTORY_ENTRY_IMPORT).VirtualAddress);
        for (;; offset += sizeof(IMAGE_IMPORT_DESCRIPTOR)) {
            const auto library = At<IMAGE_IMPORT_DESCRIPTOR>(offset);
            if (library.Name == 0) return names;
            std::string name(bytes_.data() + OffsetOf(library.Name));
            std::transform(name.begin(), name.end(), name.begin(),
                           [](unsigned char letter) { return static_cast<char>(std::tolower(letter)); });
            names.insert(name);
        }
    }

    const IMAGE_DATA_DIRECTORY& Directory(size_t entry) const { return headers_.OptionalHeader.DataDirectory[entry]; }

    // Letter by letter, as narrow or as wide text, in whatever case.
    bool Contains(std::string_view text) const {
        std::string wide;
        for (const char letter : text) wide.append({letter, '\0'});
        const auto same = [](char a, char b) {
            return std::tolower(static_cast<unsigned char>(a)) == std::tolower(static_cast<unsigned char>(b));
        };
        return std::search(bytes_.begin(), bytes_.end(), text.begin(), text.end(), same) != bytes_.end() ||
               std::search(bytes_.begin(), bytes_.end(), wide.begin(), wide.end(), same) != bytes_.end();
    }

    std::string bytes_;
    IMAGE_NT_HEADERS64 headers_{};
    std::vector<IMAGE_SECTION_HEADER> sections_;
};

TEST_F(HeadersTest, IsA64BitProgramWithAWindow) {
    EXPECT_EQ(headers_.FileHeader.Machine, IMAGE_FILE_MACHINE_AMD64);
    EXPECT_EQ(headers_.OptionalHeader.Magic, IMAGE_NT_OPTIONAL_HDR64_MAGIC);
    EXPECT_EQ(headers_.OptionalHeader.Subsystem, IMAGE_SUBSYSTEM_WINDOWS_GUI);
}

// Windows 10 and Server 2016 are the first of these numbers. What says less is run, but measured like an old
// program.
TEST_F(HeadersTest, IsMadeForWindows10AndLater) {
    EXPECT_EQ(headers_.OptionalHeader.MajorOperatingSystemVersion, 10);
    EXPECT_EQ(headers_.OptionalHeader.MinorOperatingSystemVersion, 0);
    EXPECT_EQ(headers_.OptionalHeader.MajorSubsystemVersion, 10);
    EXPECT_EQ(headers_.OptionalHeader.MinorSubsystemVersion, 0);
}

TEST_F(HeadersTest, IsLoadedAtARandomPlaceAndRunsNoData) {
    constexpr WORD wanted = IMAGE_DLLCHARACTERISTICS_DYNAMIC_BASE | IMAGE_DLLCHARACTERISTICS_HIGH_ENTROPY_VA |
                            IMAGE_DLLCHARACTERISTICS_NX_COMPAT;
    EXPECT_EQ(headers_.OptionalHeader.DllCharacteristics & wanted, wanted);
    EXPECT_EQ(headers_.FileHeader.Characteristics & IMAGE_FILE_RELOCS_STRIPPED, 0);
    EXPECT_NE(Directory(IMAGE_DIRECTORY_ENTRY_BASERELOC).Size, 0U);
}

TEST_F(HeadersTest, NoSectionCanBeWrittenAndRun) {
    ASSERT_FALSE(sections_.empty());
    for (const IMAGE_SECTION_HEADER& section : sections_) {
        constexpr DWORD both = IMAGE_SCN_MEM_WRITE | IMAGE_SCN_MEM_EXECUTE;
        EXPECT_NE(section.Characteristics & both, both);
    }
}

// A processor that watches over indirect jumps lets them end only where the code is marked for it. What the
// compiler brings along is not.
TEST_F(HeadersTest, FunctionsAreMarkedAsTargetsOfJumps) {
    size_t marks = 0;
    for (const IMAGE_SECTION_HEADER& section : sections_) {
        if ((section.Characteristics & IMAGE_SCN_MEM_EXECUTE) == 0) continue;
        const std::string_view code = std::string_view(bytes_).substr(section.PointerToRawData, section.SizeOfRawData);
        for (size_t at = code.find(mark); at != std::string_view::npos; at = code.find(mark, at + 1)) ++marks;
    }
    EXPECT_GT(marks, 1000U);
}

// Any other library could be put beside the program by someone who may write there but is no administrator.
TEST_F(HeadersTest, ImportsOnlyWhatIsAlwaysTakenFromTheSystemFolder) {
    const std::set<std::string> known{"advapi32.dll", "comdlg32.dll", "gdi32.dll",   "kernel32.dll", "msvcrt.dll",
                                      "ole32.dll",    "shell32.dll",  "shlwapi.dll", "user32.dll"};
    const std::set<std::string> imported = ImportedLibraries();
    EXPECT_FALSE(imported.empty());
    for (const std::string& name : imported) EXPECT_TRUE(known.contains(name)) << name;
}

// Imported only where it is called.
TEST_F(HeadersTest, IsNeverOfferedForClosingWhileTheLibraryBlocksIt) {
    EXPECT_TRUE(Contains("DisableProcessWindowsGhosting"));
}

TEST_F(HeadersTest, TellsNothingOfTheMachineThatBuiltIt) {
    EXPECT_EQ(headers_.FileHeader.TimeDateStamp, 0U);
    EXPECT_EQ(Directory(IMAGE_DIRECTORY_ENTRY_DEBUG).Size, 0U);
    EXPECT_EQ(headers_.FileHeader.PointerToSymbolTable, 0U);
    for (const char* path : {"/work", "/home", "/root", "/usr/", "/tmp/", "/build/", ".cpp"})
        EXPECT_FALSE(Contains(path)) << path;
}

TEST_F(HeadersTest, IsSmall) {
    EXPECT_LE(bytes_.size(), 900U * 1024U);
}

}  // namespace
}  // namespace tests
