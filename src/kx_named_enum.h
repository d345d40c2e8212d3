#pragma once

/**
 * Declares an enumeration whose values are saved by name: KX_NAMED_ENUM(KXChartLineStyle, None, Dot, Dash)
 * numbers the names from 0 and keeps the same list as the text that kxObtainEnumMap builds its map from, so
 * that a value and its saved name cannot drift apart.
 */
#define KX_NAMED_ENUM(Enum, ...)           \
    enum class Enum : int { __VA_ARGS__ }; \
    constexpr const char* kxObtainEnumNames(Enum) { return #__VA_ARGS__; }
