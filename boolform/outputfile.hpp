// A file that is written once, from beginning to end, and that tells what became of it.
//
// Standard file streams are not used for this: they keep no reason for a failure, and opening one
// takes memory, so that its failure may be one of memory and not of the file.

#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <system_error>

// What became of an output file.
struct Written {
  std::string file;         // its name
  bool opened = false;      // it was there to be written
  std::error_code failure;  // why it could not be opened or, once opened, not be written

  bool whole() const { return opened && !failure; }
  bool cut() const { return opened && failure; }  // less stands in it than should
};

class OutputFile {
 public:
  enum Mode { replace, append };

  OutputFile() = default;
  ~OutputFile();
  OutputFile(const OutputFile&) = delete;
  OutputFile& operator=(const OutputFile&) = delete;

  // Opens or creates the file, once. Where that fails, or before, every write is ignored.
  void open(std::string name, Mode mode = replace);

  // All of the text. Ignored after the first failure, which is the one that is told.
  void write(const char* text, std::ptrdiff_t size);

  const Written& outcome() const { return outcome_; }

 private:
  Written outcome_;
  int descriptor_ = -1;
};

// The whole text as the file `name`.
Written writeFile(std::string name, std::string_view text,
                  OutputFile::Mode mode = OutputFile::replace);
