#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

/** Reads a comma-separated file row by row: UTF-8 with or without a byte order mark, a header in the first
 * row, fields quoted with '"' where they hold commas, quotes or line breaks; any kind of line end; empty
 * lines are skipped. Where the header has more semicolons or tabulators than commas, those separate. */
class CsvReader {
public:
    using Row = std::vector<std::string>;
    /** Takes one row below the header, as wide as the header, and the line on which it begins, from 1. */
    using RowHandler = std::function<void(const Row& row, std::uint64_t line)>;
    /** Told now and then how many bytes of how many are read. */
    using ProgressHandler = std::function<void(std::uint64_t done, std::uint64_t total)>;

    explicit CsvReader(std::string path);

    /** Reads the file from its start; both handlers may be empty. Throws HostError for a file that cannot be
     * read, has no header, holds no text, has a row of another width than the header, of more than 10,000
     * fields or 64 MiB, or a stray or unclosed quote. */
    void read(const RowHandler& row, const ProgressHandler& progress);

    /** @return the names in the first row, known from the first call of a row handler on */
    const Row& getHeader() const { return m_header; }
    const std::string& getPath() const { return m_path; }

    /** @return an error in this file at a line */
    class HostError makeError(std::uint64_t line, const std::string& cause) const;

private:
    struct Pass;

    void _readBlock(Pass& pass, const char* bytes, std::size_t count);
    void _parse(Pass& pass, const char* bytes, std::size_t count);
    void _finish(Pass& pass);
    void _deliver(Pass& pass);
    void _requireParsed(Pass& pass, bool parsed) const;

    std::string m_path;
    Row m_header;
};
