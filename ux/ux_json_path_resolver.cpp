#include "ux/ux_json_path_resolver.h"

UXJsonPathResolver::~UXJsonPathResolver() = default;
