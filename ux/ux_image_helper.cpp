#include "ux/ux_image_helper.h"

#include "ux/ux_image_resource_provider.h"
#include "ux/ux_whole_file.h"

#include <utility>

namespace {

std::function<UXImageHelper*()>& helperFactory()
{
    static std::function<UXImageHelper*()> factory;
    return factory;
}

} // namespace

UXImageHelper::~UXImageHelper() = default;

UXImage* UXImageHelper::imageFromFile(const std::string& path)
{
    unsigned char* bytes = nullptr;
    const std::uint64_t length = loadImageBufferFromFile(path, bytes);
    UXImage* image = bytes ? imageFromBuffer(bytes, length) : nullptr;
    freeImageBuffer(bytes);
    return image;
}

UXImage* UXImageHelper::imageFromBuffer(const unsigned char*, std::uint64_t) { return nullptr; }

UXImage* UXImageHelper::imageFromResource(UXImageResourceProvider* provider, const std::string& name)
{
    std::vector<unsigned char> bytes;
    if (!provider || !provider->obtainImageResource(name, bytes) || bytes.empty())
        return nullptr;
    return imageFromBuffer(bytes.data(), bytes.size());
}

std::uint64_t UXImageHelper::loadImageBufferFromFile(const std::string& path, unsigned char*& bytes)
{
    UXWholeFile file = uxReadWholeFile(path);
    bytes = file.size > 0 ? reinterpret_cast<unsigned char*>(file.bytes.release()) : nullptr;
    return bytes ? file.size : 0;
}

void UXImageHelper::freeImageBuffer(unsigned char* bytes) { delete[] reinterpret_cast<char*>(bytes); }

UXImageHelper* uxCreateImageHelper()
{
    UXImageHelper* helper = helperFactory() ? helperFactory()() : nullptr;
    return helper ? helper : new UXImageHelper;
}

void uxSetImageHelperFactory(std::function<UXImageHelper*()> factory)
{
    helperFactory() = std::move(factory);
}
