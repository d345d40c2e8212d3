#pragma once

#include "ux/cairo/ux_cairo_export.h"
#include "ux/ux_image_helper.h"

/** Loads PNG images; anything else is answered with null. */
class UX_CAIRO_EXPORT UXCairoImageHelper : public UXImageHelper {
public:
    /** Refuses images of more than 32767 pixels either way or 2^26 in all before it reads a pixel of them. */
    UXImage* imageFromBuffer(const unsigned char* bytes, std::uint64_t length) override;
};
