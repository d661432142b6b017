// XML judged by xmllint (package libxml2-utils), and by patterns over its lines.

#pragma once

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>

// A document in a file of its own, removed with the object.
class XmlFile {
 public:
  explicit XmlFile(const std::string& text) {
    std::string name = (std::filesystem::temp_directory_path() / "tpn-xml-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no folder " + name);
    folder_ = name;
    std::ofstream(folder_ / "file", std::ios::binary) << text;
  }
  ~XmlFile() {
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
  }
  XmlFile(const XmlFile&) = delete;
  XmlFile& operator=(const XmlFile&) = delete;

  bool isWellFormed() const { return run("xmllint --noout") == 0; }

  // Of an XPath expression without apostrophes; elements are asked for as *[name()="g"], for names
  // belong to a namespace.
  std::string value(const std::string& expression) const {
    if (run("xmllint --xpath '" + expression + "'", "out") != 0) return "xmllint failed";
    std::ifstream in(folder_ / "out");
    std::string line;
    std::getline(in, line);
    return line;
  }

 private:
  int run(const std::string& command, const std::string& out = "ignored") const {
    const std::string quiet = " >" + (folder_ / out).string() + " 2>&1";
    return std::system((command + " " + (folder_ / "file").string() + quiet).c_str());
  }

  std::filesystem::path folder_;
};
