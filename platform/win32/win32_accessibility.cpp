#include "platform/win32/win32_accessibility.h"

// The compiler's library defines the service under this name, but the header declares another one.
extern "C" const CLSID CLSID_AccPropServices;

namespace zendor {

PropertyServices propertyServices() {
  IAccPropServices* services = nullptr;
  CoCreateInstance(CLSID_AccPropServices, nullptr, CLSCTX_INPROC_SERVER, IID_IAccPropServices,
                   reinterpret_cast<void**>(&services));
  return PropertyServices(services);
}

}  // namespace zendor
