#pragma once

#include "ux/ux_export.h"
#include "ux/ux_image.h"

#include <cstdint>
#include <functional>
#include <string>

class UXImageResourceProvider;

/**
 * Loads images. Every image is new and the caller's to delete; null where there is none or where it cannot be
 * read. This class finds the bytes; what it answers as image is null, as only a back end knows how to decode
 * them.
 */
class UX_EXPORT UXImageHelper {
public:
    virtual ~UXImageHelper();

    /** @param path UTF-8 */
    virtual UXImage* imageFromFile(const std::string& path);
    virtual UXImage* imageFromBuffer(const unsigned char* bytes, std::uint64_t length);
    virtual UXImage* imageFromResource(UXImageResourceProvider* provider, const std::string& name);

    /**
     * @param bytes receives the file, to be given back with freeImageBuffer; null where there is none
     * @return the number of bytes, 0 where the file cannot be read, is empty or is larger than 64 MiB
     */
    virtual std::uint64_t loadImageBufferFromFile(const std::string& path, unsigned char*& bytes);
    virtual void freeImageBuffer(unsigned char* bytes);
};

/** @return a new helper, the caller's to delete: the back end's where one has registered, otherwise a plain
 * one */
[[nodiscard]] UX_EXPORT UXImageHelper* uxCreateImageHelper();

/** Makes factory answer uxCreateImageHelper from now on; an empty one restores the plain helper. */
UX_EXPORT void uxSetImageHelperFactory(std::function<UXImageHelper*()> factory);
