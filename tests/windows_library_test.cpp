#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <string_view>
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

std::string readFile(const std::filesystem::path& path)
{
    std::ifstream file(path);
    return {std::istreambuf_iterator<char>(file), {}};
}

/** What the public headers in one folder declare. Declarations begin in the first column; those of a
 * namespace or a class are indented or come with it. */
struct Interface {
    std::vector<std::string> classes, functions; // with the export mark, and with code in the library
    std::vector<std::string> constants;          // of such classes, as they are mangled
    std::vector<std::string> forgotten;          // without the mark

    void addHeader(const std::filesystem::path& path, const std::string& mark)
    {
        const std::string code = readFile(std::filesystem::path(path).replace_extension(".cpp"));
        std::istringstream header(readFile(path));
        bool isTemplate = false; // is the declaration on the next line
        std::string marked;      // the class that the line stands in, if it has the mark
        for (std::string line; std::getline(header, line);) {
            const bool isIndented = line.empty() ||
                                    std::string_view(" /#{}").find(line[0]) != std::string_view::npos;
            const bool isDeclared = !isTemplate && !isIndented;
            isTemplate = line.starts_with("template") || (isTemplate && line.starts_with(" "));
            if (line.starts_with("    static constexpr ") && !marked.empty())
                _addConstant(line, marked);
            if (line.starts_with("}"))
                marked.clear();
            if (!isDeclared)
                continue;
            if (line.starts_with("class ") || line.starts_with("struct "))
                marked = _addClass(line, mark, code);
            else
                _addFunction(line.substr(line.starts_with("[[nodiscard]] ") ? 14 : 0), mark, header);
        }
    }

private:
    // Answers the name of a class with the mark and with code.
    std::string _addClass(const std::string& line, const std::string& mark, const std::string& code)
    {
        if (line.ends_with(";") && line.find('{') == std::string::npos)
            return {}; // only mentioned
        std::istringstream words(line);
        std::string name;
        words >> name >> name;
        const bool isMarked = name == mark;
        if (isMarked)
            words >> name;
        name = name.substr(0, name.find(':'));
        std::istringstream lines(code);
        for (std::string defined; std::getline(lines, defined);) {
            const std::size_t at = defined.find(name + "::");
            const bool isDefinition = at != std::string::npos && defined[0] != ' ' && defined[0] != '/' &&
                                      (at == 0 || defined[at - 1] == ' ') &&
                                      defined.find('(', at) != std::string::npos;
            if (isDefinition) {
                (isMarked ? classes : forgotten).push_back(name);
                return isMarked ? name : std::string();
            }
        }
        return {};
    }
    void _addConstant(const std::string& line, const std::string& owner)
    {
        const std::size_t end = line.find(" =");
        const std::size_t begin = line.rfind(' ', end - 1) + 1;
        const auto counted = [](const std::string& name) { return std::to_string(name.size()) + name; };
        constants.push_back("_ZN" + counted(owner) + counted(line.substr(begin, end - begin)) + "E");
    }
    void _addFunction(std::string line, const std::string& mark, std::istream& header)
    {
        const std::size_t end = line.find('(');
        const std::string first = line.substr(0, line.find(' '));
        if (end == std::string::npos || first == "inline" || first == "constexpr")
            return;
        const std::size_t begin = line.find_last_of(" *&", end) + 1;
        const std::string name = line.substr(begin, end - begin);
        if (begin == 0 || !(name.starts_with("ux") || name.starts_with("kx") || name.starts_with("ut")))
            return;
        for (std::string more; line.find_first_of(";{") == std::string::npos && std::getline(header, more);)
            line += more;
        (first == mark ? functions : forgotten).push_back(name);
    }
};

/** @return what is declared by the headers that the one of the whole library includes */
Interface readInterface(const std::filesystem::path& whole, const std::string& mark)
{
    Interface found;
    std::istringstream lines(readFile(whole));
    for (std::string line; std::getline(lines, line);) {
        const std::size_t begin = line.find('"') + 1, end = line.rfind('"');
        if (line.starts_with("#include \""))
            found.addHeader(whole.parent_path() /
                                std::filesystem::path(line.substr(begin, end - begin)).filename(),
                            mark);
    }
    return found;
}

} // namespace

TEST(WindowsLibraries, ExportTheirInterfaceAndNeedNothingButTheSystem)
{
    struct Case {
        const char *library, *header, *mark;
        std::vector<std::string> needs;
    };
    const Case cases[] = {
        {"ux.dll", KX_SOURCE_DIR "/ux/ux.h", "UX_EXPORT", {"KERNEL32.dll", "msvcrt.dll"}},
        {"kxcharts.dll",
         KX_SOURCE_DIR "/src/kxcharts.h",
         "KX_EXPORT",
         {"KERNEL32.dll", "msvcrt.dll", "ux.dll"}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.library);
        const Library library(c.library);
        ASSERT_TRUE(library.isLoaded());
        EXPECT_EQ(library.obtainImportedLibraries(), c.needs);
        const Interface wanted = readInterface(c.header, c.mark);
        EXPECT_EQ(wanted.forgotten, std::vector<std::string>());
        EXPECT_GT(wanted.classes.size(), 50u);
        EXPECT_GE(wanted.functions.size(), 4u);
        std::string exports;
        for (const std::string& name : library.obtainExports())
            exports += name + '\n';
        const auto isExported = [&](const char* prefix, const std::string& name) {
            return exports.find(prefix + std::to_string(name.size()) + name) != std::string::npos;
        };
        for (const std::string& name : wanted.classes)
            EXPECT_TRUE(isExported("_ZN", name) || isExported("_ZNK", name) ||
                        isExported("_ZN6UXEnum", name) || isExported("_ZTV", name))
                << name;
        for (const std::string& name : wanted.functions)
            EXPECT_TRUE(isExported("_Z", name)) << name;
        EXPECT_FALSE(wanted.constants.empty());
        for (const std::string& name : wanted.constants)
            EXPECT_NE(exports.find(name + '\n'), std::string::npos) << name;
        EXPECT_EQ(exports.find("nlohmann"), std::string::npos) << "a part that is private to the library";
    }
}
