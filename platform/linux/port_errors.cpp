#include "platform/linux/port_errors.h"

#include <grp.h>
#include <sys/stat.h>

#include <cerrno>
#include <system_error>

namespace zendor {

namespace {

PortError absent(int number, const std::string& port) {
  return {number, "There is no serial port " + port +
                      " on this computer. Plug in its adapter and try again."};
}

// Nobody should join the administrator's own group for a serial port.
bool isOpenToItsGroup(const struct stat& entry) {
  constexpr mode_t kBoth = S_IRGRP | S_IWGRP;
  return (entry.st_mode & kBoth) == kBoth && entry.st_gid != 0;
}

PortError forbidden(int number, const std::string& device) {
  const std::string refusal = "You are not allowed to use the serial port " + device + ". ";
  struct stat entry {};
  if (::stat(device.c_str(), &entry) != 0 || !isOpenToItsGroup(entry)) {
    return {number, refusal + "Ask the administrator of this computer for access to it."};
  }
  const group* const owner = ::getgrgid(entry.st_gid);
  const std::string name = owner != nullptr ? owner->gr_name : std::to_string(entry.st_gid);
  return {number, refusal + "Join the group \"" + name + "\" that owns it (sudo usermod -aG " +
                      name + " $USER), then log out and log in again."};
}

}  // namespace

PortError absentPort(int portNumber) { return absent(ENODEV, std::to_string(portNumber)); }

PortError busyPort(const std::string& device, const std::string& evidence) {
  return {EBUSY, "The serial port " + device + " is in use by another program" +
                     (evidence.empty() ? "" : ": " + evidence) +
                     ". Close that program and try again."};
}

PortError unsupportedRate(const std::string& device, int asked, unsigned int offered) {
  return {EINVAL, "The serial port " + device + " cannot run at " + std::to_string(asked) +
                      " baud: its driver offers " + std::to_string(offered) +
                      ". Use another adapter."};
}

PortError unfinishedWrite(const std::string& device) {
  return {EAGAIN, "The serial port " + device +
                      " did not accept all bytes: earlier ones have not left yet. Try again."};
}

PortError refusedCall(const std::string& device, int errorNumber) {
  switch (errorNumber) {
    case ENOENT:
    case ENODEV:
    case ENXIO:
      return absent(errorNumber, device);
    case EACCES:
    case EPERM:
      return forbidden(errorNumber, device);
    case ENOTTY:
    case EISDIR:
      return {errorNumber, device + " is not a serial port. Choose another port."};
    case EIO:
      return {errorNumber, "The serial port " + device +
                               " is gone: nothing is behind it any more. Plug its adapter in again "
                               "and try again."};
    default:
      return {errorNumber, "The serial port " + device + " cannot be used: " +
                               std::generic_category().message(errorNumber) + "."};
  }
}

}  // namespace zendor
