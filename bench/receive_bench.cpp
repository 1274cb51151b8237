// Measures the receive path, poll and reply check, for a long and a short reply that come byte by
// byte. Each line that is printed has the nanoseconds per byte of both.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <numeric>
#include <vector>

#include "protocol/frame.h"
#include "protocol/receive_poll.h"
#include "protocol/reply_check.h"

namespace zendor {
namespace {

using Bytes = std::vector<std::uint8_t>;

// A line on which one byte waits at every poll.
class ByteLine final : public SerialPort {
 public:
  explicit ByteLine(std::span<const std::uint8_t> bytes) : rest_(bytes) {}
  bool isOpen() const override { return true; }
  void open() override {}
  void close() override {}
  std::size_t bytesWaiting() override { return rest_.empty() ? 0 : 1; }
  std::span<const std::uint8_t> readAll() override {
    const auto byte = rest_.first(1);
    rest_ = rest_.subspan(1);
    return byte;
  }
  void discardWaiting() override {}
  std::size_t bytesToSend() override { return 0; }
  void write(std::span<const std::uint8_t>) override {}

 private:
  std::span<const std::uint8_t> rest_;
};

// The echo of a poll and a reply of the given length.
Bytes received(std::size_t replyLength) {
  Bytes reply(replyLength - 1);
  std::iota(reply.begin(), reply.end(), std::uint8_t{0});
  const Bytes header{1, static_cast<std::uint8_t>(replyLength - kFrameOverhead), 80, 0};
  std::ranges::copy(header, reply.begin());
  reply.push_back(checksumOf(reply));
  Bytes all{80, 0, 1, 254, 177};
  all.insert(all.end(), reply.begin(), reply.end());
  return all;
}

void receive(const Bytes& bytes, FrameStores& stores) {
  ByteLine line(bytes);
  stores.RxCount = 0;
  while (!LL_DRAVO_PollReceive(line, stores.RxBuffer, stores.TxLength, stores.RxCount)) {
  }
  if (!LL_DRAVO_CheckReply(stores, 80, 1).empty()) std::exit(EXIT_FAILURE);
}

double nanosecondsPerByte(const Bytes& bytes) {
  using Time = std::chrono::steady_clock;
  constexpr std::size_t kBytes = 100'000;
  const std::size_t replies = kBytes / bytes.size();
  FrameStores stores;
  stores.TxLength = kFrameOverhead;
  const auto start = Time::now();
  for (std::size_t count = 0; count < replies; ++count) receive(bytes, stores);
  const std::chrono::duration<double, std::nano> took = Time::now() - start;
  return took.count() / static_cast<double>(replies * bytes.size());
}

}  // namespace
}  // namespace zendor

int main() {
  const auto longReply = zendor::received(255), shortReply = zendor::received(5);
  for (int pairs = 0; pairs < 100; ++pairs) {
    const double perByte = zendor::nanosecondsPerByte(longReply);
    std::printf("%.2f %.2f\n", perByte, zendor::nanosecondsPerByte(shortReply));
  }
}
