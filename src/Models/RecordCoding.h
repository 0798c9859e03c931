#pragma once

#include "Models/FocusPreset.h"
#include "Models/FocusSession.h"

#include <QByteArray>

#include <optional>
#include <vector>

/// The stored form of the records: UTF-8 JSON documents (RFC 8259).
///
/// Dates are numbers of seconds since 2001-01-01 UTC, UUIDs upper-case text with hyphens, absent
/// optional fields are left out. Encoding gives nothing when a number is not finite. Decoding is
/// strict: a required key that is missing, a value of the wrong type or out of range, or a
/// document that is not JSON, fails the whole document. Keys that no record knows are ignored; of a
/// key that an object holds twice the last value counts.
namespace tolvar::RecordCoding {

std::optional<QByteArray> encode(const FocusSession& session);
std::optional<QByteArray> encode(const std::vector<FocusSession>& sessions);
std::optional<QByteArray> encode(const std::vector<FocusPreset>& presets);
std::optional<QByteArray> encode(const std::vector<BlockCategory>& categories);

// Pass a document that is no longer needed as an rvalue: it is then read without a copy of it.
std::optional<FocusSession> decodeSession(QByteArray json);
std::optional<std::vector<FocusSession>> decodeSessions(QByteArray json);
std::optional<std::vector<FocusPreset>> decodePresets(QByteArray json);
/// A category may also be a bare string; see `BlockCategory::fromBareName`.
std::optional<std::vector<BlockCategory>> decodeCategories(QByteArray json);

} // namespace tolvar::RecordCoding
