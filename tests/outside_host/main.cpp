#include <kxcharts/kxcharts.h>
#include <ux/cairo/ux_cairo.h>

int main(int count, char** arguments)
{
    uxCairoInstall();
    KXValueChart chart; // without data it shows its title
    chart.getChartProperty()->setTitleValue("Outside");
    chart.setRect(uxMakeRect(0, 0, 320, 200));
    chart.layout();
    UXCairoImagePaintConfig image(UXDoubleSize(320, 200));
    chart.paint(&image, chart.getBoundingRect());
    return count == 2 && image.writePng(arguments[1]) ? 0 : 1;
}
