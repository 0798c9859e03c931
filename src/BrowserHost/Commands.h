#pragma once

#include <string_view>

namespace tolvar {

/// Whether a frame of the program is one of the two that an extension may be sent, letter by
/// letter:
///
///     {"command":"list"}
///     {"command":"blank","tabs":[93,94]}
///
/// with one to 1000 tabs, each a number of at most 15 digits. Nothing else is JSON enough: no
/// blanks, no other order, no other member.
bool isPermittedCommand(std::string_view frame);

} // namespace tolvar
