// zervan NET PHI K: the order of a run, and its reports of time and memory.

#include <malloc.h>

#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <iostream>
#include <limits>
#include <new>
#include <string>

#include "boolform/outputfile.hpp"
#include "driver/freemem.hpp"
#include "ectl/refusal.hpp"
#include "model/tpnmodel.hpp"
#include "translation/reachtran.hpp"

namespace {

constexpr int exitUsage = 1;
constexpr int exitPathLength = 2;

std::uint32_t freeBytes() { return static_cast<std::uint32_t>(getfreemem()); }

// clock() counts millionths of a second.
double seconds(std::clock_t from, std::clock_t to) {
  return static_cast<double>(to - from) / 1000000.0;
}

// The time as a line, with at most four digits.
Written logTime(double time) {
  std::array<char, 32> line{};
  std::snprintf(line.data(), line.size(), "%.4g\n", time);
  return writeFile("bmctime.out", line.data(), OutputFile::append);
}

// Tells what was opened and could not be written. Files that cannot be opened are passed over, but
// for the log.
bool complain(const WrittenRun& run, const Written& log) {
  for (const Written& file : {run.clauses, run.map, log})
    if (file.cut())
      std::cerr << "zervan: cannot write " << file.file << ": " << file.failure.message()
                << std::endl;
  if (!log.opened) std::cout << "Nie mozna otworzyc pliku bmctime.out\n";
  return run.clauses.cut() || run.map.cut() || !log.whole();
}

// Memory that a table has grown out of is kept for the next one: handed back to the system and
// asked for again, it would come as pages to be cleared once more.
void keepMemory() {
  mallopt(M_MMAP_MAX, 0);
  mallopt(M_TRIM_THRESHOLD, std::numeric_limits<int>::max());
  mallopt(M_TOP_PAD, 1 << 20);
}

int run(const std::string& net, const std::string& phi, const std::string& length, int k) {
  const std::uint32_t freeBefore = freeBytes();
  const std::clock_t start = std::clock();
  std::cout << freeBefore << " bytes memory" << std::endl;

  NetTimedModel model;
  model.readNetwork(net);
  model.compNrOfBits();
  std::cout << "Places: " << model.vertices.size() << std::endl;
  std::cout << "Transitions: " << model.localTrans.size() << std::endl;
  model.readFormula(phi);
  std::cout << "Formula is read\n";

  EctlTransl translator(model, k);
  const WrittenRun written = translator.checkEctlFormula(net + "k" + length);

  std::cout << std::endl;
  const double time = seconds(start, std::clock());
  std::cout.precision(4);
  std::cout << time << std::endl;
  const std::uint32_t used = freeBefore - freeBytes();  // wraps where free memory grew
  std::cout << "Memory used by ZERVAN : " << used * 9.5367431640625e-07 << " Mb" << std::endl;
  return complain(written, logTime(time)) ? EXIT_FAILURE : EXIT_SUCCESS;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 4) {
    std::cerr << "Usage : zervan TimePetriNetFile FormulaFile PathLen\n";
    return exitUsage;
  }
  // Cut to 32 bits first, tested then.
  const int k = static_cast<int>(std::strtol(argv[3], nullptr, 10));
  if (k < 1) {
    std::cerr << "Length of path should be > 0\n";
    return exitPathLength;
  }
  keepMemory();
  try {
    return run(argv[1], argv[2], argv[3], k);
  } catch (const Refusal& refusal) {
    std::cerr << "zervan: " << refusal.what() << std::endl;
  } catch (const std::bad_alloc&) {
    std::cerr << "zervan: the network needs more memory than there is" << std::endl;
  }
  return EXIT_FAILURE;
}
