#pragma once

#include <nlohmann/json.hpp>
#include <string>

/** @return the first key of a document, or of an object nested in it, that is saved with another value than
 * was wanted; empty when there is none. Keys that either lacks are fine. */
std::string findRefusedKey(const nlohmann::json& wanted, const nlohmann::json& saved);
