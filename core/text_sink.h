// A receiver for a text that is too long to hold.
#pragma once

#include <functional>
#include <string_view>

namespace tarvelo {

// Receives a text piece by piece, in order. May throw if the text cannot continue.
using TextSink = std::function<void(std::string_view piece)>;

}  // namespace tarvelo
