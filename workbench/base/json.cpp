#include "workbench/base/json.hpp"

#include <nlohmann/json.hpp>

namespace tpn {

std::string jsonText(const Json& value) {
  return value.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

}  // namespace tpn
