#include "ux/ux_image_helper.h"

#include "ux/ux_image_resource_provider.h"

#include <filesystem>
#include <fstream>
#include <memory>
#include <utility>

namespace {

constexpr std::uint64_t largestFile = std::uint64_t{64} << 20;

std::function<UXImageHelper*()>& helperFactory()
{
    static std::function<UXImageHelper*()> factory;
    return factory;
}

/** The size comes first, as a device or a pipe has none and must not be read to its end. */
std::uint64_t readFile(const std::string& path, unsigned char*& bytes)
{
    std::error_code failed;
    const std::filesystem::path place(std::u8string(path.begin(), path.end()));
    const std::uint64_t size = std::filesystem::file_size(place, failed);
    if (failed || size == 0 || size > largestFile)
        return 0;

    std::ifstream file(place, std::ios::binary);
    std::unique_ptr<unsigned char[]> read(new unsigned char[size]);
    if (!file.read(reinterpret_cast<char*>(read.get()), static_cast<std::streamsize>(size)))
        return 0;
    bytes = read.release();
    return size;
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
    bytes = nullptr;
    try {
        return readFile(path, bytes);
    } catch (const std::exception&) {
        // A path that this system cannot spell, or no memory for the file: there is no image either way.
        return 0;
    }
}

void UXImageHelper::freeImageBuffer(unsigned char* bytes) { delete[] bytes; }

UXImageHelper* uxCreateImageHelper()
{
    UXImageHelper* helper = helperFactory() ? helperFactory()() : nullptr;
    return helper ? helper : new UXImageHelper;
}

void uxSetImageHelperFactory(std::function<UXImageHelper*()> factory)
{
    helperFactory() = std::move(factory);
}
