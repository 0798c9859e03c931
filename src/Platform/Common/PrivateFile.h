#pragma once

#include <QString>

#include <optional>

/// Files that only their owner may read, as far as they concern a database with helper files
/// beside it.
namespace tolvar::PrivateFile {

/// Makes the file, empty, and the folders above it where they are absent, with modes 0600 and 0700,
/// and closes an existing file to others. What cannot be done is left for the opening to tell.
void prepare(const QString& filePath);

/// Renames the file, or whatever stands in its place, and its helper files ("-wal", "-shm") to
/// "<file>.corrupt-<UTC time>" with their endings. Returns the new path, or nothing when that is
/// not possible.
std::optional<QString> moveAside(const QString& filePath);

} // namespace tolvar::PrivateFile
