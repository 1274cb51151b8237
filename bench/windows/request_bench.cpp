// Clicks the button of the real window, on the device behind COM1, for each line on the standard
// input. Prints how many milliseconds the request took and how many handles and GDI objects the
// program has afterwards.
#include <windows.h>
#include <winternl.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include "app/frm_startup.h"
#include "platform/shared/steady_clock.h"
#include "platform/win32/win32_desktop.h"
#include "platform/win32/win32_form.h"
#include "platform/win32/win32_port_devices.h"
#include "platform/win32/win32_serial_port.h"

// Exported by ntdll, declared by no header.
extern "C" PPEB NTAPI RtlGetCurrentPeb();

namespace {

using Time = std::chrono::steady_clock;
using Milliseconds = std::chrono::duration<double, std::milli>;

// Wine does not implement the calls that tell how many handles and GDI objects a process has. So
// the handles are tried one by one, and the GDI objects are counted in the process's table of them.
int handles() {
  int count = 0;
  DWORD flags = 0;
  for (std::uintptr_t value = 4; value < 0x4000; value += 4) {
    // NOLINTNEXTLINE(performance-no-int-to-ptr)
    if (GetHandleInformation(reinterpret_cast<HANDLE>(value), &flags)) ++count;
  }
  return count;
}

struct GdiEntry {
  void* object;
  std::uint32_t owner;
  std::uint16_t generation;
  std::uint8_t type, flags;  // the type of a free entry is 0
  void* user;
};

std::ptrdiff_t gdiObjects() {
  constexpr std::size_t kTableOffset = 0xF8, kEntries = 0x10000;
  const auto* const process = reinterpret_cast<char*>(RtlGetCurrentPeb());
  const auto* const table = *reinterpret_cast<const GdiEntry* const*>(process + kTableOffset);
  return std::count_if(table, table + kEntries,
                       [](const GdiEntry& entry) { return entry.type != 0; });
}

// Passes the events of the window on, times each request, and then clicks for the next one.
class TimedEvents final : public zendor::FormEvents {
 public:
  TimedEvents(zendor::FormEvents& events, zendor::WindowCalls& calls)
      : events_(events), calls_(calls) {}

  void Form_Load() override { events_.Form_Load(); }
  void Form_Activate() override {
    events_.Form_Activate();
    click();
  }
  void Form_Unload() override { std::_Exit(EXIT_FAILURE); }
  void Control_Click(const zendor::ControlId& control) override {
    const auto start = Time::now();
    events_.Control_Click(control);
    const double took = Milliseconds(Time::now() - start).count();
    // Counted between two paints, because a paint holds GDI objects for a while.
    calls_.callAndWait([&] {
      RedrawWindow(calls_.window(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
      std::printf("%.3f %d %td\n", took, handles(), gdiObjects());
    });
    std::fflush(stdout);
    click();
  }

 private:
  void click() const {
    if (std::getchar() == EOF) std::_Exit(EXIT_SUCCESS);
    PostMessageW(FindWindowExW(calls_.window(), nullptr, L"Button", L"Get Serial Number"), BM_CLICK,
                 0, 0);
  }

  zendor::FormEvents& events_;
  zendor::WindowCalls& calls_;
};

}  // namespace

int main() {
  zendor::Win32Form form(zendor::frmStartup::description());
  zendor::Win32SerialPort port{&zendor::comPortOf};
  zendor::Win32Desktop desktop(form.calls());
  const zendor::SteadyClock clock;
  zendor::frmStartup startup(form, port, desktop, clock, {}, {});
  TimedEvents events(startup, form.calls());
  form.run(events);
}
