#include "ux/ux_object_watcher.h"

#include "ux/ux_object.h"

UXObjectWatcher::UXObjectWatcher(UXObject* object) { _watch(object); }

UXObjectWatcher::UXObjectWatcher(const UXObjectWatcher& other) { _watch(other.m_object); }

UXObjectWatcher& UXObjectWatcher::operator=(const UXObjectWatcher& other)
{
    if (other.m_object != m_object) {
        _forget();
        _watch(other.m_object);
    }
    return *this;
}

UXObjectWatcher::~UXObjectWatcher() { _forget(); }

void UXObjectWatcher::_watch(UXObject* object)
{
    m_object = object;
    if (!object)
        return;
    m_next = object->m_watchers;
    if (m_next)
        m_next->m_previous = this;
    object->m_watchers = this;
}

void UXObjectWatcher::_forget()
{
    if (!m_object)
        return;
    (m_previous ? m_previous->m_next : m_object->m_watchers) = m_next;
    if (m_next)
        m_next->m_previous = m_previous;
    m_object = nullptr;
    m_next = m_previous = nullptr;
}
