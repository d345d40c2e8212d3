#include "ux/ux_image_resource_provider.h"

UXImageResourceProvider::~UXImageResourceProvider() = default;
