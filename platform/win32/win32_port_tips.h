// Tells which device is behind each option button of a window, in the button's tooltip and, for
// screen readers, in the button's description. Both change when an adapter is plugged in or out.
#pragma once

#include <windows.h>
// This needs windows.h before it.
#include <commctrl.h>

#include <functional>
#include <string>
#include <vector>

namespace zendor {

class Win32PortTips final {
 public:
  // The device behind a port, for people, UTF-8.
  using DescribePort = std::function<std::string(int portNumber)>;

  // Made on the window's thread. The first option button of the window chooses port 1, and so on.
  // The tips outlive the window.
  Win32PortTips(HWND window, DescribePort describePort);
  Win32PortTips(const Win32PortTips&) = delete;
  Win32PortTips& operator=(const Win32PortTips&) = delete;

 private:
  struct Choice {
    HWND button = nullptr;
    std::wstring told = {};  // the last description of its port
  };

  static LRESULT CALLBACK windowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                          UINT_PTR, DWORD_PTR tips);
  void findChoices();
  void addTips();
  void refresh();
  void fill(NMTTDISPINFOW& tip);

  const HWND window_;
  const DescribePort describePort_;
  HWND tips_ = nullptr;
  std::vector<Choice> choices_;
  std::wstring shown_;  // what a tooltip reads while it shows
};

}  // namespace zendor
