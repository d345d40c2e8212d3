#include "kx_scrollable_value_list.h"

KXScrollableValueList::KXScrollableValueList() = default;
KXScrollableValueList::~KXScrollableValueList() = default;

std::string KXScrollableValueList::customSerializeTypeID() { return "KXScrollableValueList"; }
