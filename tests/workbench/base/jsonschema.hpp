// JSON against a JSON schema: the few keywords that the schemas in docs use. Any other keyword is a
// complaint, so that none is passed over silently.

#pragma once

#include <algorithm>
#include <cstddef>
#include <nlohmann/json.hpp>
#include <regex>
#include <set>
#include <string>

namespace jsonschema {

using Json = nlohmann::json;

inline bool hasType(const Json& value, const std::string& type) {
  if (type == "object") return value.is_object();
  if (type == "array") return value.is_array();
  if (type == "string") return value.is_string();
  if (type == "integer") return value.is_number_integer();
  if (type == "number") return value.is_number();
  if (type == "boolean") return value.is_boolean();
  return type == "null" && value.is_null();
}

inline std::string inside(std::string at, const std::string& name) {
  return at.append("/").append(name);
}

inline bool hasOneOfTypes(const Json& value, const Json& types) {
  if (types.is_string()) return hasType(value, types);
  return std::any_of(types.begin(), types.end(),
                     [&value](const Json& type) { return hasType(value, type); });
}

class Validator {
 public:
  explicit Validator(const Json& root) : root_(root) {}

  // What is wrong, and where; empty where nothing is.
  std::string complaint(const Json& schema, const Json& value, const std::string& at) const {
    for (const auto& [keyword, argument] : schema.items()) {
      std::string found = keywordComplaint(schema, keyword, argument, value, at);
      if (!found.empty()) return found;
    }
    return "";
  }

 private:
  std::string keywordComplaint(const Json& schema, const std::string& keyword, const Json& argument,
                               const Json& value, const std::string& at) const {
    static const std::set<std::string> notes{"$schema", "$id", "$defs", "title", "description"};
    if (notes.count(keyword) != 0) return "";
    if (keyword == "$ref") return complaint(target(argument), value, at);
    if (keyword == "properties") return propertiesComplaint(argument, value, at);
    if (keyword == "additionalProperties") return additionalComplaint(schema, argument, value, at);
    if (keyword == "items") return itemsComplaint(argument, value, at);
    if (keyword == "required") return requiredComplaint(argument, value, at);
    return isMet(keyword, argument, value) ? "" : at + ": " + keyword + " is not met";
  }

  static bool isMet(const std::string& keyword, const Json& argument, const Json& value) {
    if (keyword == "type") return hasOneOfTypes(value, argument);
    if (keyword == "const") return value == argument;
    if (keyword == "enum")
      return std::find(argument.begin(), argument.end(), value) != argument.end();
    if (keyword == "minimum") return !value.is_number() || value >= argument;
    if (keyword == "minItems") return !value.is_array() || value.size() >= argument;
    if (keyword == "minLength")
      return !value.is_string() || value.get<std::string>().size() >= argument;
    if (keyword == "pattern")
      return !value.is_string() ||
             std::regex_search(value.get<std::string>(), std::regex(argument.get<std::string>()));
    return false;
  }

  const Json& target(const std::string& reference) const {
    return root_.at(Json::json_pointer(reference.substr(1)));  // "#/..."
  }

  std::string propertiesComplaint(const Json& properties, const Json& value,
                                  const std::string& at) const {
    if (!value.is_object()) return "";
    for (const auto& [name, schema] : properties.items()) {
      if (!value.contains(name)) continue;
      std::string found = complaint(schema, value[name], inside(at, name));
      if (!found.empty()) return found;
    }
    return "";
  }

  std::string additionalComplaint(const Json& schema, const Json& additional, const Json& value,
                                  const std::string& at) const {
    if (!value.is_object()) return "";
    for (const auto& [name, member] : value.items()) {
      if (schema.contains("properties") && schema["properties"].contains(name)) continue;
      if (additional == false) return inside(at, name) + ": no such member";
      if (!additional.is_object()) continue;
      std::string found = complaint(additional, member, inside(at, name));
      if (!found.empty()) return found;
    }
    return "";
  }

  std::string itemsComplaint(const Json& schema, const Json& value, const std::string& at) const {
    if (!value.is_array()) return "";
    for (std::size_t i = 0; i < value.size(); ++i) {
      std::string found = complaint(schema, value[i], inside(at, std::to_string(i)));
      if (!found.empty()) return found;
    }
    return "";
  }

  static std::string requiredComplaint(const Json& names, const Json& value,
                                       const std::string& at) {
    if (!value.is_object()) return "";
    for (const Json& name : names)
      if (!value.contains(name.get<std::string>())) return inside(at, name) + ": missing";
    return "";
  }

  const Json& root_;
};

}  // namespace jsonschema

// What is wrong with a value by a schema, and where; empty where nothing is.
inline std::string schemaComplaint(const nlohmann::json& schema, const nlohmann::json& value) {
  return jsonschema::Validator(schema).complaint(schema, value, "");
}
