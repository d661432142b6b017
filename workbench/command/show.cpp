// tpn show: a network as text, as JSON, in Graphviz's language, or drawn by it.

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <memory>
#include <stdexcept>

#include "workbench/base/files.hpp"
#include "workbench/command/reading.hpp"
#include "workbench/command/subcommand.hpp"
#include "workbench/views/views.hpp"

namespace tpn {

namespace {

struct Arguments {
  Files files;
  bool json = false;
  bool dot = false;
  std::string svg;
};

// Runs Graphviz on a picture in its language.
void drawWithDot(const std::string& dot, const std::string& file) {
  const std::string scratch = std::filesystem::temp_directory_path() / "tpn-XXXXXX.dot";
  std::string name = scratch;
  const int made = mkstemps(name.data(), 4);
  if (made < 0) throw std::runtime_error(scratch + ": cannot be made");
  close(made);
  writeFile(name, dot);
  std::string quoted;
  for (const char c : file) quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
  const std::string command = "dot -Tsvg -o '" + quoted + "' " + name;
  const int status = std::system(command.c_str());
  std::filesystem::remove(name);
  if (status != 0) throw std::runtime_error("dot (package graphviz) did not draw " + file);
}

int show(const Arguments& a) {
  const std::optional<Network> net = networkOf(a.files);
  if (!net) return failed;
  if (!a.svg.empty()) drawWithDot(networkDot(*net), a.svg);
  if (a.json) writeFile("-", networkJson(*net));
  if (a.dot) writeFile("-", networkDot(*net));
  if (!a.json && !a.dot && a.svg.empty()) writeFile("-", networkText(*net));
  return done;
}

Action declare(CLI::App& app) {
  const auto a = std::make_shared<Arguments>();
  addNet(app, a->files);
  CLI::Option* dot = app.add_flag("--dot", a->dot, "print it for Graphviz");
  app.add_option("--svg", a->svg, "draw it, with Graphviz")->type_name("FILE");
  app.add_flag("--json", a->json, "print JSON instead of text")->excludes(dot);
  return [a] { return show(*a); };
}

}  // namespace

const Subcommand showCommand{"show", "a network as a person wants to see it", declare};

}  // namespace tpn
