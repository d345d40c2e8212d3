#include "bar_board.h"
#include "dash_frame.h"
#include "frame.h"
#include "frame_clock.h"
#include "gauge_board.h"
#include "heat_board.h"
#include "kpi_board.h"
#include "kx_area_chart.h"
#include "kx_line_bar_chart.h"
#include "kx_line_chart.h"
#include "kx_waterfall_chart.h"
#include "line_board.h"
#include "list_board.h"
#include "pie_board.h"
#include "scatter_board.h"
#include "table_board.h"
#include "tree_board.h"
#include "ux/cairo/ux_cairo_install.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <memory>
#include <string>
#include <vector>

// kx_frame ITEM SIZE OUT paints one item of the comparison of chart libraries, writes it to OUT as PNG and
// prints what that took as one line of JSON. BENCH_T0 tells when the process was started, in ms of the
// monotonic clock.

namespace {

constexpr int width = 1000, height = 600, smallWidth = 900, smallHeight = 500;
/** What slow steps may take altogether, in milliseconds. */
constexpr double repaintLimit = 6000, changeLimit = 3000;

/** @return the first numbers of a file of the comparison, which BENCH_DATA says where to find; none where
 * they cannot be read */
std::vector<double> readNumbers(const std::string& name, long count)
{
    const char* directory = std::getenv("BENCH_DATA");
    const std::string path = std::string(directory ? directory : "data") + "/" + name;
    std::vector<double> numbers(static_cast<std::size_t>(std::max(count, 0L)));
    std::ifstream file(path, std::ios::binary);
    file.read(reinterpret_cast<char*>(numbers.data()),
              static_cast<std::streamsize>(numbers.size() * sizeof(double)));
    if (!file || numbers.empty()) {
        std::fprintf(stderr, "%s: cannot be read\n", path.c_str());
        return {};
    }
    return numbers;
}

/** What a process took until it came to main. */
struct Start {
    double wall = 0, cpu = 0;
};

Start readStart()
{
    const double cpu = frame_clock::cpu();
    const char* begin = std::getenv("BENCH_T0");
    return {begin ? frame_clock::now() - std::atof(begin) : 0, cpu};
}

struct Command {
    std::string item;
    long size = 0;
    std::string path;
};

/** Where the pointer is taken to: all over the picture, the same way in each run. */
class Pointer {
public:
    UXPoint next() { return {_next(150, 850), _next(120, 500)}; }
    /** @return a point near the feet of bars, where each category has its own */
    UXPoint nextOnMark() { return {_next(150, 850), 530}; }

private:
    int _next(int low, int high)
    {
        m_state = m_state * 1664525U + 1013904223U;
        return low + static_cast<int>((high - low) * ((m_state >> 8) / 16777216.0));
    }

    std::uint32_t m_state = 12345;
};

void printPointerCosts(Frame& frame)
{
    Pointer pointer;
    double pixels = 0;
    int hits = 0;
    const frame_clock::Cost hit = frame_clock::measure(
        [&](int) { hits += frame.hit(pointer.next()) ? 1 : 0; }, changeLimit);
    // The first mark dims all others; what is measured is the way from mark to mark.
    frame.hover(pointer.nextOnMark());
    const frame_clock::Cost hover = frame_clock::measure(
        [&](int) { pixels += frame.hover(pointer.nextOnMark()); }, changeLimit);
    std::printf(",\"hit_ms\":%.5f,\"hits\":%d,\"hover_ms\":%.4f,\"hover_cpu_ms\":%.4f,\"hover_share\":%.4f",
                hit.wall, hits, hover.wall, hover.cpu, pixels / hover.repeats / (width * height));
}

bool save(const UXImage& image, const std::string& path)
{
    UXCairoImagePaintConfig config{UXDoubleSize(image.getSize())};
    UXPainter* painter = uxCreatePainter(&config);
    painter->drawImage(&image, UXDoublePoint(), 1);
    uxDestroyPainter(painter);
    return config.writePng(path);
}

/** The sizes that a picture is shown at in turns. */
struct Sizes {
    UXSize usual = {width, height}, small = {smallWidth, smallHeight};
};

/** @param makeFrame makes what is measured */
int run(const Start& start, const Command& command, const Sizes& sizes,
        const std::function<std::unique_ptr<Frame>()>& makeFrame)
{
    const double before = frame_clock::now(), cpuBefore = frame_clock::cpu();
    uxCairoInstall();
    const std::unique_ptr<Frame> frame = makeFrame();
    frame->resize(sizes.usual);
    const double first = frame_clock::now() - before, firstCpu = frame_clock::cpu() - cpuBefore;

    const frame_clock::Cost warm = frame_clock::measure([&](int) { frame->paint(); }, repaintLimit);
    const double peak = frame_clock::peakMemory();
    const std::function<void()> replayFrame = frame->makeReplay();
    const frame_clock::Cost replay = frame_clock::measure([&](int) { replayFrame(); }, repaintLimit);
    const frame_clock::Cost update = frame_clock::measure([&](int) { frame->update(); }, changeLimit);
    const frame_clock::Cost resize = frame_clock::measure(
        [&](int i) { frame->resize(i % 2 ? sizes.usual : sizes.small); }, changeLimit);

    frame->resize(sizes.usual);
    if (!save(frame->obtainImage(), command.path)) {
        std::fprintf(stderr, "%s: cannot be written\n", command.path.c_str());
        return 2;
    }
    std::printf("{\"item\":\"%s\",\"size\":%ld,\"start_ms\":%.3f,\"start_cpu_ms\":%.3f,\"first_ms\":%.3f,"
                "\"first_cpu_ms\":%.3f,\"warm_ms\":%.4f,\"warm_cpu_ms\":%.4f,\"reps\":%d,\"peak_mb\":%.1f,"
                "\"replay_ms\":%.4f,\"replay_cpu_ms\":%.4f,\"update_ms\":%.4f,\"update_cpu_ms\":%.4f,"
                "\"resize_ms\":%.4f,\"resize_cpu_ms\":%.4f",
                command.item.c_str(), command.size, start.wall, start.cpu, first, firstCpu, warm.wall,
                warm.cpu, warm.repeats, peak, replay.wall, replay.cpu, update.wall, update.cpu, resize.wall,
                resize.cpu);
    if (frame->hasPointer())
        printPointerCosts(*frame);
    if (frame->canScroll()) {
        const frame_clock::Cost scroll = frame_clock::measure([&](int i) { frame->scroll(i); }, changeLimit);
        std::printf(",\"scroll_ms\":%.4f,\"scroll_cpu_ms\":%.4f", scroll.wall, scroll.cpu);
    }
    std::printf("}\n");
    return 0;
}

template <class Board>
std::unique_ptr<Frame> makeBoard()
{
    return std::make_unique<BoardFrame<Board>>();
}

/** @return the values of seriesCount series of that many categories each */
std::vector<double> readBars(long categoryCount, std::size_t seriesCount)
{
    return readNumbers(seriesCount > 1 ? "bar36.f64" : "bar.f64",
                       categoryCount * static_cast<long>(seriesCount));
}

template <class Chart>
int runBars(const Start& start, const Command& command, std::size_t seriesCount)
{
    const std::vector<double> values = readBars(command.size, seriesCount);
    if (values.empty())
        return 3;
    return run(start, command, {},
               [&] { return std::make_unique<BoardFrame<BarBoardOf<Chart>>>(values, seriesCount); });
}

template <class Chart>
int runLines(const Start& start, const Command& command, const std::vector<double>& values,
             std::size_t seriesCount, const std::string& title)
{
    if (values.empty())
        return 3;
    return run(start, command, {},
               [&] { return std::make_unique<BoardFrame<LineBoard<Chart>>>(values, seriesCount, title); });
}

std::vector<double> readAreas(long categoryCount)
{
    std::vector<double> all;
    for (const char* name : {"area0.f64", "area1.f64", "area2.f64"}) {
        const std::vector<double> values = readNumbers(name, categoryCount);
        if (values.empty())
            return {};
        all.insert(all.end(), values.begin(), values.end());
    }
    return all;
}

int runScatter(const Start& start, const Command& command)
{
    std::vector<double> places = readNumbers("scx.f64", command.size);
    const std::vector<double> along = readNumbers("scy.f64", command.size);
    if (places.empty() || along.empty())
        return 3;
    places.insert(places.end(), along.begin(), along.end());
    return run(start, command, {}, [&] { return std::make_unique<BoardFrame<ScatterBoard>>(places); });
}

int runTree(const Start& start, const Command& command)
{
    const std::vector<double> values = readNumbers("tree.f64", command.size);
    if (values.empty())
        return 3;
    return run(start, command, {}, [&] { return std::make_unique<BoardFrame<TreeBoard>>(values); });
}

int runHeat(const Start& start, const Command& command)
{
    const std::vector<double> values = readNumbers("heat" + std::to_string(command.size) + ".f64",
                                                   command.size * command.size);
    if (values.empty())
        return 3;
    return run(start, command, {}, [&] {
        return std::make_unique<BoardFrame<HeatBoard>>(values, static_cast<std::uint64_t>(command.size),
                                                       true);
    });
}

int runTable(const Start& start, const Command& command)
{
    const auto rowCount = static_cast<std::uint64_t>(std::max(command.size, 100L));
    return run(start, command, {}, [&] { return std::make_unique<BoardFrame<TableBoard>>(rowCount); });
}

int runDash(const Start& start, const Command& command)
{
    constexpr long count = long{DashFrame::chartCount} * DashFrame::pointCount;
    const std::vector<double> groups = readBars(12, 3), line = readNumbers("line.f64", count),
                              along = readNumbers("scx.f64", count), up = readNumbers("scy.f64", count);
    if (groups.empty() || line.empty() || along.empty() || up.empty())
        return 3;
    return run(start, command, {{400, 300}, {360, 250}},
               [&] { return std::make_unique<DashFrame>(groups, line, along, up); });
}

} // namespace

int main(int argc, char** argv)
{
    const Start start = readStart();
    if (argc != 4) {
        std::fprintf(stderr, "usage: kx_frame ITEM SIZE OUT.png\n");
        return 2;
    }
    const Command command{argv[1], std::atol(argv[2]), argv[3]};
    if (command.item == "kpi")
        return run(start, command, {}, [&] {
            return std::make_unique<BoardFrame<KpiBoard>>(
                static_cast<std::size_t>(std::max(command.size, 0L)));
        });
    if (command.item == "gauge")
        return run(start, command, {}, makeBoard<GaugeBoard>);
    if (command.item == "pie")
        return run(start, command, {}, makeBoard<PieBoard>);
    if (command.item == "bars" || command.item == "bars3")
        return runBars<KXBarChart>(start, command, command.item == "bars" ? 1 : 3);
    if (command.item == "waterfall")
        return runBars<KXWaterfallChart>(start, command, 1);
    if (command.item == "line")
        return runLines<KXLineChart>(start, command, readNumbers("line.f64", command.size), 1, "Line");
    if (command.item == "area")
        return runLines<KXAreaChart>(start, command, readAreas(command.size), 3, "Areas");
    if (command.item == "combo")
        return runLines<KXLineBarChart>(start, command, readNumbers("combo.f64", 2 * command.size), 2,
                                        "Combination");
    if (command.item == "list")
        return run(start, command, {{240, 600}, {216, 500}}, [&] {
            return std::make_unique<BoardFrame<ListBoard>>(
                static_cast<std::uint64_t>(std::max(command.size, 0L)));
        });
    if (command.item == "scatter")
        return runScatter(start, command);
    if (command.item == "tree")
        return runTree(start, command);
    if (command.item == "heat")
        return runHeat(start, command);
    if (command.item == "table")
        return runTable(start, command);
    if (command.item == "dash")
        return runDash(start, command);
    std::printf("{\"skip\":\"no such chart\"}\n");
    return 0;
}
