// The names of the files that belong to one bound. All begin with a common name, as zervan's do:
// NAME.cnf and NAME.lck from the core, the others from the solver.

#pragma once

#include <array>
#include <string>

namespace tpn {

inline constexpr const char* clauseSuffix = ".cnf";
inline constexpr const char* mapSuffix = ".lck";
inline constexpr const char* outSuffix = ".out";        // what the solver printed
inline constexpr const char* errSuffix = ".err";        // its errors
inline constexpr const char* resultSuffix = ".result";  // a file of its own for the answer
inline constexpr std::array suffixes{clauseSuffix, mapSuffix, outSuffix, errSuffix, resultSuffix};

inline std::string clauseFile(const std::string& name) { return name + clauseSuffix; }
inline std::string mapFile(const std::string& name) { return name + mapSuffix; }
inline std::string outFile(const std::string& name) { return name + outSuffix; }
inline std::string errFile(const std::string& name) { return name + errSuffix; }
inline std::string resultFile(const std::string& name) { return name + resultSuffix; }

}  // namespace tpn
