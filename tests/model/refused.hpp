// Networks that the reader refuses.

#pragma once

#include <gtest/gtest.h>

#include <string>

#include "tests/model/networks.hpp"

// Reading ends the process with exit status 1 and this message. The folder is not that process's:
// it would stay behind.
inline void expectRefused(const std::string& text, const std::string& message) {
  const Folder folder;
  folder.write("net.tpn", text);
  NetTimedModel model;
  EXPECT_EXIT(model.readNetwork(folder / "net"), testing::ExitedWithCode(1), message) << text;
}
