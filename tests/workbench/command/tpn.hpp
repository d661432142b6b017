// tpn from outside, in a folder with the networks of two examples.

#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "tests/driver/runprogram.hpp"

const std::filesystem::path tree = ZERVAN_SOURCE_DIR;

class Tpn : public testing::Test {
 protected:
  void SetUp() override {
    for (const std::string folder : {"fischer", "handshake"})
      for (const auto& entry : std::filesystem::directory_iterator(tree / "examples" / folder))
        if (entry.path().extension() == ".tpn") std::filesystem::copy(entry.path(), place.folder());
  }

  Outcome tpn(const std::vector<std::string>& arguments) const {
    return place.run(TPN_BINARY, arguments);
  }
  Outcome shell(const std::string& command) const { return place.run("sh", {"-c", command}); }

  static nlohmann::json schema(const std::string& name) {
    return nlohmann::json::parse(contents(tree / "docs" / name));
  }

  Workplace place;
};
