#include "hwx/transfer/TransferProgress.h"

#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <utility>

#include "hwx/text/Output.h"

namespace hwx {

namespace fs = std::filesystem;

namespace {

constexpr std::chrono::milliseconds kInterval(200);

}  // namespace

TTransferProgress::TTransferProgress(TPosition position, std::optional<std::uintmax_t> total)
    : fPosition(std::move(position)), fTotal(total) {
  if (::isatty(STDERR_FILENO) == 1) fThread = std::thread([this] { Show(); });
}

TTransferProgress::~TTransferProgress() {
  {
    const std::lock_guard<std::mutex> lock(fMutex);
    fHasEnded = true;
  }
  fEnd.notify_one();
  if (!fThread.joinable()) return;
  fThread.join();
  EndProgress();
}

void TTransferProgress::Show() {
  std::unique_lock<std::mutex> lock(fMutex);
  while (!fEnd.wait_for(lock, kInterval, [this] { return fHasEnded; })) {
    if (const auto position = fPosition()) ShowProgress(ProgressText(*position, fTotal));
  }
}

std::string ProgressText(std::uintmax_t position, std::optional<std::uintmax_t> total) {
  const std::string bytes = std::to_string(position);
  if (!total) return bytes + " bytes";
  const std::uintmax_t percent =
      *total == 0 ? 100
                  : static_cast<std::uintmax_t>(100.0L * static_cast<long double>(position) /
                                                static_cast<long double>(*total));
  return bytes + " of " + std::to_string(*total) + " bytes (" + std::to_string(percent) + " %)";
}

std::optional<std::uintmax_t> ReadingPosition(const std::string& path) {
  std::error_code failure;
  for (const fs::directory_entry& entry : fs::directory_iterator("/proc/self/fd", failure)) {
    if (!fs::equivalent(entry.path(), path, failure) || failure) continue;
    std::ifstream info("/proc/self/fdinfo/" + entry.path().filename().string());
    std::string key;
    std::uintmax_t position = 0;
    if (info >> key >> position && key == "pos:") return position;
  }
  return std::nullopt;
}

}  // namespace hwx
