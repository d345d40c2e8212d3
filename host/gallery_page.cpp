#include "gallery_page.h"

#include "chart_sample.h"

#include <array>
#include <cstdio>
#include <filesystem>
#include <string_view>

namespace {

constexpr const char* head = R"(<!DOCTYPE html>
<html lang="en">
<meta charset="utf-8">
<meta name="viewport" content="width=device-width">
<title>libkxcharts gallery</title>
<style>
body { font: 15px/1.5 sans-serif; color: #333; background: #f4f5f7; margin: 2rem auto; max-width: 1100px; padding: 0 1rem }
section { background: #fff; border: 1px solid #e1e3e8; border-radius: 6px; padding: 1rem; margin: 1.5rem 0 }
h2 { font-size: 1.1rem; margin: 0 }
p { margin: .2rem 0 .8rem; color: #666 }
img { border: 1px solid #e1e3e8; max-width: 100%; vertical-align: top }
</style>
<h1>Gallery</h1>
)";

std::string escapeHtml(const std::string& text)
{
    std::string escaped;
    for (const char letter : text) {
        if (letter == '<')
            escaped += "&lt;";
        else if (letter == '>')
            escaped += "&gt;";
        else if (letter == '&')
            escaped += "&amp;";
        else if (letter == '"')
            escaped += "&quot;";
        else
            escaped += letter;
    }
    return escaped;
}

/** @return the name of a file as a link to it from beside it */
std::string encodeLink(const std::string& file)
{
    std::string link;
    for (const char c : file) {
        const bool isPlain = (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') ||
                             std::string_view("-_.").find(c) != std::string_view::npos;
        std::array<char, 4> code{};
        std::snprintf(code.data(), code.size(), "%%%02X", static_cast<unsigned>(c) & 0xffU);
        link += isPlain ? std::string(1, c) : std::string(code.data());
    }
    return link;
}

} // namespace

std::span<const GalleryPicture> obtainGalleryPictures(const ChartSample& sample)
{
    static constexpr GalleryPicture ofCharts[] = {
        {"", {1000, 600}}, {"-medium", {480, 320}}, {"-small", {240, 160}}, {"-tiny", {160, 120}}};
    static constexpr GalleryPicture ofDashboards[] = {{"", {1280, 800}}, {"-medium", {800, 500}}};
    return sample.isDashboard() ? std::span<const GalleryPicture>(ofDashboards) : ofCharts;
}

void GalleryPage::addSample(const ChartSample& sample, const std::string& caption)
{
    const std::string data = std::filesystem::path(sample.data).filename().string();
    m_samples.push_back({encodeLink(sample.name), escapeHtml(sample.name), escapeHtml(caption),
                         escapeHtml(data), obtainGalleryPictures(sample)});
}

std::string GalleryPage::obtainHtml() const
{
    std::string html = head;
    for (const Sample& sample : m_samples) {
        html += "<section>\n<h2>" + sample.caption + "</h2>\n<p>" + sample.name +
                (sample.data.empty() ? "" : ", from " + sample.data) + " (<a href=\"" + sample.link +
                ".svg\">SVG</a>)</p>\n";
        for (const GalleryPicture& picture : sample.pictures)
            html += "<img src=\"" + sample.link + picture.suffix + ".png\" width=\"" +
                    std::to_string(picture.size.width) + "\" height=\"" +
                    std::to_string(picture.size.height) + "\" alt=\"" + sample.caption + "\">\n";
        html += "</section>\n";
    }
    return html;
}
