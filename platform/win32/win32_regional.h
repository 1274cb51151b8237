// The number format that the user has set in Windows.
#pragma once

#include "platform/regional.h"

namespace zendor {

Regional userRegional();

}  // namespace zendor
