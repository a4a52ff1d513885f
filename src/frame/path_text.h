// Small routines on path and template texts. They keep no state.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace kestrun {

// True for files and folders alike; any failure gives false.
[[nodiscard]] bool FileExists(const std::string& Path);

// The text before the last backslash; on a folder path that ends in one it strips it. Error 5 when there is none.
[[nodiscard]] std::string ParentFolder(const std::string& Path);

// The name behind the last separator. For a web address the server is asked first unless NoServer is set, which may
// cost a request; else the text between the last slash and a "?" behind it.
[[nodiscard]] std::string GetFileName(const std::string& Path, bool NoServer = false);

// The text behind the last ".", without it; empty when there is none.
[[nodiscard]] std::string GetExtension(const std::string& Path);

// The characters from First to Last, both inclusive and counted from 1. Error 5 when First is below 1 or Last below
// First - 1.
[[nodiscard]] std::string MidRange(const std::string& Text, int32_t First, int32_t Last);

// Replaces all "%1" by the first argument, then all "%2" by the second, and so on, also inside what was put in before.
[[nodiscard]] std::string FillPlaceholders(std::string Template, const std::vector<std::string>& Arguments);

// What tells the name that a server has for a web address, empty when it has none. Not set: no server is asked.
using UrlFileNameSource = std::function<std::string(const std::string& url)>;
void SetUrlFileNameSource(UrlFileNameSource source);

}  // namespace kestrun
