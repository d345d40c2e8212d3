// A dashboard of any bytes: read, saved and read again, opened over a small table, laid out and painted. What
// it names beside itself is left alone: a document must not choose which files a fuzzer opens.

#include "chart_picture.h"
#include "dashboard_board.h"
#include "dashboard_reader.h"
#include "dashboard_writer.h"
#include "fuzz_host.h"
#include "fuzz_input.h"
#include "ux/ux_recording_paint_config.h"
#include "view_data_provider.h"

#include <algorithm>
#include <cstdio>
#include <fstream>

namespace {

const char* const table = "kind,day,at,n\na,2024-01-31,2024-01-31 10:00:00,1\nb,2024-02-29,,2.5\n,,,\n"
                          "c,2024-03-01,2024-03-01 23:59:59,-4\n";

void open(DashboardDocument document)
{
    const ViewItemHandlers handlers;
    DashboardBoard board(std::move(document), handlers);
    for (const UXSize& size : {UXSize(640, 400), UXSize(90, 700)}) {
        UXRecordingPaintConfig config;
        PictureSetting setting;
        setting.size = size;
        board.paintPicture(setting, config);
    }
    const std::string saved = board.getDashboard().save();
    const DashboardDocument again = DashboardReader("fuzz").readText(saved);
    require(writeDashboard(again) == saved, "what was saved is saved alike once it was read");
    Dashboard& dashboard = board.getDashboard();
    for (std::size_t i = 0; i < dashboard.getItemCount(); ++i)
        dashboard.choose(i, {});
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    static const std::string data = obtainFuzzPath("_table.csv");
    std::ofstream(data, std::ios::binary) << table;
    DashboardDocument document;
    if (!accepts([&] { document = DashboardReader("fuzz").readText(std::string(bytes, bytes + size)); }))
        return 0;
    const std::string saved = writeDashboard(document);
    require(writeDashboard(DashboardReader("fuzz").readText(saved)) == saved,
            "what was read is saved alike once it was read again");
    document.data = data;
    std::erase_if(document.items, [](const DashboardItem& item) {
        return !item.chart.file.empty() || !item.binding.file.empty();
    });
    for (DashboardItem& item : document.items)
        item.data.clear();
    accepts([&] { open(document); });
    std::filesystem::remove(data);
    return 0;
}
