// The user's regional settings, as Qt finds them.
#pragma once

#include "platform/regional.h"

namespace zendor {

Regional userRegional();

}  // namespace zendor
