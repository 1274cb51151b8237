#include "device/pod.h"

#include <algorithm>

#include "common/command_result.h"
#include "protocol/reply_text.h"

namespace zendor {

namespace {

constexpr const char* kFail = "Fail";
constexpr std::int16_t kSerialNumberBytes = 3;

}  // namespace

Pod::Pod(DeviceCommands& commands, const FrameStores& stores)
    : commands_(commands), stores_(stores) {}

bool Pod::Pod_IsAttached() {
  return !Tool_IsErrorResult(commands_.DRAVO_Poll(false, false, kPodAddress, kHostAddress));
}

std::string Pod::Pod_ReadIdentity(std::int32_t& serialNumber, int attempts, int destination,
                                  int source) {
  for (attempts = std::max(attempts, 1); attempts > 0; --attempts) {
    std::string type = Pod_ReadIdentityOnce(serialNumber, destination, source);
    if (type != kFail) return type;
  }
  return kFail;
}

std::string Pod::Pod_ReadIdentityOnce(std::int32_t& serialNumber, int destination, int source) {
  std::string result = commands_.DRAVO_RequestBuildCode(false, destination, source);
  if (Tool_IsErrorResult(result)) return kFail;
  std::string code = Tool_ValueAfterEquals(result);
  if (code != "Engineer" && code != "Customer") return kFail;

  result = commands_.DRAVO_RequestSerialNumber(false, destination, source);
  if (Tool_IsErrorResult(result)) return kFail;
  // A shorter reply holds no serial number. One without data leaves the bytes of an earlier reply
  // in RxData.
  if (stores_.RxDataCount < kSerialNumberBytes) return kFail;
  serialNumber = static_cast<std::int32_t>(numberFromBytes(stores_.RxData));
  return code;
}

}  // namespace zendor
