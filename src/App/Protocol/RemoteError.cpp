#include "App/Protocol/RemoteError.h"

#include "App/Protocol/RemoteNames.h"

#include <algorithm>
#include <array>
#include <utility>

namespace tolvar {

namespace {

using Kind = RemoteError::Kind;

constexpr std::array<std::pair<Kind, const char*>, 13> errorNames = {{
    {Kind::noSession, "NoSession"},
    {Kind::sessionRunning, "SessionRunning"},
    {Kind::alreadyPaused, "AlreadyPaused"},
    {Kind::notPaused, "NotPaused"},
    {Kind::noPausesLeft, "NoPausesLeft"},
    {Kind::emptyGoal, "EmptyGoal"},
    {Kind::invalidDuration, "InvalidDuration"},
    {Kind::unknownCategory, "UnknownCategory"},
    {Kind::unknownPreset, "UnknownPreset"},
    {Kind::ambiguousName, "AmbiguousName"},
    {Kind::invalidApplication, "InvalidApplication"},
    {Kind::invalidWebsite, "InvalidWebsite"},
    {Kind::unknownSession, "UnknownSession"},
}};

QString prefix() {
    return RemoteNames::controlInterface + QStringLiteral(".Error.");
}

} // namespace

QString remoteErrorName(RemoteError::Kind kind) {
    const auto* const found = std::find_if(errorNames.begin(), errorNames.end(),
                                           [&](const auto& entry) { return entry.first == kind; });
    return prefix() + QString::fromLatin1(found->second);
}

std::optional<RemoteError::Kind> remoteErrorKind(const QString& name) {
    for (const auto& [kind, text] : errorNames)
        if (name == prefix() + QString::fromLatin1(text))
            return kind;
    return std::nullopt;
}

} // namespace tolvar
