#include "ux/ux_draw_text_result.h"

UXDrawTextResult::~UXDrawTextResult() = default;

void UXDrawTextResult::reset()
{
    textRect = {};
    fits = true;
}
