#include "device/device_commands.h"

#include <cstdint>

#include "common/byte_text.h"
#include "common/command_result.h"
#include "common/conversions.h"

namespace zendor {

namespace {

constexpr int kReplyTimeoutMs = 1000;
constexpr int kQuickReplyTimeoutMs = 100;
// One data byte is taken by the block number.
constexpr int kMaximumMemoryLength = static_cast<int>(kMaximumDataLength) - 1;

constexpr const char* kBlockRefusal = "The block number does not fit in one byte";

struct CommandKind {
  int header = 0;
  const char* displayName = "";
  ReplyFormat replyFormat = ReplyFormat::Hidden;
};

constexpr CommandKind kPoll{254, "Poll", ReplyFormat::Hidden};
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

// A request is written as the number of its header and, for each data byte, "," and the number of
// the byte.
std::string item(double number) { return "," + Tool_FormatDecimal(number, 0); }

Command command(const CommandKind& kind, const std::string& items, bool prompt, int destination,
                int source) {
  return {.request = Tool_FormatDecimal(kind.header, 0) + items,
          .destination = destination,
          .source = source,
          .timeoutMs = kReplyTimeoutMs,
          .displayName = kind.displayName,
          .replyFormat = kind.replyFormat,
          .reverseData = false,
          .promptOnFailure = prompt};
}

}  // namespace

DeviceCommands::DeviceCommands(Transaction& transaction) : transaction_(transaction) {}

std::string DeviceCommands::DRAVO_Poll(bool prompt, bool quick, int destination, int source) {
  Command poll = command(kPoll, "", prompt, destination, source);
  if (quick) poll.timeoutMs = kQuickReplyTimeoutMs;
  return transaction_.LL_DRAVO_Send(poll);
}

std::string DeviceCommands::DRAVO_RequestManufacturer(bool prompt, int destination, int source) {
  return transaction_.LL_DRAVO_Send(command(kRequestManufacturer, "", prompt, destination, source));
}

std::string DeviceCommands::DRAVO_RequestCategory(bool prompt, int destination, int source) {
  return transaction_.LL_DRAVO_Send(command(kRequestCategory, "", prompt, destination, source));
}

std::string DeviceCommands::DRAVO_RequestProductCode(bool prompt, int destination, int source) {
  return transaction_.LL_DRAVO_Send(command(kRequestProductCode, "", prompt, destination, source));
}

std::string DeviceCommands::DRAVO_RequestSerialNumber(bool prompt, int destination, int source) {
  return transaction_.LL_DRAVO_Send(command(kRequestSerialNumber, "", prompt, destination, source));
}

std::string DeviceCommands::DRAVO_RequestSoftwareRevision(bool prompt, int destination,
                                                          int source) {
  return transaction_.LL_DRAVO_Send(
      command(kRequestSoftwareRevision, "", prompt, destination, source));
}

std::string DeviceCommands::DRAVO_RequestBuildCode(bool prompt, int destination, int source) {
  return transaction_.LL_DRAVO_Send(command(kRequestBuildCode, "", prompt, destination, source));
}

std::string DeviceCommands::DRAVO_RequestVariableSet(bool prompt, int destination, int source) {
  return transaction_.LL_DRAVO_Send(command(kRequestVariableSet, "", prompt, destination, source));
}

std::string DeviceCommands::DRAVO_SetVariables(bool prompt, std::span<const double> values,
                                               int destination, int source) {
  std::string items;
  for (const double value : values) {
    const double rounded = roundHalfToEven(value);
    if (!fitsByte(rounded)) return errorResult("A variable does not fit in one byte");
    items += item(rounded);
  }
  return transaction_.LL_DRAVO_Send(command(kSetVariables, items, prompt, destination, source));
}

std::string DeviceCommands::DRAVO_MemoryRead(bool prompt, int block, int destination, int source) {
  if (!fitsByte(block)) return errorResult(kBlockRefusal);
  return transaction_.LL_DRAVO_Send(command(kMemoryRead, item(block), prompt, destination, source));
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
  return transaction_.LL_DRAVO_Send(command(kMemoryWrite, items, prompt, destination, source));
}

std::string DeviceCommands::DRAVO_LatchOutputs(int value, int destination, int source) {
  if (value < 0) return errorResult("The latch value is negative");
  return transaction_.LL_DRAVO_Send(
      command(kLatchOutputs, item(value % 256), true, destination, source));
}

std::string DeviceCommands::DRAVO_ChangeAddress(int newAddress, int destination, int source) {
  if (!fitsByte(newAddress)) return errorResult("The new address does not fit in one byte");
  return transaction_.LL_DRAVO_Send(
      command(kChangeAddress, item(newAddress), true, destination, source));
}

}  // namespace zendor
