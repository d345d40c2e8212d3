#include "ux/ux_scroll_content_view.h"

UXScrollContentView::UXScrollContentView() = default;

UXScrollContentView::~UXScrollContentView() = default;

std::string UXScrollContentView::customSerializeTypeID() { return "UXScrollContentView"; }
