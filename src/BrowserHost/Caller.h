#pragma once

#include <string>
#include <string_view>
#include <vector>

/// Who started the host.
namespace tolvar::Caller {

/// Whether the arguments behind the program's name are those with which a browser starts the host
/// of Tolvar's own extension: "chrome-extension://ID/" from Chromium and its kin, the manifest's
/// path and the extension's id from Firefox. There is one id for each kind.
bool isOurExtension(const std::vector<std::string_view>& arguments);

/// The base name of the browser's executable, by its process, with only letters, digits, '.', '_',
/// '+' and '-' of it and at most 64 of them; "browser" when it cannot be known.
std::string browserName(int process);

} // namespace tolvar::Caller
