#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include <windows.h>

namespace {

/** A library of this project as Windows sees it. */
class Library {
public:
    explicit Library(const std::string& file)
        : m_module(LoadLibraryA(file.c_str())), m_base(reinterpret_cast<const std::uint8_t*>(m_module))
    {
    }
    ~Library() { FreeLibrary(m_module); }
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;

    bool isLoaded() const { return m_module != nullptr; }
    std::vector<std::string> obtainExports() const
    {
        const auto& table = obtainTable<IMAGE_EXPORT_DIRECTORY>(IMAGE_DIRECTORY_ENTRY_EXPORT);
        const auto* names = reinterpret_cast<const DWORD*>(m_base + table.AddressOfNames);
        std::vector<std::string> exports;
        for (DWORD i = 0; i < table.NumberOfNames; ++i)
            exports.emplace_back(reinterpret_cast<const char*>(m_base + names[i]));
        return exports;
    }
    std::vector<std::string> obtainImportedLibraries() const
    {
        std::vector<std::string> libraries;
        const auto* entry = &obtainTable<IMAGE_IMPORT_DESCRIPTOR>(IMAGE_DIRECTORY_ENTRY_IMPORT);
        for (; entry->Name != 0; ++entry)
            libraries.emplace_back(reinterpret_cast<const char*>(m_base + entry->Name));
        std::sort(libraries.begin(), libraries.end());
        return libraries;
    }

private:
    template <class Table>
    const Table& obtainTable(int kind) const
    {
        const auto& start = *reinterpret_cast<const IMAGE_DOS_HEADER*>(m_base);
        const auto& headers = *reinterpret_cast<const IMAGE_NT_HEADERS64*>(m_base + start.e_lfanew);
        return *reinterpret_cast<const Table*>(m_base +
                                               headers.OptionalHeader.DataDirectory[kind].VirtualAddress);
    }

    HMODULE m_module;
    const std::uint8_t* m_base;
};

/** @return the names of the classes that the headers of a folder mark for export */
std::vector<std::string> findExportedClasses(const std::filesystem::path& folder, const std::string& mark)
{
    std::vector<std::string> classes;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (entry.path().extension() != ".h")
            continue;
        std::ifstream file(entry.path());
        const std::string text{std::istreambuf_iterator<char>(file), {}};
        for (std::size_t at = text.find(mark); at != std::string::npos; at = text.find(mark, at + 1)) {
            const std::size_t begin = at + mark.size();
            classes.push_back(text.substr(begin, text.find_first_of(" ;:\n", begin) - begin));
        }
    }
    return classes;
}

} // namespace

TEST(WindowsLibraries, ExportTheirClassesAndNeedNothingButTheSystem)
{
    struct Case {
        const char *library, *folder, *mark;
        std::vector<std::string> needs;
    };
    const Case cases[] = {
        {"ux.dll", KX_SOURCE_DIR "/ux", "\nclass UX_EXPORT ", {"KERNEL32.dll", "msvcrt.dll"}},
        {"kxcharts.dll",
         KX_SOURCE_DIR "/src",
         "\nclass KX_EXPORT ",
         {"KERNEL32.dll", "msvcrt.dll", "ux.dll"}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.library);
        const Library library(c.library);
        ASSERT_TRUE(library.isLoaded());
        EXPECT_EQ(library.obtainImportedLibraries(), c.needs);
        const std::vector<std::string> classes = findExportedClasses(c.folder, c.mark);
        EXPECT_GT(classes.size(), 20u);
        std::string exports;
        for (const std::string& name : library.obtainExports())
            exports += name + '\n';
        for (const std::string& name : classes) {
            const std::string mangled = std::to_string(name.size()) + name;
            EXPECT_TRUE(exports.find("_ZN" + mangled) != std::string::npos ||
                        exports.find("_ZN6UXEnum" + mangled) != std::string::npos ||
                        exports.find("_ZTV" + mangled) != std::string::npos)
                << name;
        }
        EXPECT_EQ(exports.find("nlohmann"), std::string::npos) << "a part that is private to the library";
    }
}
