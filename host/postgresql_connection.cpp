#include "postgresql_connection.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <libpq-fe.h>
#include <memory>

#include "host_error.h"

namespace {

/** @return whether text begins with a name and '='; in a URI something else comes before the first '=' */
bool isListOfPairs(const std::string& text)
{
    const std::size_t name = text.find_first_not_of(' ');
    const std::size_t end = text.find_first_not_of("abcdefghijklmnopqrstuvwxyz_",
                                                   std::min(name, text.size()));
    return end != std::string::npos && end != name && text.find_first_not_of(' ', end) == text.find('=', end);
}

/** @return text with every byte that means something in a URI written as its number */
std::string escapeUri(const char* text)
{
    std::string escaped;
    for (; *text; ++text) {
        const char c = *text;
        const bool isPlain = (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
        std::array<char, 4> code{};
        std::snprintf(code.data(), code.size(), "%%%02X", static_cast<unsigned>(c) & 0xffU);
        escaped += isPlain ? std::string(1, c) : std::string(code.data());
    }
    return escaped;
}

} // namespace

std::string obtainPostgresqlConnection(const std::string& connection)
{
    const std::string given = isListOfPairs(connection) ? connection : "postgresql://" + connection;
    const std::unique_ptr<PQconninfoOption, decltype(&PQconninfoFree)> options(
        PQconninfoParse(given.c_str(), nullptr), &PQconninfoFree);
    if (!options)
        throw HostError("postgresql", "",
                        "no such form of a connection; it is postgresql://user@host:5432/db or "
                        "postgresql://host=localhost dbname=db");

    // The layer takes a text without a pair for the first half of one, so there always is a pair.
    std::string uri = "postgresql://?fallback_application_name=kxcharts";
    for (const PQconninfoOption* option = options.get(); option->keyword; ++option) {
        if (option->val)
            uri += '&' + std::string(option->keyword) + '=' + escapeUri(option->val);
    }
    return uri;
}
