#include "bar_board.h"
#include "frame_clock.h"
#include "gauge_board.h"
#include "ux/cairo/ux_cairo_image_paint_config.h"
#include "ux/cairo/ux_cairo_install.h"
#include "value_board.h"

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <optional>
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

/** A board with the image that it is painted on. */
template <class Board>
class BoardFrame {
public:
    template <class... Arguments>
    explicit BoardFrame(const Arguments&... arguments) : m_board(arguments...)
    {
    }
    void resize(const UXSize& size)
    {
        m_image.emplace(UXDoubleSize(size));
        m_board.layout(size.width, size.height);
        paint();
    }
    void paint() { m_board.paint(*m_image); }
    void update()
    {
        m_board.reload();
        paint();
    }
    bool save(const std::string& path) const { return m_image->writePng(path); }

private:
    Board m_board;
    std::optional<UXCairoImagePaintConfig> m_image;
};

/** @param arguments what the board is made of */
template <class Board, class... Arguments>
int runBoard(const Start& start, const Command& command, const Arguments&... arguments)
{
    const double before = frame_clock::now(), cpuBefore = frame_clock::cpu();
    uxCairoInstall();
    const auto frame = std::make_unique<BoardFrame<Board>>(arguments...);
    frame->resize({width, height});
    const double first = frame_clock::now() - before, firstCpu = frame_clock::cpu() - cpuBefore;

    const frame_clock::Cost warm = frame_clock::measure([&](int) { frame->paint(); }, repaintLimit);
    const double peak = frame_clock::peakMemory();
    const frame_clock::Cost update = frame_clock::measure([&](int) { frame->update(); }, changeLimit);
    const frame_clock::Cost resize = frame_clock::measure(
        [&](int i) { frame->resize(i % 2 ? UXSize(width, height) : UXSize(smallWidth, smallHeight)); },
        changeLimit);

    frame->resize({width, height});
    if (!frame->save(command.path)) {
        std::fprintf(stderr, "%s: cannot be written\n", command.path.c_str());
        return 2;
    }
    std::printf("{\"item\":\"%s\",\"size\":%ld,\"start_ms\":%.3f,\"start_cpu_ms\":%.3f,\"first_ms\":%.3f,"
                "\"first_cpu_ms\":%.3f,\"warm_ms\":%.4f,\"warm_cpu_ms\":%.4f,\"reps\":%d,\"peak_mb\":%.1f,"
                "\"update_ms\":%.4f,\"update_cpu_ms\":%.4f,\"resize_ms\":%.4f,\"resize_cpu_ms\":%.4f}\n",
                command.item.c_str(), command.size, start.wall, start.cpu, first, firstCpu, warm.wall,
                warm.cpu, warm.repeats, peak, update.wall, update.cpu, resize.wall, resize.cpu);
    return 0;
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
        return runBoard<ValueBoard>(start, command);
    if (command.item == "gauge")
        return runBoard<GaugeBoard>(start, command);
    if (command.item == "bars" || command.item == "bars3") {
        const bool isGrouped = command.item == "bars3";
        const std::size_t seriesCount = isGrouped ? 3 : 1;
        const auto values = readNumbers(isGrouped ? "bar36.f64" : "bar.f64",
                                        command.size * static_cast<long>(seriesCount));
        if (values.empty())
            return 3;
        return runBoard<BarBoard>(start, command, values, seriesCount);
    }
    std::printf("{\"skip\":\"no such chart\"}\n");
    return 0;
}
