#include "device/device_commands.h"

#include <cstdint>

#include "common/byte_text.h"
#include "common/command_result.h"
#include "common/conversions.h"

namespace zendor {

struct CommandKind {
  int header = 0;
  const char* displayName = "";
  ReplyFormat replyFormat = ReplyFormat::Hidden;
  int timeoutMs = 1000;  // for each reply
};

namespace {

// The block number needs one data byte.
constexpr int kMaximumMemoryLength = static_cast<int>(kMaximumDataLength) - 1;

constexpr const char* kBlockRefusal = "The block number does not fit in one byte";

constexpr CommandKind kPoll{254, "Poll", ReplyFormat::Hidden};
constexpr CommandKind kQuickPoll{254, "Poll", ReplyFormat::Hidden, 100};
constexpr CommandKind kRequestManufacturer{246, "Manufacturer", ReplyFormat::Characters};
constexpr CommandKind kRequestCategory{245, "Category", ReplyFormat::Characters};
constexpr CommandKind kRequestProductCode{244, "Product code", ReplyFormat::Characters};
constexpr CommandKind kRequestSerialNumber{242, "Serial no.", ReplyFormat::Number};
constexpr CommandKind kRequestSoftwareRevision{241, "Software revision", ReplyFormat::Characters};
constexpr CommandKind kRequestBuildCode{192, "Build code", ReplyFormat::Characters};
constexpr CommandKind kRequestVariableSet{247, "Variable set", ReplyFormat::Hexadecimal};
constexpr CommandKind kSetVariables{165, "Set variables", ReplyFormat::Hidden};
constexpr CommandKind kMemoryRead{215, "Memory read", ReplyFormat::Characters};
constexpr CommandKind kMemoryWrite{214, "Memory write", ReplyFormat::Hidden};
constexpr CommandKind kLatchOutputs{233, "Latch outputs", ReplyFormat::Hidden};
constexpr CommandKind kChangeAddress{251, "MDCES Change", ReplyFormat::Hidden};

// A data byte as it is written in a request.
std::string item(double number) { return "," + Tool_FormatDecimal(number, 0); }

}  // namespace

DeviceCommands::DeviceCommands(Transaction& transaction) : transaction_(transaction) {}

std::string DeviceCommands::DRAVO_Poll(bool prompt, bool quick, int destination, int source) {
  return send(quick ? kQuickPoll : kPoll, "", prompt, destination, source);
}

std::string DeviceCommands::DRAVO_RequestManufacturer(bool prompt, int destination, int source) {
  return send(kRequestManufacturer, "", prompt, destination, source);
}

std::string DeviceCommands::DRAVO_RequestCategory(bool prompt, int destination, int source) {
  return send(kRequestCategory, "", prompt, destination, source);
}

std::string DeviceCommands::DRAVO_RequestProductCode(bool prompt, int destination, int source) {
  return send(kRequestProductCode, "", prompt, destination, source);
}

std::string DeviceCommands::DRAVO_RequestSerialNumber(bool prompt, int destination, int source) {
  return send(kRequestSerialNumber, "", prompt, destination, source);
}

std::string DeviceCommands::DRAVO_RequestSoftwareRevision(bool prompt, int destination,
                                                          int source) {
  return send(kRequestSoftwareRevision, "", prompt, destination, source);
}

std::string DeviceCommands::DRAVO_RequestBuildCode(bool prompt, int destination, int source) {
  return send(kRequestBuildCode, "", prompt, destination, source);
}

std::string DeviceCommands::DRAVO_RequestVariableSet(bool prompt, int destination, int source) {
  return send(kRequestVariableSet, "", prompt, destination, source);
}

std::string DeviceCommands::DRAVO_SetVariables(bool prompt, std::span<const double> values,
                                               int destination, int source) {
  std::string items;
  for (const double value : values) {
    const double rounded = roundHalfToEven(value);
    if (!fitsByte(rounded)) return errorResult("A variable does not fit in one byte");
    items += item(rounded);
  }
  return send(kSetVariables, items, prompt, destination, source);
}

std::string DeviceCommands::DRAVO_MemoryRead(bool prompt, int block, int destination, int source) {
  if (!fitsByte(block)) return errorResult(kBlockRefusal);
  return send(kMemoryRead, item(block), prompt, destination, source);
}

std::string DeviceCommands::DRAVO_MemoryWrite(bool prompt, int block, std::string_view text,
                                              int length, int destination, int source) {
  if (!fitsByte(block)) return errorResult(kBlockRefusal);
  if (length > kMaximumMemoryLength)
    return errorResult("More than 254 characters cannot be written");
  const std::size_t characters = length > 0 ? static_cast<std::size_t>(length) : 0;
  auto codes = bytesOfText(firstCharacters(text, characters));
  if (!codes) return errorResult("The text holds a character that has no byte");
  codes->resize(characters, ' ');

  std::string items = item(block);
  for (const std::uint8_t code : *codes) items += item(code);
  return send(kMemoryWrite, items, prompt, destination, source);
}

std::string DeviceCommands::DRAVO_LatchOutputs(int value, int destination, int source) {
  if (value < 0) return errorResult("The latch value is negative");
  return send(kLatchOutputs, item(value % 256), true, destination, source);
}

std::string DeviceCommands::DRAVO_ChangeAddress(int newAddress, int destination, int source) {
  if (!fitsByte(newAddress)) return errorResult("The new address does not fit in one byte");
  return send(kChangeAddress, item(newAddress), true, destination, source);
}

std::string DeviceCommands::send(const CommandKind& kind, const std::string& items, bool prompt,
                                 int destination, int source) {
  return transaction_.LL_DRAVO_Send({.request = Tool_FormatDecimal(kind.header, 0) + items,
                                     .destination = destination,
                                     .source = source,
                                     .timeoutMs = kind.timeoutMs,
                                     .displayName = kind.displayName,
                                     .replyFormat = kind.replyFormat,
                                     .reverseData = false,
                                     .promptOnFailure = prompt});
}

}  // namespace zendor
