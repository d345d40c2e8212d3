#pragma once

#include <nlohmann/json.hpp>
#include <string>

/** @param file what errors call the text
 *  @return the document; throws HostError for text that is no JSON or nested deeper than 256 levels, which is
 *  noticed while it is read, before anything deep is built */
nlohmann::json parseJsonDocument(const std::string& file, const std::string& text);
