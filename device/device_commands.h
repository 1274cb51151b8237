// One routine for each command of a device on the bus. Each runs one transaction and returns its
// command result unchanged: "name = reply", or a text that begins with "Error : ".
//
// destination, source, block and newAddress are bytes, 0 to 255. An argument that cannot be sent is
// refused with an "Error : " result, and nothing is sent then. prompt says whether the user is
// asked to retry when both attempts have failed.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "protocol/transaction.h"

namespace zendor {

struct CommandKind;  // what differs from command to command

class DeviceCommands {
 public:
  explicit DeviceCommands(Transaction& transaction);

  // A quick poll waits 100 ms for each reply, instead of 1000 ms.
  std::string DRAVO_Poll(bool prompt, bool quick, int destination, int source);

  std::string DRAVO_RequestManufacturer(bool prompt, int destination, int source);
  std::string DRAVO_RequestCategory(bool prompt, int destination, int source);
  std::string DRAVO_RequestProductCode(bool prompt, int destination, int source);
  std::string DRAVO_RequestSerialNumber(bool prompt, int destination, int source);
  std::string DRAVO_RequestSoftwareRevision(bool prompt, int destination, int source);
  std::string DRAVO_RequestBuildCode(bool prompt, int destination, int source);
  std::string DRAVO_RequestVariableSet(bool prompt, int destination, int source);

  // At most 255 values, each rounded to a byte, a half to the even neighbour.
  std::string DRAVO_SetVariables(bool prompt, std::span<const double> values, int destination,
                                 int source);

  std::string DRAVO_MemoryRead(bool prompt, int block, int destination, int source);

  // Sends exactly length characters, at most 254, of a UTF-8 text: cut, or filled with blanks.
  std::string DRAVO_MemoryWrite(bool prompt, int block, std::string_view text, int length,
                                int destination, int source);

  // Sends value modulo 256; a negative value is refused. Always asks to retry.
  std::string DRAVO_LatchOutputs(int value, int destination, int source);

  // Gives the device at destination a new address. Always asks to retry.
  std::string DRAVO_ChangeAddress(int newAddress, int destination, int source);

 private:
  // The items are the data bytes, each written as "," and its number; empty for none.
  std::string send(const CommandKind& kind, const std::string& items, bool prompt, int destination,
                   int source);

  Transaction& transaction_;
};

}  // namespace zendor
