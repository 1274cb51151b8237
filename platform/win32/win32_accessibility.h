// The service of Windows that tells screen readers more about a window than the window itself does.
#pragma once

#include <oleacc.h>
#include <windows.h>

#include <memory>

namespace zendor {

struct ReleaseServices {
  void operator()(IAccPropServices* services) const { services->Release(); }
};
using PropertyServices = std::unique_ptr<IAccPropServices, ReleaseServices>;

// Screen readers ask this part of a window for the properties of the window.
inline constexpr auto kClient = static_cast<DWORD>(OBJID_CLIENT);

// Null where Windows lacks the service, or where the thread has not initialised COM.
PropertyServices propertyServices();

}  // namespace zendor
