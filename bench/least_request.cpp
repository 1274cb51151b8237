// Makes a request on the device that the argument names for each line on standard input, and
// prints how many milliseconds it took.
#include "bench/least_request.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>

int main(int argc, char** argv) {
  using Time = std::chrono::steady_clock;
  if (argc != 2) return EXIT_FAILURE;
  while (std::getchar() != EOF) {
    const auto start = Time::now();
    if (!zendor::makeLeastRequest(argv[1])) return EXIT_FAILURE;
    const std::chrono::duration<double, std::milli> took = Time::now() - start;
    std::printf("%.3f\n", took.count());
    std::fflush(stdout);
  }
  return EXIT_SUCCESS;
}
