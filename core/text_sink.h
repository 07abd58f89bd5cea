// Where a text goes that is too long to be held whole.
#pragma once

#include <functional>
#include <string_view>

namespace tarvelo {

// Takes a text piece by piece, in its order. May throw where the text cannot go on.
using TextSink = std::function<void(std::string_view piece)>;

}  // namespace tarvelo
