// kx_view: chart documents over their data, in a window.

#include "chart_sample.h"
#include "command_line.h"
#include "picture_option.h"
#include "ux/cairo/ux_cairo_install.h"
#include "view_board.h"
#include "view_data_provider.h"
#include "window/view_window.h"

#include <cstdio>
#include <filesystem>

namespace {

struct Options {
    std::vector<std::string> charts;
    std::string data, binding;
    std::string size = "1000x640";
    double scale = 0; // 0 for the display's own
    bool reducesMotion = false, logsPaints = false, logsActions = false;
    std::string dump;
};

void declareOptions(CLI::App& app, Options& options)
{
    app.add_option("charts", options.charts, "Chart documents, JSON files")->required();
    CLI::Option* data = app.add_option("-d,--data", options.data,
                                       "A CSV file or a connection, instead of what gallery.json names");
    CLI::Option* binding = app.add_option("-b,--binding", options.binding,
                                          "The binding of that data to all the charts");
    data->needs(binding);
    binding->needs(data);
    app.add_option("-s,--size", options.size, "Width x height of the window in logical units")
        ->capture_default_str();
    app.add_option("--scale", options.scale, "Pixels per logical unit, instead of the display's own");
    app.add_flag("--reduce-motion", options.reducesMotion, "Jump where the board would glide");
    app.add_flag("--log-paints", options.logsPaints, "Print each painted area, in pixels");
    app.add_flag("--log-actions", options.logsActions, "Print what is clicked and copied");
    app.add_option("--dump", options.dump, "The PNG file that F12 and SIGUSR1 write the picture to");
    app.footer(
        "Examples:\n"
        "  kx_view samples/employment.chart.json samples/gauge-wind.chart.json\n"
        "  kx_view sales.chart.json -d postgresql://localhost/sales -b sales.binding.json\n\n"
        "Keys: Tab moves between the charts and their legends and buttons, Enter clicks, Shift+F10 opens\n"
        "the menu, Escape closes hints; "
        "Ctrl with plus, minus, 0 or the wheel zooms; Ctrl+Q quits.\n\n"
        "Exit codes: 0 closed by its user, 2 bad input or no display (one line on stderr says what).");
}

ViewWindowSetting readSetting(const Options& options)
{
    ViewWindowSetting setting;
    const std::string first = std::filesystem::path(options.charts[0]).filename().string();
    setting.title = options.charts.size() == 1 ? first : std::to_string(options.charts.size()) + " charts";
    setting.size = readSizeOption(options.size);
    if (options.scale != 0)
        setting.scale = readScaleOption(options.scale);
    setting.reducesMotion = options.reducesMotion;
    setting.logsPaints = options.logsPaints;
    setting.dump = options.dump;
    return setting;
}

void logAction(const Options& options, const char* what, const std::string& text)
{
    if (!options.logsActions)
        return;
    std::printf("%s %s\n", what, text.c_str());
    std::fflush(stdout);
}

void view(const Options& options)
{
    const ViewWindowSetting setting = readSetting(options);
    uxCairoInstall();
    ViewItemHandlers handlers;
    ViewBoard board;
    for (const std::string& chart : options.charts)
        board.openSample(options.data.empty() ? findChartSample(chart)
                                              : ChartSample{"", chart, options.binding, options.data},
                         handlers);

    ViewWindow window(board, setting);
    handlers.itemClicked = [&](const std::string& text) {
        logAction(options, "click", text);
        window.setTitle(text);
    };
    handlers.copyRequested = [&](const std::string& text) {
        logAction(options, "copy", text);
        window.copyToClipboard(text);
    };
    window.run();
}

} // namespace

int main(int argc, char** argv)
{
    CLI::App app("Shows chart documents over their data in a window.", "kx_view");
    Options options;
    declareOptions(app, options);
    return runCommandLine(app, argc, argv, [&] { view(options); });
}
