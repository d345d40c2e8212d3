// kx_render: a chart document, data and a binding become a picture, or a dashboard with all of its charts.

#include "chart_document.h"
#include "chart_picture.h"
#include "chart_sample.h"
#include "command_line.h"
#include "dashboard.h"
#include "dashboard_reader.h"
#include "diagnostic_text.h"
#include "host_error.h"
#include "kx_chart.h"
#include "kx_chart_diagnostic.h"
#include "kx_chart_property.h"
#include "kx_chart_theme.h"
#include "look_check.h"
#include "opened_sample.h"
#include "picture_option.h"
#include "progress_line.h"
#include "theme_option.h"
#include "ux/cairo/ux_cairo_install.h"
#include "ux/ux_accessible_node.h"
#include "ux/ux_accessible_text.h"
#include "ux/ux_recording_paint_config.h"
#include "view_data_provider.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>

namespace {

struct Options {
    std::string chart, data, binding, out;
    std::string theme, size = "1000x600", ground;
    double scale = 1;
    int margin = 12;
    bool isAccessible = false, writesTree = false, writesSummary = false, writesDiagnostics = false;
    bool runsRightToLeft = false, checksLook = false;

    bool hasWords() const { return writesTree || writesSummary || writesDiagnostics; }
};

void declareOptions(CLI::App& app, Options& options)
{
    app.add_option("chart", options.chart, "The chart document or the dashboard, a JSON file")->required();
    app.add_option("-d,--data", options.data,
                   "A CSV file, or a connection: sqlite://FILE, postgresql://..., odbc://...");
    app.add_option("-b,--binding", options.binding,
                   "The JSON file that says which columns are dimensions and measures");
    CLI::Option* out = app.add_option("-o,--out", options.out,
                                      "The picture: a file that ends in .png, .svg or .pdf");
    app.add_flag(
           "--check", options.checksLook,
           "Instead of painting, print how well the colours of the document, in the theme, are read and "
           "told apart by all eyes, and the nearest ones that would be")
        ->excludes(out);
    app.add_option("-s,--size", options.size, "Width x height in logical units")->capture_default_str();
    app.add_option("--scale", options.scale, "Pixels per logical unit in a PNG")->capture_default_str();
    app.add_option("-m,--margin", options.margin, "Logical units of ground around the chart")
        ->capture_default_str();
    app.add_option("-t,--theme", options.theme,
                   "The look of what the document leaves as it is made: light, dark, high-contrast, "
                   "color-blind-light, color-blind-dark, or a theme document, a JSON file");
    app.add_option("-g,--ground", options.ground,
                   "What the chart stands on: #rrggbb, #rrggbbaa or none; the theme's, or white");
    app.add_flag("--accessible", options.isAccessible,
                 "An SVG says what it shows to those who do not see it: titles, roles and labels");
    app.add_flag("--tree", options.writesTree, "Print what those hear who do not see it, a node a line");
    app.add_flag("--summary", options.writesSummary, "Print what each chart shows, in sentences");
    app.add_flag("--diagnose", options.writesDiagnostics,
                 "Print what is not seen in full, shortened or left out, and why, one a line");
    app.add_flag("--rtl", options.runsRightToLeft,
                 "Mirror what the document does not give a direction, for readers from right to left");
    app.footer(
        "Examples:\n"
        "  kx_render samples/employment.chart.json -d samples/data/us-employment.csv \\\n"
        "      -b samples/employment.binding.json -o employment.png --scale 2\n"
        "  kx_render sales.chart.json -d postgresql://localhost/sales -b sales.binding.json -o sales.svg\n"
        "  kx_render samples/strikes.dashboard.json -s 1280x800 -o strikes.pdf\n\n"
        "Exit codes: 0 done, 2 bad input (one line on stderr says what; no file is touched).");
}

/** Prints what was asked for of the sample, as it was painted last. */
void writeWords(const Options& options, const OpenedSample& sample)
{
    for (KXChart* chart : sample.obtainCharts()) {
        if (options.writesSummary)
            std::printf("%s\n", chart->summary().c_str());
        if (options.writesDiagnostics)
            for (const KXChartDiagnostic& diagnostic : chart->diagnostics())
                std::printf("%s\n", writeDiagnostic(diagnostic).c_str());
    }
    if (options.writesTree)
        std::fputs(uxWriteAccessibleTree(*sample.createAccessibleNode()).c_str(), stdout);
}

void printLook(const std::string& name, KXChart& chart, const KXChartTheme* theme)
{
    if (theme)
        kxApplyTheme(chart, nullptr, theme);
    for (const std::string& line : checkLook(chart))
        std::printf("%s: %s\n", name.c_str(), line.c_str());
}

/** The look of a chart needs no data; a dashboard names its own. */
void check(const Options& options, const KXChartTheme* theme)
{
    uxCairoInstall();
    if (!DashboardReader(options.chart).isDashboard()) {
        printLook(options.chart, ChartDocument(options.chart).getChart(), theme);
        return;
    }
    const ViewItemHandlers noHandlers;
    const Dashboard dashboard(DashboardReader(options.chart).readFile(), noHandlers);
    for (std::size_t i = 0; i < dashboard.getItemCount(); ++i)
        printLook(dashboard.getChart(i).getChartProperty()->getTitleValue(), dashboard.getChart(i), theme);
}

void render(const Options& options)
{
    const std::unique_ptr<KXChartTheme> theme = readThemeOption(options.theme);
    if (options.checksLook) {
        check(options, theme.get());
        return;
    }
    PictureSetting setting = {readSizeOption(options.size), readMarginOption(options.margin),
                              readScaleOption(options.scale)};
    if (!options.ground.empty())
        setting.ground = readColorOption(options.ground);
    else if (theme)
        setting.ground = theme->getGround();
    if (!options.out.empty())
        obtainPictureFormat(options.out);
    else if (!options.hasWords())
        throw HostError("--out", "", "is needed, or --check, --tree, --summary or --diagnose");
    uxCairoInstall();
    const bool isDashboard = DashboardReader(options.chart).isDashboard();
    if (isDashboard != options.data.empty() || isDashboard != options.binding.empty())
        throw HostError(options.chart, "",
                        isDashboard ? "is a dashboard, which names its data itself"
                                    : "needs --data and --binding");
    const OpenedSample sample = [&] {
        ProgressLine progress("reading " + (isDashboard ? options.chart : options.data));
        return OpenedSample({"", options.chart, options.binding, options.data},
                            [&](std::uint64_t done, std::uint64_t total) { progress.show(done, total); });
    }();
    if (theme)
        sample.takeTheme(*theme);
    if (options.runsRightToLeft)
        sample.setRightToLeft();
    if (options.out.empty()) {
        UXRecordingPaintConfig config(setting.scale);
        sample.paint(setting, config);
    } else {
        const PictureReader read = [&] { return sample.createAccessibleNode(); };
        writePicture(sample.obtainPainter(), setting, options.out,
                     options.isAccessible ? read : PictureReader());
    }
    writeWords(options, sample);
}

} // namespace

int main(int argc, char** argv)
{
    CLI::App app("Renders a chart document over data, or a dashboard, to a picture.", "kx_render");
    Options options;
    declareOptions(app, options);
    return runCommandLine(app, argc, argv, [&] { render(options); });
}
