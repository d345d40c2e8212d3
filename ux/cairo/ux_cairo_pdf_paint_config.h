#pragma once

#include "ux/cairo/ux_cairo_paint_config.h"
#include "ux/ux_double_size.h"

#include <memory>
#include <string>

/** Paints a PDF document of one or more pages. One logical unit is one point, 1/72 inch. */
class UX_CAIRO_EXPORT UXCairoPdfPaintConfig : public UXCairoPaintConfig {
public:
    /**
     * @param size of the first page in logical units. Without a positive width and height, or with more than
     * 14400, which readers of the format refuse, the configuration is invalid.
     */
    explicit UXCairoPdfPaintConfig(const UXDoubleSize& size);
    ~UXCairoPdfPaintConfig() override;

    /** Ends the page; what is painted next stands on a new one of the same size. */
    void startNewPage();

    /**
     * Ends the document and writes it; afterwards the configuration is invalid. The file appears whole or not
     * at all; one that was there before stays as it was when writing fails.
     * @param path UTF-8
     * @return whether the file was written
     */
    bool writePdf(const std::string& path);

    // From UXPaintConfig
    bool isPaintConfigValid() const override;

private:
    explicit UXCairoPdfPaintConfig(const UXDoubleSize& size, std::unique_ptr<std::string> bytes);

    std::unique_ptr<std::string> m_bytes;
    bool m_finished = false;
};
