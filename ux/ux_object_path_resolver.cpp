#include "ux/ux_object_path_resolver.h"

#include "ux/ux_object.h"

#include <algorithm>
#include <charconv>
#include <cstdint>

std::string UXObjectPathResolver::obtainPath(UXJsonObject* object, UXJsonObject* target) const
{
    const auto* outer = dynamic_cast<const UXObject*>(object);
    const auto* inner = dynamic_cast<const UXObject*>(target);
    std::string path;
    for (; outer && inner && inner != outer; inner = inner->getParent()) {
        const UXObject* parent = inner->getParent();
        if (!parent)
            return {};
        const auto& children = parent->getChildren();
        const auto index = std::ranges::find(children, inner) - children.begin();
        path.insert(0, std::to_string(index) + (path.empty() ? "" : "/"));
    }
    return path;
}

UXJsonObject* UXObjectPathResolver::obtainObject(UXJsonObject* object, const std::string& path) const
{
    auto* found = dynamic_cast<UXObject*>(object);
    const char* const end = path.data() + path.size();
    for (const char* place = path.data(); found; ++place) {
        std::uint64_t index = 0;
        const auto [after, error] = std::from_chars(place, end, index);
        if (error != std::errc{})
            return nullptr;
        found = found->getChild(index);
        if (after == end)
            return found;
        if (*after != '/')
            return nullptr;
        place = after;
    }
    return nullptr;
}

const UXObjectPathResolver& uxObtainObjectPathResolver()
{
    static const UXObjectPathResolver resolver;
    return resolver;
}
