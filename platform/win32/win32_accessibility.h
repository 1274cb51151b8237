// The service of Windows that tells screen readers more about a window than the window itself does.
#pragma once

#include <windows.h>
// This needs windows.h before it.
#include <oleacc.h>

#include <memory>

namespace zendor {

struct ReleaseServices {
  void operator()(IAccPropServices* services) const { services->Release(); }
};
using PropertyServices = std::unique_ptr<IAccPropServices, ReleaseServices>;

// The part of a window that its properties belong to.
inline constexpr auto kClient = static_cast<DWORD>(OBJID_CLIENT);

// Null where Windows lacks the service, or where the thread has not initialised COM.
PropertyServices propertyServices();

}  // namespace zendor
