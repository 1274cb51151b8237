#include "simulator/device_link.h"

#include <stdexcept>
#include <string>
#include <system_error>
#include <utility>

namespace zendor::simulator {

namespace fs = std::filesystem;

DeviceLink::DeviceLink(fs::path link, fs::path device)
    : link_(std::move(link)), device_(std::move(device)) {
  std::error_code error;
  if (fs::is_symlink(link_, error)) fs::remove(link_, error);
  fs::create_symlink(device_, link_, error);
  if (error) {
    throw std::runtime_error("The link " + link_.string() + " cannot be made: " + error.message() +
                             ".");
  }
}

// The link stays if another simulator has put its own in this place meanwhile.
DeviceLink::~DeviceLink() {
  std::error_code error;
  if (fs::read_symlink(link_, error) == device_) fs::remove(link_, error);
}

}  // namespace zendor::simulator
