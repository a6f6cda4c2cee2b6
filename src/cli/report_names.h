#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace numarel {

// The window object that `name` stands for: a window object or a menu caption, either in any
// case. Empty when nothing matches.
std::string_view FindReportByName(std::string_view name);

// Up to `count` menu captions closest to `name`, closest first.
std::vector<std::string_view> ClosestCaptions(std::string_view name, std::size_t count = 5);

}  // namespace numarel
