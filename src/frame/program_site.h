// Where the program lives on the web. The address belongs to whoever puts a build on the web: it is set there with
// -DCMAKE_CXX_FLAGS=-DKESTRUN_HOME_PAGE='"http://..."'; the one below is reserved for examples and leads nowhere.
#pragma once

namespace kestrun {

#ifdef KESTRUN_HOME_PAGE
inline constexpr const char* kHomePage = KESTRUN_HOME_PAGE;
#else
inline constexpr const char* kHomePage = "http://www.kestrun.example/";
#endif

}  // namespace kestrun
