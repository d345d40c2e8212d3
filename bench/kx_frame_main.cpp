#include "frame_clock.h"
#include "gauge_board.h"
#include "ux/cairo/ux_cairo_image_paint_config.h"
#include "ux/cairo/ux_cairo_install.h"
#include "value_board.h"

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <optional>
#include <string>

// kx_frame ITEM SIZE OUT paints one item of the comparison of chart libraries, writes it to OUT as PNG and
// prints what that took as one line of JSON. BENCH_T0 tells when the process was started, in ms of the
// monotonic clock.

namespace {

constexpr int width = 1000, height = 600, smallWidth = 900, smallHeight = 500;
/** What slow steps may take altogether, in milliseconds. */
constexpr double repaintLimit = 6000, changeLimit = 3000;

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

/** A board with the image that it is painted on. */
template <class Board>
class BoardFrame {
public:
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

template <class Board>
int runBoard(const Start& start, const std::string& item, const std::string& path)
{
    const double before = frame_clock::now(), cpuBefore = frame_clock::cpu();
    uxCairoInstall();
    const auto frame = std::make_unique<BoardFrame<Board>>();
    frame->resize({width, height});
    const double first = frame_clock::now() - before, firstCpu = frame_clock::cpu() - cpuBefore;

    const frame_clock::Cost warm = frame_clock::measure([&](int) { frame->paint(); }, repaintLimit);
    const double peak = frame_clock::peakMemory();
    const frame_clock::Cost update = frame_clock::measure([&](int) { frame->update(); }, changeLimit);
    const frame_clock::Cost resize = frame_clock::measure(
        [&](int i) { frame->resize(i % 2 ? UXSize(width, height) : UXSize(smallWidth, smallHeight)); },
        changeLimit);

    frame->resize({width, height});
    if (!frame->save(path)) {
        std::fprintf(stderr, "%s: cannot be written\n", path.c_str());
        return 2;
    }
    std::printf("{\"item\":\"%s\",\"size\":0,\"start_ms\":%.3f,\"start_cpu_ms\":%.3f,\"first_ms\":%.3f,"
                "\"first_cpu_ms\":%.3f,\"warm_ms\":%.4f,\"warm_cpu_ms\":%.4f,\"reps\":%d,\"peak_mb\":%.1f,"
                "\"update_ms\":%.4f,\"update_cpu_ms\":%.4f,\"resize_ms\":%.4f,\"resize_cpu_ms\":%.4f}\n",
                item.c_str(), start.wall, start.cpu, first, firstCpu, warm.wall, warm.cpu, warm.repeats, peak,
                update.wall, update.cpu, resize.wall, resize.cpu);
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
    const std::string item = argv[1];
    if (item == "kpi")
        return runBoard<ValueBoard>(start, item, argv[3]);
    if (item == "gauge")
        return runBoard<GaugeBoard>(start, item, argv[3]);
    std::printf("{\"skip\":\"no such chart\"}\n");
    return 0;
}
