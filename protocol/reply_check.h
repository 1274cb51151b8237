// Decides from what the receive store holds whether an exchange succeeded.
#pragma once

#include <string>

#include "protocol/frame.h"

namespace zendor {

// Empty when the reply is good, else "Error : " and the text of the first check that failed. The
// echo counts by its length only. Sets RxDataCount, and fills RxData as soon as the reply's length
// is right. The addresses are those that the request was sent with.
std::string LL_DRAVO_CheckReply(FrameStores& stores, int destination, int source);

}  // namespace zendor
