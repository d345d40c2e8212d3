#include "ux/ux_named_enum_map.h"

#include "ux/ux_align.h"
#include "ux/ux_arrangement.h"
#include "ux/ux_direction.h"
#include "ux/ux_hint_position.h"
#include "ux/ux_position.h"
#include "ux/ux_rect_edge.h"
#include "ux/ux_symbol_style.h"
#include "ux/ux_text_align.h"
#include "ux/ux_text_option.h"

template <class E>
UXEnum::UXEnumMap<E>& uxObtainNamedEnumMap()
{
    static UXEnum::UXEnumMap<E> map(uxObtainEnumNames(E()));
    return map;
}

template UX_EXPORT UXEnum::UXEnumMap<UXAlign>& uxObtainNamedEnumMap();
template UX_EXPORT UXEnum::UXEnumMap<UXArrangement>& uxObtainNamedEnumMap();
template UX_EXPORT UXEnum::UXEnumMap<UXDirection>& uxObtainNamedEnumMap();
template UX_EXPORT UXEnum::UXEnumMap<UXHintPosition>& uxObtainNamedEnumMap();
template UX_EXPORT UXEnum::UXEnumMap<UXPosition>& uxObtainNamedEnumMap();
template UX_EXPORT UXEnum::UXEnumMap<UXRectEdge>& uxObtainNamedEnumMap();
template UX_EXPORT UXEnum::UXEnumMap<UXSymbolStyle>& uxObtainNamedEnumMap();
template UX_EXPORT UXEnum::UXEnumMap<UXTextAlign>& uxObtainNamedEnumMap();
template UX_EXPORT UXEnum::UXEnumMap<UXTextOption>& uxObtainNamedEnumMap();
