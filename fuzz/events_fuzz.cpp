// What users do with a view of several charts, and hosts meanwhile.

#include "fuzz_scene.h"

#include <algorithm>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    // The host answers from the first bytes, so that what it is asked does not change what users do.
    const std::size_t answered = std::min<std::size_t>(size, 48);
    FuzzInput answers = FuzzInput::makeEndless(bytes, answered);
    FuzzInput input(bytes + answered, size - answered);
    FuzzScene scene(input, answers, 256);
    for (int i = 0; i < 3; ++i)
        scene.addChart();
    scene.addBoard();
    scene.paint();
    scene.makeHostAct();
    while (!input.isEmpty()) {
        const int choice = input.takeBelow(18);
        if (choice == 17)
            scene.drawSteps();
        else if (choice == 16)
            scene.changeBoard();
        else if (choice == 15)
            scene.addChart();
        else if (choice == 14)
            scene.changeChart();
        else if (choice == 13)
            scene.paint();
        else
            scene.sendEvent();
    }
    scene.paintEverywhere();
    return 0;
}
