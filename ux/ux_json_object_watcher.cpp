#include "ux/ux_json_object_watcher.h"

UXJsonObjectWatcher::UXJsonObjectWatcher(const UXJsonObject* object)
{
    if (object)
        m_alive = object->_obtainLife();
}
