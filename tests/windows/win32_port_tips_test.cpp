// What screen readers are told of the choices. The test plays the service of Windows that tells
// them, because Wine accepts no description from a program.
#include "platform/win32/win32_port_tips.h"

#include <gtest/gtest.h>
#include <objbase.h>

#include "platform/win32/win32_text.h"
#include "tests/doubles.h"

namespace {

zendor::doubles::Log told;  // the number of each described button, with the description

HRESULT describe(void*, HWND button, DWORD, DWORD, GUID, const wchar_t* text) {
  told.push_back(std::to_string(GetDlgCtrlID(button)) + ": " + zendor::utf8FromWide(text));
  return S_OK;
}
ULONG release(void*) { return 0; }

// The service of Windows, of whose methods two are called: Release and SetHwndPropStr.
const void* methods[18] = {nullptr, nullptr, reinterpret_cast<void*>(&release), nullptr, nullptr,
                           nullptr, nullptr, reinterpret_cast<void*>(&describe)};
const void** service = methods;

bool comeToBeTold(std::size_t count) {
  return zendor::doubles::comesTrue([=] {
    for (MSG message{}; PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE);)
      DispatchMessageW(&message);
    return told.size() >= count;
  });
}

TEST(Win32PortTips, DescribeEveryChoiceAndThenOnlyWhatHasChanged) {
  const auto create = [](const wchar_t* kind, DWORD style, HWND parent, LONG_PTR number) {
    const HWND made =
        CreateWindowExW(0, kind, L"", style, 0, 0, 9, 9, parent, nullptr, nullptr, nullptr);
    SetWindowLongPtrW(made, GWLP_ID, number);
    return made;
  };
  const HWND window = create(WC_STATICW, 0, HWND_MESSAGE, 0);
  create(WC_BUTTONW, WS_CHILD | BS_DEFPUSHBUTTON, window, 9);
  for (const LONG_PTR number : {1, 2})
    create(WC_BUTTONW, WS_CHILD | BS_AUTORADIOBUTTON, window, number);
  std::string second = "nothing";
  const zendor::Win32PortTips tips(window, [&](int port) { return port == 1 ? "COM1" : second; });
  EXPECT_TRUE(told.empty());  // the first look does not hold up the window
  EXPECT_TRUE(comeToBeTold(2));
  second = "COM2, Adapter";
  SendMessageW(window, WM_DEVICECHANGE, 7, 0);
  EXPECT_TRUE(comeToBeTold(3));
  EXPECT_EQ(told, (zendor::doubles::Log{"1: COM1", "2: nothing", "2: COM2, Adapter"}));
}

}  // namespace

// A program calls what it imports from Windows through such a pointer, so this file can put a
// function of its own there.
extern "C" {
// NOLINTNEXTLINE(clang-diagnostic-reserved-identifier)
decltype(&CoCreateInstance) __imp_CoCreateInstance = [](const auto&, auto, auto, const auto&,
                                                        void** result) {
  *result = &service;
  return HRESULT{S_OK};
};
}
