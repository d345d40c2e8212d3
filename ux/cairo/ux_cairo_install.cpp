#include "ux/cairo/ux_cairo_install.h"

#include "ux/cairo/ux_cairo_image_helper.h"
#include "ux/cairo/ux_cairo_text_measurer.h"

void uxCairoInstall()
{
    // Not destroyed: the framework may still measure while a host's static objects go.
    static UXCairoTextMeasurer* measurer = new UXCairoTextMeasurer;
    uxSetTextMeasurer(measurer);
    uxSetImageHelperFactory([] { return new UXCairoImageHelper; });
}
