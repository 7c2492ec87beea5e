// Text checks for the content of edit controls. Both return 1 for acceptable, 0 otherwise.
#pragma once

#include <string_view>

namespace varcfg {

// Empty, or decimal digits only.
int IsDigitString(std::wstring_view text);

// Empty, or digits and points that neither begin nor end with a point. The number of points is not
// limited ("1.2.3" passes): pages that need a single point check it themselves.
int IsDecimalString(std::wstring_view text);

}  // namespace varcfg
