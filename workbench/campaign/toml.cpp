#define TOML_HEADER_ONLY 1  // no library for workers to have

#include "workbench/campaign/toml.hpp"

#include <toml++/toml.h>

#include <nlohmann/json.hpp>
#include <sstream>
#include <stdexcept>

namespace tpn {

Json tomlAsJson(const std::string& file, const std::string& text) {
  try {
    std::ostringstream json;
    json << toml::json_formatter(toml::parse(text, file));
    return Json::parse(json.str());
  } catch (const toml::parse_error& e) {
    const toml::source_position& at = e.source().begin;
    throw std::runtime_error(file + ":" + std::to_string(at.line) + ":" +
                             std::to_string(at.column) + ": " + std::string(e.description()));
  }
}

}  // namespace tpn
