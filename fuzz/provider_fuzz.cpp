// What a host answers, while it changes the very charts that ask.

#include "fuzz_scene.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    FuzzInput input(bytes, size);
    FuzzScene scene(input, input, 128);
    scene.makeHostAct();
    scene.addChart();
    while (!input.isEmpty()) {
        scene.changeChart();
        scene.paint();
    }
    scene.paintEverywhere();
    return 0;
}
