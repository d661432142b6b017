// While one job of a race works, another may settle the question on another machine: all they share
// is a folder.

#pragma once

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <filesystem>
#include <mutex>
#include <string>
#include <thread>
#include <utility>

namespace tpn {

class Lookout {
 public:
  // No name: nothing is looked for. `stop` outlives it.
  Lookout(std::string file, const std::atomic<bool>& stop) : file_(std::move(file)), stop_(stop) {
    if (!file_.empty()) thread_ = std::thread([this] { look(); });
  }
  ~Lookout() {
    {
      const std::lock_guard lock(mutex_);
      ended_ = true;
    }
    wake_.notify_one();
    if (thread_.joinable()) thread_.join();
  }
  Lookout(const Lookout&) = delete;
  Lookout& operator=(const Lookout&) = delete;

  // Set within a second after the file is there, and soon after `stop`.
  const std::atomic<bool>& over() const { return file_.empty() ? stop_ : over_; }
  bool seen() const { return seen_; }  // the file

 private:
  void look() {
    constexpr auto pause = std::chrono::milliseconds(100);
    constexpr int pausesBetweenLooks = 5;
    std::unique_lock lock(mutex_);
    for (int pauses = 0; !ended_ && !over_; ++pauses) {
      std::error_code ignored;
      if (pauses % pausesBetweenLooks == 0) seen_ = std::filesystem::exists(file_, ignored);
      over_ = stop_ || seen_;
      wake_.wait_for(lock, pause);
    }
  }

  std::string file_;
  const std::atomic<bool>& stop_;
  std::atomic<bool> over_{false};
  std::atomic<bool> seen_{false};
  std::mutex mutex_;
  std::condition_variable wake_;
  bool ended_ = false;
  std::thread thread_;
};

}  // namespace tpn
