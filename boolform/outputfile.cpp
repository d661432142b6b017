#include "boolform/outputfile.hpp"

#include <fcntl.h>
#include <unistd.h>

#include <cassert>
#include <cerrno>
#include <utility>

namespace {

constexpr mode_t permissions = 0666;  // less what the process masks

std::error_code lastError() { return {errno, std::generic_category()}; }

}  // namespace

// What the system tells only on closing stays untold.
OutputFile::~OutputFile() {
  if (outcome_.opened) close(descriptor_);
}

void OutputFile::open(std::string name, Mode mode) {
  assert(!outcome_.opened);
  const int how = mode == append ? O_APPEND : O_TRUNC;
  outcome_.file = std::move(name);
  descriptor_ = ::open(outcome_.file.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC | how, permissions);
  outcome_.opened = descriptor_ >= 0;
  if (!outcome_.opened) outcome_.failure = lastError();
}

void OutputFile::write(const char* text, std::ptrdiff_t size) {
  while (size > 0 && outcome_.whole()) {
    const ssize_t done = ::write(descriptor_, text, static_cast<std::size_t>(size));
    if (done < 0 && errno == EINTR) continue;
    if (done <= 0) {
      outcome_.failure = done < 0 ? lastError() : std::make_error_code(std::errc::io_error);
      return;
    }
    text += done;
    size -= done;
  }
}

Written writeFile(std::string name, std::string_view text, OutputFile::Mode mode) {
  OutputFile file;
  file.open(std::move(name), mode);
  file.write(text.data(), static_cast<std::ptrdiff_t>(text.size()));
  return file.outcome();
}
