#include "simulator/pseudo_terminal.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/epoll.h>
#include <sys/eventfd.h>
#include <sys/timerfd.h>
#include <termios.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <system_error>

namespace zendor::simulator {

namespace {

void require(bool succeeded, const char* action) {
  if (!succeeded) throw std::system_error(errno, std::generic_category(), action);
}

FileDescriptor owned(int number, const char* action) {
  require(number >= 0, action);
  return FileDescriptor(number);
}

std::string pathOfOtherEnd(int master) {
  require(::unlockpt(master) == 0, "unlock a pseudo-terminal");
  std::array<char, 64> path{};
  const int error = ::ptsname_r(master, path.data(), path.size());
  if (error != 0) throw std::system_error(error, std::generic_category(), "name a pseudo-terminal");
  return path.data();
}

// Discards the bytes that nobody has read at the other end, and has that end pass all bytes
// unchanged. Both are done from this end, because a program that opens the other end meanwhile must
// not find it in use.
bool clean(int master) {
  termios settings{};
  if (::tcflush(master, TCOFLUSH) != 0 || ::tcgetattr(master, &settings) != 0) return false;
  ::cfmakeraw(&settings);
  return ::tcsetattr(master, TCSAFLUSH, &settings) == 0;
}

void watch(int events, int descriptor, std::uint32_t what) {
  epoll_event event{};
  event.events = what;
  event.data.fd = descriptor;
  require(::epoll_ctl(events, EPOLL_CTL_ADD, descriptor, &event) == 0, "watch a line");
}

// The timer rings at once if the time is past, and never if there is none.
void setTimer(int timer, std::optional<std::chrono::steady_clock::time_point> until) {
  using std::chrono::nanoseconds, std::chrono::seconds;
  itimerspec setting{};
  if (until) {
    const nanoseconds time = std::max(nanoseconds(1), nanoseconds(until->time_since_epoch()));
    const auto wholeSeconds = std::chrono::floor<seconds>(time);
    setting.it_value.tv_sec = static_cast<time_t>(wholeSeconds.count());
    setting.it_value.tv_nsec = static_cast<long>((time - wholeSeconds).count());
  }
  require(::timerfd_settime(timer, TFD_TIMER_ABSTIME, &setting, nullptr) == 0, "set a timer");
}

}  // namespace

// The other end counts as hung up while no program has it open, but only after it has been open
// once. So it is opened and closed here. Changes alone wake (EPOLLET), because a wait would
// otherwise never sleep while the other end is hung up.
PseudoTerminal::PseudoTerminal()
    : master_(owned(::posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC),
                    "open a pseudo-terminal")),
      timer_(owned(::timerfd_create(CLOCK_MONOTONIC, TFD_CLOEXEC), "make a timer")),
      waker_(owned(::eventfd(0, EFD_CLOEXEC), "make an event")),
      events_(owned(::epoll_create1(EPOLL_CLOEXEC), "make an event queue")),
      path_(pathOfOtherEnd(master_.number())) {
  owned(::open(path_.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC), "open a pseudo-terminal");
  require(clean(master_.number()), "prepare a pseudo-terminal");
  watch(events_.number(), master_.number(), EPOLLIN | EPOLLET);
  watch(events_.number(), timer_.number(), EPOLLIN);
  watch(events_.number(), waker_.number(), EPOLLIN);
}

void PseudoTerminal::wait(std::optional<std::chrono::steady_clock::time_point> until) {
  setTimer(timer_.number(), until);
  epoll_event event{};
  ::epoll_wait(events_.number(), &event, 1, -1);
  if (mayHoldUnread_ && !isOtherSideOpen()) {
    clean(master_.number());
    mayHoldUnread_ = false;
  }
}

void PseudoTerminal::wake() { ::eventfd_write(waker_.number(), 1); }

std::vector<std::uint8_t> PseudoTerminal::read() {
  std::vector<std::uint8_t> bytes;
  std::array<std::uint8_t, 1024> chunk{};
  while (true) {
    const ssize_t count = ::read(master_.number(), chunk.data(), chunk.size());
    if (count <= 0) return bytes;
    bytes.insert(bytes.end(), chunk.begin(), chunk.begin() + count);
  }
}

void PseudoTerminal::write(const std::vector<std::uint8_t>& bytes) {
  if (!isOtherSideOpen()) return;
  mayHoldUnread_ = ::write(master_.number(), bytes.data(), bytes.size()) > 0 || mayHoldUnread_;
}

bool PseudoTerminal::isOtherSideOpen() const {
  pollfd state{master_.number(), 0, 0};
  ::poll(&state, 1, 0);
  return (state.revents & POLLHUP) == 0;
}

}  // namespace zendor::simulator
