#include "refused_key.h"

std::string findRefusedKey(const nlohmann::json& wanted, const nlohmann::json& saved)
{
    for (const auto& [key, value] : saved.items()) {
        const auto found = wanted.find(key);
        if ((!key.starts_with("m_") && key != "type") || found == wanted.end())
            continue;
        // Of a list of objects each element counts as one under its key.
        if (value.is_array() && found->is_array() && value.size() == found->size() && !value.empty() &&
            value[0].is_object() && value[0].contains("type")) {
            for (std::size_t i = 0; i < value.size(); ++i)
                if (const std::string refused = findRefusedKey((*found)[i], value[i]); !refused.empty())
                    return key + "." + refused;
            continue;
        }
        const bool isNested = value.is_object() && value.contains("type") && found->is_object();
        const std::string refused = isNested ? findRefusedKey(*found, value) : std::string();
        if (!refused.empty() || (!isNested && *found != value))
            return isNested ? key + "." + refused : key;
    }
    return {};
}
