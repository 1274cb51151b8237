#include "platform/win32/win32_accessibility.h"

// The compiler's library has the service by this name, but its header declares another name.
extern "C" const CLSID CLSID_AccPropServices;

namespace zendor {

PropertyServices propertyServices() {
  IAccPropServices* services = nullptr;
  CoCreateInstance(CLSID_AccPropServices, nullptr, CLSCTX_INPROC_SERVER, IID_IAccPropServices,
                   reinterpret_cast<void**>(&services));
  return PropertyServices(services);
}

}  // namespace zendor
