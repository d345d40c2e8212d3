#include "csv_reader.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csv.h>
#include <exception>
#include <filesystem>
#include <fstream>
#include <string_view>
#include <system_error>

#include "host_error.h"

namespace {

// A row is held as a whole: what no database takes as one is refused before it fills the memory.
constexpr std::size_t mostFields = 10'000;
constexpr std::uint64_t mostRowBytes = std::uint64_t{64} << 20U;

/** @return what stands between the fields of a header: of ',', ';' and tabulators outside of quotes the most
 * frequent one */
char findSeparator(std::string_view text)
{
    static constexpr std::array separators = {',', ';', '\t'};
    std::array<std::size_t, separators.size()> counts{};
    bool isQuoted = false;
    for (const char c : text) {
        if (!isQuoted && (c == '\n' || c == '\r'))
            break;
        isQuoted = isQuoted != (c == '"');
        const auto found = std::ranges::find(separators, c);
        if (!isQuoted && found != separators.end())
            ++counts[static_cast<std::size_t>(found - separators.begin())];
    }
    return separators[static_cast<std::size_t>(std::ranges::max_element(counts) - counts.begin())];
}

} // namespace

/** The state of one reading. The parser's C code calls it back, so nothing may be thrown in there: an
 * exception waits until the parser has returned. */
struct CsvReader::Pass {
    explicit Pass(const RowHandler& handler) : handleRow(handler)
    {
        if (csv_init(&parser, CSV_STRICT | CSV_STRICT_FINI) != 0)
            throw std::bad_alloc();
    }
    ~Pass() { csv_free(&parser); }
    Pass(const Pass&) = delete;
    Pass& operator=(const Pass&) = delete;

    static void addField(void* bytes, std::size_t count, void* self)
    {
        auto* pass = static_cast<Pass*>(self);
        try {
            pass->addField({static_cast<const char*>(bytes), count});
        } catch (...) {
            pass->failure = std::current_exception();
        }
    }

    static void endRow(int, void* self) { static_cast<Pass*>(self)->hasRow = true; }

    /** Fields go where those of the row before were: a million rows need no new memory. */
    void addField(std::string_view text)
    {
        hasTooMany = hasTooMany || fieldCount == mostFields;
        if (hasTooMany)
            return;
        if (fieldCount == fields.size())
            fields.emplace_back();
        fields[fieldCount++].assign(text);
    }

    csv_parser parser{};
    const RowHandler& handleRow;
    Row fields;
    std::size_t fieldCount = 0; // of the row that is being read
    std::uint64_t rowBytes = 0;
    bool hasRow = false; // whether it is complete; the parser gets no more than a line at a time
    std::exception_ptr failure;
    bool hasTooMany = false;
    bool afterCarriageReturn = false;
    bool insideRow = false;
    std::uint64_t line = 1;
    std::uint64_t rowLine = 1;
};

CsvReader::CsvReader(std::string path) : m_path(std::move(path)) {}

HostError CsvReader::makeError(std::uint64_t line, const std::string& cause) const
{
    return {m_path, "line " + std::to_string(line), cause};
}

void CsvReader::read(const RowHandler& row, const ProgressHandler& progress)
{
    // 1. Say why a file cannot be opened; a folder opens and then reads as nothing.
    std::error_code unknown;
    if (std::filesystem::is_directory(m_path, unknown))
        throw HostError(m_path, "", "is a folder, not a CSV file");
    errno = 0;
    std::ifstream file(m_path, std::ios::binary);
    if (!file)
        throw HostError(m_path, "", errno ? std::generic_category().message(errno) : "cannot be opened");
    const std::uintmax_t size = std::filesystem::file_size(m_path, unknown);
    const std::uint64_t total = unknown ? 0 : size;

    // 2. Parse block by block; the byte order mark is no part of the first name.
    Pass pass(row);
    m_header.clear();
    std::array<char, 1 << 16> block{};
    std::uint64_t done = 0;
    while (file.read(block.data(), block.size()), file.gcount() > 0) {
        std::string_view bytes(block.data(), static_cast<std::size_t>(file.gcount()));
        const bool isFirst = done == 0;
        if (isFirst && (bytes.starts_with("\xff\xfe") || bytes.starts_with("\xfe\xff")))
            throw makeError(1, "is UTF-16 text; UTF-8 is needed");
        done += bytes.size();
        if (isFirst && bytes.starts_with("\xef\xbb\xbf"))
            bytes.remove_prefix(3);
        if (isFirst)
            csv_set_delim(&pass.parser, static_cast<unsigned char>(findSeparator(bytes)));
        _readBlock(pass, bytes.data(), bytes.size());
        if (progress)
            progress(done, std::max(done, total));
    }
    if (file.bad())
        throw makeError(pass.line, "cannot be read further");

    // 3. The last row may end without a line end; a quote may not stay open.
    _finish(pass);
    if (m_header.empty())
        throw HostError(m_path, "", "is empty; a header row is needed");
}

void CsvReader::_readBlock(Pass& pass, const char* bytes, std::size_t count)
{
    // The parser does not count lines, so it gets one line at a time.
    const char* const end = bytes + count;
    while (bytes != end) {
        const char* stop = std::find_if(bytes, end,
                                        [](char c) { return c == '\n' || c == '\r' || c == '\0'; });
        if (stop != end && *stop == '\0')
            throw makeError(pass.line, "holds a zero byte; this is no text file");
        const bool endsLine = stop != end;
        const bool splitLineEnd = endsLine && *stop == '\n' && pass.afterCarriageReturn && stop == bytes;
        const char* next = endsLine ? stop + 1 : stop;
        _parse(pass, bytes, static_cast<std::size_t>(next - bytes));
        if (endsLine && !splitLineEnd)
            ++pass.line;
        pass.afterCarriageReturn = endsLine && *stop == '\r';
        bytes = next;
    }
}

void CsvReader::_parse(Pass& pass, const char* bytes, std::size_t count)
{
    const auto blank = [](char c) { return c == '\n' || c == '\r' || c == ' ' || c == '\t'; };
    if (!pass.insideRow && !std::all_of(bytes, bytes + count, blank)) {
        pass.insideRow = true;
        pass.rowLine = pass.line;
    }
    pass.rowBytes += count;
    if (pass.rowBytes > mostRowBytes)
        throw makeError(pass.rowLine, "a row longer than 64 MiB");
    const std::size_t parsed = csv_parse(&pass.parser, bytes, count, Pass::addField, Pass::endRow, &pass);
    _requireParsed(pass, parsed == count);
    _deliver(pass);
}

void CsvReader::_finish(Pass& pass)
{
    const int failed = csv_fini(&pass.parser, Pass::addField, Pass::endRow, &pass);
    if (failed && csv_error(&pass.parser) == CSV_EPARSE)
        throw makeError(pass.rowLine, "a quote opened in this row is never closed");
    _requireParsed(pass, !failed);
    _deliver(pass);
}

void CsvReader::_requireParsed(Pass& pass, bool parsed) const
{
    if (pass.failure)
        std::rethrow_exception(pass.failure);
    if (pass.hasTooMany)
        throw makeError(pass.rowLine, "more than " + std::to_string(mostFields) + " fields");
    if (parsed)
        return;
    const int error = csv_error(&pass.parser);
    throw makeError(pass.line, error == CSV_EPARSE ? "a stray quote inside a field" : csv_strerror(error));
}

void CsvReader::_deliver(Pass& pass)
{
    if (!pass.hasRow)
        return;
    if (!m_header.empty() && pass.fieldCount != m_header.size())
        throw makeError(pass.rowLine, std::to_string(pass.fieldCount) + " fields where the header has " +
                                          std::to_string(m_header.size()));
    if (m_header.empty())
        m_header.swap(pass.fields);
    else if (pass.handleRow)
        pass.handleRow(pass.fields, pass.rowLine);
    pass.hasRow = pass.insideRow = false;
    pass.fieldCount = 0;
    pass.rowBytes = 0;
}
