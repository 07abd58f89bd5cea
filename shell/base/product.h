// The program's name and title line. They are the same in every language.
#pragma once

namespace tarvelo {

inline constexpr char productName[] = "Tarvelo";
inline constexpr char productTitle[] = "Tarvelo v" TARVELO_VERSION;

}  // namespace tarvelo
