#include "json_document.h"

#include "host_error.h"

namespace {

constexpr int deepestNesting = 256;

} // namespace

nlohmann::json parseJsonDocument(const std::string& file, const std::string& text)
{
    using Event = nlohmann::json::parse_event_t;
    const auto checkDepth = [&](int outerLevels, Event event, nlohmann::json&) {
        const bool opens = event == Event::object_start || event == Event::array_start;
        if (opens && outerLevels >= deepestNesting)
            throw HostError(file, "", "is nested deeper than 256 levels");
        return true;
    };
    try {
        return nlohmann::json::parse(text, checkDepth);
    } catch (const nlohmann::json::exception& error) {
        // The library's message begins with its own name and number.
        const std::string message = error.what();
        const std::size_t start = message.find("] ");
        throw HostError(file, "",
                        "is no JSON: " + (start == std::string::npos ? message : message.substr(start + 2)));
    }
}
