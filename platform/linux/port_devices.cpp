#include "platform/linux/port_devices.h"

#include <compare>
#include <cstddef>
#include <iterator>
#include <set>
#include <system_error>
#include <utility>

#include "platform/linux/first_line.h"

namespace zendor {

namespace {

namespace fs = std::filesystem;

// Sorts ports as a person counts them: on-board ports first, then by name, ttyUSB2 before ttyUSB10.
struct SortKey {
  bool adapter = false;
  std::string stem;  // the name without its number
  std::size_t nameLength = 0;
  std::string name;

  auto operator<=>(const SortKey&) const = default;
};

SortKey sortKeyOf(const std::string& name, bool adapter) {
  return {adapter, name.substr(0, name.find_last_not_of("0123456789") + 1), name.size(), name};
}

// The terminals with hardware behind them. Consoles, virtual terminals and pseudo-terminals are
// left out, because the kernel shows no device of theirs. An on-board port tells its kind of chip.
// The kernel also lists places for chips that are not there, and the kind of those is 0.
std::set<SortKey> realPorts(const fs::path& terminals) {
  std::set<SortKey> ports;
  std::error_code error;
  const fs::directory_iterator end;
  for (fs::directory_iterator entry(terminals, error); entry != end; entry.increment(error)) {
    const fs::path& terminal = entry->path();
    const std::string chip = firstLineOf(terminal / "type");
    if (chip != "0" && fs::exists(terminal / "device", error)) {
      ports.insert(sortKeyOf(terminal.filename().string(), chip.empty()));
    }
  }
  return ports;
}

// The name that the USB device of the port gives itself; empty for other ports. The search upwards
// ends at that device, because the hub above it has a name of its own.
std::string usbProductOf(const fs::path& port) {
  std::error_code error;
  fs::path device = fs::canonical(port, error);
  for (; device.has_relative_path(); device = device.parent_path()) {
    if (fs::exists(device / "idVendor", error)) return firstLineOf(device / "product");
  }
  return {};
}

}  // namespace

PortDevices::PortDevices(std::filesystem::path sysfs) : terminals_(std::move(sysfs)) {
  terminals_ /= "class/tty";
}

std::optional<std::string> PortDevices::deviceOfPort(int portNumber) const {
  const std::set<SortKey> ports = realPorts(terminals_);
  if (portNumber < 1 || static_cast<std::size_t>(portNumber) > ports.size()) return std::nullopt;
  return "/dev/" + std::next(ports.begin(), portNumber - 1)->name;
}

std::string PortDevices::describePort(int portNumber) const {
  const auto device = deviceOfPort(portNumber);
  if (!device) return "no such port on this computer";
  const fs::path name = fs::path(*device).filename();
  const std::string product = usbProductOf(terminals_ / name / "device");
  return product.empty() ? *device : *device + ", " + product;
}

}  // namespace zendor
