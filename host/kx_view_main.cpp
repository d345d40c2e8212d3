// kx_view: chart documents over their data, or a dashboard of them, in a window.

#include "chart_sample.h"
#include "command_line.h"
#include "dashboard_board.h"
#include "dashboard_reader.h"
#include "host_error.h"
#include "kx_chart_theme.h"
#include "picture_option.h"
#include "progress_line.h"
#include "theme_option.h"
#include "ux/cairo/ux_cairo_install.h"
#include "view_board.h"
#include "view_data_provider.h"
#include "whole_file.h"
#include "window/view_window.h"

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace {

struct Options {
    std::vector<std::string> charts;
    std::string data, binding, save, theme;
    std::string size = "1000x640";
    double scale = 0; // 0 for the display's own
    bool reducesMotion = false, logsPaints = false, logsActions = false, runsRightToLeft = false;
    std::string dump;
};

void declareOptions(CLI::App& app, Options& options)
{
    app.add_option("charts", options.charts, "Chart documents, or one dashboard, JSON files")->required();
    CLI::Option* data = app.add_option("-d,--data", options.data,
                                       "A CSV file or a connection, instead of what gallery.json names");
    CLI::Option* binding = app.add_option("-b,--binding", options.binding,
                                          "The binding of that data to all the charts");
    data->needs(binding);
    binding->needs(data);
    app.add_option("--save", options.save,
                   "The file that Ctrl+S saves a dashboard with its choices to, instead of its own");
    app.add_option("-s,--size", options.size, "Width x height of the window in logical units")
        ->capture_default_str();
    app.add_option("--scale", options.scale, "Pixels per logical unit, instead of the display's own");
    app.add_option("-t,--theme", options.theme,
                   "The look to begin with: light, dark, high-contrast, color-blind-light, color-blind-dark, "
                   "or a theme document, a JSON file");
    app.add_flag("--rtl", options.runsRightToLeft, "Mirror what no document gives a direction");
    app.add_flag("--reduce-motion", options.reducesMotion, "Jump where the board would glide");
    app.add_flag("--log-paints", options.logsPaints, "Print each painted area, in pixels");
    app.add_flag("--log-actions", options.logsActions, "Print what is clicked and copied");
    app.add_option("--dump", options.dump, "The PNG file that F12 and SIGUSR1 write the picture to");
    app.footer(
        "Examples:\n"
        "  kx_view samples/employment.chart.json samples/gauge-wind.chart.json\n"
        "  kx_view sales.chart.json -d postgresql://localhost/sales -b sales.binding.json\n"
        "  kx_view samples/strikes.dashboard.json --size 1280x800\n\n"
        "Keys: Tab moves between the charts and their legends and buttons, Enter clicks, Shift+F10 opens\n"
        "the menu, Escape closes hints; "
        "Ctrl with plus, minus, 0 or the wheel zooms; Ctrl+T changes the theme; Ctrl+S saves a dashboard;\n"
        "Ctrl+Q quits.\n\n"
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

std::unique_ptr<ViewBoard> openBoard(const Options& options, const ViewItemHandlers& handlers)
{
    ProgressLine progress("reading " + options.charts[0]);
    const bool namesData = !options.data.empty();
    if (options.charts.size() == 1 && !namesData && DashboardReader(options.charts[0]).isDashboard())
        return std::make_unique<DashboardBoard>(
            DashboardReader(options.charts[0]).readFile(), handlers,
            [&](std::uint64_t done, std::uint64_t total) { progress.show(done, total); });
    auto board = std::make_unique<ViewBoard>();
    for (const std::string& chart : options.charts)
        board->openSample(namesData ? ChartSample{"", chart, options.binding, options.data}
                                    : findChartSample(chart),
                          handlers);
    return board;
}

void saveDashboard(const Options& options, const Dashboard& dashboard)
{
    const std::string path = options.save.empty() ? options.charts[0] : options.save;
    try {
        writeWholeFile(path, dashboard.save());
        logAction(options, "save", path);
    } catch (const HostError& error) {
        // What is chosen is not lost by this: the window stays.
        std::fprintf(stderr, "kx_view: %s\n", error.what());
    }
}

void view(const Options& options)
{
    const ViewWindowSetting setting = readSetting(options);
    const std::unique_ptr<KXChartTheme> theme = readThemeOption(options.theme);
    uxCairoInstall();
    ViewItemHandlers handlers;
    const std::unique_ptr<ViewBoard> board = openBoard(options, handlers);
    if (theme)
        board->takeTheme(theme.get());
    if (options.runsRightToLeft && board->getDiagram().getDirection() == UXDirection::AsParent)
        board->getDiagram().setDirection(UXDirection::RightToLeft);
    ViewWindow window(*board, setting);
    handlers.itemClicked = [&](const std::string& text) {
        logAction(options, "click", text);
        window.setTitle(text);
    };
    handlers.copyRequested = [&](const std::string& text) {
        logAction(options, "copy", text);
        window.copyToClipboard(text);
    };
    if (auto* dashboard = dynamic_cast<DashboardBoard*>(board.get()))
        window.setSaveHandler([&] { saveDashboard(options, dashboard->getDashboard()); });
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
