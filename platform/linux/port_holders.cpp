#include "platform/linux/port_holders.h"

#include <dirent.h>
#include <fcntl.h>
#include <linux/major.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>
#include <system_error>

#include "platform/linux/first_line.h"
#include "platform/linux/terminal_kinds.h"

namespace zendor {

namespace {

namespace fs = std::filesystem;

struct CloseFolder {
  void operator()(DIR* folder) const { ::closedir(folder); }
};
using Folder = std::unique_ptr<DIR, CloseFolder>;

// The next name in the folder that is a number, or null at the end of the folder.
const char* nextNumber(const Folder& folder) {
  while (const dirent* const entry = ::readdir(folder.get())) {
    if (entry->d_name[0] >= '0' && entry->d_name[0] <= '9') return entry->d_name;
  }
  return nullptr;
}

// Paths that lead to the same device have the same device number. Pseudo-terminals of two
// containers can share a number, so for a pseudo-terminal the file system has to be the same, too.
bool isDevice(const struct statx& file, const struct stat& device) {
  if (!S_ISCHR(file.stx_mode)) return false;
  if (makedev(file.stx_rdev_major, file.stx_rdev_minor) != device.st_rdev) return false;
  return !isPseudoTerminal(device.st_rdev) ||
         makedev(file.stx_dev_major, file.stx_dev_minor) == device.st_dev;
}

// What the open files of a process tell about a device.
enum class Evidence { IsOpen, IsNotOpen, Unclear };

// "/dev/tty" and "/dev/console" lead to a terminal that has a number of its own.
bool leadsToAnotherTerminal(const struct statx& file) {
  return file.stx_rdev_major == TTYAUX_MAJOR;
}

// The evidence is unclear when the system does not show every file, or when a file leads to another
// terminal, which may be the device.
Evidence evidenceOf(const Folder& descriptors, const struct stat& device) {
  if (!descriptors) return Evidence::Unclear;
  auto evidence = Evidence::IsNotOpen;
  // Only what the system knows by itself is asked for, because a file can lie on a server that
  // never answers.
  constexpr int kWhatIsKnown = AT_STATX_DONT_SYNC | AT_NO_AUTOMOUNT;
  while (const char* const number = nextNumber(descriptors)) {
    struct statx file {};
    const bool isShown =
        ::statx(::dirfd(descriptors.get()), number, kWhatIsKnown, STATX_TYPE, &file) == 0;
    if (isShown && isDevice(file, device)) return Evidence::IsOpen;
    if (!isShown || leadsToAnotherTerminal(file)) evidence = Evidence::Unclear;
  }
  return evidence;
}

// The processes of one login, or of one service, share a session. The session may have a terminal.
struct Session {
  long number = 0;
  unsigned int terminal = 0;  // its number as the file "stat" has it, 0 for none
};

// The session of a process, from its file "stat". There the name of the process stands in
// parentheses and may itself hold any character, even a parenthesis, so the name ends at the last
// parenthesis of the file. The fields that follow are separated by blanks.
Session sessionOf(const fs::path& process) {
  std::ifstream file(process / "stat");
  std::string text;
  std::getline(file, text, '\0');
  std::istringstream fields(text.substr(text.rfind(')') + 1));
  std::string state;
  long parent = 0;
  long group = 0;
  Session session;
  fields >> state >> parent >> group >> session.number >> session.terminal;
  return session;
}

// From the lowest bit on, the number has eight bits of the minor number, twelve of the major number
// and the rest of the minor number.
dev_t deviceNumber(unsigned int terminal) {
  return makedev((terminal >> 8U) & 0xFFFU, (terminal & 0xFFU) | ((terminal >> 12U) & 0xFFF00U));
}

// Whether the device is the terminal of a session that is not the one of this process. That a
// pseudo-terminal has the same number is no evidence, because it may be one of another container.
bool isTerminalOf(const Session& session, const Session& own, const struct stat& device) {
  return session.number != own.number && deviceNumber(session.terminal) == device.st_rdev &&
         !isPseudoTerminal(device.st_rdev);
}

}  // namespace

std::optional<std::string> otherHolderOf(const struct stat& device, const fs::path& processes) {
  // The number of this process as the folder shows it. In a container it can differ from getpid().
  std::error_code error;
  const std::string self = fs::read_symlink(processes / "self", error).string();
  const Session own = sessionOf(processes / self);
  const Folder all(::opendir(processes.c_str()));
  while (const char* const number = all ? nextNumber(all) : nullptr) {
    if (number == self) continue;
    const fs::path process = processes / number;
    const Folder descriptors(::opendir((process / "fd").c_str()));
    const Evidence evidence = evidenceOf(descriptors, device);
    if (evidence == Evidence::IsOpen ||
        (evidence == Evidence::Unclear && isTerminalOf(sessionOf(process), own, device))) {
      return std::string("process ") + number + " (" + firstLineOf(process / "comm") + ")";
    }
  }
  return std::nullopt;
}

}  // namespace zendor
