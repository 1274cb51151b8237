// Looks for a program that holds the device that the argument names, as the port does at each open.
#include <sys/stat.h>

#include <cstdlib>

#include "platform/linux/port_holders.h"

int main(int argc, char** argv) {
  struct stat device {};
  if (argc != 2 || ::stat(argv[1], &device) != 0) return EXIT_FAILURE;
  return zendor::otherHolderOf(device) ? EXIT_SUCCESS : EXIT_FAILURE;
}
