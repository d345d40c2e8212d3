#pragma once

class UXEvent;

/** What the request for a context menu carries. Owns neither pointer; both are valid during the request. */
struct UXMessageRightClickParam {
    UXEvent* event = nullptr;
    void* data = nullptr; /**< whatever the asking object and the host agree on */

    UXMessageRightClickParam(UXEvent* clickEvent, void* clickData) : event(clickEvent), data(clickData) {}
};
