#pragma once

// The publisher's web pages. The host is a placeholder under the reserved ".example" domain: no
// page is fetched by the program itself, they open in the system's browser.
namespace numarel::publisher {

inline constexpr const char* kHost = "http://www.numarel.example";
inline constexpr const char* kHomePage = "http://www.numarel.example/";
inline constexpr const char* kNewsPage = "http://www.numarel.example/new.htm";
inline constexpr const char* kDataPage = "http://www.numarel.example/dtdl.htm";

}  // namespace numarel::publisher
