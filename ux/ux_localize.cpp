#include "ux/ux_localize.h"

#include <memory>
#include <utility>

namespace {

using Localizer = std::function<std::string(const std::string&)>;

std::shared_ptr<const Localizer>& localizerInUse()
{
    static std::shared_ptr<const Localizer> localizer;
    return localizer;
}

} // namespace

std::string uxLocalizeString(const std::string& text)
{
    // The localizer may replace itself: it is kept alive until it returns.
    const std::shared_ptr<const Localizer> localizer = localizerInUse();
    return localizer ? (*localizer)(text) : text;
}

void uxSetLocalizer(std::function<std::string(const std::string&)> localizer)
{
    localizerInUse() = localizer ? std::make_shared<const Localizer>(std::move(localizer)) : nullptr;
}
