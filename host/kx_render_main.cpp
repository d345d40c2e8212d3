// kx_render: a chart document, data and a binding become a picture.

#include "chart_data_source.h"
#include "chart_document.h"
#include "chart_picture.h"
#include "command_line.h"
#include "host_error.h"
#include "kx_chart_theme.h"
#include "picture_option.h"
#include "progress_line.h"
#include "sql_data_provider.h"
#include "theme_option.h"
#include "ux/cairo/ux_cairo_install.h"

#include <memory>

namespace {

struct Options {
    std::string chart, data, binding, out;
    std::string theme, size = "1000x600", ground;
    double scale = 1;
    int margin = 12;
};

void declareOptions(CLI::App& app, Options& options)
{
    app.add_option("chart", options.chart, "The chart document, a JSON file")->required();
    app.add_option("-d,--data", options.data,
                   "A CSV file, or a connection: sqlite://FILE, postgresql://..., odbc://...")
        ->required();
    app.add_option("-b,--binding", options.binding,
                   "The JSON file that says which columns are dimensions and measures")
        ->required();
    app.add_option("-o,--out", options.out, "The picture: a file that ends in .png, .svg or .pdf")
        ->required();
    app.add_option("-s,--size", options.size, "Width x height in logical units")->capture_default_str();
    app.add_option("--scale", options.scale, "Pixels per logical unit in a PNG")->capture_default_str();
    app.add_option("-m,--margin", options.margin, "Logical units of ground around the chart")
        ->capture_default_str();
    app.add_option("-t,--theme", options.theme,
                   "The look of what the document leaves as it is made: light, dark, high-contrast, "
                   "color-blind-light, color-blind-dark, or a theme document, a JSON file");
    app.add_option("-g,--ground", options.ground,
                   "What the chart stands on: #rrggbb, #rrggbbaa or none; the theme's, or white");
    app.footer(
        "Examples:\n"
        "  kx_render samples/employment.chart.json -d samples/data/us-employment.csv \\\n"
        "      -b samples/employment.binding.json -o employment.png --scale 2\n"
        "  kx_render sales.chart.json -d postgresql://localhost/sales -b sales.binding.json -o sales.svg\n\n"
        "Exit codes: 0 done, 2 bad input (one line on stderr says what; no file is touched).");
}

void render(const Options& options)
{
    const std::unique_ptr<KXChartTheme> theme = readThemeOption(options.theme);
    PictureSetting setting = {readSizeOption(options.size), readMarginOption(options.margin),
                              readScaleOption(options.scale)};
    if (!options.ground.empty())
        setting.ground = readColorOption(options.ground);
    else if (theme)
        setting.ground = theme->getGround();
    obtainPictureFormat(options.out);
    uxCairoInstall();
    ChartDocument document(options.chart);
    document.tellUnknownKeys();
    if (theme)
        kxApplyTheme(document.getChart(), nullptr, theme.get());
    ProgressLine progress("reading " + options.data);
    ChartDataSource source(options.data, options.binding,
                           [&](std::uint64_t done, std::uint64_t total) { progress.show(done, total); });
    document.loadData(&source.getProvider());
    if (!source.getProvider().getError().empty())
        throw std::runtime_error(source.getProvider().getError());
    writeChartPicture(document.getChart(), setting, options.out);
}

} // namespace

int main(int argc, char** argv)
{
    CLI::App app("Renders a chart document over data to a picture.", "kx_render");
    Options options;
    declareOptions(app, options);
    return runCommandLine(app, argc, argv, [&] { render(options); });
}
