#pragma once

#include <QString>

namespace tolvar {

/// The host of a URL (RFC 3986), or "" when the text is no URL or its URL has none: lower case,
/// without brackets around an IPv6 address, without the dot of the root zone at its end. An
/// internationalised name is spelled in ASCII (RFC 5891 A-labels), so that every spelling of a
/// host compares equal.
QString hostOf(const QString& url);

/// The host that a person means by a text: of the text as a URL, or of "https://" + text, in the
/// spelling of `hostOf` but with a dot at its end kept, and without one leading "www.". A text in
/// which no host can be found is only trimmed, lower-cased and rid of one leading "www."; a blank
/// one gives "".
QString normalizedHost(const QString& text);

} // namespace tolvar
