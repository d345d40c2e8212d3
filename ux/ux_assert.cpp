#include "ux/ux_assert.h"

#include <cstdio>
#include <memory>
#include <utility>

namespace {

using Handler = std::function<void(std::source_location)>;

std::shared_ptr<const Handler>& handlerInUse()
{
    static std::shared_ptr<const Handler> handler;
    return handler;
}

void report(const std::source_location& location)
{
    // The handler may replace itself: it is kept alive until it returns.
    if (const std::shared_ptr<const Handler> handler = handlerInUse())
        (*handler)(location);
    else
        std::fprintf(stderr, "%s:%u: check failed in %s\n", location.file_name(),
                     static_cast<unsigned>(location.line()), location.function_name());
}

} // namespace

bool uxAssert(bool condition, std::source_location location)
{
    if (!condition)
        report(location);
    return condition;
}

bool uxAssert(const void* pointer, std::source_location location)
{
    return uxAssert(pointer != nullptr, location);
}

void uxSetAssertHandler(std::function<void(std::source_location)> handler)
{
    handlerInUse() = handler ? std::make_shared<const Handler>(std::move(handler)) : nullptr;
}
