// Posts as many random messages to the program's window as the argument says, as any program of the
// same user can. It leaves out the messages that no window withstands: those that close the window,
// and those whose parameters Windows itself uses as pointers.
#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <random>

int main(int argc, char** argv) {
  if (argc != 2) return EXIT_FAILURE;
  const HWND form = FindWindowW(L"ZendorForm", nullptr);
  if (form == nullptr) {  // a message to no window would go to this thread
    std::printf("there is no window\n");
    return EXIT_FAILURE;
  }
  std::mt19937 random(1);
  const auto any = [&](std::uint32_t first, std::uint32_t last) {
    return std::uniform_int_distribution<std::uint32_t>(first, last)(random);
  };
  for (int left = std::atoi(argv[1]); left > 0;) {
    const UINT messages[] = {WM_APP,
                             WM_APP + 1,
                             any(WM_APP, 0xFFFF),
                             WM_USER,
                             WM_USER + 1,
                             any(WM_USER, WM_APP - 1),
                             WM_COMMAND,
                             WM_DPICHANGED,
                             WM_GETDPISCALEDSIZE,
                             WM_CTLCOLORSTATIC,
                             WM_NOTIFY};
    const UINT message = messages[any(0, std::size(messages) - 1)];
    // Half of the numbers are small, because the numbers of controls are.
    const WPARAM number = any(0, 1) ? any(0, 0x200) : any(0, MAXDWORD);
    const LPARAM parameter = any(0, 1) ? 0 : static_cast<LPARAM>(any(0, MAXDWORD));
    if (PostMessageW(form, message, number, parameter)) {
      --left;
    } else if (GetLastError() == ERROR_NOT_ENOUGH_QUOTA) {
      Sleep(1);  // the window's queue is full
    } else {
      std::printf("%d messages were not sent\n", left);
      return EXIT_FAILURE;
    }
    if (left % 50 == 0) Sleep(25);
  }
}
