#include "simulator/pod.h"

#include <algorithm>

namespace zendor::simulator {

namespace {

Reply textReply(const std::string& text) { return {kDone, Bytes(text.begin(), text.end())}; }

Reply serialNumber(const Pod& pod) {
  const auto byte = [&](unsigned shift) {
    return static_cast<std::uint8_t>(pod.serialNumber >> shift);
  };
  return {kDone, {byte(0), byte(8), byte(16)}};
}

Reply readMemory(const Pod& pod, const Bytes& data) {
  const std::size_t block = data[0];
  return block < Pod::kMemoryBlocks ? Reply{kDone, pod.memory[block]} : Reply{kRefused, {}};
}

Reply writeMemory(Pod& pod, const Bytes& data) {
  const std::size_t block = data[0];
  if (block >= Pod::kMemoryBlocks) return {kRefused, {}};
  pod.memory[block].assign(data.begin() + 1, data.end());
  return {};
}

Reply setVariables(Pod& pod, const Bytes& data) {
  pod.variables = data;
  return {};
}

Reply latchOutputs(Pod& pod, const Bytes& data) {
  pod.latchedOutputs = data[0];
  return {};
}

Reply changeAddress(Pod& pod, const Bytes& data) {
  pod.address = data[0];
  return {};
}

struct Command {
  std::uint8_t header;
  std::size_t fewestData, mostData;
  Reply (*carryOut)(Pod& pod, const Bytes& data);
};

constexpr std::size_t kAny = 255;

constexpr Command kCommands[] = {
    // poll
    {254, 0, 0, [](Pod&, const Bytes&) { return Reply{}; }},
    // request manufacturer, category, product code, serial number, software revision, build code
    {246, 0, 0, [](Pod& pod, const Bytes&) { return textReply(pod.manufacturer); }},
    {245, 0, 0, [](Pod& pod, const Bytes&) { return textReply(pod.category); }},
    {244, 0, 0, [](Pod& pod, const Bytes&) { return textReply(pod.productCode); }},
    {242, 0, 0, [](Pod& pod, const Bytes&) { return serialNumber(pod); }},
    {241, 0, 0, [](Pod& pod, const Bytes&) { return textReply(pod.softwareRevision); }},
    {192, 0, 0, [](Pod& pod, const Bytes&) { return textReply(pod.buildCode); }},
    // request variable set, set variables
    {247, 0, 0,
     [](Pod& pod, const Bytes&) {
       return Reply{kDone, pod.variables};
     }},
    {165, 0, kAny, setVariables},
    // read memory, write memory
    {215, 1, 1, [](Pod& pod, const Bytes& data) { return readMemory(pod, data); }},
    {214, 1, kAny, writeMemory},
    // latch outputs, change address
    {233, 1, 1, latchOutputs},
    {251, 1, 1, changeAddress},
};

}  // namespace

Reply Pod::answer(std::uint8_t header, const Bytes& data) {
  const auto* command = std::ranges::find(kCommands, header, &Command::header);
  if (command == std::end(kCommands) || data.size() < command->fewestData ||
      data.size() > command->mostData) {
    return {kRefused, {}};
  }
  return command->carryOut(*this, data);
}

}  // namespace zendor::simulator
