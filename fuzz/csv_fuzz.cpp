// A comma-separated file of any bytes: read row by row, and made a database table.

#include "csv_importer.h"
#include "fuzz_host.h"
#include "fuzz_input.h"
#include "sql_session.h"

#include <filesystem>
#include <fstream>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    static const std::string path = obtainFuzzPath(".csv");
    std::ofstream(path, std::ios::binary).write(reinterpret_cast<const char*>(bytes), std::streamsize(size));
    CsvReader reader(path);
    const bool isRead = accepts([&] {
        reader.read(
            [&](const CsvReader::Row& row, std::uint64_t) {
                require(row.size() == reader.getHeader().size(), "a row is as wide as the header");
            },
            {});
    });
    const bool isImported = accepts([] {
        SqlSession session("sqlite://");
        CsvImporter(session).importFile(path, "data");
        session.obtainColumns("data");
    });
    require(isRead || !isImported, "what cannot be read is not imported");
    const CsvReader::Row& header = reader.getHeader();
    accepts([&] {
        SqlSession session("sqlite://");
        CsvImporter importer(session);
        importer.declareType(header.empty() ? "none" : header[0], static_cast<KXChartDataType>(size % 6));
        importer.setProgressHandler([](std::uint64_t done, std::uint64_t total) {
            require(done <= total, "no more than all is done");
        });
        importer.importFile(path, "data");
    });
    std::filesystem::remove(path);
    return 0;
}
