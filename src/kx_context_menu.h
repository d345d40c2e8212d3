#pragma once

class UXEvent;
class UXObject;

/** Hands a right-click message to the host's view that shows object: the host opens what menu
 * stands for. Does nothing where object stands in no view.
 *  @param menu the host's own, not null */
void kxOpenContextMenu(UXObject* object, const UXEvent& event, void* menu);
