#include "theme_option.h"

#include "host_error.h"
#include "json_document.h"
#include "kx_chart_theme.h"
#include "refused_key.h"
#include "text_file.h"

#include <cstdio>

namespace {

std::unique_ptr<KXChartTheme> readTheme(const std::string& path)
{
    const std::string text = readTextFile(path);
    const nlohmann::json parsed = parseJsonDocument(path, text);
    if (!parsed.is_object() || parsed.value("type", nlohmann::json()) != "KXChartTheme")
        throw HostError(path, "type", "is not \"KXChartTheme\"");
    auto theme = std::make_unique<KXChartTheme>();
    if (!theme->deserialize(text)) {
        const std::string key = findRefusedKey(parsed, nlohmann::json::parse(theme->serialize()));
        if (!key.empty())
            throw HostError(path, key, "holds a value that a theme does not take");
    }
    for (const std::string& key : theme->getDeserializedUnknownKeys())
        std::fprintf(stderr, "%s: %s: is no key of a KXChartTheme\n", path.c_str(), key.c_str());
    return theme;
}

} // namespace

std::unique_ptr<KXChartTheme> readThemeOption(const std::string& text)
{
    if (text.empty())
        return nullptr;
    if (text.ends_with(".json"))
        return readTheme(text);
    std::unique_ptr<KXChartTheme> theme = KXChartTheme::create(text);
    if (theme)
        return theme;
    std::string names;
    for (const std::string& name : KXChartTheme::obtainNames())
        names += (names.empty() ? "" : ", ") + name;
    throw HostError("--theme", text, "is no theme; there are " + names + ", and files that end in .json");
}
