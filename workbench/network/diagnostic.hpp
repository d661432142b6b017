// What is wrong with a file, and where.

#pragma once

#include <string>
#include <vector>

namespace tpn {

enum class Severity { error, warning };

// Lines and columns count from 1, columns in bytes; column 0 where the whole line, line 0 where the
// whole file is meant.
struct Diagnostic {
  std::string file;  // as the user named it
  int line = 0;
  int column = 0;
  Severity severity = Severity::error;
  std::string id;           // short and stable, lower case with hyphens: "transition-unused"
  std::string message;      // one line, no full stop
  std::string source = {};  // the file's line, where it helps to see it; else empty
};

using Diagnostics = std::vector<Diagnostic>;

bool hasErrors(const Diagnostics& diagnostics);

// "file:line:column: error: message [id]"; a position that is 0 is left out. Where there is a
// source two more lines show it, with a caret below the column. File names may be any bytes; this
// is printable.
std::string text(const Diagnostic& d);

// All of them as one JSON object, indented and with a line end; docs/lint.schema.json describes it.
std::string diagnosticsJson(const Diagnostics& diagnostics);

}  // namespace tpn
