// A yield that rests for a moment. It takes the place of the system's own in a program that is
// linked with it, or started with it in LD_PRELOAD.
//
// The tests run several windows side by side. A request that only yields takes all of a processor,
// and several of them keep the kernel for seconds from handing over what passes the
// pseudo-terminals. So these windows rest instead.
#include <sched.h>

#include <ctime>

int sched_yield() noexcept {
  constexpr timespec kMoment{0, 100'000};
  return ::nanosleep(&kMoment, nullptr);
}
