#include "platform/linux/port_holders.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <system_error>

#include "platform/linux/pseudo_terminal.h"

namespace zendor {

namespace {

struct CloseFolder {
  void operator()(DIR* folder) const { ::closedir(folder); }
};
using Folder = std::unique_ptr<DIR, CloseFolder>;

// The next name in the folder that is a number; none for a folder that is gone or may not be read.
const char* nextNumber(const Folder& folder) {
  while (const dirent* const entry = folder ? ::readdir(folder.get()) : nullptr) {
    if (entry->d_name[0] >= '0' && entry->d_name[0] <= '9') return entry->d_name;
  }
  return nullptr;
}

// By its number, which is the same under every path. Pseudo-terminals are counted anew in every
// container, each in a file system of its own.
bool isDevice(const struct statx& file, const struct stat& device) {
  if (!S_ISCHR(file.stx_mode)) return false;
  if (makedev(file.stx_rdev_major, file.stx_rdev_minor) != device.st_rdev) return false;
  return !isPseudoTerminal(device.st_rdev) ||
         makedev(file.stx_dev_major, file.stx_dev_minor) == device.st_dev;
}

bool hasOpen(const std::string& process, const struct stat& device) {
  // Never asks a file server, which may not answer.
  constexpr int kWhatIsKnown = AT_STATX_DONT_SYNC | AT_NO_AUTOMOUNT;
  const Folder descriptors(::opendir(("/proc/" + process + "/fd").c_str()));
  for (auto number = nextNumber(descriptors); number; number = nextNumber(descriptors)) {
    struct statx file {};
    if (::statx(::dirfd(descriptors.get()), number, kWhatIsKnown, STATX_TYPE, &file) == 0 &&
        isDevice(file, device)) {
      return true;
    }
  }
  return false;
}

// A program may call itself by any bytes; a description is a text.
std::string nameOf(const std::string& process) {
  std::ifstream file("/proc/" + process + "/comm");
  std::string name;
  std::getline(file, name);
  std::erase_if(name, [](char c) { return c < ' ' || c > '~'; });
  return name;
}

}  // namespace

std::optional<std::string> otherHolderOf(int line) {
  struct stat device {};
  if (::fstat(line, &device) != 0) return std::nullopt;
  // By the number that it has there, which need not be the one that it knows itself by.
  std::error_code error;
  const std::string self = std::filesystem::read_symlink("/proc/self", error).string();
  const Folder processes(::opendir("/proc"));
  for (auto process = nextNumber(processes); process; process = nextNumber(processes)) {
    if (process != self && hasOpen(process, device)) {
      return std::string("process ") + process + " (" + nameOf(process) + ")";
    }
  }
  return std::nullopt;
}

}  // namespace zendor
