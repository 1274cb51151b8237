// The pod as a whole: whether one answers, and who it is. These routines ask the user nothing,
// because the result tells every failure.
#pragma once

#include <cstdint>
#include <string>

#include "device/device_commands.h"
#include "protocol/frame.h"

namespace zendor {

inline constexpr int kPodAddress = 80;
inline constexpr int kHostAddress = 1;

class Pod {
 public:
  // The commands leave the data of every reply in the stores. Both outlive the pod.
  Pod(DeviceCommands& commands, const FrameStores& stores);

  // Whether a pod has answered a poll on the open port.
  bool Pod_IsAttached();

  // The pod's type, "Customer" or "Engineer", or "Fail" when each of the attempts (at least one)
  // has failed. serialNumber, 0 to 16777215, is written only by a read that succeeds.
  std::string Pod_ReadIdentity(std::int32_t& serialNumber, int attempts, int destination,
                               int source);

 private:
  std::string Pod_ReadIdentityOnce(std::int32_t& serialNumber, int destination, int source);

  DeviceCommands& commands_;
  const FrameStores& stores_;
};

}  // namespace zendor
